#include <gtest/gtest.h>

#include "base/Text.h"

namespace base {
namespace {

TEST(TextTrimTest, TakesBlanksOnly) {
    EXPECT_EQ(Trim("  a b  "), "a b");
    EXPECT_EQ(Trim("   "), "");
    EXPECT_EQ(Trim(""), "");
    EXPECT_EQ(Trim("\t a \r\n"), "\t a \r\n");
}

TEST(TextIsAsciiTest, EveryByteIsBelow128) {
    EXPECT_TRUE(IsAscii(""));
    EXPECT_TRUE(IsAscii(std::string("a\0\x7f", 3)));
    EXPECT_FALSE(IsAscii("a\x80"));
    EXPECT_FALSE(
        IsAscii("\xff"
                "a"));
}

TEST(TextUtf16LengthTest, CountsUnits) {
    EXPECT_EQ(Utf16Length(""), 0U);
    EXPECT_EQ(Utf16Length("abc"), 3U);
    EXPECT_EQ(Utf16Length("\xc3\xa4\xe2\x82\xac"), 2U);
    EXPECT_EQ(Utf16Length("\xf0\x9f\x98\x80"), 2U);
}

TEST(TextToValidUtf8Test, KeepsWellFormedText) {
    const std::string text("a\0\xc3\xa4\xe2\x82\xac\xf0\x9f\x98\x80\xf4\x8f\xbf\xbf", 15);
    EXPECT_EQ(ToValidUtf8(text), text);
}

TEST(TextToValidUtf8Test, ReplacesInvalidSequences) {
    const std::string bad = "\xef\xbf\xbd";
    EXPECT_EQ(ToValidUtf8("\x80"), bad);
    EXPECT_EQ(ToValidUtf8("a\xc3"), "a" + bad);
    EXPECT_EQ(ToValidUtf8("\xc3z"), bad + "z");
    EXPECT_EQ(ToValidUtf8("\xc0\x80"), bad + bad);
    EXPECT_EQ(ToValidUtf8("\xe0\x80\x80"), bad + bad + bad);
    EXPECT_EQ(ToValidUtf8("\xed\xa0\x80"), bad + bad + bad);
    EXPECT_EQ(ToValidUtf8("\xf4\x90\x80\x80"), bad + bad + bad + bad);
    EXPECT_EQ(ToValidUtf8("\xe2\x82"), bad);
    EXPECT_EQ(ToValidUtf8("\xff\xfe"), bad + bad);
}

TEST(TextCharactersTest, RoundTripThroughAppendAndNext) {
    for (char32_t character : {U'\0', U'a', U'\x7f', U'\x80', U'\x7ff', U'\x800', U'\xd7ff',
                               U'\xe000', U'\xffff', U'\x10000', U'\x10ffff'}) {
        std::string text;
        AppendCharacter(text, character);
        std::size_t position = 0;
        EXPECT_EQ(NextCharacter(text, position), character);
        EXPECT_EQ(position, text.size());
    }
}

TEST(TextCharactersTest, InvalidCodePointsAreReplaced) {
    std::string text;
    AppendCharacter(text, static_cast<char32_t>(0xd800));
    AppendCharacter(text, static_cast<char32_t>(0x110000));
    EXPECT_EQ(text, "\xef\xbf\xbd\xef\xbf\xbd");
}

}  // namespace
}  // namespace base
