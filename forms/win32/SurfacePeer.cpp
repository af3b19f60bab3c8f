#include "forms/win32/SurfacePeer.h"

#include "forms/win32/Drawing.h"
#include "forms/win32/FormWindow.h"

namespace forms::win32 {

void SurfacePeer::Apply(Aspect aspect) {
    Peer::Apply(aspect);
    if (aspect == Aspect::Enabled || aspect == Aspect::FontSize) {
        Redraw();
    }
}

void SurfacePeer::PaintAll(HDC dc, const RECT& area) {
    const RECT place = Area();
    const BackBuffer buffer(dc, area);
    POINT origin{};
    ::OffsetViewportOrgEx(buffer.dc(), -place.left, -place.top, &origin);
    window.surface.Paint(buffer.dc());
    ::SetViewportOrgEx(buffer.dc(), origin.x, origin.y, nullptr);
    RECT inside{};
    ::GetClientRect(handle, &inside);
    ::SetBkMode(buffer.dc(), TRANSPARENT);
    PaintOver(buffer.dc(), inside);
}

std::optional<LRESULT> SurfacePeer::OnMessage(UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
        case WM_ERASEBKGND:
            return 1;
        case WM_PAINT: {
            PAINTSTRUCT paint{};
            HDC dc = ::BeginPaint(handle, &paint);
            if (::IsRectEmpty(&paint.rcPaint) == 0) {
                PaintAll(dc, paint.rcPaint);
            }
            ::EndPaint(handle, &paint);
            return 0;
        }
        case WM_PRINTCLIENT: {
            RECT inside{};
            ::GetClientRect(handle, &inside);
            PaintAll(reinterpret_cast<HDC>(wParam), inside);
            return 0;
        }
        // Do not pass this message on: the control's own procedure would paint at once.
        case WM_SETTEXT: {
            const LRESULT result = ::DefWindowProcW(handle, message, wParam, lParam);
            Redraw();
            return result;
        }
        case WM_ENABLE:
            Redraw();
            return 0;
        case WM_UPDATEUISTATE:
            Redraw();
            return std::nullopt;
        default:
            return Peer::OnMessage(message, wParam, lParam);
    }
}

}  // namespace forms::win32
