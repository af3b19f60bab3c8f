#pragma once

#include <windows.h>

#include <vector>

// Where windows open. All lengths are pixels of the screen.
namespace forms::win32::placing {

// In the middle of the monitor that the user looks at: the active window's, else the main one.
RECT Centered(SIZE size);
// The first place of a cascade on that monitor whose corner is not among the taken ones. Each place
// of the cascade lies a step to the right of and below the one before.
RECT Cascaded(SIZE size, int step, const std::vector<POINT>& taken);
// Moved so that it lies on a monitor; the upper left corner has precedence.
RECT OnScreen(RECT place);
// Whether the user can take hold of a window there: whether enough of its title bar lies on a
// monitor.
bool IsReachable(const RECT& place, int titleHeight);

}  // namespace forms::win32::placing
