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

// What shows the models to a person. The runtime and the models call it; it never changes a model
// but through Gestures.h. A stage may make native things as late as it likes: a form that was never
// shown needs none.
class Stage {
  public:
    virtual ~Stage() = default;

    virtual void FormLoaded(Form& form) = 0;
    // The form is unloaded: whatever the stage made for it goes. Also for forms never shown.
    virtual void FormUnloaded(Form& form) = 0;
    // Makes the screen match the form: visible or not, in its window state. Called at the end of
    // the handler in which one of them changed, or before that handler waits for something.
    virtual void ShowOrHide(Form& form) = 0;
    // A property changed, of a form that is loaded.
    virtual void FormChanged(Form& form, Aspect aspect) = 0;
    virtual void ControlChanged(Control& control, Aspect aspect) = 0;
    virtual void MenuChanged(Menu& menu, Aspect aspect) = 0;
    // A form can be used by the user or is shut off by a modal one.
    virtual void UsableChanged(Form& form) = 0;
    virtual void FocusMoved(Control& control) = 0;
    virtual void BringToForeground(Form& form) = 0;
    // What the user typed into a box since it was last fetched.
    virtual std::string FetchText(TextBox& textBox) = 0;

    // These pump: events go on meanwhile. Each returns at once when the runtime ends.
    virtual BoxResult ShowMessageBox(const BoxRequest& request) = 0;
    virtual void RunModal(Form& form) = 0;                    // until !form.IsVisible()
    virtual Menu* ShowPopupMenu(Form& form, Menu& menu) = 0;  // chosen entry or null
    virtual std::optional<std::string> ShowOpenDialog(Form& form,
                                                      const FileDialogRequest& request) = 0;
    virtual void RunMainLoop() = 0;  // until no form is loaded

    // The runtime ends: every pump returns soon.
    virtual void Quit() = 0;
    // When to call Runtime::RunDueTimers next: monotonic milliseconds, or never. A moment that has
    // passed means at once. However many events come, the call is not put off for long.
    virtual void ArmTimer(std::optional<std::int64_t> due) = 0;

    // Size of a text of several lines; fontSize in points, 0 for the form's own font.
    virtual Size MeasureText(const Form& form, const std::string& text, int fontSize) = 0;
    virtual Size InnerSize(const Form& form) = 0;
    // What title bar, menu bar and border add to the inner size.
    virtual Size FrameSize(const Form& form) = 0;
    virtual void SetMousePointer(MousePointer pointer) = 0;
};

}  // namespace forms
