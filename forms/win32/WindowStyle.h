#pragma once

#include <windows.h>

#include "forms/Form.h"

namespace forms::win32 {

// The native styles of a form's window.
DWORD StyleOf(const Form& form);
DWORD ExtendedStyleOf(const Form& form);
// The size that title bar, menu bar and border add to the client area, in pixels.
SIZE FrameSizeOf(const Form& form, int dpi);

}  // namespace forms::win32
