#include "forms/win32/devices/WinTray.h"

#include <algorithm>
#include <cstring>
#include <string_view>

#include "forms/win32/Internal.h"
#include "forms/win32/LateLibrary.h"
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

constexpr std::uint64_t firstPause = 2000;
constexpr std::uint64_t longestPause = 60000;
constexpr std::uint64_t followFor = 10000;

// The icon of the file in this size. If the file lacks the size, the next larger one is scaled
// down. If the file cannot be loaded, returns the program's own icon.
HICON LoadIconFile(const std::wstring& path, int pixels) {
    using Load = HRESULT(WINAPI*)(HINSTANCE, PCWSTR, int, int, HICON*);
    static const auto load = FromLoadedLibrary<Load>(L"comctl32.dll", "LoadIconWithScaleDown");
    HICON icon = nullptr;
    if (load != nullptr && SUCCEEDED(load(nullptr, path.c_str(), pixels, pixels, &icon))) {
        return icon;
    }
    void* loaded = ::LoadImageW(nullptr, path.c_str(), IMAGE_ICON, pixels, pixels, LR_LOADFROMFILE);
    if (loaded == nullptr) {
        loaded = ::LoadImageW(::GetModuleHandleW(nullptr), MAKEINTRESOURCEW(1), IMAGE_ICON, pixels,
                              pixels, LR_DEFAULTCOLOR);
    }
    return static_cast<HICON>(loaded);
}

}  // namespace

WinTray::~WinTray() {
    for (const Entry& entry : entries) {
        Notify(NIM_DELETE, entry);
    }
}

bool WinTray::Add(const TrayRecord& record) {
    HWND window = record.owner != nullptr ? TrayWindowOf(*record.owner, record.iconId) : nullptr;
    if (window == nullptr) {
        return false;
    }
    // Without this, the system would block the icon's messages if the program runs as
    // administrator, because the shell has fewer rights.
    ::ChangeWindowMessageFilterEx(window, record.callbackMessage, MSGFLT_ALLOW, nullptr);
    auto entry = Find(record);
    if (entry == entries.end()) {
        entry = entries.insert(entry, Entry{.owner = record.owner});
    }
    entry->window = window;
    entry->record = record;
    entry->pause = 0;
    LoadIcon(*entry);
    return Show(*entry);
}

bool WinTray::Delete(const TrayRecord& record) {
    const auto known = Find(record);
    if (known == entries.end()) {
        HWND window = record.owner != nullptr ? ExistingWindowOf(*record.owner) : nullptr;
        const Entry unknown{.owner = record.owner, .window = window, .record = record};
        return window != nullptr && Notify(NIM_DELETE, unknown);
    }
    const bool deleted = Notify(NIM_DELETE, *known);
    entries.erase(known);
    return deleted;
}

void WinTray::AddAgain() {
    for (Entry& entry : entries) {
        entry.pause = 0;
        ShowInPresentSize(entry);
    }
}

void WinTray::FollowScale() {
    followUntil = area.Milliseconds() + followFor;
    ReloadWrongSizes();
}

void WinTray::KeepShown() {
    const std::uint64_t now = area.Milliseconds();
    if (now < followUntil) {
        ReloadWrongSizes();
    }
    for (Entry& entry : entries) {
        if (!entry.isShown && now >= entry.nextTry) {
            Show(entry);
        }
    }
}

void WinTray::LoadIcon(Entry& entry) {
    entry.iconPixels = area.IconPixels();
    entry.icon.reset(LoadIconFile(Wide(entry.record.iconPath), entry.iconPixels));
}

// Adds the icon. If the shell already has it, updates it.
bool WinTray::Show(Entry& entry) {
    entry.isShown =
        ::IsWindow(entry.window) != 0 && (Notify(NIM_ADD, entry) || Notify(NIM_MODIFY, entry));
    if (!entry.isShown) {
        entry.pause = std::clamp(2 * entry.pause, firstPause, longestPause);
        entry.nextTry = area.Milliseconds() + entry.pause;
    }
    return entry.isShown;
}

void WinTray::ShowInPresentSize(Entry& entry) {
    // Destroy the old icon only after the new one is shown.
    const auto before = std::move(entry.icon);
    LoadIcon(entry);
    Show(entry);
}

void WinTray::ReloadWrongSizes() {
    for (Entry& entry : entries) {
        if (entry.iconPixels != area.IconPixels()) {
            ShowInPresentSize(entry);
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
    return area.Notify(message, data);
}

}  // namespace forms::win32
