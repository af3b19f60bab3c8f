#include "app/RecordText.h"

#include <algorithm>
#include <optional>

#include "base/RuntimeError.h"
#include "base/Text.h"
#include "forms/Devices.h"

namespace RecordText {

namespace {

constexpr std::string_view byteOrderMark = "\xef\xbb\xbf";
constexpr std::string_view blanks = " \t";
constexpr std::string_view lineEnds = "\r\n";

base::DateTime ReadDay(const std::string& day) {
    return day.find('/') == std::string::npos ? base::ParseIsoDate(day)
                                              : base::ParseMonthDayYear(day);
}

base::DateTime ReadDate(std::string_view field) {
    std::string date = base::Trim(field);
    if (date.size() >= 2 && date.starts_with('#') && date.ends_with('#')) {
        date = base::Trim(std::string_view(date).substr(1, date.size() - 2));
    }
    const std::size_t blank = date.find(' ');
    const std::size_t separator = date.find_first_of("-/");
    if (separator == std::string::npos) {
        return base::ParseTime(date);
    }
    if (blank == std::string::npos) {
        return ReadDay(date);
    }
    return base::Combine(ReadDay(date.substr(0, blank)), base::ParseTime(date.substr(blank)));
}

}  // namespace

std::string ToBytes(const std::string& text) {
    if (base::IsAscii(text)) {
        return text;
    }
    const std::string valid = base::ToValidUtf8(text);
    const std::optional<std::string> ansi = forms::Machine().locale->ToAnsi(valid);
    return ansi ? *ansi : std::string(byteOrderMark) + valid;
}

std::string FromBytes(const std::string& bytes) {
    if (bytes.starts_with(byteOrderMark)) {
        return WithoutZeros(
            base::ToValidUtf8(std::string_view(bytes).substr(byteOrderMark.size())));
    }
    return WithoutZeros(base::IsAscii(bytes) ? bytes : forms::Machine().locale->FromAnsi(bytes));
}

std::string WithoutZeros(std::string text) {
    for (std::size_t zero = text.find('\0'); zero != std::string::npos;
         zero = text.find('\0', zero + 1)) {
        text[zero] = ' ';
    }
    return text;
}

std::string WithLineBreaks(std::string_view text) {
    std::string result;
    result.reserve(text.size());
    for (std::size_t position = 0; position < text.size(); ++position) {
        const char character = text[position];
        if (character != '\r' && character != '\n') {
            result += character;
            continue;
        }
        result += base::lineBreak;
        if (character == '\r' && text.substr(position + 1).starts_with('\n')) {
            ++position;
        }
    }
    return result;
}

std::string Quoted(const std::string& text) { return '"' + text + '"'; }

std::string Reader::Text() { return Next().text; }

base::DateTime Reader::Date() {
    const Field field = Next();
    return field.text.empty() && !field.quoted ? base::DateTime{} : ReadDate(field.text);
}

base::DateTime Reader::DateOrZero() {
    const std::string date = base::Trim(Next().text);
    if (date.size() >= 2 && date.starts_with('#') && date.ends_with('#')) {
        return ReadDate(date);
    }
    try {
        return ReadDate(date);
    } catch (const base::RuntimeError&) {
        return {};
    }
}

std::int16_t Reader::IntegerOrZero() {
    const std::string number = Next().text;
    return base::IsNumeric(number, base::NumberFormat{})
               ? base::ToInteger16(number, base::NumberFormat{})
               : std::int16_t{0};
}

std::string Reader::TextBeforeLastField() {
    if (StartsWithQuote()) {
        for (std::size_t quote = text.find('"', position + 1); quote != std::string::npos;
             quote = text.find('"', quote + 1)) {
            if (IsLastField(quote + 1)) {
                ++position;
                return Take(quote, true).text;
            }
        }
    }
    return Text();
}

bool Reader::IsLastField(std::size_t place) const {
    place = std::min(text.find_first_not_of(blanks, place), text.size());
    if (text.compare(place, 1, ",") == 0) {
        place = std::min(text.find_first_not_of(blanks, place + 1), text.size());
    } else if (place == text.size() || lineEnds.find(text[place]) != std::string_view::npos) {
        return false;
    }
    if (text.compare(place, 1, "\"") == 0) {
        place = std::min(text.find_first_of("\"\r\n", place + 1), text.size());
        if (text.compare(place, 1, "\"") != 0) {
            return false;
        }
        place = std::min(text.find_first_not_of(blanks, place + 1), text.size());
    } else {
        place = std::min(text.find_first_of("\",\r\n", place), text.size());
    }
    return place == text.size() || lineEnds.find(text[place]) != std::string_view::npos;
}

bool Reader::StartsWithQuote() {
    SkipBlanks();
    return position < text.size() && text[position] == '"';
}

Reader::Field Reader::Next() {
    const bool quoted = StartsWithQuote();
    if (position == text.size()) {
        throw base::RuntimeError(base::ErrorNumber::InputPastEndOfFile);
    }
    if (quoted) {
        ++position;
    }
    const std::size_t found =
        quoted ? text.find('"', position) : text.find_first_of(",\r\n", position);
    return Take(std::min(found, text.size()), quoted);
}

Reader::Field Reader::Take(std::size_t end, bool quoted) {
    Field field{text.substr(position, end - position), quoted};
    position = end;
    if (quoted && position < text.size()) {
        ++position;
        SkipBlanks();
    }
    // If no delimiter follows the closing quote, the next field begins there.
    SkipDelimiter();
    return field;
}

void Reader::SkipBlanks() {
    position = std::min(text.find_first_not_of(blanks, position), text.size());
}

void Reader::SkipDelimiter() {
    if (text.compare(position, 2, base::lineBreak) == 0) {
        position += 2;
    } else if (position < text.size() &&
               std::string_view(",\r\n").find(text[position]) != std::string_view::npos) {
        ++position;
    }
}

}  // namespace RecordText
