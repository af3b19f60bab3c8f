#include "forms/win32/FormKeys.h"

#include "forms/Keyboard.h"
#include "forms/win32/FormWindow.h"

namespace forms::win32 {

namespace {

using gestures::KeyUse;

bool TakeAccessKey(FormWindow& window, WPARAM letter) {
    HWND before = ::GetFocus();
    if (letter > 0x7F ||
        gestures::PressAccessKey(window.Model(), static_cast<char>(letter)) == KeyUse::Unused) {
        return false;
    }
    SelectTextAfterKey(window, before);
    return true;
}

void TakeTab(FormWindow& window) {
    HWND before = ::GetFocus();
    ::SendMessageW(window.handle, WM_CHANGEUISTATE, MAKEWPARAM(UIS_CLEAR, UISF_HIDEFOCUS), 0);
    gestures::PressTab(window.Model(), ::GetKeyState(VK_SHIFT) < 0);
    SelectTextAfterKey(window, before);
}

}  // namespace

bool TakeKey(FormWindow& window, MSG& message) {
    if (!window.IsLive()) {
        return true;
    }
    const FormWindow::Entry entry(window);
    const LRESULT code = ::SendMessageW(message.hwnd, WM_GETDLGCODE, message.wParam,
                                        reinterpret_cast<LPARAM>(&message));
    const bool isTaken = (code & DLGC_WANTMESSAGE) != 0;
    if (message.message == WM_SYSCHAR) {
        return TakeAccessKey(window, message.wParam);
    }
    if (message.message == WM_CHAR) {
        // Without Alt where what has the focus takes no letters.
        const bool takesLetters = isTaken || (code & DLGC_WANTCHARS) != 0;
        return !takesLetters && TakeAccessKey(window, message.wParam);
    }
    if (message.message == WM_KEYDOWN && !isTaken) {
        switch (message.wParam) {
            case VK_TAB:
                TakeTab(window);
                return true;
            case VK_RETURN:
                return gestures::PressEnter(window.Model()) != KeyUse::ByControl;
            case VK_ESCAPE:
                gestures::PressEscape(window.Model());
                return true;
            default:
                break;
        }
    }
    return ::IsDialogMessageW(window.handle, &message) != 0;
}

void SelectTextAfterKey(const FormWindow& window, HWND focusBefore) {
    HWND focus = ::GetFocus();
    if (focus != focusBefore && ::IsChild(window.handle, focus) != 0 &&
        (::SendMessageW(focus, WM_GETDLGCODE, 0, 0) & DLGC_HASSETSEL) != 0) {
        ::SendMessageW(focus, EM_SETSEL, 0, -1);
    }
}

}  // namespace forms::win32
