#pragma once

#include <string>

#include "forms/Controls.h"
#include "forms/Form.h"

// What the user did, one entry a gesture. Both stages report through these and only these, so that
// what raises which event is settled once. Each runs its handlers inside Runtime::Dispatch. A
// gesture on something that cannot be used (hidden, disabled, shut off by a modal form) does
// nothing. Exceptions are Typed, Close, Resize, Choose and TrayMessage. The first three report what
// the window shows already, or what the system asks of it, and need only a loaded form; a menu may
// belong to a form that is hidden; the tray reaches every form.
namespace forms::gestures {

bool CanUse(const Control& control);

void Click(Control& control);
void DoubleClick(Control& control);
void ClickToolbar(Toolbar& toolbar, const std::string& key);
void Typed(TextBox& textBox);  // the stage is asked for the content when it is read
void Select(ComboBox& comboBox, int index);
void Select(ListView& listView, int row);
void Pick(DateTimePicker& picker, base::DateTime value);
void Focus(Control& control);

// x and y in twips from the corner of the control or of the form's inside.
void MouseUp(Control& control, int button, int x, int y);
void MouseUp(Form& form, int button, int x, int y);
void MouseMove(Form& form, int button, int x, int y);
// The tray's callback: the message number arrives as a horizontal place, as it does with an icon
// whose callback message is the mouse move. Reaches a form that is hidden or shut off too.
void TrayMessage(Form& form, int message);

void Choose(Menu& menu);  // menu bar or pop-up
void Activate(Form& form);
void Close(Form& form, UnloadMode mode = UnloadMode::CloseBox);
// The user moved, sized, minimised, restored or maximised the window.
void Resize(Form& form, Rect bounds, WindowState windowState);
// The session of the system's user ends: every form is unloaded with mode SessionEnd, in order;
// then the program ends, whatever it waited for.
void EndSession();

}  // namespace forms::gestures
