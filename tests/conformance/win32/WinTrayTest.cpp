#include <windows.h>
#include <gtest/gtest.h>

#include "forms/win32/devices/WinTray.h"

namespace forms::win32 {

TEST(WinTrayTest, AnIconThatWasNeverAddedCannotBeDeleted) {
    NotificationArea area;
    WinTray tray(area);
    TrayRecord record;
    record.iconId = 1;
    EXPECT_FALSE(tray.Delete(record));
    EXPECT_FALSE(tray.Add(record));  // there is no window that could own it
    EXPECT_FALSE(tray.Delete(record));
}

}  // namespace forms::win32
