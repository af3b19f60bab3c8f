#include <gtest/gtest.h>

#include "base/DateTime.h"
#include "base/RuntimeError.h"
#include "tests/support/ErrorOf.h"

namespace base {
namespace {

using testing_support::ErrorOf;

TEST(DateTimeTest, ZeroDateIsTheThirtiethOfDecember1899) {
    EXPECT_EQ(DateTime::FromDate(1899, 12, 30).seconds, 0);
    EXPECT_FALSE(DateTime{}.HasDate());
    EXPECT_FALSE(DateTime{}.HasTime());
    EXPECT_EQ(DateTime{}.Year(), 1899);
}

TEST(DateTimeTest, PartsOfADateAndTime) {
    const DateTime value = Combine(DateTime::FromDate(2004, 5, 14), DateTime::FromTime(9, 30, 15));
    EXPECT_EQ(value.Year(), 2004);
    EXPECT_EQ(value.Month(), 5);
    EXPECT_EQ(value.Day(), 14);
    EXPECT_EQ(value.Hour(), 9);
    EXPECT_EQ(value.Minute(), 30);
    EXPECT_EQ(value.Second(), 15);
    EXPECT_EQ(value.Weekday(), 5);
    EXPECT_TRUE(value.HasDate());
    EXPECT_TRUE(value.HasTime());
    EXPECT_EQ(value.DateOnly(), DateTime::FromDate(2004, 5, 14));
    EXPECT_EQ(value.TimeOnly(), DateTime::FromTime(9, 30, 15));
}

TEST(DateTimeTest, PartsBeforeTheZeroDate) {
    const DateTime value =
        Combine(DateTime::FromDate(1899, 12, 29), DateTime::FromTime(23, 59, 59));
    EXPECT_EQ(value.seconds, -1);
    EXPECT_EQ(value.Day(), 29);
    EXPECT_EQ(FormatTime24(value), "23:59:59");
    EXPECT_EQ(value.DateOnly().seconds, -secondsPerDay);
    EXPECT_EQ(value.TimeOnly(), DateTime::FromTime(23, 59, 59));
}

TEST(DateTimeTest, EveryDayOfFourHundredYearsFollowsTheOneBefore) {
    DateTime day = DateTime::FromDate(1899, 12, 30);
    int weekday = day.Weekday();
    EXPECT_EQ(weekday, 6);
    for (int i = 0; i < 146097; ++i) {
        const DateTime next{day.seconds + secondsPerDay};
        weekday = (weekday + 1) % 7;
        ASSERT_EQ(next.Weekday(), weekday);
        ASSERT_EQ(DateTime::FromDate(next.Year(), next.Month(), next.Day()), next);
        day = next;
    }
    EXPECT_EQ(FormatIsoDate(day), "2299-12-30");
}

TEST(DateTimeTest, ValidDates) {
    EXPECT_TRUE(DateTime::IsValidDate(2004, 2, 29));
    EXPECT_FALSE(DateTime::IsValidDate(2003, 2, 29));
    EXPECT_FALSE(DateTime::IsValidDate(1900, 2, 29));
    EXPECT_TRUE(DateTime::IsValidDate(2000, 2, 29));
    EXPECT_FALSE(DateTime::IsValidDate(2004, 13, 1));
    EXPECT_FALSE(DateTime::IsValidDate(2004, 0, 1));
    EXPECT_FALSE(DateTime::IsValidDate(2004, 4, 31));
    EXPECT_FALSE(DateTime::IsValidDate(2004, 4, 0));
    EXPECT_FALSE(DateTime::IsValidDate(2004, 4, 257));
    EXPECT_TRUE(DateTime::IsValidDate(100, 1, 1));
    EXPECT_FALSE(DateTime::IsValidDate(99, 12, 31));
    EXPECT_TRUE(DateTime::IsValidDate(9999, 12, 31));
    EXPECT_FALSE(DateTime::IsValidDate(10000, 1, 1));
}

TEST(DateTimeTest, ImpossibleDatesAndTimesAreTypeMismatches) {
    EXPECT_EQ(ErrorOf([] { DateTime::FromDate(2003, 2, 29); }), 13);
    EXPECT_EQ(ErrorOf([] { DateTime::FromTime(24, 0, 0); }), 13);
    EXPECT_EQ(ErrorOf([] { DateTime::FromTime(-1, 0, 0); }), 13);
    EXPECT_EQ(ErrorOf([] { DateTime::FromTime(0, 60, 0); }), 13);
    EXPECT_EQ(ErrorOf([] { DateTime::FromTime(0, 0, 60); }), 13);
}

TEST(DateTimeTest, Formats) {
    const DateTime value = Combine(DateTime::FromDate(812, 5, 4), DateTime::FromTime(3, 4, 5));
    EXPECT_EQ(FormatIsoDate(value), "0812-05-04");
    EXPECT_EQ(FormatMonthDayYear(value), "5/4/812");
    EXPECT_EQ(FormatTime24(value), "03:04:05");
    EXPECT_EQ(FormatMonthDayYear(DateTime::FromDate(2004, 12, 25)), "12/25/2004");
}

TEST(DateTimeTest, EnglishMonthNames) {
    EXPECT_EQ(EnglishMonthName(1), "January");
    EXPECT_EQ(EnglishMonthName(12), "December");
    EXPECT_EQ(EnglishMonthName(0), "");
    EXPECT_EQ(EnglishMonthName(13), "");
}

TEST(DateTimeParseTimeTest, ReadsBothClocks) {
    EXPECT_EQ(ParseTime("9:30:00 AM"), DateTime::FromTime(9, 30, 0));
    EXPECT_EQ(ParseTime("1:00:15 PM"), DateTime::FromTime(13, 0, 15));
    EXPECT_EQ(ParseTime("1:00:15pm"), DateTime::FromTime(13, 0, 15));
    EXPECT_EQ(ParseTime("14:05"), DateTime::FromTime(14, 5, 0));
    EXPECT_EQ(ParseTime("12:00"), DateTime::FromTime(12, 0, 0));
    EXPECT_EQ(ParseTime(" 00:00:00 "), DateTime{});
    EXPECT_EQ(ParseTime("9 PM"), DateTime::FromTime(21, 0, 0));
}

TEST(DateTimeParseTimeTest, TwelveOClock) {
    EXPECT_EQ(ParseTime("12:00:15 AM"), DateTime::FromTime(0, 0, 15));
    EXPECT_EQ(ParseTime("12:00:15 PM"), DateTime::FromTime(12, 0, 15));
}

TEST(DateTimeParseTimeTest, HourAboveTwelveKeepsItsValueWhateverTheSuffix) {
    EXPECT_EQ(ParseTime("23:00:15 PM"), DateTime::FromTime(23, 0, 15));
    EXPECT_EQ(ParseTime("23:00:15 AM"), DateTime::FromTime(23, 0, 15));
    EXPECT_EQ(ParseTime("13:00 P"), DateTime::FromTime(13, 0, 0));
}

TEST(DateTimeParseTimeTest, AnythingElseIsATypeMismatch) {
    for (const char* text :
         {"", " ", "9", "AM", "24:00:00", "9:60", "9:30:60", "9:", "9:30:", ":30", "9:30:00:00",
          "9:30 XM", "9:30 AM AM", "123:00", "-9:30", "9.30", "99999999999:00"}) {
        EXPECT_EQ(ErrorOf([&] { ParseTime(text); }), 13) << text;
    }
}

TEST(DateTimeParseMonthDayYearTest, ReadsLongAndShortYears) {
    EXPECT_EQ(ParseMonthDayYear("5/14/2004"), DateTime::FromDate(2004, 5, 14));
    EXPECT_EQ(ParseMonthDayYear("05/14/04"), DateTime::FromDate(2004, 5, 14));
    EXPECT_EQ(ParseMonthDayYear(" 12/25/2004 "), DateTime::FromDate(2004, 12, 25));
}

TEST(DateTimeParseMonthDayYearTest, ShortYearsSpan1930To2029) {
    EXPECT_EQ(ParseMonthDayYear("1/1/00").Year(), 2000);
    EXPECT_EQ(ParseMonthDayYear("1/1/29").Year(), 2029);
    EXPECT_EQ(ParseMonthDayYear("1/1/30").Year(), 1930);
    EXPECT_EQ(ParseMonthDayYear("1/1/99").Year(), 1999);
}

TEST(DateTimeParseMonthDayYearTest, AnythingElseIsATypeMismatch) {
    for (const char* text : {"", "5/14", "5-14-2004", "14/5/2004", "2/29/2003", "5/14/20045",
                             "5/14/", "/14/2004", "5/14/2004x", "5/14/0050", "a/b/c"}) {
        EXPECT_EQ(ErrorOf([&] { ParseMonthDayYear(text); }), 13) << text;
    }
}

TEST(DateTimeParseIsoDateTest, ReadsYearMonthDay) {
    EXPECT_EQ(ParseIsoDate("2004-05-14"), DateTime::FromDate(2004, 5, 14));
    EXPECT_EQ(ParseIsoDate("0100-1-2"), DateTime::FromDate(100, 1, 2));
    for (const char* text : {"", "2004-05", "2004/05/14", "2003-02-29", "2004-05-014", "14-05-2004",
                             "0099-01-01", "20040-05-14", "2004-05-14 09:30:00"}) {
        EXPECT_EQ(ErrorOf([&] { ParseIsoDate(text); }), 13) << text;
    }
}

}  // namespace
}  // namespace base
