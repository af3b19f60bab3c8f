#pragma once

#include <windows.h>

#include <string>

namespace forms::win32 {

// Gives a native control the name that screen readers speak; for controls whose own text says
// nothing about what they are for. Does nothing where the system has no such service.
void SetAccessibleName(HWND control, const std::string& name);

// A screen reader is to speak of a picture.
void MarkAsGraphic(HWND control);

}  // namespace forms::win32
