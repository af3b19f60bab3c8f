#include "forms/win32/Peer.h"

#include <windowsx.h>

#include <algorithm>

#include "forms/Gestures.h"
#include "forms/win32/Accessibility.h"
#include "forms/win32/Destroying.h"
#include "forms/win32/Fonts.h"
#include "forms/win32/FormWindow.h"
#include "forms/win32/Utf.h"

namespace forms::win32 {

RECT Peer::Area() const { return window.scale.Pixels(control.PlaceOnForm()); }

void Peer::CreateNative(const wchar_t* className, const std::string& text, DWORD style,
                        DWORD extendedStyle) {
    const RECT area = Area();
    const auto& controls = window.Model().Controls();
    const auto place = std::find(controls.begin(), controls.end(), &control) - controls.begin();
    const INT_PTR id = NativeControls::firstId + place;
    style |= WS_CHILD | WS_CLIPSIBLINGS;
    if (control.IsEffectivelyVisible()) {
        style |= WS_VISIBLE;
    }
    if (!control.IsEffectivelyEnabled()) {
        style |= WS_DISABLED;
    }
    if (startsGroup) {
        style |= WS_GROUP;
    }
    handle =
        ::CreateWindowExW(extendedStyle, className, Wide(text).c_str(), style, area.left, area.top,
                          area.right - area.left, area.bottom - area.top, window.handle,
                          reinterpret_cast<HMENU>(id), ::GetModuleHandleW(nullptr), nullptr);
    if (handle == nullptr) {
        return;
    }
    ::SendMessageW(handle, WM_SETFONT, reinterpret_cast<WPARAM>(Font()), FALSE);
    // SetWindowSubclass would be slower: it reads a property of the window at each message.
    ::SetWindowLongPtrW(handle, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
    controlProcedure = reinterpret_cast<WNDPROC>(
        ::SetWindowLongPtrW(handle, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(&Peer::Procedure)));
}

HFONT Peer::Font() const { return fonts::Get(std::string(), 0, false, window.scale); }

void Peer::Apply(Aspect aspect) {
    if (handle == nullptr) {
        if (aspect != Aspect::ToolTip) {
            window.surface.Invalidate(Area());
        }
        return;
    }
    switch (aspect) {
        case Aspect::Caption:
            SetCaption(static_cast<const Captioned&>(control).caption);
            break;
        case Aspect::Visible:
            ::ShowWindow(handle, control.IsEffectivelyVisible() ? SW_SHOWNA : SW_HIDE);
            break;
        case Aspect::Enabled:
            ::EnableWindow(handle, control.IsEffectivelyEnabled() ? TRUE : FALSE);
            break;
        case Aspect::ForeColor:
        case Aspect::BackColor:
            Redraw();
            break;
        case Aspect::FontSize:
            ::SendMessageW(handle, WM_SETFONT, reinterpret_cast<WPARAM>(Font()), TRUE);
            break;
        default:
            break;
    }
}

void Peer::Layout() {
    if (handle == nullptr) {
        return;
    }
    const RECT area = Area();
    ::SetWindowPos(handle, nullptr, area.left, area.top, area.right - area.left,
                   area.bottom - area.top, SWP_NOZORDER | SWP_NOACTIVATE);
}

void Peer::Restyle() {
    if (handle != nullptr) {
        ::SendMessageW(handle, WM_SETFONT, reinterpret_cast<WPARAM>(Font()), TRUE);
    }
}

void Peer::SetCaption(const std::string& caption) {
    ::SetWindowTextW(handle, Wide(caption).c_str());
}

bool Peer::Describe() {
    return control.accessibleName.empty() || SetAccessibleName(handle, control.accessibleName);
}

void Peer::Redraw() const { ::InvalidateRect(handle, nullptr, TRUE); }

LRESULT Peer::Default(UINT message, WPARAM wParam, LPARAM lParam) {
    return ::CallWindowProcW(controlProcedure, handle, message, wParam, lParam);
}

void Peer::ReportMouseUp(int button, LPARAM where) {
    RECT inside{};
    ::GetClientRect(handle, &inside);
    if (::PtInRect(&inside, {GET_X_LPARAM(where), GET_Y_LPARAM(where)}) == 0) {
        return;
    }
    gestures::MouseUp(control, button, window.scale.Twips(GET_X_LPARAM(where)),
                      window.scale.Twips(GET_Y_LPARAM(where)));
}

std::optional<LRESULT> Peer::OnMessage(UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
        case WM_GETOBJECT:
            if (!isDescribed) {
                isDescribed = true;  // the system may examine the control meanwhile
                isDescribed = Describe();
            }
            return std::nullopt;
        case WM_SETFOCUS: {
            const LRESULT result = Default(message, wParam, lParam);
            if (window.IsLive() && control.CanHaveFocus()) {
                gestures::Focus(control);
                window.focus.MarkDefaultButton();
            }
            return result;
        }
        case WM_LBUTTONDOWN:
        case WM_LBUTTONDBLCLK:
            window.state.presses.Press(leftButton, &control);
            return std::nullopt;
        case WM_RBUTTONDOWN:
        case WM_RBUTTONDBLCLK:
            window.state.presses.Press(rightButton, &control);
            return std::nullopt;
        case WM_LBUTTONUP: {
            const bool wasPressed = window.state.presses.Release(leftButton, &control);
            const LRESULT result = Default(message, wParam, lParam);
            if (wasPressed && window.IsLive()) {
                ReportMouseUp(leftButton, lParam);
            }
            return result;
        }
        case WM_RBUTTONUP:
            if (control.MouseUp) {
                // The handler replaces the control's own menu.
                if (window.state.presses.Release(rightButton, &control)) {
                    ReportMouseUp(rightButton, lParam);
                }
                return 0;
            }
            return std::nullopt;
        case WM_KEYUP:
            // Some kinds of control do not pass the menu key on to the system.
            return wParam == VK_APPS && window.focus.OpenMenu() ? std::optional<LRESULT>(0)
                                                                : std::nullopt;
        case WM_CONTEXTMENU:
            return lParam == -1 && window.focus.OpenMenu() ? std::optional<LRESULT>(0)
                                                           : std::nullopt;
        default:
            return std::nullopt;
    }
}

LRESULT CALLBACK Peer::Procedure(HWND child, UINT message, WPARAM wParam, LPARAM lParam) {
    auto& peer = *reinterpret_cast<Peer*>(::GetWindowLongPtrW(child, GWLP_USERDATA));
    const bool isMade = message == WM_NCCREATE || message == WM_CREATE;
    const bool isEnd = message == WM_DESTROY || message == WM_NCDESTROY;
    // A control that is destroyed with its form may no longer have a parent.
    const bool ends = IsBeingDestroyed(child) || IsBeingDestroyed(peer.window.handle);
    if (isMade || (isEnd && !ends)) {
        return 0;  // sent by another program: ignore it, because the control exists already
    }
    if (message == WM_NCDESTROY) {
        peer.handle = nullptr;
        return ::CallWindowProcW(peer.controlProcedure, child, message, wParam, lParam);
    }
    const FormWindow::Entry entry(peer.window);
    if (peer.window.IsLive() && peer.handle == child) {
        peer.window.controls.tips.Relay(child, message, wParam, lParam);
        if (const auto result = peer.OnMessage(message, wParam, lParam)) {
            return *result;
        }
    }
    return ::CallWindowProcW(peer.controlProcedure, child, message, wParam, lParam);
}

}  // namespace forms::win32
