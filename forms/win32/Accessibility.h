#pragma once

#include <windows.h>

#include <string>

namespace forms::win32 {

// Both functions return false if the system's accessibility service is not available now.

// Gives a native control without a caption a name for screen readers.
bool SetAccessibleName(HWND control, const std::string& name);

// Makes screen readers announce the control as a picture.
bool MarkAsGraphic(HWND control);

}  // namespace forms::win32
