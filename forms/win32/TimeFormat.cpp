#include "forms/win32/TimeFormat.h"

#include <windows.h>

#include <iterator>

namespace forms::win32 {

namespace {

// The format with the hours 0 to 23 and without marks. Text in quotes stays.
std::wstring With24Hours(const std::wstring& format) {
    std::wstring result;
    bool isQuoted = false;
    for (const wchar_t character : format) {
        isQuoted = isQuoted != (character == L'\'');
        if (isQuoted || character != L't') {
            result += !isQuoted && character == L'h' ? L'H' : character;
        }
    }
    const std::size_t first = result.find_first_not_of(L' ');
    return first == std::wstring::npos
               ? result
               : result.substr(first, result.find_last_not_of(L' ') - first + 1);
}

std::wstring UsersLocale(LCTYPE kind) {
    wchar_t text[80] = L"";
    ::GetLocaleInfoW(LOCALE_USER_DEFAULT, kind, text, static_cast<int>(std::size(text)));
    return text;
}

}  // namespace

std::wstring UnambiguousTimeFormat(const std::wstring& format, const std::wstring& morning,
                                   const std::wstring& afternoon) {
    const bool hasMarks = !morning.empty() && !afternoon.empty() && morning != afternoon;
    const bool showsMarks = format.find(L't') != std::wstring::npos;
    return showsMarks && !hasMarks ? With24Hours(format) : format;
}

std::wstring UnambiguousTimeFormat(const std::wstring& format) {
    return UnambiguousTimeFormat(format, UsersLocale(LOCALE_S1159), UsersLocale(LOCALE_S2359));
}

}  // namespace forms::win32
