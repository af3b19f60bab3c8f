#include "forms/headless/CodePages.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <stdexcept>
#include <vector>

#include "base/Text.h"

namespace forms::headless {

namespace {

// The characters of code page 1252 from 0x80 to 0x9f. The five unassigned bytes become the control
// characters with the same numbers.
constexpr std::array<char32_t, 32> windows1252{
    0x20ac, 0x0081, 0x201a, 0x0192, 0x201e, 0x2026, 0x2020, 0x2021, 0x02c6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x008d, 0x017d, 0x008f, 0x0090, 0x2018, 0x2019, 0x201c, 0x201d, 0x2022,
    0x2013, 0x2014, 0x02dc, 0x2122, 0x0161, 0x203a, 0x0153, 0x009d, 0x017e, 0x0178};

struct Pair {
    std::uint16_t bytes;
    char32_t character;
};

struct DoubleByteCodePage {
    std::vector<Pair> pairs;  // the second byte of some pairs is a backslash or a bar
    bool (*isFirstOfPair)(std::uint8_t);
    char32_t missing;  // replaces an unassigned pair
};

const DoubleByteCodePage& DoubleByte(int codePage) {
    static const DoubleByteCodePage japanese{{{0x8141, U'\u3001'},
                                              {0x82a0, U'\u3042'},
                                              {0x835c, U'\u30bd'},
                                              {0x93fa, U'\u65e5'},
                                              {0x945c, U'\u80fd'},
                                              {0x955c, U'\u8868'},
                                              {0x967b, U'\u672c'},
                                              {0x967c, U'\u7ffb'}},
                                             [](std::uint8_t byte) {
                                                 return (byte >= 0x81 && byte <= 0x9f) ||
                                                        (byte >= 0xe0 && byte <= 0xfc);
                                             },
                                             U'\u30fb'};
    static const DoubleByteCodePage chinese{
        {{0x815c, U'\u4e57'},
         {0xa1a2, U'\u3001'},
         {0xb1ed, U'\u8868'},
         {0xbac3, U'\u597d'},
         {0xc4e3, U'\u4f60'},
         {0xd55c, U'\u8aa0'}},
        [](std::uint8_t byte) { return byte >= 0x81 && byte <= 0xfe; },
        U'?'};
    switch (codePage) {
        case 932:
            return japanese;
        case 936:
            return chinese;
        default:
            throw std::invalid_argument("no such code page: " + std::to_string(codePage));
    }
}

// In code page 932, the bytes from firstKatakana to lastKatakana are the half-width katakana, which
// begin at katakana in Unicode.
constexpr std::uint8_t firstKatakana = 0xa1;
constexpr std::uint8_t lastKatakana = 0xdf;
constexpr char32_t katakana = 0xff61;

char32_t SingleByteCharacter(int codePage, std::uint8_t byte) {
    const bool isKatakana = codePage == 932 && byte >= firstKatakana && byte <= lastKatakana;
    return isKatakana ? katakana + (byte - firstKatakana) : char32_t{byte};
}

// Empty if the code page lacks the character.
std::string ToPair(int codePage, char32_t character) {
    if (character < 0x80) {
        return {static_cast<char>(character)};
    }
    if (codePage == 932 && character >= katakana &&
        character <= katakana + (lastKatakana - firstKatakana)) {
        return {static_cast<char>(firstKatakana + (character - katakana))};
    }
    for (const Pair& pair : DoubleByte(codePage).pairs) {
        if (pair.character == character) {
            return {static_cast<char>(pair.bytes >> 8U), static_cast<char>(pair.bytes & 0xffU)};
        }
    }
    return {};
}

std::string To1252(char32_t character) {
    const auto* const special = std::find(windows1252.begin(), windows1252.end(), character);
    if (character < 0x80 || (character >= 0xa0 && character <= 0xff)) {
        return {static_cast<char>(character)};
    }
    return special == windows1252.end()
               ? std::string()
               : std::string{static_cast<char>(0x80 + (special - windows1252.begin()))};
}

char32_t FromPair(const DoubleByteCodePage& codePage, std::uint8_t first, std::uint8_t second) {
    const auto found =
        std::find_if(codePage.pairs.begin(), codePage.pairs.end(),
                     [=](const Pair& pair) { return pair.bytes == first * 0x100 + second; });
    return found == codePage.pairs.end() ? codePage.missing : found->character;
}

}  // namespace

std::optional<std::string> ToCodePage(int codePage, const std::string& utf8) {
    std::string bytes;
    for (std::size_t position = 0; position < utf8.size();) {
        const char32_t character = base::NextCharacter(utf8, position);
        const std::string encoded =
            codePage == 1252 ? To1252(character) : ToPair(codePage, character);
        if (encoded.empty()) {
            return std::nullopt;
        }
        bytes += encoded;
    }
    return bytes;
}

std::string FromCodePage(int codePage, const std::string& bytes) {
    std::string text;
    for (std::size_t position = 0; position < bytes.size(); ++position) {
        const auto byte = static_cast<std::uint8_t>(bytes[position]);
        if (codePage == 1252) {
            const bool isSpecial = byte >= 0x80 && byte <= 0x9f;
            base::AppendCharacter(text, isSpecial ? windows1252[byte - 0x80U] : char32_t{byte});
        } else if (!DoubleByte(codePage).isFirstOfPair(byte)) {
            base::AppendCharacter(text, SingleByteCharacter(codePage, byte));
        } else {
            ++position;
            const char second = position < bytes.size() ? bytes[position] : '\0';
            base::AppendCharacter(
                text, FromPair(DoubleByte(codePage), byte, static_cast<std::uint8_t>(second)));
        }
    }
    return text;
}

}  // namespace forms::headless
