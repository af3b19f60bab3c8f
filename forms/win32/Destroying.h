#pragma once

#include <windows.h>

namespace forms::win32 {

// Destroys a window of the program. Returns false if there is no such window.
//
// Other programs can also send WM_DESTROY and WM_NCDESTROY, and a control that handles them frees
// its text. So the program destroys the windows of forms and their controls only by this function,
// and their window procedures ignore these messages unless IsBeingDestroyed returns true.
bool DestroyNative(HWND window);

// Whether DestroyNative is running for the window, its parent or its owner.
bool IsBeingDestroyed(HWND window);

}  // namespace forms::win32
