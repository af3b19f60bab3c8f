#include <windows.h>
#include <gtest/gtest.h>

#include "forms/win32/devices/WinLocale.h"

namespace forms::win32 {

namespace {

TEST(WinLocaleNumbers, AreThoseOfTheSystem) {
    WinLocale locale;
    const auto wasDecimal = locale.Numbers();
    ASSERT_NE(::SetLocaleInfoW(LOCALE_USER_DEFAULT, LOCALE_SDECIMAL, L","), 0);
    ASSERT_NE(::SetLocaleInfoW(LOCALE_USER_DEFAULT, LOCALE_STHOUSAND, L"\x202f"), 0);
    ASSERT_NE(::SetLocaleInfoW(LOCALE_USER_DEFAULT, LOCALE_SCURRENCY, L"\x20ac"), 0);
    const base::NumberFormat french{",", "\xe2\x80\xaf", "\xe2\x82\xac"};
    EXPECT_EQ(locale.Numbers(), french);
    ::SetLocaleInfoW(LOCALE_USER_DEFAULT, LOCALE_SDECIMAL, L".");
    ::SetLocaleInfoW(LOCALE_USER_DEFAULT, LOCALE_STHOUSAND, L",");
    ::SetLocaleInfoW(LOCALE_USER_DEFAULT, LOCALE_SCURRENCY, L"$");
    EXPECT_EQ(locale.Numbers(), base::NumberFormat{});
    EXPECT_EQ(wasDecimal, base::NumberFormat{});
}

}  // namespace

}  // namespace forms::win32
