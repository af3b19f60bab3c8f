#include "forms/win32/Foreground.h"

#include <cwchar>
#include <iterator>

namespace forms::win32 {

namespace {

// Stores the first open box or dialog in *data.
BOOL CALLBACK FindOpenBox(HWND window, LPARAM data) {
    const bool isOpen =
        IsBox(window) && ::IsWindowVisible(window) != 0 && ::IsWindowEnabled(window) != 0;
    if (isOpen) {
        *reinterpret_cast<HWND*>(data) = window;
    }
    return isOpen ? FALSE : TRUE;
}

}  // namespace

bool HasForeground() {
    DWORD process = 0;
    HWND foreground = ::GetForegroundWindow();
    return foreground != nullptr && ::GetWindowThreadProcessId(foreground, &process) != 0 &&
           process == ::GetCurrentProcessId();
}

bool IsBox(HWND window) {
    wchar_t name[16] = L"";
    ::GetClassNameW(window, name, static_cast<int>(std::size(name)));
    return std::wcscmp(name, L"#32770") == 0;
}

HWND OpenBox() {
    HWND box = nullptr;
    ::EnumThreadWindows(::GetCurrentThreadId(), &FindOpenBox, reinterpret_cast<LPARAM>(&box));
    return box;
}

bool HasTaskbarButton(HWND window) {
    for (HWND owner = window; owner != nullptr; owner = ::GetWindow(owner, GW_OWNER)) {
        const bool isMarked = (::GetWindowLongPtrW(owner, GWL_EXSTYLE) & WS_EX_APPWINDOW) != 0;
        const bool isAlone = ::GetWindow(owner, GW_OWNER) == nullptr;
        if ((isMarked || isAlone) && ::IsWindowVisible(owner) != 0) {
            return true;
        }
    }
    return false;
}

}  // namespace forms::win32
