#include <gtest/gtest.h>

#include "forms/headless/HeadlessLocale.h"

namespace forms::headless {
namespace {

const base::DateTime friday =
    base::Combine(base::DateTime::FromDate(2004, 5, 14), base::DateTime::FromTime(9, 30, 0));

TEST(HeadlessLocaleTest, AmericanFormatsByDefault) {
    HeadlessLocale locale;
    EXPECT_EQ(locale.ShortDate(friday), "5/14/2004");
    EXPECT_EQ(locale.TimeText(friday), "9:30:00 AM");
    EXPECT_EQ(locale.WeekdayName(friday), "Friday");
    EXPECT_EQ(locale.TimeText(base::DateTime{}), "12:00:00 AM");
    EXPECT_EQ(locale.TimeText(base::DateTime::FromTime(12, 0, 1)), "12:00:01 PM");
    EXPECT_EQ(locale.TimeText(base::DateTime::FromTime(13, 5, 9)), "1:05:09 PM");
}

TEST(HeadlessLocaleTest, OtherFormats) {
    HeadlessLocale locale;
    locale.shortDateFormat = "dd.MM.yyyy";
    locale.timeFormat = "HH:mm:ss";
    EXPECT_EQ(locale.ShortDate(base::DateTime::FromDate(2004, 5, 4)), "04.05.2004");
    EXPECT_EQ(locale.TimeText(friday), "09:30:00");
    locale.shortDateFormat = "M/d/yy";
    EXPECT_EQ(locale.ShortDate(base::DateTime::FromDate(2004, 5, 4)), "5/4/04");
    locale.shortDateFormat = "d 'de' M/y";
    EXPECT_EQ(locale.ShortDate(base::DateTime::FromDate(2004, 5, 4)), "4 de 5/4");
    locale.timeFormat = "hh.mm t";
    EXPECT_EQ(locale.TimeText(friday), "09.30 A");
}

TEST(HeadlessLocaleTest, OtherWeekdayNames) {
    HeadlessLocale locale;
    locale.weekdayNames = {"So", "Mo", "Di", "Mi", "Do", "Fr", "Sa"};
    EXPECT_EQ(locale.WeekdayName(friday), "Fr");
}

TEST(HeadlessLocaleTest, GeneralDateLeavesOutAZeroDateOrTime) {
    HeadlessLocale locale;
    EXPECT_EQ(locale.GeneralDate(friday), "5/14/2004 9:30:00 AM");
    EXPECT_EQ(locale.GeneralDate(friday.DateOnly()), "5/14/2004");
    EXPECT_EQ(locale.GeneralDate(friday.TimeOnly()), "9:30:00 AM");
    EXPECT_EQ(locale.GeneralDate(base::DateTime{}), "12:00:00 AM");
}

TEST(HeadlessLocaleTest, UpperCaseOfAllScripts) {
    HeadlessLocale locale;
    EXPECT_EQ(locale.ToUpper("caf\xc3\xa9 \xc3\xbf \xce\xb1 \xd0\xb6 \xc3\x9f 1"),
              "CAF\xc3\x89 \xc5\xb8 \xce\x91 \xd0\x96 \xc3\x9f 1");
}

TEST(HeadlessLocaleTest, EveryByteOfTheCodePageRoundTrips) {
    HeadlessLocale locale;
    for (int code = 0; code < 256; ++code) {
        const std::string byte(1, static_cast<char>(code));
        EXPECT_EQ(locale.ToAnsi(locale.FromAnsi(byte)), byte) << code;
    }
    EXPECT_EQ(locale.FromAnsi("\x80"), "\xe2\x82\xac");
    EXPECT_EQ(locale.FromAnsi("\xe4"), "\xc3\xa4");
}

TEST(HeadlessLocaleTest, CharactersOutsideTheCodePageDoNotFit) {
    HeadlessLocale locale;
    EXPECT_EQ(locale.ToAnsi("\xe2\x82\xac \xc3\xa4"), "\x80 \xe4");
    EXPECT_EQ(locale.ToAnsi("\xce\xb1"), std::nullopt);
    EXPECT_EQ(locale.ToAnsi("\xf0\x9f\x98\x80"), std::nullopt);
    EXPECT_EQ(locale.ToAnsi("\xc2\x80"), std::nullopt);
}

TEST(HeadlessLocaleTest, DoubleByteCodePagesHavePairsOfBytes) {
    HeadlessLocale locale;
    struct Case {
        int codePage;
        std::string bytes;
        std::string text;
    };
    for (const Case& test : {Case{932, "a\x95\x5c\xb1", "a\xe8\xa1\xa8\xef\xbd\xb1"},
                             Case{936, "a\xb1\xed\x81\x5c", "a\xe8\xa1\xa8\xe4\xb9\x97"}}) {
        locale.codePage = test.codePage;
        EXPECT_EQ(locale.FromAnsi(test.bytes), test.text);
        EXPECT_EQ(locale.ToAnsi(test.text), test.bytes);
        EXPECT_EQ(locale.ToAnsi("\xc3\xa4"), std::nullopt);
    }
}

TEST(HeadlessLocaleTest, TheFirstByteOfAPairTakesTheNextWithIt) {
    HeadlessLocale locale;
    locale.codePage = 932;
    EXPECT_EQ(locale.FromAnsi("\xe4\",x\xe4"), "\xe3\x83\xbb,x\xe3\x83\xbb");
    locale.codePage = 936;
    EXPECT_EQ(locale.FromAnsi("\xe4\",x\xe4"), "?,x?");
}

TEST(HeadlessLocaleTest, UnderUtf8OtherBytesAreOfTheLanguagesCodePage) {
    HeadlessLocale locale;
    locale.codePage = 65001;
    EXPECT_EQ(locale.FromAnsi("\xc3\xa4"), "\xc3\xa4");
    EXPECT_EQ(locale.FromAnsi("\xe4"), "\xc3\xa4");
    EXPECT_EQ(locale.ToAnsi("\xc3\xa4"), std::nullopt);
    EXPECT_EQ(locale.ToAnsi("plain"), "plain");
    locale.languageCodePage = 932;
    EXPECT_EQ(locale.FromAnsi("\x95\x5c"), "\xe8\xa1\xa8");
}

}  // namespace
}  // namespace forms::headless
