#pragma once

#include <windows.h>
#include <shellapi.h>

#include <memory>
#include <string>
#include <vector>

#include "forms/Devices.h"

namespace forms::win32 {

// The notification area. Icons that are still there when the program ends are taken away.
class WinTray : public Tray {
  public:
    WinTray() = default;
    WinTray(const WinTray&) = delete;
    WinTray& operator=(const WinTray&) = delete;
    ~WinTray() override;

    // Where no notification area is there yet, the icon appears as soon as one is.
    bool Add(const TrayRecord& record) override;
    // Asks the system even where this program has no such icon (any more).
    bool Delete(const TrayRecord& record) override;

    // The tip in the system's code page, ended by a zero character and padded with blanks.
    static NOTIFYICONDATAA NativeRecord(const TrayRecord& record, HWND window, HICON icon);

    // The notification area was made anew and has forgotten its icons.
    void AddAgain();
    // The task bar may have another scale now: icons of another size are loaded.
    void FollowScale();

  private:
    struct DestroyIconOf {
        void operator()(HICON icon) const { ::DestroyIcon(icon); }
    };
    struct Entry {
        const Form* owner;  // to be compared only
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
