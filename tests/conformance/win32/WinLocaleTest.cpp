#include <windows.h>
#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

#include "base/Text.h"
#include "forms/win32/Utf.h"
#include "forms/win32/devices/WinLocale.h"

namespace forms::win32 {

namespace {

constexpr unsigned western = 1252;
constexpr unsigned japanese = 932;
constexpr unsigned chinese = 936;

// Changes a setting of the user while this object exists.
class UserSetting {
  public:
    UserSetting(LCTYPE newType, const wchar_t* value) : type(newType) {
        ::GetLocaleInfoW(LOCALE_USER_DEFAULT, type, old, 80);
        EXPECT_NE(::SetLocaleInfoW(LOCALE_USER_DEFAULT, type, value), 0);
    }
    ~UserSetting() { ::SetLocaleInfoW(LOCALE_USER_DEFAULT, type, old); }
    UserSetting(const UserSetting&) = delete;
    UserSetting& operator=(const UserSetting&) = delete;

  private:
    LCTYPE type;
    wchar_t old[80]{};
};

base::DateTime HalfPastNine(int year) {
    return base::Combine(base::DateTime::FromDate(year, 5, 14), base::DateTime::FromTime(9, 30, 0));
}

// Expects the conversion of each text to these bytes, and back.
void ExpectBothWays(WinLocale& locale,
                    const std::vector<std::pair<std::string, std::string>>& texts) {
    for (const auto& [text, bytes] : texts) {
        EXPECT_EQ(locale.ToAnsi(text), bytes) << text;
        EXPECT_EQ(locale.FromAnsi(bytes), text) << text;
    }
}

void ExpectNotFitting(WinLocale& locale, const std::vector<std::string>& texts) {
    for (const std::string& text : texts) {
        EXPECT_FALSE(locale.ToAnsi(text).has_value()) << text;
    }
}

}  // namespace

TEST(WinLocaleNumbersTest, AreThoseOfTheSystem) {
    WinLocale locale;
    EXPECT_EQ(locale.Numbers(), base::NumberFormat{});
    {
        const UserSetting decimal(LOCALE_SDECIMAL, L",");
        const UserSetting thousands(LOCALE_STHOUSAND, L"\x202f");
        const UserSetting currency(LOCALE_SCURRENCY, L"\x20ac");
        const base::NumberFormat french{",", "\xe2\x80\xaf", "\xe2\x82\xac"};
        EXPECT_EQ(locale.Numbers(), french);
    }
    EXPECT_EQ(locale.Numbers(), base::NumberFormat{});
}

TEST(WinLocaleTest, DatesAndTimesAreInTheUsersForm) {
    WinLocale locale;
    {
        const UserSetting date(LOCALE_SSHORTDATE, L"M/d/yyyy");
        const UserSetting time(LOCALE_STIMEFORMAT, L"h:mm:ss tt");
        EXPECT_EQ(locale.ShortDate(HalfPastNine(2004)), "5/14/2004");
        EXPECT_EQ(locale.TimeText(HalfPastNine(2004)), "9:30:00 AM");
        EXPECT_EQ(locale.GeneralDate(HalfPastNine(2004)), "5/14/2004 9:30:00 AM");
    }
    const UserSetting date(LOCALE_SSHORTDATE, L"dd.MM.yy");
    const UserSetting time(LOCALE_STIMEFORMAT, L"HH:mm:ss");
    EXPECT_EQ(locale.ShortDate(HalfPastNine(2004)), "14.05.04");
    EXPECT_EQ(locale.TimeText(HalfPastNine(2004)), "09:30:00");
}

TEST(WinLocaleTest, WeekdaysHaveTheirNames) {
    if (PRIMARYLANGID(::GetUserDefaultLangID()) != LANG_ENGLISH) {
        GTEST_SKIP() << "the language is another";
    }
    WinLocale locale;
    const char* const names[]{"Sunday",   "Monday", "Tuesday", "Wednesday",
                              "Thursday", "Friday", "Saturday"};
    for (int day = 0; day < 7; ++day) {
        EXPECT_EQ(locale.WeekdayName(base::DateTime::FromDate(2004, 5, 9 + day)), names[day]);
    }
    EXPECT_EQ(locale.WeekdayName(base::DateTime::FromDate(1234, 5, 14)), "Sunday");
}

TEST(WinLocaleTest, YearsThatTheSystemDoesNotKnowHaveTheSameForm) {
    WinLocale locale;
    const UserSetting date(LOCALE_SSHORTDATE, L"yyyy'y' M d");
    EXPECT_EQ(locale.ShortDate(HalfPastNine(2034)), "2034y 5 14");
    EXPECT_EQ(locale.ShortDate(HalfPastNine(1234)), "1234y 5 14");
    EXPECT_EQ(locale.ShortDate(HalfPastNine(100)), "0100y 5 14");
    EXPECT_EQ(locale.ShortDate(HalfPastNine(9999)), "9999y 5 14");
    EXPECT_EQ(locale.ShortDate(base::DateTime{}), "1899y 12 30");
}

TEST(WinLocaleTest, UpperCase) {
    WinLocale locale;
    EXPECT_EQ(locale.ToUpper(""), "");
    EXPECT_EQ(locale.ToUpper("Note 1 i"), "NOTE 1 I");
    EXPECT_EQ(locale.ToUpper("\xc3\xbc\xd0\xb6"), "\xc3\x9c\xd0\x96");
}

TEST(WinLocaleCodePagesTest, TheSystemsIsUsed) {
    WinLocale locale;
    WinLocale same(::GetACP());
    for (const char* text : {"", "plain\r\n\ttext", "\xc3\xa9", "\xce\xa9", "\xe6\x97\xa5",
                             "\xd0\x96", "\xe2\x82\xac", "\xf0\x9f\x93\x9d"}) {
        EXPECT_EQ(locale.ToAnsi(text), same.ToAnsi(text)) << text;
    }
    EXPECT_EQ(locale.FromAnsi("\x80\xe9"), same.FromAnsi("\x80\xe9"));
}

TEST(WinLocaleCodePagesTest, Western) {
    WinLocale locale(western);
    ExpectBothWays(
        locale,
        {{"", ""}, {"plain\r\n\ttext", "plain\r\n\ttext"}, {"\xc3\xa9\xe2\x82\xac", "\xe9\x80"}});
    // A letter A with a bar must not become A, and infinity must not become 8.
    ExpectNotFitting(
        locale, {"\xc4\x80", "\xe2\x88\x9e", "\xe6\x97\xa5", "\xf0\x9f\x93\x9d", "\xff not UTF-8"});
    std::string all;
    for (int code = 0; code < 256; ++code) {
        all += static_cast<char>(code);
    }
    EXPECT_EQ(locale.ToAnsi(locale.FromAnsi(all)), all);
}

TEST(WinLocaleCodePagesTest, Japanese) {
    WinLocale locale(japanese);
    ExpectBothWays(locale, {{"plain\r\n\ttext", "plain\r\n\ttext"},
                            {"\xe6\x97\xa5\xe6\x9c\xac\xe8\xaa\x9e", "\x93\xfa\x96\x7b\x8c\xea"},
                            // The second byte is the same as that of a backslash.
                            {"\xe8\xa1\xa8", "\x95\x5c"},
                            {"\\", "\\"},
                            // Narrow katakana have one byte.
                            {"\xef\xbd\xb1", "\xb1"}});
    // The yen sign must not become a backslash.
    ExpectNotFitting(locale, {"\xc2\xa5", "\xc3\xa9", "\xe2\x82\xac", "\xf0\x9f\x93\x9d"});
    // One character has several codes. The text must not change.
    EXPECT_EQ(locale.FromAnsi("\x87\x90"), "\xe2\x89\x92");
    EXPECT_EQ(locale.FromAnsi("\x81\xe0"), "\xe2\x89\x92");
    EXPECT_EQ(locale.FromAnsi(locale.ToAnsi("\xe2\x89\x92").value_or("")), "\xe2\x89\x92");
    // The text ends with the first byte of a pair.
    const std::string half = locale.FromAnsi("a\x93");
    EXPECT_TRUE(half.starts_with("a"));
    EXPECT_EQ(base::ToValidUtf8(half), half);
}

TEST(WinLocaleCodePagesTest, Chinese) {
    WinLocale locale(chinese);
    ExpectBothWays(locale, {{"plain\r\n\ttext", "plain\r\n\ttext"},
                            {"\xe4\xb8\xad\xe6\x96\x87", "\xd6\xd0\xce\xc4"},
                            {"\xe2\x82\xac", "\x80"},
                            {"\xc3\xa9", "\xa8\xa6"}});
    ExpectNotFitting(locale, {"\xc3\xb1", "\xc2\xa5", "\xf0\x9f\x93\x9d"});
}

TEST(WinLocaleCodePagesTest, UnderUtf8OnlyAsciiIsWrittenAndAnyTextIsRead) {
    WinLocale locale(CP_UTF8);
    ExpectBothWays(locale, {{"", ""}, {"plain\r\n\ttext", "plain\r\n\ttext"}});
    ExpectNotFitting(locale, {"\xc3\xa9", "\xe6\x97\xa5", "\xf0\x9f\x93\x9d"});
    EXPECT_EQ(locale.FromAnsi("caf\xc3\xa9 \xe6\x97\xa5"), "caf\xc3\xa9 \xe6\x97\xa5");
}

TEST(WinLocaleCodePagesTest, BytesThatAreNotUtf8UseTheLanguagesCodePage) {
    DWORD page = 0;
    ::GetLocaleInfoW(LOCALE_SYSTEM_DEFAULT, LOCALE_IDEFAULTANSICODEPAGE | LOCALE_RETURN_NUMBER,
                     reinterpret_cast<wchar_t*>(&page), sizeof page / sizeof(wchar_t));
    if (page != western) {
        GTEST_SKIP() << "the language's code page is " << page;
    }
    WinLocale locale(CP_UTF8);
    EXPECT_EQ(locale.FromAnsi("caf\xe9 5 \x80"), "caf\xc3\xa9 5 \xe2\x82\xac");
    // If one byte is not valid UTF-8, the whole file is not UTF-8.
    EXPECT_EQ(locale.FromAnsi("\xc3\xa9\xe9"), "\xc3\x83\xc2\xa9\xc3\xa9");
}

}  // namespace forms::win32
