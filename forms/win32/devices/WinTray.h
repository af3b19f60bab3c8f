#pragma once

#include <windows.h>
#include <shellapi.h>

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "forms/Devices.h"
#include "forms/win32/devices/NotificationArea.h"

namespace forms::win32 {

// The icons in the notification area. The destructor removes those that are still shown.
class WinTray : public Tray {
  public:
    explicit WinTray(NotificationArea& notificationArea) : area(notificationArea) {}
    WinTray(const WinTray&) = delete;
    WinTray& operator=(const WinTray&) = delete;
    ~WinTray() override;

    // If the shell does not take the icon now, KeepShown() tries again.
    bool Add(const TrayRecord& record) override;
    // Asks the shell even if this object has no such icon.
    bool Delete(const TrayRecord& record) override;

    // The tip is in the system's code page, ends with a zero character and is padded with blanks.
    static NOTIFYICONDATAA NativeRecord(const TrayRecord& record, HWND window, HICON icon);

    // Adds all icons again, in their present size. Call it when the shell broadcasts
    // TaskbarCreated, after a restart or after a change of its task bar's scale.
    void AddAgain();
    // Reloads icons whose size is wrong. Call it when the monitors have changed.
    void FollowScale();
    // Tries again to add icons that the shell did not take: after two seconds, then after longer
    // and longer pauses up to a minute. For ten seconds after FollowScale(), also reloads icons
    // whose size is wrong, because the task bar changes later than the monitors. Call it about once
    // a second.
    void KeepShown();

  private:
    struct DestroyIconOf {
        void operator()(HICON icon) const { ::DestroyIcon(icon); }
    };
    struct Entry {
        const Form* owner = nullptr;  // only compared, never dereferenced
        HWND window = nullptr;
        TrayRecord record{};
        std::unique_ptr<std::remove_pointer_t<HICON>, DestroyIconOf> icon{};
        int iconPixels = 0;
        bool isShown = false;
        std::uint64_t nextTry = 0;  // see Milliseconds(); used while it is not shown
        std::uint64_t pause = 0;    // milliseconds before that try
    };
    std::vector<Entry>::iterator Find(const TrayRecord& record);
    void LoadIcon(Entry& entry);
    bool Show(Entry& entry);
    void ShowInPresentSize(Entry& entry);
    void ReloadWrongSizes();
    bool Notify(DWORD message, const Entry& entry);

    NotificationArea& area;
    std::vector<Entry> entries;
    std::uint64_t followUntil = 0;  // see NotificationArea::Milliseconds()
};

}  // namespace forms::win32
