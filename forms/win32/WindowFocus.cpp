#include "forms/win32/WindowFocus.h"

#include <array>

#include "forms/Keyboard.h"
#include "forms/win32/FormWindow.h"

namespace forms::win32 {

using gestures::KeyUse;

namespace {

struct NativeShortcut {
    WPARAM code;
    bool withControl;
    Shortcut key;
};
constexpr std::array<NativeShortcut, 5> shortcuts{{
    {'N', true, Shortcut::ControlN},
    {'P', true, Shortcut::ControlP},
    {'S', true, Shortcut::ControlS},
    {VK_DELETE, false, Shortcut::Delete},
    {VK_F1, false, Shortcut::F1},
}};

bool IsDown(int key) { return ::GetKeyState(key) < 0; }

}  // namespace

void WindowFocus::Restore() {
    const Control* control = window.Model().focus.ActiveControl();
    const Peer* peer = control != nullptr ? window.controls.Find(*control) : nullptr;
    HWND target = peer != nullptr && peer->handle != nullptr ? peer->handle : window.handle;
    if (::GetFocus() != target) {
        const bool before = window.state.movingFocus;
        window.state.movingFocus = true;
        ::SetFocus(target);
        window.state.movingFocus = before;
    }
}

void WindowFocus::MarkDefaultButton() {
    const Control* marked = window.Model().focus.EnterButton();
    for (const auto& peer : window.controls.Peers()) {
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

bool WindowFocus::TakeKey(MSG& message) {
    if (!window.IsLive()) {
        return true;
    }
    const FormWindow::Entry entry(window);
    if (message.message == WM_SYSCHAR || message.message == WM_CHAR) {
        return TakeLetter(message);
    }
    const LRESULT code = ::SendMessageW(message.hwnd, WM_GETDLGCODE, message.wParam,
                                        reinterpret_cast<LPARAM>(&message));
    if (message.message == WM_KEYDOWN && (code & DLGC_WANTMESSAGE) == 0) {
        switch (message.wParam) {
            case VK_TAB:
                ::SendMessageW(window.handle, WM_CHANGEUISTATE,
                               MAKEWPARAM(UIS_CLEAR, UISF_HIDEFOCUS), 0);
                TakeTab(::GetKeyState(VK_SHIFT) < 0);
                return true;
            case VK_RETURN:
                return gestures::PressEnter(window.Model()) != KeyUse::ByControl;
            case VK_ESCAPE:
                gestures::PressEscape(window.Model());
                return true;
            default:
                if (TakeShortcut(message)) {
                    return true;
                }
                break;
        }
    }
    return ::IsDialogMessageW(window.handle, &message) != 0;
}

bool WindowFocus::TakeShortcut(const MSG& message) {
    // A key that is held down acts once. The system reports AltGr, which types letters, as Ctrl and
    // Alt.
    constexpr LPARAM isRepeated = LPARAM{1} << 30;
    if ((message.lParam & isRepeated) != 0 || IsDown(VK_MENU) || IsDown(VK_SHIFT) ||
        ::IsWindowEnabled(window.handle) == 0) {
        return false;
    }
    for (const NativeShortcut& shortcut : shortcuts) {
        if (shortcut.code == message.wParam && shortcut.withControl == IsDown(VK_CONTROL)) {
            return gestures::PressShortcut(window.Model(), shortcut.key) == KeyUse::Used;
        }
    }
    return false;
}

bool WindowFocus::TakeLetter(const MSG& message) {
    HWND before = ::GetFocus();
    const auto press =
        message.message == WM_SYSCHAR ? &gestures::PressAccessKey : &gestures::PressLetter;
    if (message.wParam > 0x7F ||
        press(window.Model(), static_cast<char>(message.wParam)) != KeyUse::Used) {
        return false;
    }
    SelectText(before);
    return true;
}

void WindowFocus::TakeTab(bool backward) {
    HWND before = ::GetFocus();
    gestures::PressTab(window.Model(), backward);
    SelectText(before);
}

bool WindowFocus::OpenMenu() {
    RECT area{};
    if (const Peer* focused = window.controls.Find(::GetFocus()); focused != nullptr) {
        area = focused->Area();
    } else {
        ::GetClientRect(window.handle, &area);
    }
    POINT place{(area.left + area.right) / 2, (area.top + area.bottom) / 2};
    ::ClientToScreen(window.handle, &place);
    StageState& state = window.state;
    state.menuPlace = place;
    const KeyUse use = gestures::PressMenuKey(window.Model());
    state.menuPlace.reset();
    return use != KeyUse::ByControl;
}

std::optional<LRESULT> WindowFocus::OnMessage(UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
        case WM_SETFOCUS:
            Restore();
            return 0;
        case WM_NEXTDLGCTL:
            OnNextControl(wParam, lParam);
            return 0;
        case DM_GETDEFID: {
            const CommandButton* button = window.Model().focus.DefaultButton();
            const Peer* peer = button != nullptr ? window.controls.Find(*button) : nullptr;
            return peer == nullptr ? 0 : MAKELRESULT(::GetDlgCtrlID(peer->handle), DC_HASDEFID);
        }
        case WM_CONTEXTMENU:
            // If the user used the mouse, the form gets the release of the right button instead.
            if (lParam == -1) {
                OpenMenu();
            }
            return 0;
        default:
            return std::nullopt;
    }
}

void WindowFocus::OnNextControl(WPARAM wParam, LPARAM lParam) {
    if (LOWORD(lParam) == 0) {
        TakeTab(wParam != 0);
    } else if (HWND target = reinterpret_cast<HWND>(wParam); target != nullptr) {
        HWND before = ::GetFocus();
        ::SetFocus(target);
        SelectText(before);
    }
}

void WindowFocus::SelectText(HWND focusBefore) {
    HWND focus = ::GetFocus();
    if (focus != focusBefore && ::IsChild(window.handle, focus) != 0 &&
        (::SendMessageW(focus, WM_GETDLGCODE, 0, 0) & DLGC_HASSETSEL) != 0) {
        ::SendMessageW(focus, EM_SETSEL, 0, -1);
    }
}

}  // namespace forms::win32
