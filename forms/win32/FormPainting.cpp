#include <windows.h>

#include "forms/win32/Drawing.h"
#include "forms/win32/FormWindow.h"

namespace forms::win32 {

COLORREF FormWindow::BackColor() const { return ToColorRef(form->backColor(), COLOR_BTNFACE); }

COLORREF FormWindow::ColorBehind(const Control& control) const {
    const RECT place = AreaOf(control);
    COLORREF color = BackColor();
    for (const auto& peer : peers) {
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

void FormWindow::OnPaint() {
    PAINTSTRUCT paint{};
    HDC dc = ::BeginPaint(handle, &paint);
    if (::IsRectEmpty(&paint.rcPaint) == 0) {
        const BackBuffer buffer(dc, paint.rcPaint);
        PaintSurface(buffer.dc());
    }
    ::EndPaint(handle, &paint);
}

void FormWindow::PaintSurface(HDC dc) {
    RECT all{};
    ::GetClientRect(handle, &all);
    ::FillRect(dc, &all, SolidBrush(BackColor()));
    for (const auto& peer : peers) {
        const Control& control = peer->control;
        const RECT area = peer->Area();
        // A line has no extent in one direction.
        const RECT touched{area.left, area.top, area.right + LineThickness(),
                           area.bottom + LineThickness()};
        if (!control.IsEffectivelyVisible() || ::RectVisible(dc, &touched) == 0) {
            continue;
        }
        const int saved = ::SaveDC(dc);
        if (control.container != nullptr) {
            const RECT outer = AreaOf(*control.container);
            ::IntersectClipRect(dc, outer.left, outer.top, outer.right, outer.bottom);
        }
        peer->Paint(dc);
        ::RestoreDC(dc, saved);
    }
}

void FormWindow::InvalidateSurface(const RECT& area) {
    RECT touched{area.left, area.top, area.right + LineThickness(), area.bottom + LineThickness()};
    ::InvalidateRect(handle, &touched, FALSE);
    for (const auto& peer : peers) {
        const bool showsSurface = peer->handle != nullptr && peer->IsTransparent();
        const RECT place = peer->Area();
        RECT common{};
        if (showsSurface && ::IntersectRect(&common, &touched, &place) != 0) {
            ::OffsetRect(&common, -place.left, -place.top);
            ::InvalidateRect(peer->handle, &common, FALSE);
        }
    }
}

}  // namespace forms::win32
