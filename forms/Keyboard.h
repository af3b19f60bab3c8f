#pragma once

#include <string>

#include "forms/Form.h"

// These functions handle the keys that belong to the form instead of the control that has the
// focus. The stages only translate native keys into calls of these functions.
namespace forms::gestures {

enum class KeyUse {
    Used,       // the form has reacted to the key
    Unused,     // nothing on the form reacts to the key
    ByControl,  // the control that has the focus handles the key itself
};

// The access key of a caption, as a capital: the letter after the first single ampersand. 0 if
// there is none.
char AccessKeyOf(const std::string& caption);

// Moves the focus to the next or the previous Tab stop.
KeyUse PressTab(Form& form, bool backward = false);
// Handles Alt and a letter, in either case. The access key of a label or a frame leads to the next
// control that can take the focus. If only one control has the key, it gets the focus and is
// pressed. If several controls have the key, the next of them after the focus gets the focus, but
// is not pressed.
KeyUse PressAccessKey(Form& form, char letter);
// Handles a letter without Alt. The letter is an access key unless the control that has the focus
// takes letters.
KeyUse PressLetter(Form& form, char letter);
// Presses the button that has the focus, else the default button.
KeyUse PressEnter(Form& form);
// Presses the cancel button. If there is none, closes the form if it is a dialog
// (BorderStyle::Dialog).
KeyUse PressEscape(Form& form);
// Handles the menu key or Shift+F10. If the control that has the focus has a MouseUp handler, the
// key acts as a click of the right mouse button on that control. Otherwise, if the control has a
// menu of its own, the control handles the key. Otherwise the key acts as a right click on the
// form.
KeyUse PressMenuKey(Form& form);
// Presses the button or chooses the menu entry that the key stands for in the form, if the user can
// use it. If F1 stands for nothing in the form, calls Application::onHelp.
KeyUse PressShortcut(Form& form, Shortcut key);

}  // namespace forms::gestures
