#pragma once

#include <windows.h>

namespace forms::win32 {

// The cursors of the system. (IDC_ARROW and IDC_WAIT are for functions of narrow characters.)
inline HCURSOR ArrowCursor() { return ::LoadCursorW(nullptr, MAKEINTRESOURCEW(32512)); }
inline HCURSOR WaitCursor() { return ::LoadCursorW(nullptr, MAKEINTRESOURCEW(32514)); }

}  // namespace forms::win32
