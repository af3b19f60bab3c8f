#pragma once

#include <windows.h>

namespace forms::win32 {

// The cursors of the system. (IDC_ARROW and IDC_WAIT have the type for LoadCursorA, so their
// numbers are used.)
inline HCURSOR ArrowCursor() { return ::LoadCursorW(nullptr, MAKEINTRESOURCEW(32512)); }
inline HCURSOR WaitCursor() { return ::LoadCursorW(nullptr, MAKEINTRESOURCEW(32514)); }

}  // namespace forms::win32
