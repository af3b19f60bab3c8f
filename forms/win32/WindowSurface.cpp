#include "forms/win32/WindowSurface.h"

#include <algorithm>

#include "forms/win32/Drawing.h"
#include "forms/win32/FormWindow.h"

namespace forms::win32 {

COLORREF WindowSurface::BackColor() const {
    const Form& form = window.Model();
    return ToColorRef(form.backColor(), form.isPage ? COLOR_WINDOW : COLOR_BTNFACE);
}

COLORREF WindowSurface::ColorBehind(const Control& control) const {
    const RECT place = window.scale.Pixels(control.PlaceOnForm());
    COLORREF color = BackColor();
    for (const auto& peer : window.controls.Peers()) {
        if (peer->control.kind != ControlKind::Shape || !peer->control.IsEffectivelyVisible()) {
            continue;
        }
        const RECT area = peer->Area();
        RECT common{};
        if (::IntersectRect(&common, &area, &place) != 0 && ::EqualRect(&common, &place) != 0) {
            color = ToColorRef(static_cast<const Shape&>(peer->control).fillColor());
        }
    }
    return color;
}

int WindowSurface::LineThickness() const {
    constexpr int thickness = 15;  // twips
    return std::max(window.scale.Pixels(thickness), 1);
}

// The area enlarged for lines, because a line has no extent in one direction.
RECT WindowSurface::WithLines(const RECT& area) const {
    return {area.left, area.top, area.right + LineThickness(), area.bottom + LineThickness()};
}

void WindowSurface::Paint(HDC dc) {
    RECT all{};
    ::GetClientRect(window.handle, &all);
    ::FillRect(dc, &all, SolidBrush(BackColor()));
    for (const auto& peer : window.controls.Peers()) {
        const Control& control = peer->control;
        const RECT touched = WithLines(peer->Area());
        if (!control.IsEffectivelyVisible() || ::RectVisible(dc, &touched) == 0) {
            continue;
        }
        const int saved = ::SaveDC(dc);
        if (control.container != nullptr) {
            const RECT outer = window.scale.Pixels(control.container->PlaceOnForm());
            ::IntersectClipRect(dc, outer.left, outer.top, outer.right, outer.bottom);
        }
        peer->Paint(dc);
        ::RestoreDC(dc, saved);
    }
}

void WindowSurface::Invalidate(const RECT& area) {
    const RECT touched = WithLines(area);
    ::InvalidateRect(window.handle, &touched, FALSE);
    for (const auto& peer : window.controls.Peers()) {
        const bool showsSurface = peer->handle != nullptr && peer->IsTransparent();
        const RECT place = peer->Area();
        RECT common{};
        if (showsSurface && ::IntersectRect(&common, &touched, &place) != 0) {
            ::OffsetRect(&common, -place.left, -place.top);
            ::InvalidateRect(peer->handle, &common, FALSE);
        }
    }
}

void WindowSurface::InvalidateAll() {
    ::RedrawWindow(window.handle, nullptr, nullptr, RDW_INVALIDATE | RDW_ALLCHILDREN);
}

std::optional<LRESULT> WindowSurface::OnMessage(UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
        case WM_PAINT:
            OnPaint();
            return 0;
        case WM_ERASEBKGND: {
            // WM_PAINT paints the window itself in one step. A control that shows the surface sends
            // this message with its own device context.
            HDC dc = reinterpret_cast<HDC>(wParam);
            if (::WindowFromDC(dc) != window.handle) {
                Paint(dc);
            }
            return 1;
        }
        case WM_PRINTCLIENT:
            Paint(reinterpret_cast<HDC>(wParam));
            return 0;
        case WM_CTLCOLORSTATIC:
        case WM_CTLCOLOREDIT:
        case WM_CTLCOLORBTN:
        case WM_CTLCOLORLISTBOX: {
            HBRUSH brush =
                OnColor(message, reinterpret_cast<HDC>(wParam), reinterpret_cast<HWND>(lParam));
            return brush != nullptr ? std::optional(reinterpret_cast<LRESULT>(brush))
                                    : std::nullopt;
        }
        case WM_SYSCOLORCHANGE:
        case WM_THEMECHANGED:
            for (const auto& peer : window.controls.Peers()) {
                if (peer->handle != nullptr && message == WM_SYSCOLORCHANGE) {
                    ::SendMessageW(peer->handle, message, 0, 0);
                }
            }
            InvalidateAll();
            return std::nullopt;
        default:
            return std::nullopt;
    }
}

void WindowSurface::OnPaint() {
    PAINTSTRUCT paint{};
    HDC dc = ::BeginPaint(window.handle, &paint);
    if (::IsRectEmpty(&paint.rcPaint) == 0) {
        const BackBuffer buffer(dc, paint.rcPaint);
        Paint(buffer.dc());
    }
    ::EndPaint(window.handle, &paint);
}

HBRUSH WindowSurface::OnColor(UINT message, HDC dc, HWND child) {
    if (Peer* peer = window.controls.Find(child); peer != nullptr) {
        if (HBRUSH brush = peer->OnColor(dc); brush != nullptr) {
            return brush;
        }
    }
    if (message != WM_CTLCOLORSTATIC && message != WM_CTLCOLORBTN) {
        return nullptr;
    }
    ::SetBkColor(dc, BackColor());
    ::SetTextColor(dc, ReadableOn(BackColor(), ::GetSysColor(COLOR_BTNTEXT)));
    return SolidBrush(BackColor());
}

}  // namespace forms::win32
