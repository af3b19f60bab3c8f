#include "base/Text.h"

#include <algorithm>

namespace base {

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

}  // namespace

std::string Trim(std::string_view text) { return std::string(WithoutBlanks(text)); }

bool IsAscii(std::string_view text) {
    return std::all_of(text.begin(), text.end(),
                       [](char c) { return static_cast<unsigned char>(c) < 0x80; });
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
        // The range of the second byte excludes overlong forms, surrogates and values above
        // U+10FFFF.
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

}  // namespace base
