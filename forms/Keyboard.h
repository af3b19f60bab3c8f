#pragma once

#include "forms/Form.h"

// The keys that a form handles, not the control that has the focus. The stages translate native
// keys into these functions and decide nothing about them.
namespace forms::gestures {

enum class KeyUse {
    Used,       // the form has reacted to the key
    Unused,     // nothing on the form reacts to the key
    ByControl,  // the control that has the focus handles the key itself
};

// Moves the focus to the next Tab stop, or to the one before.
KeyUse PressTab(Form& form, bool backward = false);
// Alt and a letter, small or capital. The key of a label or a frame leads to the control that
// follows it. A single control with the key gets the focus and is pressed; of several the next one
// behind the focus gets the focus only.
KeyUse PressAccessKey(Form& form, char letter);
// Presses the button that has the focus, else the default button.
KeyUse PressEnter(Form& form);
// Presses the Cancel button; closes a dialog that has none.
KeyUse PressEscape(Form& form);
// The menu key or Shift+F10: the right mouse button over the control that has the focus if it
// reacts to that, else over the form.
KeyUse PressMenuKey(Form& form);

}  // namespace forms::gestures
