#include "forms/headless/HeadlessLocale.h"

#include <locale.h>
#include <wctype.h>

#include <algorithm>
#include <stdexcept>

#include "base/Text.h"
#include "forms/headless/CodePages.h"

namespace forms::headless {

namespace {

std::string Padded(int value, std::size_t width) {
    std::string digits = std::to_string(value);
    return digits.size() < width ? std::string(width - digits.size(), '0') + digits : digits;
}

}  // namespace

std::string HeadlessLocale::FormatLike(const std::string& format, base::DateTime value) const {
    std::string result;
    for (std::size_t i = 0; i < format.size();) {
        const char letter = format[i];
        if (letter == '\'') {
            const std::size_t end = format.find('\'', i + 1);
            result += format.substr(i + 1, end == std::string::npos ? end : end - i - 1);
            i = end == std::string::npos ? format.size() : end + 1;
            continue;
        }
        const std::size_t next = std::min(format.find_first_not_of(letter, i), format.size());
        const std::size_t count = next - i;
        const int hour12 = value.Hour() % 12 == 0 ? 12 : value.Hour() % 12;
        const std::string& half = value.Hour() < 12 ? morning : afternoon;
        switch (letter) {
            case 'd':
                result += Padded(value.Day(), count);
                break;
            case 'M':
                result += Padded(value.Month(), count);
                break;
            case 'y':
                result += count <= 2 ? Padded(value.Year() % 100, count) : Padded(value.Year(), 4);
                break;
            case 'h':
                result += Padded(hour12, count);
                break;
            case 'H':
                result += Padded(value.Hour(), count);
                break;
            case 'm':
                result += Padded(value.Minute(), count);
                break;
            case 's':
                result += Padded(value.Second(), count);
                break;
            case 't':
                result += count == 1 ? half.substr(0, 1) : half;
                break;
            default:
                result.append(count, letter);
        }
        i = next;
    }
    return result;
}

std::string HeadlessLocale::ShortDate(base::DateTime value) {
    return FormatLike(shortDateFormat, value);
}

std::string HeadlessLocale::TimeText(base::DateTime value) { return FormatLike(timeFormat, value); }

std::string HeadlessLocale::WeekdayName(base::DateTime value) {
    return weekdayNames[static_cast<std::size_t>(value.Weekday())];
}

std::string HeadlessLocale::ToUpper(const std::string& text) { return UpperCase(text); }

std::optional<std::string> HeadlessLocale::ToAnsi(const std::string& utf8) {
    if (codePage != utf8CodePage) {
        return ToCodePage(codePage, utf8);
    }
    return base::IsAscii(utf8) ? std::optional(utf8) : std::nullopt;
}

std::string HeadlessLocale::FromAnsi(const std::string& bytes) {
    if (codePage != utf8CodePage) {
        return FromCodePage(codePage, bytes);
    }
    return base::ToValidUtf8(bytes) == bytes ? bytes : FromCodePage(languageCodePage, bytes);
}

std::string UpperCase(std::string_view utf8) {
    static const locale_t unicode = newlocale(LC_CTYPE_MASK, "C.UTF-8", nullptr);
    if (unicode == nullptr) {
        throw std::runtime_error("the C.UTF-8 locale is missing");
    }
    std::string upper;
    upper.reserve(utf8.size());
    for (std::size_t position = 0; position < utf8.size();) {
        const char32_t character = base::NextCharacter(utf8, position);
        base::AppendCharacter(
            upper, static_cast<char32_t>(towupper_l(static_cast<wint_t>(character), unicode)));
    }
    return upper;
}

}  // namespace forms::headless
