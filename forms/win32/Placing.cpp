#include "forms/win32/Placing.h"

#include <algorithm>
#include <cstdlib>

namespace forms::win32::placing {

namespace {

RECT WorkAreaAt(const RECT& place) {
    MONITORINFO monitor{};
    monitor.cbSize = sizeof monitor;
    ::GetMonitorInfoW(::MonitorFromRect(&place, MONITOR_DEFAULTTONEAREST), &monitor);
    return monitor.rcWork;
}

RECT CurrentWorkArea() {
    RECT place{};
    if (HWND active = ::GetActiveWindow(); active != nullptr && ::IsIconic(active) == 0) {
        ::GetWindowRect(active, &place);
    }
    return WorkAreaAt(place);
}

RECT PlaceAt(POINT corner, SIZE size) {
    return {corner.x, corner.y, corner.x + size.cx, corner.y + size.cy};
}

RECT MovedInto(const RECT& work, RECT place) {
    LONG x = std::min(0L, work.right - place.right);
    x = std::max(x, work.left - place.left);
    LONG y = std::min(0L, work.bottom - place.bottom);
    y = std::max(y, work.top - place.top);
    ::OffsetRect(&place, x, y);
    return place;
}

}  // namespace

RECT WorkAreaFor(HWND window) {
    if (window == nullptr) {
        return CurrentWorkArea();
    }
    MONITORINFO monitor{};
    monitor.cbSize = sizeof monitor;
    ::GetMonitorInfoW(::MonitorFromWindow(window, MONITOR_DEFAULTTONEAREST), &monitor);
    return monitor.rcWork;
}

RECT OnScreen(RECT place) { return MovedInto(WorkAreaAt(place), place); }

bool IsReachable(const RECT& place, int titleHeight) {
    const RECT title{place.left, place.top, place.right, place.top + titleHeight};
    const RECT work = WorkAreaAt(title);
    RECT seen{};
    ::IntersectRect(&seen, &title, &work);
    const LONG leastWidth = std::min(place.right - place.left, 3L * titleHeight);
    return seen.right - seen.left >= leastWidth && 2 * (seen.bottom - seen.top) >= titleHeight;
}

RECT Centered(SIZE size) {
    const RECT work = CurrentWorkArea();
    return MovedInto(work, PlaceAt({work.left + (work.right - work.left - size.cx) / 2,
                                    work.top + (work.bottom - work.top - size.cy) / 2},
                                   size));
}

RECT Cascaded(SIZE size, int step, const std::vector<POINT>& taken) {
    const RECT work = CurrentWorkArea();
    const POINT first{work.left + (work.right - work.left) / 10,
                      work.top + (work.bottom - work.top) / 10};
    const auto isFree = [&taken, step](POINT place) {
        return std::none_of(taken.begin(), taken.end(), [&](POINT other) {
            return std::abs(place.x - other.x) < step / 2 && std::abs(place.y - other.y) < step / 2;
        });
    };
    const LONG lastX = std::max(first.x, work.right - size.cx);
    const LONG lastY = std::max(first.y, work.bottom - size.cy);
    std::vector<POINT> places;
    // When the cascade reaches the edge, it starts again further to the right.
    for (LONG runX = first.x; runX <= lastX; runX += 3 * step) {
        for (POINT place{runX, first.y}; place.x <= lastX && place.y <= lastY;) {
            places.push_back(place);
            place.x += step;
            place.y += step;
        }
    }
    const auto found = std::find_if(places.begin(), places.end(), isFree);
    const POINT corner = found != places.end() ? *found : places[taken.size() % places.size()];
    return MovedInto(work, PlaceAt(corner, size));
}

}  // namespace forms::win32::placing
