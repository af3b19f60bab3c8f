#pragma once

#include <windows.h>

#include <string>

namespace forms::win32 {

// Gives a native control the name that screen readers speak, for controls without a caption. Does
// nothing if the system has no such service.
void SetAccessibleName(HWND control, const std::string& name);

// Screen readers will announce the control as a picture.
void MarkAsGraphic(HWND control);

}  // namespace forms::win32
