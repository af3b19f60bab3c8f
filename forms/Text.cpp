#include "forms/Text.h"

#include <charconv>
#include <cmath>
#include <limits>
#include <optional>
#include <system_error>

#include "forms/RuntimeError.h"

namespace forms {

namespace {

constexpr char32_t replacement = 0xfffd;

std::string_view WithoutBlanks(std::string_view text) {
    while (text.starts_with(' ')) {
        text.remove_prefix(1);
    }
    while (text.ends_with(' ')) {
        text.remove_suffix(1);
    }
    return text;
}

bool IsDigit(char c) { return c >= '0' && c <= '9'; }

// "&H1F" and "&O17" stand for the bits of a 16-bit integer, or of a 32-bit one where they are more.
std::optional<double> ReadRadixNumber(std::string_view text) {
    text.remove_prefix(1);
    int radix = 8;
    if (text.starts_with('H') || text.starts_with('h')) {
        radix = 16;
        text.remove_prefix(1);
    } else if (text.starts_with('O') || text.starts_with('o')) {
        text.remove_prefix(1);
    }
    std::uint64_t bits = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), bits, radix);
    if (text.empty() || end != text.data() + text.size() || error == std::errc::invalid_argument) {
        return std::nullopt;
    }
    if (error != std::errc{} || bits > std::numeric_limits<std::uint32_t>::max()) {
        return std::numeric_limits<double>::infinity();
    }
    if (bits <= std::numeric_limits<std::uint16_t>::max()) {
        return static_cast<std::int16_t>(bits);
    }
    return static_cast<std::int32_t>(bits);
}

// The plain form of a decimal number, without thousands separators and with E for the exponent;
// empty where the text is no number.
std::string PlainDecimal(std::string_view text) {
    std::string plain;
    std::size_t position = 0;
    const auto take = [&] { plain += text[position++]; };
    const auto takeSign = [&] {
        if (position < text.size() && (text[position] == '+' || text[position] == '-')) {
            take();
        }
    };
    takeSign();
    std::size_t digits = 0;
    for (; position < text.size(); ++digits) {
        if (digits > 0 && text[position] == ',') {
            ++position;
        } else if (IsDigit(text[position])) {
            take();
        } else {
            break;
        }
    }
    if (position < text.size() && text[position] == '.') {
        take();
        for (; position < text.size() && IsDigit(text[position]); ++digits) {
            take();
        }
    }
    if (digits == 0) {
        return {};
    }
    if (position < text.size() &&
        std::string_view("eEdD").find(text[position]) != std::string::npos) {
        ++position;
        plain += 'E';
        takeSign();
        const std::size_t exponentStart = position;
        while (position < text.size() && IsDigit(text[position])) {
            take();
        }
        if (position == exponentStart) {
            return {};
        }
    }
    return position == text.size() ? plain : std::string();
}

// Of a number that no double can hold: whether it is too near to zero, not too far from it.
bool IsSmall(const std::string& plain) {
    const std::size_t exponent = plain.find('E');
    return exponent != std::string::npos ? plain.compare(exponent, 2, "E-") == 0
                                         : plain.find_first_of("123456789") > plain.find('.');
}

// Infinite where the number is too large for a double, 0 where it is too small.
std::optional<double> ReadNumber(std::string_view text) {
    text = WithoutBlanks(text);
    if (text.starts_with('&')) {
        return ReadRadixNumber(text);
    }
    const std::string plain = PlainDecimal(text);
    if (plain.empty()) {
        return std::nullopt;
    }
    const char* const first = plain.data() + (plain.starts_with('+') ? 1 : 0);
    double value = 0;
    const auto [end, error] = std::from_chars(first, plain.data() + plain.size(), value);
    if (error == std::errc::result_out_of_range) {
        return IsSmall(plain) ? 0 : std::numeric_limits<double>::infinity();
    }
    return value;
}

}  // namespace

std::string Trim(std::string_view text) { return std::string(WithoutBlanks(text)); }

bool IsNumeric(std::string_view text) { return ReadNumber(text).has_value(); }

std::int16_t ToInteger16(std::string_view text) {
    const std::optional<double> value = ReadNumber(text);
    if (!value) {
        throw RuntimeError(ErrorNumber::TypeMismatch);
    }
    return ToInteger16(*value);
}

std::int16_t ToInteger16(double value) {
    const double rounded = std::nearbyint(value);
    // Not a number does not fit either.
    const bool fits = rounded >= std::numeric_limits<std::int16_t>::min() &&
                      rounded <= std::numeric_limits<std::int16_t>::max();
    if (!fits) {
        throw RuntimeError(ErrorNumber::Overflow);
    }
    return static_cast<std::int16_t>(rounded);
}

std::size_t Utf16Length(std::string_view utf8) {
    std::size_t length = 0;
    for (std::size_t position = 0; position < utf8.size();) {
        length += NextCharacter(utf8, position) > 0xffff ? 2 : 1;
    }
    return length;
}

std::string ToValidUtf8(std::string_view bytes) {
    std::string text;
    text.reserve(bytes.size());
    for (std::size_t position = 0; position < bytes.size();) {
        AppendCharacter(text, NextCharacter(bytes, position));
    }
    return text;
}

char32_t NextCharacter(std::string_view utf8, std::size_t& position) {
    const auto byteAt = [&](std::size_t index) { return static_cast<unsigned char>(utf8[index]); };
    const unsigned char lead = byteAt(position++);
    if (lead < 0x80) {
        return lead;
    }
    const int following = lead >= 0xc2 && lead <= 0xdf   ? 1
                          : lead >= 0xe0 && lead <= 0xef ? 2
                          : lead >= 0xf0 && lead <= 0xf4 ? 3
                                                         : 0;
    if (following == 0) {
        return replacement;
    }
    char32_t character = lead & (0x3fU >> following);
    for (int i = 0; i < following; ++i) {
        // The byte behind the lead decides over long forms, surrogates and what is above U+10FFFF.
        const bool isSecond = i == 0;
        const unsigned char low = !isSecond      ? 0x80
                                  : lead == 0xe0 ? 0xa0
                                  : lead == 0xf0 ? 0x90
                                                 : 0x80;
        const unsigned char high = !isSecond      ? 0xbf
                                   : lead == 0xed ? 0x9f
                                   : lead == 0xf4 ? 0x8f
                                                  : 0xbf;
        if (position == utf8.size() || byteAt(position) < low || byteAt(position) > high) {
            return replacement;
        }
        character = character << 6 | (byteAt(position++) & 0x3fU);
    }
    return character;
}

void AppendCharacter(std::string& utf8, char32_t character) {
    if (character > 0x10ffff || (character >= 0xd800 && character <= 0xdfff)) {
        character = replacement;
    }
    const auto append = [&](char32_t byte) { utf8 += static_cast<char>(byte); };
    if (character < 0x80) {
        append(character);
    } else if (character < 0x800) {
        append(0xc0 | character >> 6);
        append(0x80 | (character & 0x3f));
    } else if (character < 0x10000) {
        append(0xe0 | character >> 12);
        append(0x80 | (character >> 6 & 0x3f));
        append(0x80 | (character & 0x3f));
    } else {
        append(0xf0 | character >> 18);
        append(0x80 | (character >> 12 & 0x3f));
        append(0x80 | (character >> 6 & 0x3f));
        append(0x80 | (character & 0x3f));
    }
}

}  // namespace forms
