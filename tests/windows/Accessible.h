#pragma once

#include <windows.h>

#include <string>

#include "tests/windows/Window.h"

namespace driver {

// What the system tells a screen reader of a window.
struct Accessible {
    std::string name;
    LONG role = 0;  // ROLE_SYSTEM_...; 0: it tells nothing
    LONG state = 0;
};

// Of its inside, or of one of the elements in it, counted from 1.
Accessible AccessibleOf(const Window& window, LONG child = 0);

}  // namespace driver
