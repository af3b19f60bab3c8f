#pragma once

#include <windows.h>
#include <shellapi.h>

#include <memory>
#include <string>
#include <vector>

#include "forms/Devices.h"

namespace forms::win32 {

// The notification area. The destructor removes the icons that are still shown.
class WinTray : public Tray {
  public:
    WinTray() = default;
    WinTray(const WinTray&) = delete;
    WinTray& operator=(const WinTray&) = delete;
    ~WinTray() override;

    // If there is no notification area yet, the icon appears when one is created.
    bool Add(const TrayRecord& record) override;
    // Asks the system even if this program has no such icon, or has it no more.
    bool Delete(const TrayRecord& record) override;

    // The tip is in the system's code page, ends with a zero character and is padded with blanks.
    static NOTIFYICONDATAA NativeRecord(const TrayRecord& record, HWND window, HICON icon);

    // Adds all icons again. Call it when the shell has restarted with an empty notification area.
    void AddAgain();
    // Reloads icons whose size is wrong because the scale of the task bar has changed.
    void FollowScale();

  private:
    struct DestroyIconOf {
        void operator()(HICON icon) const { ::DestroyIcon(icon); }
    };
    struct Entry {
        const Form* owner;  // only compared, never dereferenced
        HWND window;
        TrayRecord record;
        std::unique_ptr<std::remove_pointer_t<HICON>, DestroyIconOf> icon;
        int iconPixels = 0;
    };
    static void LoadIcon(Entry& entry);
    std::vector<Entry>::iterator Find(const TrayRecord& record);
    static bool Notify(DWORD message, const Entry& entry);
    std::vector<Entry> entries;
};

}  // namespace forms::win32
