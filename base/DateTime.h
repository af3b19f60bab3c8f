#pragma once

#include <cstdint>
#include <string>

namespace base {

// A local calendar date with a time of day, to the second. A pure date has the time 00:00:00; a
// pure time of day has the zero date, 1899-12-30. Two values are equal only if both date and time
// are equal. Valid for the years 100 to 9999.
struct DateTime {
    // Seconds since 1899-12-30 00:00:00, negative before.
    std::int64_t seconds = 0;

    bool operator==(const DateTime&) const = default;
    auto operator<=>(const DateTime&) const = default;

    // Year 100 to 9999, month 1 to 12, a day that the month has. RuntimeError 13 for other values.
    static DateTime FromDate(int year, int month, int day);
    // Hour 0 to 23, minute and second 0 to 59. RuntimeError 13 for other values.
    static DateTime FromTime(int hour, int minute, int second);
    static bool IsValidDate(int year, int month, int day);

    DateTime DateOnly() const;
    DateTime TimeOnly() const;
    bool HasDate() const;  // false for the zero date
    bool HasTime() const;  // false for midnight

    int Year() const;
    int Month() const;    // 1 to 12
    int Day() const;      // 1 to 31
    int Hour() const;     // 0 to 23
    int Minute() const;   // 0 to 59
    int Second() const;   // 0 to 59
    int Weekday() const;  // 0 Sunday to 6 Saturday
};

constexpr std::int64_t secondsPerDay = 86400;

// Takes the calendar day from date and the time of day from time.
DateTime Combine(DateTime date, DateTime time);

// "14:05:09", 24-hour clock.
std::string FormatTime24(DateTime value);
// "2004-05-14".
std::string FormatIsoDate(DateTime value);
// "5/14/2004", no padding.
std::string FormatMonthDayYear(DateTime value);
// The English name of a month, 1 to 12. Empty for any other number.
std::string EnglishMonthName(int month);

// Reads a time such as "9:30:00 AM", "23:00:15 PM", "14:05" or "12:00". The suffix does not change
// an hour above 12; 12 AM is midnight. RuntimeError 13 if the text is not a time.
DateTime ParseTime(const std::string& text);
// Reads "m/d/y". In a year of one or two digits, 0 to 29 mean 2000 to 2029, and 30 to 99 mean 1930
// to 1999. RuntimeError 13 for any other text.
DateTime ParseMonthDayYear(const std::string& text);
// Reads "yyyy-mm-dd"; leading zeros are optional. RuntimeError 13 for any other text.
DateTime ParseIsoDate(const std::string& text);

}  // namespace base
