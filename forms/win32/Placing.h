#pragma once

#include <windows.h>

#include <vector>

// The positions of new windows. All lengths are pixels of the screen.
namespace forms::win32::placing {

// The work area of the window's monitor. If window is null, that of the active window's monitor or,
// if there is none, of the main monitor.
RECT WorkAreaFor(HWND window);
// The place in the middle of the active window's monitor or, if there is none, of the main monitor.
RECT Centered(SIZE size);
// The first free place of a cascade on the same monitor. Each place is one step to the right of and
// below the place before. A place is free if its corner is not near a taken one. If none is free,
// returns a place that is taken.
RECT Cascaded(SIZE size, int step, const std::vector<POINT>& taken);
// The place, moved onto the nearest monitor. If it is too large, its upper left corner is visible.
RECT OnScreen(RECT place);
// Whether the user can drag a window at this place, because enough of its title bar is on a
// monitor.
bool IsReachable(const RECT& place, int titleHeight);

}  // namespace forms::win32::placing
