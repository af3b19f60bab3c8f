#pragma once

#include <windows.h>

namespace forms::win32 {

class FormWindow;

// Translates a key for a control of the window into those of forms/Keyboard.h. False if the key is
// to be dispatched to the control. Handlers may run meanwhile.
bool TakeKey(FormWindow& window, MSG& message);

// The focus has come to a control by keyboard: selects its text, as the system's dialogs do.
void SelectTextAfterKey(const FormWindow& window, HWND focusBefore);

}  // namespace forms::win32
