#include <windows.h>
#include <windowsx.h>

#include "forms/Gestures.h"
#include "forms/Keyboard.h"
#include "forms/win32/Dpi.h"
#include "forms/win32/FormWindow.h"

// The pointer over a form: labels, group boxes and pictures let it through, and are found here.
namespace forms::win32 {

namespace {

constexpr LPARAM firstTrayMessage = WM_MOUSEMOVE;
constexpr LPARAM lastTrayMessage = WM_MBUTTONDBLCLK;

int ButtonsOf(WPARAM keys) {
    return ((keys & MK_LBUTTON) != 0 ? leftButton : 0) |
           ((keys & MK_RBUTTON) != 0 ? rightButton : 0) |
           ((keys & MK_MBUTTON) != 0 ? middleButton : 0);
}

}  // namespace

Control* FormWindow::ControlAt(POINT point) const {
    return form->ControlAt(ToMiddleTwips(point.x, dpi), ToMiddleTwips(point.y, dpi));
}

// The callback of an icon in the notification area looks like a move. A move with the same numbers
// is one along the topmost row of pixels with the left button down; the pointer was there then.
bool FormWindow::IsTrayMessage(WPARAM wParam, LPARAM lParam) const {
    if (trayIconId == 0 || wParam != trayIconId || lParam < firstTrayMessage ||
        lParam > lastTrayMessage) {
        return false;
    }
    const DWORD place = ::GetMessagePos();
    POINT pointer{GET_X_LPARAM(place), GET_Y_LPARAM(place)};
    ::ScreenToClient(handle, &pointer);
    return pointer.x != GET_X_LPARAM(lParam) || pointer.y != GET_Y_LPARAM(lParam);
}

void FormWindow::OnMouseMove(WPARAM wParam, LPARAM lParam) {
    if (IsTrayMessage(wParam, lParam)) {
        gestures::TrayMessage(*form, static_cast<int>(lParam));
        return;
    }
    // The system also sends moves when only the windows below the pointer have changed.
    if (lParam == lastPointer) {
        return;
    }
    lastPointer = lParam;
    const POINT point{GET_X_LPARAM(lParam), GET_Y_LPARAM(lParam)};
    if (ControlAt(point) == nullptr) {
        gestures::MouseMove(*form, ButtonsOf(wParam), ToPointerTwips(point.x, dpi),
                            ToPointerTwips(point.y, dpi));
    }
}

void FormWindow::OnMouseUp(int button, LPARAM lParam) {
    const POINT point{GET_X_LPARAM(lParam), GET_Y_LPARAM(lParam)};
    Control* control = ControlAt(point);
    if (control == nullptr) {
        gestures::MouseUp(*form, button, Twips(point.x), Twips(point.y));
        return;
    }
    const RECT area = AreaOf(*control);
    gestures::MouseUp(*control, button, Twips(point.x - area.left), Twips(point.y - area.top));
    if (button == leftButton && IsLive()) {
        gestures::Click(*control);
    }
}

bool FormWindow::OpenMenuByKeyboard() {
    const Peer* focused = PeerOf(::GetFocus());
    RECT area{};
    ::GetClientRect(handle, &area);
    if (focused != nullptr) {
        area = focused->Area();
    }
    POINT place{(area.left + area.right) / 2, (area.top + area.bottom) / 2};
    ::ClientToScreen(handle, &place);
    state.menuPlace = place;
    const gestures::KeyUse use = gestures::PressMenuKey(*form);
    state.menuPlace.reset();
    return use != gestures::KeyUse::ByControl;
}

}  // namespace forms::win32
