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
// x and y are in twips, from the control's own corner.
using MouseHandler = std::function<void(int button, int x, int y)>;

// A place on a form, in twips (15 to a pixel at 96 dpi).
struct Rect {
    int left = 0;
    int top = 0;
    int width = 0;
    int height = 0;
    bool operator==(const Rect&) const = default;
};

// The base of all controls. Controls are members of their form and live as long as it does. The
// form lists them in the order of their declaration, which is also the order of the Tab key unless
// tabIndex changes it.
class Control : public Observed {
  public:
    Control(Form* parent, ControlKind controlKind, const char* controlName);
    virtual ~Control() = default;

    const ControlKind kind;
    const char* const name;  // for example "cmdStart"; the controls of an array share it
    Form& form;

    Property<int, Aspect::Bounds> left{*this};
    Property<int, Aspect::Bounds> top{*this};
    Property<int, Aspect::Bounds> width{*this};
    Property<int, Aspect::Bounds> height{*this};
    Property<bool, Aspect::Visible> visible{*this, true};
    Property<bool, Aspect::Enabled> enabled{*this, true};
    Property<std::string, Aspect::ToolTip> toolTip{*this};

    // The frame that contains the control, or null if the form itself does. left and top are
    // relative to the container's corner. Set in Design only.
    Control* container = nullptr;
    // Place in the order of the Tab key among the form's controls. -1: the place of the
    // declaration. Set in Design only.
    int tabIndex = -1;
    // The name that a screen reader speaks if the control has neither a caption nor a label before
    // it.
    std::string accessibleName;

    MouseHandler MouseUp;

    // The place relative to the corner of the form's inside, even if a frame contains the control.
    Rect PlaceOnForm() const;
    void Place(int newLeft, int newTop, int newWidth, int newHeight);
    void PlaceIn(Control& newContainer, int newLeft, int newTop, int newWidth, int newHeight);

    // Gives the control the keyboard focus and makes its form the active one. If the form is not
    // visible, both happen when the form is shown. Does nothing if the control is hidden or
    // disabled.
    void SetFocus();
    bool HasFocus() const;
    virtual bool CanHaveFocus() const { return false; }
    // Whether the user can give the control the focus now. Does not check whether the form is
    // usable.
    bool CanTakeFocus() const;
    // Whether the Tab key stops at the control now.
    virtual bool IsTabStop() const { return CanTakeFocus(); }
    // Whether the control itself handles the Enter key while it has the focus.
    virtual bool TakesEnter() const { return false; }
    // Whether the control itself handles letters while it has the focus.
    virtual bool TakesLetters() const { return false; }
    // Whether the menu key opens a menu of the control's own.
    virtual bool HasOwnMenu() const { return false; }
    // If controls overlap, the pointer finds the control with the highest rank. The pointer never
    // finds a control of rank 0.
    virtual int PointerRank() const { return 3; }

    // Whether the control and all its containers are visible.
    bool IsEffectivelyVisible() const;
    // Whether the control and all its containers are enabled.
    bool IsEffectivelyEnabled() const;

    // Reports the change to the stage, then calls AfterChange.
    void Changed(Aspect aspect) final;
    // The control's own reaction to a changed property. Raises the event for the change, if there
    // is one.
    virtual void AfterChange(Aspect /*aspect*/) {}
    // Called by Gestures only, when the user has clicked or double-clicked the control.
    virtual void Clicked() {}
    virtual void DoubleClicked() {}

  protected:
    static void Raise(const ClickHandler& handler);
};

}  // namespace forms
