#pragma once

#include <functional>
#include <string>

#include "forms/Color.h"
#include "forms/Property.h"

namespace forms {

class Form;
class Control;

enum class ControlKind {
    Label,
    TextBox,
    CommandButton,
    CheckBox,
    OptionButton,
    Frame,
    ComboBox,
    ListBox,
    ListView,
    DateTimePicker,
    Image,
    Shape,
    Line,
    Toolbar,
};

// Bits of the mouse button argument of a mouse event.
enum MouseButton : int { leftButton = 1, rightButton = 2, middleButton = 4 };

using ClickHandler = std::function<void()>;
// x and y in twips from the control's own corner.
using MouseHandler = std::function<void(int button, int x, int y)>;

// A place on a form. Lengths in twips (15 to a pixel at 96 dpi).
struct Rect {
    int left = 0;
    int top = 0;
    int width = 0;
    int height = 0;
    bool operator==(const Rect&) const = default;
};

// What every control has. Controls are members of their form and live exactly as long; they are
// listed in the form in the order of their declaration, which is also the tab order unless
// tabIndex says otherwise.
class Control : public Observed {
  public:
    Control(Form* parent, ControlKind controlKind, const char* controlName);
    virtual ~Control() = default;

    const ControlKind kind;
    const char* const name;  // as in the code: "cmdStart"; arrays share one name
    Form& form;

    Property<int> left{*this, Aspect::Bounds};
    Property<int> top{*this, Aspect::Bounds};
    Property<int> width{*this, Aspect::Bounds};
    Property<int> height{*this, Aspect::Bounds};
    Property<bool> visible{*this, Aspect::Visible, true};
    Property<bool> enabled{*this, Aspect::Enabled, true};
    Property<std::string> toolTip{*this, Aspect::ToolTip};

    // The frame that holds the control, or null for the form itself. left and top count from the
    // container's corner. Set in Design only.
    Control* container = nullptr;
    // Order of the Tab key among the form's controls; -1 stands for the order of declaration.
    // Set in Design only.
    int tabIndex = -1;
    // Name that a screen reader speaks where the control has no caption and no label before it.
    std::string accessibleName;

    MouseHandler MouseUp;

    // From the corner of the form's inside, whatever contains the control.
    Rect PlaceOnForm() const;
    void Place(int newLeft, int newTop, int newWidth, int newHeight);
    void PlaceIn(Control& newContainer, int newLeft, int newTop, int newWidth, int newHeight);

    // Gives the control the keyboard focus, now or, where its form is not visible, when the form
    // is shown. A visible form becomes the active one.
    void SetFocus();
    bool HasFocus() const;
    virtual bool CanHaveFocus() const { return false; }
    // Whether the user can give it the focus now (the form aside).
    bool CanTakeFocus() const;
    // Whether the Tab key stops at it now.
    virtual bool IsTabStop() const { return CanTakeFocus(); }
    // Whether it uses the Enter key itself while it has the focus.
    virtual bool TakesEnter() const { return false; }
    // Whether the menu key opens a menu of its own.
    virtual bool HasOwnMenu() const { return false; }
    // Of controls that overlap under the pointer the one with the highest rank is found; 0: never.
    virtual int PointerRank() const { return 3; }

    // Whether the user can see it (the form aside): visible itself and in visible containers.
    bool IsEffectivelyVisible() const;
    // Whether the user can use it: enabled itself and in enabled containers.
    bool IsEffectivelyEnabled() const;

    void Changed(Aspect aspect) override;
    // For Gestures only: the user has clicked or double-clicked the control.
    virtual void Clicked() {}
    virtual void DoubleClicked() {}

  protected:
    static void Raise(const ClickHandler& handler);
};

}  // namespace forms
