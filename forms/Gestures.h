#pragma once

#include <string>

#include "forms/Controls.h"
#include "forms/Form.h"

// The user's actions, one function for each. Both stages report through these functions only, so
// that they agree on the events. Handlers run inside Runtime::Dispatch. A gesture does nothing if
// its target is hidden, disabled or shut off by a modal form. There are exceptions: Typed, Close
// and Resize report a change that the window shows already, or a request of the system, and need
// only a loaded form. Choose also takes the menu of a hidden form. TrayMessage reaches every loaded
// form.
namespace forms::gestures {

bool CanUse(const Control& control);

void Click(Control& control);
void DoubleClick(Control& control);
void ClickToolbar(Toolbar& toolbar, const std::string& key);
void Typed(TextBox& textBox);  // Stage::FetchText gives the content when it is next read
void Select(ComboBox& comboBox, int index);
void Select(ListView& listView, int row);
void Pick(DateTimePicker& picker, base::DateTime value);
void Focus(Control& control);

// x and y in twips from the corner of the control or of the form's inside.
void MouseUp(Control& control, int button, int x, int y);
void MouseUp(Form& form, int button, int x, int y);
void MouseMove(Form& form, int button, int x, int y);
// The callback of the tray icon. Its callback message is the mouse move, so the message number
// arrives as a horizontal place. It also reaches a form that is hidden or shut off.
void TrayMessage(Form& form, int message);

void Choose(Menu& menu);  // menu bar or pop-up
void Activate(Form& form);
void Close(Form& form, UnloadMode mode = UnloadMode::CloseBox);
// The user moved, sized, minimised, restored or maximised the window.
void Resize(Form& form, Rect bounds, WindowState windowState);
// The user is logging off: unloads every form with mode SessionEnd, in order, and ends the program,
// even if it waits for something.
void EndSession();

}  // namespace forms::gestures
