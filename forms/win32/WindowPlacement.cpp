#include "forms/win32/WindowPlacement.h"

#include <algorithm>

#include "forms/Gestures.h"
#include "forms/win32/ForeignPointer.h"
#include "forms/win32/FormWindow.h"
#include "forms/win32/Messages.h"
#include "forms/win32/Placing.h"
#include "forms/win32/WindowStyle.h"

namespace forms::win32 {

namespace {

constexpr int smallestDpi = 48;
constexpr int largestDpi = 1920;

bool OpensInTheMiddle(const Form& form) {
    return form.centerOnScreen || form.borderStyle == BorderStyle::None;
}

bool IsPlace(const RECT& rect, int captionHeight) {
    constexpr LONG longest = 32767;
    const LONG width = rect.right - rect.left;
    const LONG height = rect.bottom - rect.top;
    return rect.right > rect.left && rect.bottom > rect.top && width > 0 && width <= longest &&
           height > 0 && height <= longest && placing::IsReachable(rect, captionHeight);
}

POINT CornerOf(const FormWindow& window) {
    const Form& form = window.Model();
    return {window.scale.Pixels(form.left), window.scale.Pixels(form.top)};
}

RECT PlaceAt(POINT corner, SIZE size) {
    return {corner.x, corner.y, corner.x + size.cx, corner.y + size.cy};
}

}  // namespace

Scale WindowPlacement::ScaleAt(int dpi) const {
    Scale scale{dpi, window.state.textPercent};
    const Form& form = window.Model();
    if (scale.text > 100 && form.innerWidth > 0 && form.innerHeight > 0) {
        const RECT work = placing::WorkAreaFor(window.handle);
        const SIZE frame = FrameSizeOf(form, dpi);
        const Scale normal{dpi};
        const int fitting = std::min(
            ::MulDiv(work.right - work.left - frame.cx, 100, normal.Pixels(form.innerWidth)),
            ::MulDiv(work.bottom - work.top - frame.cy, 100, normal.Pixels(form.innerHeight)));
        scale.text = std::clamp(fitting, 100, scale.text);
    }
    return scale;
}

// The size in the model. If the model gives the inner size, it is exact to the pixel.
SIZE WindowPlacement::OuterSize() const {
    const Form& form = window.Model();
    const SIZE frame = FrameSizeOf(form, window.scale.dpi);
    const auto exact = [&](int outer, int inner, LONG frameLength) {
        const LONG pixels = window.scale.Pixels(outer);
        const LONG wanted = window.scale.Pixels(inner) + frameLength;
        return inner > 0 && form.borderStyle != BorderStyle::Sizable ? wanted : pixels;
    };
    return {exact(form.width, form.innerWidth, frame.cx),
            exact(form.height, form.innerHeight, frame.cy)};
}

// The upper left corners of the other windows that are visible or will be.
std::vector<POINT> WindowPlacement::TakenCorners() const {
    std::vector<POINT> taken;
    for (const FormWindow* other : window.state.windows) {
        if (other != &window && other->IsLive() && other->Model().IsVisible()) {
            taken.push_back(CornerOf(*other));
        }
    }
    return taken;
}

RECT WindowPlacement::Wanted() const {
    const Form& form = window.Model();
    const SIZE size = OuterSize();
    if (OpensInTheMiddle(form)) {
        return placing::Centered(size);
    }
    const int dpi = window.scale.dpi;
    if (form.left() == 0 && form.top() == 0) {
        const int step = SystemMetric(SM_CYCAPTION, dpi) + SystemMetric(SM_CYSIZEFRAME, dpi);
        return placing::Cascaded(size, step, TakenCorners());
    }
    return placing::OnScreen(PlaceAt(CornerOf(window), size));
}

void WindowPlacement::Adopt(POINT corner) {
    window.Model().left.Adopt(window.scale.Twips(corner.x));
    window.Model().top.Adopt(window.scale.Twips(corner.y));
}

void WindowPlacement::FollowMonitor() {
    const Scale now = ScaleAt(DpiOf(window.handle));
    if (now == window.scale) {
        RestoreInnerSize();
        return;
    }
    const Applying applying(window.state);
    const RECT before = NormalPlace();
    POINT corner{before.left, before.top};
    const bool isTextLarger = now.text > window.scale.text;
    window.scale = now;
    if (isTextLarger) {
        const RECT place = placing::OnScreen(PlaceAt(corner, OuterSize()));
        corner = {place.left, place.top};
    }
    if (!window.IsFilled() && OpensInTheMiddle(window.Model())) {
        const RECT place = Wanted();
        corner = {place.left, place.top};
    }
    Adopt(corner);
    window.ApplyIcon();
    Apply();
    RestoreInnerSize();
    window.controls.Layout();
}

void WindowPlacement::FollowUserSettings() {
    if (!window.IsLive()) {
        return;
    }
    {
        const Applying applying(window.state);
        // Some systems do not update the frame of a window themselves.
        ::SetWindowPos(window.handle, nullptr, 0, 0, 0, 0,
                       SWP_FRAMECHANGED | SWP_NOMOVE | SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
        if (!IsAway()) {
            FollowMonitor();
        }
        window.controls.Layout();
    }
    if (!IsAway()) {
        Report(true);
    }
}

void WindowPlacement::Apply() {
    RECT place = PlaceAt(CornerOf(window), OuterSize());
    if (!IsMinimizedOrMaximized()) {
        ::SetWindowPos(window.handle, nullptr, place.left, place.top, place.right - place.left,
                       place.bottom - place.top, SWP_NOZORDER | SWP_NOACTIVATE);
        return;
    }
    WINDOWPLACEMENT placement{};
    placement.length = sizeof placement;
    ::GetWindowPlacement(window.handle, &placement);
    const POINT origin = RestoredOrigin();
    ::OffsetRect(&place, -origin.x, -origin.y);
    placement.rcNormalPosition = place;
    if (!window.IsShown()) {
        placement.showCmd = SW_HIDE;
    } else if (::IsIconic(window.handle) != 0) {
        placement.showCmd = SW_SHOWMINNOACTIVE;
    }
    ::SetWindowPlacement(window.handle, &placement);
}

bool WindowPlacement::IsAway() const { return !window.IsShown() || ::IsIconic(window.handle) != 0; }

bool WindowPlacement::IsMinimizedOrMaximized() const {
    return ::IsIconic(window.handle) != 0 || ::IsZoomed(window.handle) != 0;
}

// The place of the window when it is neither minimised nor maximised.
RECT WindowPlacement::NormalPlace() const {
    if (!IsMinimizedOrMaximized()) {
        RECT place{};
        ::GetWindowRect(window.handle, &place);
        return place;
    }
    WINDOWPLACEMENT placement{};
    placement.length = sizeof placement;
    ::GetWindowPlacement(window.handle, &placement);
    const POINT origin = RestoredOrigin();
    ::OffsetRect(&placement.rcNormalPosition, origin.x, origin.y);
    return placement.rcNormalPosition;
}

// The offset from the coordinates in WINDOWPLACEMENT, which are relative to the work area, to those
// of the screen.
POINT WindowPlacement::RestoredOrigin() const {
    MONITORINFO monitor{};
    monitor.cbSize = sizeof monitor;
    ::GetMonitorInfoW(::MonitorFromWindow(window.handle, MONITOR_DEFAULTTONEAREST), &monitor);
    return {monitor.rcWork.left - monitor.rcMonitor.left,
            monitor.rcWork.top - monitor.rcMonitor.top};
}

void WindowPlacement::MoveOntoScreen() {
    if (!window.IsLive()) {
        return;
    }
    const RECT place = NormalPlace();
    if (!placing::IsReachable(place, SystemMetric(SM_CYCAPTION, window.scale.dpi))) {
        const RECT back = placing::OnScreen(place);
        const Applying applying(window.state);
        Adopt({back.left, back.top});
        Apply();
    }
}

void WindowPlacement::Report(bool insideChanged) {
    if (window.state.applying != 0 || !window.IsShown()) {
        return;
    }
    Form& form = window.Model();
    const Scale& scale = window.scale;
    const WindowState now = ::IsIconic(window.handle) != 0   ? WindowState::Minimized
                            : ::IsZoomed(window.handle) != 0 ? WindowState::Maximized
                                                             : WindowState::Normal;
    if (form.windowState() == WindowState::Minimized && now != WindowState::Minimized) {
        FollowMonitor();
    }
    RECT place{};
    ::GetWindowRect(window.handle, &place);
    // If the model's length gives the same number of pixels, keep it instead of the rounded value.
    const auto report = [&scale](int pixels, int known) {
        return scale.Pixels(known) == pixels ? known : scale.Twips(pixels);
    };
    const Rect known{form.left, form.top, form.width, form.height};
    const Rect bounds{report(place.left, known.left), report(place.top, known.top),
                      report(place.right - place.left, known.width),
                      report(place.bottom - place.top, known.height)};
    if (insideChanged || now != form.windowState() ||
        (now == WindowState::Normal && !(bounds == known))) {
        gestures::Resize(form, bounds, now);
    }
}

std::optional<LRESULT> WindowPlacement::OnMessage(UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
        case WM_MOVE:
            if (!sizing) {
                Report();
            }
            return 0;
        case WM_ENTERSIZEMOVE:
            sizing = true;
            return std::nullopt;
        case WM_EXITSIZEMOVE:
            sizing = false;
            Report();
            return std::nullopt;
        case WM_GETMINMAXINFO:
            OnMinMaxInfo(*reinterpret_cast<MINMAXINFO*>(lParam));
            return 0;
        case scaleChangedMessage:
            OnScaleChanged(HIWORD(wParam), lParam);
            return 0;
        default:
            return std::nullopt;
    }
}

void WindowPlacement::OnMinMaxInfo(MINMAXINFO& info) const {
    const Form& form = window.Model();
    if (form.borderStyle == BorderStyle::Sizable && window.scale.dpi != 0) {
        POINT& least = info.ptMinTrackSize;
        least.x = std::max<LONG>(least.x, window.scale.Pixels(form.minimumWidth));
        least.y = std::max<LONG>(least.y, window.scale.Pixels(form.minimumHeight));
    }
}

void WindowPlacement::OnScaleChanged(int dpi, LPARAM suggestion) {
    // While a window is minimised or hidden, the suggestion and even the resolution may be those of
    // another monitor. FollowMonitor adapts the window when it appears again.
    if (IsAway() || dpi < smallestDpi || dpi > largestDpi) {
        return;
    }
    std::optional<RECT> place = ReadAt<RECT>(suggestion);
    if (!place || !IsPlace(*place, SystemMetric(SM_CYCAPTION, dpi))) {
        RECT now{};
        ::GetWindowRect(window.handle, &now);
        const int before = window.scale.dpi;
        place = RECT{now.left, now.top, now.left + ::MulDiv(now.right - now.left, dpi, before),
                     now.top + ::MulDiv(now.bottom - now.top, dpi, before)};
    }
    Rescale(dpi, *place);
    if (!sizing) {
        Report(true);
    }
}

void WindowPlacement::Rescale(int dpi, const RECT& place) {
    const Applying applying(window.state);
    window.scale = ScaleAt(dpi);
    ::SetWindowPos(window.handle, nullptr, place.left, place.top, place.right - place.left,
                   place.bottom - place.top, SWP_NOZORDER | SWP_NOACTIVATE);
    RestoreInnerSize();
    window.ApplyIcon();
    window.controls.Layout();
}

// The height of title bars does not grow in proportion to the resolution, and on some systems it
// does not grow at all.
void WindowPlacement::RestoreInnerSize() {
    const Form& form = window.Model();
    if (!window.IsFilled() || form.innerWidth == 0 || form.borderStyle == BorderStyle::Sizable ||
        IsMinimizedOrMaximized()) {
        return;
    }
    RECT outer{};
    RECT inside{};
    ::GetWindowRect(window.handle, &outer);
    ::GetClientRect(window.handle, &inside);
    const LONG moreWidth = window.scale.Pixels(form.innerWidth) - inside.right;
    const LONG moreHeight = window.scale.Pixels(form.innerHeight) - inside.bottom;
    if (moreWidth == 0 && moreHeight == 0) {
        return;
    }
    const Applying applying(window.state);
    ::SetWindowPos(window.handle, nullptr, 0, 0, outer.right - outer.left + moreWidth,
                   outer.bottom - outer.top + moreHeight,
                   SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
}

}  // namespace forms::win32
