#include <windows.h>
#include <gtest/gtest.h>

#include <string>

#include "forms/win32/devices/WinSettings.h"

namespace forms::win32 {

class WinSettingsTest : public testing::Test {
  protected:
    WinSettingsTest()
        : root(L"Software\\Jotwright Test " + std::to_wstring(::GetCurrentProcessId())),
          settings(root) {}
    ~WinSettingsTest() override { ::RegDeleteTreeW(HKEY_CURRENT_USER, root.c_str()); }

    const std::wstring root;
    WinSettings settings;
};

TEST_F(WinSettingsTest, WrittenValuesAreReadBack) {
    EXPECT_FALSE(settings.Read("Config", "Alarm").has_value());
    settings.Write("Config", "Alarm", "C:\\a b.wav");
    settings.Write("Options", "Alarm", "");
    EXPECT_EQ(settings.Read("Config", "Alarm"), "C:\\a b.wav");
    EXPECT_EQ(settings.Read("Options", "Alarm"), "");
    EXPECT_FALSE(settings.Read("Config", "Other").has_value());
    settings.Write("Config", "Alarm", "\xe6\x97\xa5 \xf0\x9f\x93\x9d");
    EXPECT_EQ(settings.Read("Config", "Alarm"), "\xe6\x97\xa5 \xf0\x9f\x93\x9d");
    for (const std::size_t length : {127U, 128U, 129U, 5000U}) {
        settings.Write("Config", "Long", std::string(length, 'x'));
        EXPECT_EQ(settings.Read("Config", "Long"), std::string(length, 'x'));
    }
}

TEST_F(WinSettingsTest, ValuesAreTextsBelowTheSection) {
    settings.Write("Config", "Alarm", "1");
    DWORD type = 0;
    EXPECT_EQ(::RegGetValueW(HKEY_CURRENT_USER, (root + L"\\Config").c_str(), L"Alarm", RRF_RT_ANY,
                             &type, nullptr, nullptr),
              ERROR_SUCCESS);
    EXPECT_EQ(type, static_cast<DWORD>(REG_SZ));
    const DWORD number = 1;
    ::RegSetKeyValueW(HKEY_CURRENT_USER, (root + L"\\Config").c_str(), L"Number", REG_DWORD,
                      &number, sizeof number);
    EXPECT_FALSE(settings.Read("Config", "Number").has_value());
}

}  // namespace forms::win32
