#include <windows.h>
#include <commctrl.h>

#include <algorithm>
#include <optional>
#include <utility>

#include "forms/Gestures.h"
#include "forms/Keyboard.h"
#include "forms/Runtime.h"
#include "forms/win32/Destroying.h"
#include "forms/win32/Dpi.h"
#include "forms/win32/Drawing.h"
#include "forms/win32/FormKeys.h"
#include "forms/win32/FormWindow.h"
#include "forms/win32/Messages.h"
#include "forms/win32/Placing.h"

// What the system tells a form's window.
namespace forms::win32 {

namespace {

constexpr int smallestDpi = 48;
constexpr int largestDpi = 1920;

// Other programs can send a message with a pointer to nowhere. Such memory is read as that of
// another process is: the call fails and the program goes on.
std::optional<RECT> RectAt(LPARAM address) {
    RECT rect{};
    SIZE_T count = 0;
    const BOOL isRead = ::ReadProcessMemory(
        ::GetCurrentProcess(), reinterpret_cast<const void*>(address), &rect, sizeof rect, &count);
    const bool isWhole = isRead != FALSE && count == sizeof rect;
    return isWhole ? std::optional(rect) : std::nullopt;
}

bool IsPlace(const RECT& rect, int captionHeight) {
    constexpr LONG longest = 32767;
    const LONG width = rect.right - rect.left;
    const LONG height = rect.bottom - rect.top;
    return rect.right > rect.left && rect.bottom > rect.top && width > 0 && width <= longest &&
           height > 0 && height <= longest && placing::IsReachable(rect, captionHeight);
}

}  // namespace

LRESULT CALLBACK FormWindow::Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_NCCREATE && beingMade != nullptr) {
        FormWindow* made = std::exchange(beingMade, nullptr);
        made->handle = window;
        ::SetWindowLongPtrW(window, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(made));
    }
    auto* target = reinterpret_cast<FormWindow*>(::GetWindowLongPtrW(window, GWLP_USERDATA));
    if (target == nullptr) {
        return ::DefWindowProcW(window, message, wParam, lParam);
    }
    if ((message == WM_DESTROY || message == WM_NCDESTROY) && !IsBeingDestroyed(window)) {
        return 0;
    }
    if (message == WM_NCDESTROY) {
        ::SetWindowLongPtrW(window, GWLP_USERDATA, 0);
        if (target->IsLive()) {
            target->DetachFromForm();  // a window that it belongs to is destroyed
        }
        const bool wasCreated =
            std::find(target->state.windows.begin(), target->state.windows.end(), target) !=
            target->state.windows.end();
        if (wasCreated) {
            delete target;
        }
        return ::DefWindowProcW(window, message, wParam, lParam);
    }
    const Entry entry(*target);
    return target->OnMessage(message, wParam, lParam);
}

LRESULT FormWindow::OnMessage(UINT message, WPARAM wParam, LPARAM lParam) {
    if (IsLive()) {
        if (const auto result = OnLiveMessage(message, wParam, lParam)) {
            return *result;
        }
    }
    return ::DefWindowProcW(handle, message, wParam, lParam);
}

std::optional<LRESULT> FormWindow::OnLiveMessage(UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
        case WM_PAINT:
            OnPaint();
            return 0;
        case WM_ERASEBKGND: {
            // The window paints all of itself in one step; a control that shows its background asks
            // with a device context of its own.
            HDC dc = reinterpret_cast<HDC>(wParam);
            if (::WindowFromDC(dc) != handle) {
                PaintSurface(dc);
            }
            return 1;
        }
        case WM_PRINTCLIENT:
            PaintSurface(reinterpret_cast<HDC>(wParam));
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
        case WM_COMMAND:
            OnCommand(wParam, lParam);
            return 0;
        case WM_NOTIFY:
            return OnNotify(*reinterpret_cast<NMHDR*>(lParam));
        case WM_NEXTDLGCTL:
            OnNextControl(wParam, lParam);
            return 0;
        case WM_INITMENUPOPUP:
            menus.Refresh(reinterpret_cast<HMENU>(wParam));
            return std::nullopt;
        case DM_GETDEFID: {
            const CommandButton* button = form->DefaultButton();
            const Peer* peer = button != nullptr ? PeerOf(*button) : nullptr;
            return peer == nullptr ? 0 : MAKELRESULT(::GetDlgCtrlID(peer->handle), DC_HASDEFID);
        }
        case WM_ACTIVATE:
            OnActivate(wParam);
            return 0;
        case WM_SETFOCUS:
            RestoreFocus();
            return 0;
        case WM_CLOSE:
            gestures::Close(*form);
            return 0;
        case WM_SIZE:
            OnSize(wParam);
            return 0;
        case WM_MOVE:
            if (!sizing) {
                ReportPlace();
            }
            return 0;
        case WM_ENTERSIZEMOVE:
            sizing = true;
            return std::nullopt;
        case WM_EXITSIZEMOVE:
            sizing = false;
            ReportPlace();
            return std::nullopt;
        case WM_GETMINMAXINFO:
            OnMinMaxInfo(*reinterpret_cast<MINMAXINFO*>(lParam));
            return 0;
        case scaleChangedMessage:
            OnScaleChanged(HIWORD(wParam), lParam);
            return 0;
        case WM_SETCURSOR:
            if (state.hourglass && LOWORD(lParam) == HTCLIENT) {
                ::SetCursor(::LoadCursorW(nullptr, MAKEINTRESOURCEW(32514)));  // IDC_WAIT
                return TRUE;
            }
            return std::nullopt;
        case WM_MOUSEMOVE:
            OnMouseMove(wParam, lParam);
            return 0;
        case WM_LBUTTONUP:
            OnMouseUp(leftButton, lParam);
            return 0;
        case WM_RBUTTONUP:
            OnMouseUp(rightButton, lParam);
            return 0;
        case WM_MBUTTONUP:
            OnMouseUp(middleButton, lParam);
            return 0;
        case WM_CONTEXTMENU:
            // By the mouse it is the release of the right button, which is reported as such.
            if (lParam == -1) {
                OpenMenuByKeyboard();
            }
            return 0;
        case WM_SYSCOLORCHANGE:
        case WM_THEMECHANGED:
            for (const auto& peer : peers) {
                if (peer->handle != nullptr && message == WM_SYSCOLORCHANGE) {
                    ::SendMessageW(peer->handle, message, 0, 0);
                }
            }
            ::RedrawWindow(handle, nullptr, nullptr, RDW_INVALIDATE | RDW_ALLCHILDREN);
            return std::nullopt;
        default:
            return std::nullopt;
    }
}

void FormWindow::OnCommand(WPARAM wParam, LPARAM lParam) {
    const int id = LOWORD(wParam);
    if (std::any_of(peers.begin(), peers.end(),
                    [id](const auto& peer) { return peer->PressButton(id); })) {
        return;
    }
    if (Peer* peer = PeerOf(reinterpret_cast<HWND>(lParam)); peer != nullptr) {
        peer->OnCommand(HIWORD(wParam));
        return;
    }
    if (id == IDOK) {
        if (CommandButton* button = form->DefaultButton(); button != nullptr) {
            gestures::Click(*button);
        }
        return;
    }
    if (id == IDCANCEL) {
        gestures::PressEscape(*form);
        return;
    }
    if (Menu* menu = menus.Find(id); menu != nullptr) {
        gestures::Choose(*menu);
    }
}

void FormWindow::OnNextControl(WPARAM wParam, LPARAM lParam) {
    HWND before = ::GetFocus();
    if (LOWORD(lParam) == 0) {
        gestures::PressTab(*form, wParam != 0);
    } else if (HWND target = reinterpret_cast<HWND>(wParam); target != nullptr) {
        ::SetFocus(target);
    }
    SelectTextAfterKey(*this, before);
}

std::optional<LRESULT> FormWindow::OnNotify(NMHDR& header) {
    Peer* peer = PeerOf(header.hwndFrom);
    return peer != nullptr ? peer->OnNotify(header) : std::nullopt;
}

HBRUSH FormWindow::OnColor(UINT message, HDC dc, HWND child) {
    if (Peer* peer = PeerOf(child); peer != nullptr) {
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

void FormWindow::OnActivate(WPARAM wParam) {
    const bool isMinimized = HIWORD(wParam) != 0;
    if (LOWORD(wParam) == WA_INACTIVE || isMinimized) {
        return;
    }
    RestoreFocus();
    if (state.applying == 0) {
        MarkUsed();
        gestures::Activate(*form);
    }
}

void FormWindow::OnSize(WPARAM kind) {
    if (kind != SIZE_MINIMIZED) {
        ::InvalidateRect(handle, nullptr, FALSE);
    }
    if (state.applying != 0 || !IsShown()) {
        return;
    }
    const bool wasMinimized = form->windowState() == WindowState::Minimized;
    if (kind != SIZE_MINIMIZED && !filled) {
        Fill();
    }
    ReportPlace();
    if (wasMinimized && kind != SIZE_MINIMIZED && IsLive() && ::GetActiveWindow() == handle) {
        RestoreFocus();
        gestures::Activate(*form);
    }
}

void FormWindow::ReportPlace() {
    if (state.applying != 0 || !IsShown()) {
        return;
    }
    const WindowState now = ::IsIconic(handle) != 0   ? WindowState::Minimized
                            : ::IsZoomed(handle) != 0 ? WindowState::Maximized
                                                      : WindowState::Normal;
    RECT place{};
    ::GetWindowRect(handle, &place);
    // A length that is shown as it was asked for is not replaced by its rounded value.
    const auto report = [this](int pixels, int known) {
        return Pixels(known) == pixels ? known : Twips(pixels);
    };
    const Rect known{form->left, form->top, form->width, form->height};
    const Rect bounds{report(place.left, known.left), report(place.top, known.top),
                      report(place.right - place.left, known.width),
                      report(place.bottom - place.top, known.height)};
    if (now != form->windowState() || (now == WindowState::Normal && !(bounds == known))) {
        gestures::Resize(*form, bounds, now);
    }
}

void FormWindow::OnScaleChanged(int newDpi, LPARAM suggestion) {
    if (newDpi < smallestDpi || newDpi > largestDpi) {
        return;
    }
    std::optional<RECT> place = RectAt(suggestion);
    if (!place || !IsPlace(*place, SystemMetric(SM_CYCAPTION, newDpi))) {
        RECT now{};
        ::GetWindowRect(handle, &now);
        place = RECT{now.left, now.top, now.left + ::MulDiv(now.right - now.left, newDpi, dpi),
                     now.top + ::MulDiv(now.bottom - now.top, newDpi, dpi)};
    }
    Rescale(newDpi, *place);
    if (!sizing) {
        ReportPlace();
    }
}

void FormWindow::OnMinMaxInfo(MINMAXINFO& info) const {
    if (form->borderStyle != BorderStyle::Sizable || dpi == 0) {
        return;
    }
    info.ptMinTrackSize.x = std::max<LONG>(info.ptMinTrackSize.x, Pixels(form->minimumWidth));
    info.ptMinTrackSize.y = std::max<LONG>(info.ptMinTrackSize.y, Pixels(form->minimumHeight));
}

void FormWindow::MarkDefaultButton(const Peer* focused) {
    const Control* marked = nullptr;
    if (focused != nullptr && focused->control.kind == ControlKind::CommandButton) {
        marked = &focused->control;
    } else {
        marked = form->DefaultButton();
    }
    for (const auto& peer : peers) {
        if (peer->handle == nullptr || peer->control.kind != ControlKind::CommandButton) {
            continue;
        }
        const DWORD wanted = &peer->control == marked ? BS_DEFPUSHBUTTON : BS_PUSHBUTTON;
        const auto style = static_cast<DWORD>(::GetWindowLongPtrW(peer->handle, GWL_STYLE));
        if ((style & BS_TYPEMASK) != wanted) {
            ::SendMessageW(peer->handle, BM_SETSTYLE, (style & ~DWORD{BS_TYPEMASK}) | wanted, TRUE);
        }
    }
}

}  // namespace forms::win32
