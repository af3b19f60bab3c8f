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

// Shows the models to the user. The runtime and the models call the stage. The stage changes a
// model only through Gestures.h and Keyboard.h. It may put off the creation of a native window: a
// form that was never shown needs none.
class Stage {
  public:
    virtual ~Stage() = default;

    virtual void FormLoaded(Form& form) = 0;
    // Called when the form is unloaded, even if it was never shown. The stage discards everything
    // that it created for the form.
    virtual void FormUnloaded(Form& form) = 0;
    // Makes the screen match the form's visibility and window state. The runtime calls this after
    // one of them has changed: when the handler returns or waits, or later, between other events,
    // if the handler has shown many forms. Several changes may cause one call.
    virtual void ShowOrHide(Form& form) = 0;
    // Called when a property of a loaded form has changed.
    virtual void FormChanged(Form& form, Aspect aspect) = 0;
    virtual void ControlChanged(Control& control, Aspect aspect) = 0;
    virtual void MenuChanged(Menu& menu, Aspect aspect) = 0;
    // Called when the result of form.IsUsable() has changed, because a modal form was shown or
    // closed.
    virtual void UsableChanged(Form& form) = 0;
    virtual void FocusMoved(Control& control) = 0;
    virtual void BringToForeground(Form& form) = 0;
    // The whole content of a text box in which the user has typed.
    virtual std::string FetchText(TextBox& textBox) = 0;

    // These functions wait and let events in. They return early if the runtime ends.
    virtual BoxResult ShowMessageBox(const BoxRequest& request) = 0;
    virtual void RunModal(Form& form) = 0;                    // returns when !form.IsVisible()
    virtual Menu* ShowPopupMenu(Form& form, Menu& menu) = 0;  // the chosen entry, or null
    virtual std::optional<std::string> ShowOpenDialog(Form& form,
                                                      const FileDialogRequest& request) = 0;
    virtual void RunMainLoop() = 0;  // returns when no form is loaded
    virtual void RunFor(int milliseconds) = 0;

    // Called when the runtime ends. Every pump must return soon.
    virtual void Quit() = 0;
    // The stage must call Runtime::RunDueTimers at this time (in monotonic milliseconds; empty:
    // never), or at once if the time has passed. Other events must not delay the call for long,
    // however many there are.
    virtual void ArmTimer(std::optional<std::int64_t> due) = 0;

    // The size of a text of one or more lines. fontSize is in points, or 0 for the form's own font.
    virtual Size MeasureText(const Form& form, const std::string& text, int fontSize) = 0;
    virtual Size InnerSize(const Form& form) = 0;
    // The size that the title bar, the menu bar and the border add to the inner size.
    virtual Size FrameSize(const Form& form) = 0;
    virtual void SetMousePointer(MousePointer pointer) = 0;
};

}  // namespace forms
