#include "forms/win32/devices/WinTray.h"

#include <shellapi.h>

#include <algorithm>
#include <cstring>
#include <string_view>

#include "forms/win32/Dpi.h"
#include "forms/win32/Internal.h"
#include "forms/win32/Utf.h"

namespace forms::win32 {

namespace {

// The size of the first version of the record, which every system accepts. Its last field is the
// tip of 64 characters.
#ifdef _WIN64
static_assert(NOTIFYICONDATAA_V1_SIZE == 104);
#else
static_assert(NOTIFYICONDATAA_V1_SIZE == 88);
#endif
constexpr std::size_t tipSize = 64;

// The tip up to its zero character, in the system's code page, cut off if it is too long.
std::string TipText(const std::string& tip) {
    std::wstring wide = Wide(std::string_view(tip).substr(0, tip.find('\0')));
    wide.resize(std::min(wide.size(), tipSize - 1));
    for (;;) {
        const int needed = ::WideCharToMultiByte(
            CP_ACP, 0, wide.data(), static_cast<int>(wide.size()), nullptr, 0, nullptr, nullptr);
        if (needed < static_cast<int>(tipSize)) {
            std::string bytes(static_cast<std::size_t>(needed), '\0');
            ::WideCharToMultiByte(CP_ACP, 0, wide.data(), static_cast<int>(wide.size()),
                                  bytes.data(), needed, nullptr, nullptr);
            return bytes;
        }
        wide.pop_back();
    }
}

// The size at the scale of the task bar, which may be on any monitor.
int IconPixels() {
    HWND bar = ::FindWindowW(L"Shell_TrayWnd", nullptr);
    return SystemMetric(SM_CXSMICON, bar != nullptr ? DpiOf(bar) : SystemDpi());
}

}  // namespace

WinTray::~WinTray() {
    for (const Entry& entry : entries) {
        Notify(NIM_DELETE, entry);
    }
}

bool WinTray::Add(const TrayRecord& record) {
    HWND window = record.owner != nullptr ? TrayWindowOf(*record.owner, record.iconId) : nullptr;
    Entry entry{record.owner, window, record, {}, 0};
    if (entry.window == nullptr) {
        return false;
    }
    const auto known = Find(record);
    if (known != entries.end() && ::IsWindow(known->window) != 0) {
        return Notify(NIM_ADD, *known);
    }
    LoadIcon(entry);
    const bool added = Notify(NIM_ADD, entry);
    if (known != entries.end()) {
        *known = std::move(entry);
    } else {
        entries.push_back(std::move(entry));
    }
    return added;
}

bool WinTray::Delete(const TrayRecord& record) {
    const auto known = Find(record);
    if (known == entries.end()) {
        HWND window = record.owner != nullptr ? ExistingWindowOf(*record.owner) : nullptr;
        const Entry unknown{record.owner, window, record, {}, 0};
        return window != nullptr && Notify(NIM_DELETE, unknown);
    }
    const bool deleted = Notify(NIM_DELETE, *known);
    entries.erase(known);
    return deleted;
}

void WinTray::LoadIcon(Entry& entry) {
    entry.iconPixels = IconPixels();
    entry.icon.reset(
        static_cast<HICON>(::LoadImageW(nullptr, Wide(entry.record.iconPath).c_str(), IMAGE_ICON,
                                        entry.iconPixels, entry.iconPixels, LR_LOADFROMFILE)));
}

void WinTray::FollowScale() {
    for (Entry& entry : entries) {
        if (entry.iconPixels != IconPixels()) {
            // Destroy the old icon only after the new one is shown.
            const auto before = std::move(entry.icon);
            LoadIcon(entry);
            Notify(NIM_MODIFY, entry);
        }
    }
}

void WinTray::AddAgain() {
    for (Entry& entry : entries) {
        if (::IsWindow(entry.window) != 0) {
            LoadIcon(entry);
            Notify(NIM_ADD, entry);
        }
    }
}

std::vector<WinTray::Entry>::iterator WinTray::Find(const TrayRecord& record) {
    return std::find_if(entries.begin(), entries.end(), [&record](const Entry& entry) {
        return entry.owner == record.owner && entry.record.iconId == record.iconId;
    });
}

NOTIFYICONDATAA WinTray::NativeRecord(const TrayRecord& record, HWND window, HICON icon) {
    NOTIFYICONDATAA data{};
    data.cbSize = NOTIFYICONDATAA_V1_SIZE;
    data.hWnd = window;
    data.uID = record.iconId;
    data.uFlags = record.flags;
    data.uCallbackMessage = record.callbackMessage;
    data.hIcon = icon;
    const std::string tip = TipText(record.tip);
    std::memset(data.szTip, ' ', tipSize);
    std::memcpy(data.szTip, tip.c_str(), tip.size() + 1);
    return data;
}

bool WinTray::Notify(DWORD message, const Entry& entry) {
    NOTIFYICONDATAA data = NativeRecord(entry.record, entry.window, entry.icon.get());
    return ::Shell_NotifyIconA(message, &data) != 0;
}

}  // namespace forms::win32
