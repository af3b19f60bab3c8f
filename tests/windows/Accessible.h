#pragma once

#include <windows.h>

#include <string>

#include "tests/windows/Window.h"

namespace driver {

// The properties of a window that the system reports to a screen reader.
struct Accessible {
    std::string name;
    LONG role = 0;  // ROLE_SYSTEM_...; 0 if the system reports nothing
    LONG state = 0;
};

// Describes the client area, or one element in it, counted from 1.
Accessible AccessibleOf(const Window& window, LONG child = 0);

}  // namespace driver
