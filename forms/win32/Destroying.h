#pragma once

#include <windows.h>

namespace forms::win32 {

// Destroys a window of the program. False if there is no such window.
//
// Other programs can send WM_DESTROY and WM_NCDESTROY, too, and a control that handles them frees
// its text. So the program destroys its windows by this function only, and its window procedures
// drop these messages unless IsBeingDestroyed.
bool DestroyNative(HWND window);

// Whether DestroyNative is running for the window, its parent or its owner.
bool IsBeingDestroyed(HWND window);

}  // namespace forms::win32
