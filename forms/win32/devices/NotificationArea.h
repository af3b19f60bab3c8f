#pragma once

#include <windows.h>
#include <shellapi.h>

#include <cstdint>

namespace forms::win32 {

// The shell's notification area, as WinTray calls it. Tests replace it.
class NotificationArea {
  public:
    NotificationArea() = default;
    virtual ~NotificationArea() = default;
    NotificationArea(const NotificationArea&) = delete;
    NotificationArea& operator=(const NotificationArea&) = delete;

    // message is NIM_ADD, NIM_MODIFY or NIM_DELETE. False if the shell refuses or does not answer
    // in time.
    virtual bool Notify(DWORD message, NOTIFYICONDATAA& record);
    // The width of an icon in pixels, at the scale of the task bar, which may be on any monitor.
    virtual int IconPixels();
    virtual std::uint64_t Milliseconds();
};

}  // namespace forms::win32
