#pragma once

#include <windows.h>

#include <string>
#include <vector>

// The mouse and the keyboard of a real user. Under scripts/run-windows-tests, the mouse and digits
// come from outside Windows; in the test kit, from this program. Places are in pixels, on the
// screen.
namespace driver::hands {

void MoveTo(int x, int y);
void MoveBy(int right, int down);
// The left button.
void Press();
void Release();
// Presses and releases the key of this digit.
void TypeDigit(char digit);
// Types on the real keyboard, into the window that has the focus. Supports only letters, digits
// and blanks.
void TypeKeys(const std::string& text);
// Presses real keys one after the other and releases them in reverse order. They go to the
// window that has the focus.
void PressKeys(const std::vector<WORD>& virtualKeys);

}  // namespace driver::hands
