#pragma once

#include <cstdint>
#include <utility>

namespace forms {

// The part of a form or a control that has changed, so that the stage must show it again.
enum class Aspect : std::uint8_t {
    Caption,  // caption of a form, a label, a button, a menu item
    Text,     // content of a text box
    Value,    // check box, option button, date-time picker, list index
    Enabled,
    Visible,
    Bounds,  // left, top, width, height
    BackColor,
    ForeColor,
    FontSize,
    ToolTip,
    Picture,  // picture of an image, icon of a form
    Items,    // rows of a list, buttons of a tool bar
    WindowState,
    TopMost,
    Checked,   // check mark of a menu item
    Format,    // display format of a picker
    Interval,  // of a timer
    Default,   // button pressed by Enter or Escape
};

// An object that has properties. Each property calls Changed after its value has changed.
class Observed {
  public:
    virtual void Changed(Aspect aspect) = 0;

  protected:
    Observed() = default;
    ~Observed() = default;
    Observed(const Observed&) = delete;
    Observed& operator=(const Observed&) = delete;
};

// A value that calls its owner's Changed with the aspect when a different value is assigned.
template <class T, Aspect aspect>
class Property {
  public:
    explicit Property(Observed& propertyOwner, T initial = T{})
        : owner(propertyOwner), value(std::move(initial)) {}
    Property(const Property&) = delete;

    Property& operator=(const Property& other) { return *this = other.value; }
    Property& operator=(T newValue) {
        if (!(value == newValue)) {
            value = std::move(newValue);
            owner.Changed(aspect);
        }
        return *this;
    }

    operator const T&() const { return value; }
    const T& operator()() const { return value; }

    // Takes a value that the stage already shows: Changed is not called.
    void Adopt(T shown) { value = std::move(shown); }

  private:
    Observed& owner;
    T value;
};

template <class T, Aspect aspect>
bool operator==(const Property<T, aspect>& property, const T& value) {
    return property() == value;
}

}  // namespace forms
