#include "forms/win32/WindowPointer.h"

#include <windowsx.h>

#include "forms/Gestures.h"
#include "forms/win32/Cursors.h"
#include "forms/win32/FormWindow.h"
#include "forms/win32/Internal.h"

namespace forms::win32 {

namespace {

constexpr LPARAM firstTrayMessage = WM_MOUSEMOVE;
constexpr LPARAM lastTrayMessage = WM_MBUTTONDBLCLK;

POINT PointOf(LPARAM place) { return {GET_X_LPARAM(place), GET_Y_LPARAM(place)}; }

int ButtonsOf(WPARAM keys) {
    return ((keys & MK_LBUTTON) != 0 ? leftButton : 0) |
           ((keys & MK_RBUTTON) != 0 ? rightButton : 0) |
           ((keys & MK_MBUTTON) != 0 ? middleButton : 0);
}

// The control at this point. Null if it is the form itself.
Control* ControlAt(const FormWindow& window, POINT point) {
    return window.Model().ControlAt(window.scale.MiddleTwips(point.x),
                                    window.scale.MiddleTwips(point.y));
}

// The control or form at this point. Null outside the window.
const void* TargetAt(const FormWindow& window, POINT point) {
    RECT inside{};
    ::GetClientRect(window.handle, &inside);
    if (::PtInRect(&inside, point) == 0) {
        return nullptr;
    }
    const Control* control = ControlAt(window, point);
    return control != nullptr ? static_cast<const void*>(control) : &window.Model();
}

}  // namespace

std::optional<LRESULT> WindowPointer::OnMessage(UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
        case WM_MOUSEMOVE:
            OnMove(wParam, lParam);
            return 0;
        case WM_LBUTTONDOWN:
            OnButtonDown(leftButton, PointOf(lParam));
            return std::nullopt;
        case WM_RBUTTONDOWN:
            OnButtonDown(rightButton, PointOf(lParam));
            return std::nullopt;
        case WM_MBUTTONDOWN:
            OnButtonDown(middleButton, PointOf(lParam));
            return std::nullopt;
        case WM_LBUTTONUP:
            OnButtonUp(leftButton, PointOf(lParam));
            return 0;
        case WM_RBUTTONUP:
            OnButtonUp(rightButton, PointOf(lParam));
            return 0;
        case WM_MBUTTONUP:
            OnButtonUp(middleButton, PointOf(lParam));
            return 0;
        case WM_SETCURSOR:
            if (window.state.hourglass && LOWORD(lParam) == HTCLIENT) {
                ::SetCursor(WaitCursor());
                return TRUE;
            }
            return std::nullopt;
        default:
            return std::nullopt;
    }
}

// The callback of an icon in the notification area looks like a move of the pointer. A real move
// with the same numbers occurs only in the topmost row of pixels with the left button down, and
// then the pointer is at the reported place.
bool WindowPointer::IsTrayMessage(WPARAM wParam, LPARAM lParam) const {
    if (trayIconId == 0 || wParam != trayIconId || lParam < firstTrayMessage ||
        lParam > lastTrayMessage) {
        return false;
    }
    POINT pointer = PointOf(static_cast<LPARAM>(::GetMessagePos()));
    ::ScreenToClient(window.handle, &pointer);
    const POINT reported = PointOf(lParam);
    return pointer.x != reported.x || pointer.y != reported.y;
}

void WindowPointer::OnMove(WPARAM wParam, LPARAM lParam) {
    if (IsTrayMessage(wParam, lParam)) {
        if (lParam == WM_RBUTTONUP) {
            window.state.menuPlace = MenuPlaceAtIcon(window.handle, trayIconId);
        }
        gestures::TrayMessage(window.Model(), static_cast<int>(lParam));
        window.state.menuPlace.reset();
        return;
    }
    // The system also sends moves if only the windows below the pointer have changed.
    if (lParam == lastPlace) {
        return;
    }
    lastPlace = lParam;
    const POINT point = PointOf(lParam);
    if (ControlAt(window, point) == nullptr) {
        gestures::MouseMove(window.Model(), ButtonsOf(wParam), window.scale.PointerTwips(point.x),
                            window.scale.PointerTwips(point.y));
    }
}

void WindowPointer::OnButtonDown(int button, POINT point) {
    window.state.presses.Press(button, TargetAt(window, point));
    // Makes the system report a release outside the window, too.
    ::SetCapture(window.handle);
}

void WindowPointer::OnButtonUp(int button, POINT point) {
    if (::GetCapture() == window.handle) {
        ::ReleaseCapture();
    }
    if (!window.state.presses.Release(button, TargetAt(window, point))) {
        return;
    }
    const Scale& scale = window.scale;
    Control* control = ControlAt(window, point);
    if (control == nullptr) {
        gestures::MouseUp(window.Model(), button, scale.Twips(point.x), scale.Twips(point.y));
        return;
    }
    const RECT area = scale.Pixels(control->PlaceOnForm());
    gestures::MouseUp(*control, button, scale.Twips(point.x - area.left),
                      scale.Twips(point.y - area.top));
    if (button == leftButton && window.IsLive()) {
        gestures::Click(*control);
    }
}

}  // namespace forms::win32
