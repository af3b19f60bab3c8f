#include <windows.h>
#include <gtest/gtest.h>

#include "forms/win32/MakeDevices.h"

namespace forms::win32 {

TEST(MakeDevicesTest, EveryDeviceIsThereAndStaysTheSame) {
    const Devices first = MakeDevices({});
    const Devices second = MakeDevices({});
    EXPECT_NE(first.clock, nullptr);
    EXPECT_NE(first.files, nullptr);
    EXPECT_NE(first.settings, nullptr);
    EXPECT_NE(first.sound, nullptr);
    EXPECT_NE(first.tray, nullptr);
    EXPECT_NE(first.printer, nullptr);
    EXPECT_NE(first.shell, nullptr);
    EXPECT_NE(first.pictures, nullptr);
    EXPECT_NE(first.locale, nullptr);
    EXPECT_NE(first.system, nullptr);
    EXPECT_EQ(first.tray, second.tray);
    EXPECT_EQ(first.files, second.files);
}

}  // namespace forms::win32
