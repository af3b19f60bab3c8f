#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "forms/Form.h"
#include "forms/MsgBox.h"

namespace forms {

struct Size {
    int width = 0;   // twips
    int height = 0;  // twips
};

enum class MousePointer { Default, Hourglass };

// Shows the models to a person. The runtime and the models call it; it changes a model only through
// Gestures.h and Keyboard.h. A stage may make native windows as late as it likes: a form that was
// never shown needs none.
class Stage {
  public:
    virtual ~Stage() = default;

    virtual void FormLoaded(Form& form) = 0;
    // The form is unloaded: the stage discards everything that it made for it. Also called for a
    // form that was never shown.
    virtual void FormUnloaded(Form& form) = 0;
    // Makes the screen match the form: visible or not, in its window state. Called at the end of
    // the handler in which one of them changed, or before that handler waits for something.
    virtual void ShowOrHide(Form& form) = 0;
    // A property changed, of a form that is loaded.
    virtual void FormChanged(Form& form, Aspect aspect) = 0;
    virtual void ControlChanged(Control& control, Aspect aspect) = 0;
    virtual void MenuChanged(Menu& menu, Aspect aspect) = 0;
    // IsUsable of the form has changed, because a modal form was shown or is gone.
    virtual void UsableChanged(Form& form) = 0;
    virtual void FocusMoved(Control& control) = 0;
    virtual void BringToForeground(Form& form) = 0;
    // The text that the user typed into a box since it was last fetched.
    virtual std::string FetchText(TextBox& textBox) = 0;

    // These wait and let events in. Each returns at once when the runtime ends.
    virtual BoxResult ShowMessageBox(const BoxRequest& request) = 0;
    virtual void RunModal(Form& form) = 0;                    // until !form.IsVisible()
    virtual Menu* ShowPopupMenu(Form& form, Menu& menu) = 0;  // chosen entry or null
    virtual std::optional<std::string> ShowOpenDialog(Form& form,
                                                      const FileDialogRequest& request) = 0;
    virtual void RunMainLoop() = 0;  // until no form is loaded

    // The runtime ends: every pump returns soon.
    virtual void Quit() = 0;
    // The stage must call Runtime::RunDueTimers at this time (monotonic milliseconds; empty:
    // never), and at once if it has passed. A flood of events must not delay the call for long.
    virtual void ArmTimer(std::optional<std::int64_t> due) = 0;

    // Size of a text of several lines; fontSize in points, 0 for the form's own font.
    virtual Size MeasureText(const Form& form, const std::string& text, int fontSize) = 0;
    virtual Size InnerSize(const Form& form) = 0;
    // The size that title bar, menu bar and border add to the inner size.
    virtual Size FrameSize(const Form& form) = 0;
    virtual void SetMousePointer(MousePointer pointer) = 0;
};

}  // namespace forms
