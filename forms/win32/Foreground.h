#pragma once

#include <windows.h>

// The windows of this thread in front of the user: message boxes and dialogs of the system, the
// program's buttons in the task bar, and the foreground.
namespace forms::win32 {

// Whether the foreground window belongs to this program.
bool HasForeground();

// Whether the window is a message box or a dialog of the system.
bool IsBox(HWND window);
// The foremost box or dialog that can be used. Null if none is open.
HWND OpenBox();

// Whether the window, or the window that owns it, has a button in the task bar.
bool HasTaskbarButton(HWND window);

}  // namespace forms::win32
