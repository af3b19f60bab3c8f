#include "forms/win32/devices/WinLocale.h"

#include <windows.h>

#include <algorithm>
#include <string_view>

#include "base/Text.h"
#include "forms/win32/Utf.h"

namespace forms::win32 {

namespace {

constexpr int firstSystemYear = 1601;
// In years. The calendar, including the days of the week, repeats after this time.
constexpr int calendarCycle = 400;

// Converts to the system's type, which starts at the year 1601. An earlier year is replaced by a
// later one with the same calendar.
SYSTEMTIME SystemTimeOf(base::DateTime value) {
    int year = value.Year();
    while (year < firstSystemYear) {
        year += calendarCycle;
    }
    SYSTEMTIME time{};
    time.wYear = static_cast<WORD>(year);
    time.wMonth = static_cast<WORD>(value.Month());
    time.wDay = static_cast<WORD>(value.Day());
    time.wDayOfWeek = static_cast<WORD>(value.Weekday());
    time.wHour = static_cast<WORD>(value.Hour());
    time.wMinute = static_cast<WORD>(value.Minute());
    time.wSecond = static_cast<WORD>(value.Second());
    return time;
}

using Formatter = int(WINAPI*)(LCID, DWORD, const SYSTEMTIME*, const wchar_t*, wchar_t*, int);

// Empty if the system cannot format the value, for example a date that the user's calendar lacks.
std::wstring Formatted(Formatter formatter, DWORD flags, const SYSTEMTIME& time,
                       const wchar_t* format) {
    wchar_t usual[128];
    const int length = formatter(LOCALE_USER_DEFAULT, flags, &time, format, usual,
                                 static_cast<int>(std::size(usual)));
    if (length > 0) {
        return std::wstring(usual);
    }
    const int size = formatter(LOCALE_USER_DEFAULT, flags, &time, format, nullptr, 0);
    if (size <= 0) {
        return {};
    }
    std::wstring text(static_cast<std::size_t>(size), L'\0');
    if (formatter(LOCALE_USER_DEFAULT, flags, &time, format, text.data(), size) <= 0) {
        return {};
    }
    text.resize(std::min(text.size(), text.find(L'\0')));
    return text;
}

// A text from the user's settings. Empty if the system cannot return it.
std::string Setting(LCTYPE type) {
    wchar_t text[32]{};
    const int length =
        ::GetLocaleInfoW(LOCALE_USER_DEFAULT, type, text, static_cast<int>(std::size(text)));
    return length > 0 ? Narrow(std::wstring_view(text)) : std::string();
}

std::wstring Padded(int number, std::size_t digits) {
    const std::wstring text = Wide(std::to_string(number));
    return std::wstring(digits - std::min(digits, text.size()), L'0') + text;
}

// The user's format of the short date, with the digits of year in place of the letters y.
std::wstring ShortDatePicture(int year) {
    wchar_t buffer[128]{};
    const int size = ::GetLocaleInfoW(LOCALE_USER_DEFAULT, LOCALE_SSHORTDATE, buffer,
                                      static_cast<int>(std::size(buffer)));
    const std::wstring_view picture =
        size > 0 ? std::wstring_view(buffer) : std::wstring_view(L"M/d/yyyy");
    std::wstring result;
    bool quoted = false;
    for (std::size_t position = 0; position < picture.size();) {
        const wchar_t letter = picture[position];
        quoted = quoted != (letter == L'\'');
        if (quoted || letter != L'y') {
            result += letter;
            ++position;
            continue;
        }
        const std::size_t end = std::min(picture.find_first_not_of(L'y', position), picture.size());
        const std::size_t count = end - position;
        // Do not put the digits in quotes. Next to a quoted text, the adjoining quotes would be
        // read as one quote character.
        result += count > 2 ? Padded(year, 4) : Padded(year % 100, count);
        position = end;
    }
    return result;
}

// The code page of the system's language. Files are in it if they were written before the system's
// code page was set to UTF-8.
UINT CodePageOfLanguage() {
    DWORD codePage = 0;
    const int size =
        ::GetLocaleInfoW(LOCALE_SYSTEM_DEFAULT, LOCALE_IDEFAULTANSICODEPAGE | LOCALE_RETURN_NUMBER,
                         reinterpret_cast<wchar_t*>(&codePage), sizeof codePage / sizeof(wchar_t));
    constexpr DWORD western = 1252;
    return size > 0 && codePage != 0 && codePage != CP_UTF8 ? codePage : western;
}

}  // namespace

WinLocale::WinLocale() : WinLocale(::GetACP()) {}

std::string WinLocale::ShortDate(base::DateTime value) {
    const SYSTEMTIME time = SystemTimeOf(value);
    const std::wstring text =
        value.Year() >= firstSystemYear
            ? Formatted(::GetDateFormatW, DATE_SHORTDATE, time, nullptr)
            : Formatted(::GetDateFormatW, 0, time, ShortDatePicture(value.Year()).c_str());
    return text.empty() ? base::FormatMonthDayYear(value) : Narrow(text);
}

std::string WinLocale::TimeText(base::DateTime value) {
    const std::wstring text = Formatted(::GetTimeFormatW, 0, SystemTimeOf(value), nullptr);
    return text.empty() ? base::FormatTime24(value) : Narrow(text);
}

std::string WinLocale::WeekdayName(base::DateTime value) {
    // The name does not depend on the week, so take a week that every calendar has.
    const base::DateTime sunday = base::DateTime::FromDate(2000, 1, 2);
    const base::DateTime sameDay{sunday.seconds + value.Weekday() * base::secondsPerDay};
    return Narrow(Formatted(::GetDateFormatW, 0, SystemTimeOf(sameDay), L"dddd"));
}

base::NumberFormat WinLocale::Numbers() {
    return {.decimalSign = Setting(LOCALE_SDECIMAL),
            .thousandsSign = Setting(LOCALE_STHOUSAND),
            .currencySymbol = Setting(LOCALE_SCURRENCY)};
}

std::string WinLocale::ToUpper(const std::string& text) {
    std::wstring wide = Wide(text);
    if (!wide.empty()) {
        const std::wstring original = wide;
        const auto size = static_cast<int>(wide.size());
        ::LCMapStringW(LOCALE_USER_DEFAULT, LCMAP_UPPERCASE, original.data(), size, wide.data(),
                       size);
    }
    return Narrow(wide);
}

std::optional<std::string> WinLocale::ToAnsi(const std::string& utf8) {
    if (utf8.empty()) {
        return std::string();
    }
    if (ansiCodePage == CP_UTF8) {
        // Other programs and machines may read bytes beyond ASCII in an older code page. For such a
        // text return nothing, so that the caller writes it with a byte order mark.
        return base::IsAscii(utf8) ? std::optional(utf8) : std::nullopt;
    }
    const std::wstring wide = Wide(utf8);
    const auto length = static_cast<int>(wide.size());
    BOOL isReplaced = FALSE;
    const int size = ::WideCharToMultiByte(ansiCodePage, WC_NO_BEST_FIT_CHARS, wide.data(), length,
                                           nullptr, 0, nullptr, &isReplaced);
    if (size <= 0 || isReplaced != FALSE) {
        return std::nullopt;
    }
    std::string bytes(static_cast<std::size_t>(size), '\0');
    ::WideCharToMultiByte(ansiCodePage, WC_NO_BEST_FIT_CHARS, wide.data(), length, bytes.data(),
                          size, nullptr, &isReplaced);
    // Some code pages map several characters to one. Return nothing if the text would be read back
    // differently.
    return isReplaced == FALSE && FromAnsi(bytes) == utf8 ? std::optional(bytes) : std::nullopt;
}

std::string WinLocale::FromAnsi(const std::string& bytes) {
    if (bytes.empty()) {
        return {};
    }
    UINT codePage = ansiCodePage;
    if (codePage == CP_UTF8) {
        if (base::ToValidUtf8(bytes) == bytes) {
            return bytes;
        }
        codePage = CodePageOfLanguage();
    }
    const auto length = static_cast<int>(bytes.size());
    const int size = ::MultiByteToWideChar(codePage, 0, bytes.data(), length, nullptr, 0);
    std::wstring wide(static_cast<std::size_t>(size), L'\0');
    ::MultiByteToWideChar(codePage, 0, bytes.data(), length, wide.data(), size);
    return Narrow(wide);
}

}  // namespace forms::win32
