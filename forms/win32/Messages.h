#pragma once

#include <windows.h>

// These are defined in <winuser.h> of newer systems.
namespace forms::win32 {

constexpr UINT scaleChangedMessage = 0x02E0;  // WM_DPICHANGED
constexpr UINT scaledSizeMessage = 0x02E4;    // WM_GETDPISCALEDSIZE

}  // namespace forms::win32
