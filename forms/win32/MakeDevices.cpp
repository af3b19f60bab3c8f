#include "forms/win32/MakeDevices.h"

#include "forms/win32/Internal.h"
#include "forms/win32/Utf.h"
#include "forms/win32/devices/NotificationArea.h"
#include "forms/win32/devices/WinClock.h"
#include "forms/win32/devices/WinFiles.h"
#include "forms/win32/devices/WinLocale.h"
#include "forms/win32/devices/WinPictures.h"
#include "forms/win32/devices/WinPrinter.h"
#include "forms/win32/devices/WinSettings.h"
#include "forms/win32/devices/WinShell.h"
#include "forms/win32/devices/WinSound.h"
#include "forms/win32/devices/WinSystem.h"
#include "forms/win32/devices/WinTray.h"

namespace forms::win32 {

namespace {

struct AllDevices {
    WinClock clock;
    WinFiles files;
    WinSettings settings;
    WinSound sound;
    NotificationArea area;
    WinTray tray{area};
    WinPrinter printer;
    WinShell shell;
    WinPictures pictures{files};
    WinLocale locale;
    WinSystem system;

    explicit AllDevices(const ApplicationInfo& application)
        : settings(Wide(application.registryKey)),
          printer(Wide(application.name)),
          system(Wide(application.mutexName)) {
        onTaskbarCreated = [this] { tray.AddAgain(); };
        onDisplayChange = [this] { tray.FollowScale(); };
        onTimer = [this] { tray.KeepShown(); };
    }
    ~AllDevices() {
        onTaskbarCreated = nullptr;
        onDisplayChange = nullptr;
        onTimer = nullptr;
    }
    AllDevices(const AllDevices&) = delete;
    AllDevices& operator=(const AllDevices&) = delete;
};

}  // namespace

Devices MakeDevices(const ApplicationInfo& application) {
    static AllDevices all(application);
    Devices devices;
    devices.clock = &all.clock;
    devices.files = &all.files;
    devices.settings = &all.settings;
    devices.sound = &all.sound;
    devices.tray = &all.tray;
    devices.printer = &all.printer;
    devices.shell = &all.shell;
    devices.pictures = &all.pictures;
    devices.locale = &all.locale;
    devices.system = &all.system;
    return devices;
}

}  // namespace forms::win32
