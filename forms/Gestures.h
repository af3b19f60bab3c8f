#pragma once

#include <string>

#include "forms/Controls.h"
#include "forms/Form.h"

// The user's actions, with one function for each. Both stages report actions only through these
// functions, so that both raise the same events. Handlers run inside Runtime::Dispatch.
//
// A gesture does nothing if its target is hidden or disabled, or if a modal form disables its
// window.
//
// Some gestures work for every loaded form: Typed and Resize report a change that the window
// already shows, Close may be a request of the system, and TrayMessage comes from outside the
// window. Choose needs only a menu entry that is visible and enabled, because a hidden form may
// open a pop-up menu.
namespace forms::gestures {

bool CanUse(const Control& control);
bool CanChoose(const Menu& menu);

void Click(Control& control);
void DoubleClick(Control& control);
void ClickToolbar(Toolbar& toolbar, const std::string& key);
void Typed(TextBox& textBox);  // the next read of the text calls Stage::FetchText
void Select(ComboBox& comboBox, int index);
void Select(ListView& listView, int row);
void Pick(DateTimePicker& picker, base::DateTime value);
void Focus(Control& control);

// x and y are in twips, from the corner of the control or of the form's inside.
void MouseUp(Control& control, int button, int x, int y);
void MouseUp(Form& form, int button, int x, int y);
void MouseMove(Form& form, int button, int x, int y);
// Reports the callback message of the tray icon. It arrives at the form as a move of the mouse,
// with the number of the tray's message as the horizontal position.
void TrayMessage(Form& form, int message);

void Choose(Menu& menu);  // menu bar or pop-up
void Activate(Form& form);
void Close(Form& form, UnloadMode mode = UnloadMode::CloseBox);
// Reports that the user moved, sized, minimised, restored or maximised the window.
void Resize(Form& form, Rect bounds, WindowState windowState);
// Reports that the user is logging off. Unloads every form with mode SessionEnd, in the order in
// which they were loaded, and ends the program, even if a handler is waiting for the user.
void EndSession();

}  // namespace forms::gestures
