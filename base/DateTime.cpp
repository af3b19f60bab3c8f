#include "base/DateTime.h"

#include <array>
#include <charconv>
#include <chrono>
#include <string>
#include <string_view>

#include "base/RuntimeError.h"

namespace base {

namespace {

constexpr int firstYear = 100;
constexpr int lastYear = 9999;
constexpr std::chrono::sys_days zeroDate{std::chrono::year{1899} / 12 / 30};

std::int64_t DayNumber(DateTime value) {
    const std::int64_t days = value.seconds / secondsPerDay;
    return value.seconds % secondsPerDay < 0 ? days - 1 : days;
}

int SecondOfDay(DateTime value) {
    return static_cast<int>(value.seconds - DayNumber(value) * secondsPerDay);
}

std::chrono::year_month_day CalendarDay(DateTime value) {
    return {zeroDate + std::chrono::days{DayNumber(value)}};
}

[[noreturn]] void Mismatch() { throw RuntimeError(ErrorNumber::TypeMismatch); }

// The number in decimal, with leading zeros if it has fewer than count digits.
std::string Digits(int number, std::size_t count) {
    std::string digits = std::to_string(number);
    if (digits.size() < count) {
        digits.insert(0, count - digits.size(), '0');
    }
    return digits;
}

// Scans the text of a date or a time from left to right.
class Scanner {
  public:
    explicit Scanner(std::string_view scanned) : text(scanned) {}

    void SkipBlanks() {
        while (position < text.size() && text[position] == ' ') {
            ++position;
        }
    }

    bool AtEnd() const { return position == text.size(); }

    bool Accept(char wanted) {
        if (AtEnd() || text[position] != wanted) {
            return false;
        }
        ++position;
        return true;
    }

    // Reads a number of at most maximumDigits digits into value, and returns the number of its
    // digits. RuntimeError 13 if no number follows, or if it is longer.
    int Number(int maximumDigits, int& value) {
        const std::size_t start = position;
        while (!AtEnd() && text[position] >= '0' && text[position] <= '9') {
            ++position;
        }
        const std::size_t digits = position - start;
        if (digits == 0 || digits > static_cast<std::size_t>(maximumDigits)) {
            Mismatch();
        }
        std::from_chars(text.data() + start, text.data() + position, value);
        return static_cast<int>(digits);
    }

    std::string_view Rest() const { return text.substr(position); }

  private:
    std::string_view text;
    std::size_t position = 0;
};

struct DateParts {
    int first = 0;
    int second = 0;
    int third = 0;
    int thirdDigits = 0;
};

DateParts ReadDateParts(std::string_view text, char separator) {
    Scanner scanner(text);
    DateParts parts;
    scanner.SkipBlanks();
    scanner.Number(4, parts.first);
    if (!scanner.Accept(separator)) {
        Mismatch();
    }
    scanner.Number(2, parts.second);
    if (!scanner.Accept(separator)) {
        Mismatch();
    }
    parts.thirdDigits = scanner.Number(4, parts.third);
    scanner.SkipBlanks();
    if (!scanner.AtEnd()) {
        Mismatch();
    }
    return parts;
}

bool EqualsIgnoringCase(std::string_view text, std::string_view upper) {
    if (text.size() != upper.size()) {
        return false;
    }
    for (std::size_t i = 0; i < text.size(); ++i) {
        const char c = text[i];
        if ((c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c) != upper[i]) {
            return false;
        }
    }
    return true;
}

}  // namespace

bool DateTime::IsValidDate(int year, int month, int day) {
    return year >= firstYear && year <= lastYear && month >= 1 && month <= 12 && day >= 1 &&
           day <= 31 && (std::chrono::year{year} / month / day).ok();
}

DateTime DateTime::FromDate(int year, int month, int day) {
    if (!IsValidDate(year, month, day)) {
        Mismatch();
    }
    const std::chrono::sys_days days{std::chrono::year{year} / month / day};
    return {static_cast<std::int64_t>((days - zeroDate).count()) * secondsPerDay};
}

DateTime DateTime::FromTime(int hour, int minute, int second) {
    if (hour < 0 || hour > 23 || minute < 0 || minute > 59 || second < 0 || second > 59) {
        Mismatch();
    }
    return {hour * 3600 + minute * 60 + second};
}

DateTime DateTime::DateOnly() const { return {DayNumber(*this) * secondsPerDay}; }

DateTime DateTime::TimeOnly() const { return {SecondOfDay(*this)}; }

bool DateTime::HasDate() const { return DayNumber(*this) != 0; }

bool DateTime::HasTime() const { return SecondOfDay(*this) != 0; }

int DateTime::Year() const { return static_cast<int>(CalendarDay(*this).year()); }

int DateTime::Month() const {
    return static_cast<int>(static_cast<unsigned>(CalendarDay(*this).month()));
}

int DateTime::Day() const {
    return static_cast<int>(static_cast<unsigned>(CalendarDay(*this).day()));
}

int DateTime::Hour() const { return SecondOfDay(*this) / 3600; }

int DateTime::Minute() const { return SecondOfDay(*this) / 60 % 60; }

int DateTime::Second() const { return SecondOfDay(*this) % 60; }

int DateTime::Weekday() const {
    const std::chrono::weekday weekday{zeroDate + std::chrono::days{DayNumber(*this)}};
    return static_cast<int>(weekday.c_encoding());
}

DateTime Combine(DateTime date, DateTime time) {
    return {date.DateOnly().seconds + time.TimeOnly().seconds};
}

std::string FormatTime24(DateTime value) {
    return Digits(value.Hour(), 2) + ':' + Digits(value.Minute(), 2) + ':' +
           Digits(value.Second(), 2);
}

std::string FormatIsoDate(DateTime value) {
    return Digits(value.Year(), 4) + '-' + Digits(value.Month(), 2) + '-' + Digits(value.Day(), 2);
}

std::string FormatMonthDayYear(DateTime value) {
    return Digits(value.Month(), 1) + '/' + Digits(value.Day(), 1) + '/' + Digits(value.Year(), 1);
}

std::string EnglishMonthName(int month) {
    static constexpr std::array<const char*, 12> names{
        "January", "February", "March",     "April",   "May",      "June",
        "July",    "August",   "September", "October", "November", "December"};
    if (month < 1 || month > 12) {
        return {};
    }
    return names[static_cast<std::size_t>(month - 1)];
}

DateTime ParseTime(const std::string& text) {
    Scanner scanner(text);
    scanner.SkipBlanks();
    int hour = 0;
    int minute = 0;
    int second = 0;
    scanner.Number(2, hour);
    const bool hasMinute = scanner.Accept(':');
    if (hasMinute) {
        scanner.Number(2, minute);
        if (scanner.Accept(':')) {
            scanner.Number(2, second);
        }
    }
    scanner.SkipBlanks();
    std::string_view suffix = scanner.Rest();
    while (suffix.ends_with(' ')) {
        suffix.remove_suffix(1);
    }
    const bool isMorning = EqualsIgnoringCase(suffix, "AM") || EqualsIgnoringCase(suffix, "A");
    const bool isEvening = EqualsIgnoringCase(suffix, "PM") || EqualsIgnoringCase(suffix, "P");
    if (!isMorning && !isEvening && (!suffix.empty() || !hasMinute)) {
        Mismatch();
    }
    if (isEvening && hour < 12) {
        hour += 12;
    } else if (isMorning && hour == 12) {
        hour = 0;
    }
    return DateTime::FromTime(hour, minute, second);
}

DateTime ParseMonthDayYear(const std::string& text) {
    const auto [month, day, year, yearDigits] = ReadDateParts(text, '/');
    const int century = yearDigits > 2 ? 0 : year < 30 ? 2000 : 1900;
    return DateTime::FromDate(century + year, month, day);
}

DateTime ParseIsoDate(const std::string& text) {
    const auto [year, month, day, dayDigits] = ReadDateParts(text, '-');
    if (dayDigits > 2) {
        Mismatch();
    }
    return DateTime::FromDate(year, month, day);
}

}  // namespace base
