#pragma once

#include <windows.h>

#include <string>

namespace forms::win32 {

// Gives a native control without a caption a name for screen readers. Does nothing if the system
// has no accessibility service.
void SetAccessibleName(HWND control, const std::string& name);

// Screen readers will announce the control as a picture.
void MarkAsGraphic(HWND control);

}  // namespace forms::win32
