#include "forms/win32/devices/NotificationArea.h"

#include "forms/win32/Dpi.h"
#include "forms/win32/Internal.h"

namespace forms::win32 {

bool NotificationArea::Notify(DWORD message, NOTIFYICONDATAA& record) {
    return ::Shell_NotifyIconA(message, &record) != 0;
}

int NotificationArea::IconPixels() {
    HWND bar = ::FindWindowW(L"Shell_TrayWnd", nullptr);
    return SystemMetric(SM_CXSMICON, bar != nullptr ? DpiOf(bar) : SystemDpi());
}

std::uint64_t NotificationArea::Milliseconds() { return ::GetTickCount64(); }

std::optional<POINT> MenuPlaceAtIcon(HWND owner, UINT iconId) {
    NOTIFYICONIDENTIFIER icon{};
    icon.cbSize = sizeof icon;
    icon.hWnd = owner;
    icon.uID = iconId;
    RECT place{};
    POINT pointer{};
    ::GetCursorPos(&pointer);
    if (::Shell_NotifyIconGetRect(&icon, &place) != S_OK || ::PtInRect(&place, pointer) != 0) {
        return std::nullopt;
    }
    return POINT{(place.left + place.right) / 2, (place.top + place.bottom) / 2};
}

}  // namespace forms::win32
