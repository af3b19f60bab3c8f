#include <gtest/gtest.h>

#include "forms/RuntimeError.h"
#include "forms/Text.h"

namespace forms {
namespace {

int ErrorOfInteger(std::string_view text) {
    try {
        ToInteger16(text);
    } catch (const RuntimeError& error) {
        return error.number();
    }
    return 0;
}

TEST(Trim, TakesBlanksOnly) {
    EXPECT_EQ(Trim("  a b  "), "a b");
    EXPECT_EQ(Trim("   "), "");
    EXPECT_EQ(Trim(""), "");
    EXPECT_EQ(Trim("\t a \r\n"), "\t a \r\n");
}

TEST(IsNumeric, AcceptsANumberAlone) {
    for (const char* text :
         {"2004",   "-5",    "+5",   "1,000", "1,000.50",
          "1.5",    ".5",    "5.",   "1e5",   "1E+5",
          "1.5e-3", "2D4",   "&H1F", "&hff",  "&O17",
          "&17",    "  7  ", "-0",   "1e999", "123456789012345678901234567890"}) {
        EXPECT_TRUE(IsNumeric(text)) << text;
    }
}

TEST(IsNumeric, RejectsEverythingElse) {
    for (const char* text :
         {"",     " ",   "2004 plans", "a",        "-",       "+",   ".",   "-.",
          ",",    ",5",  "1.2.3",      "1e",       "1e+",     "e5",  "5 5", "&",
          "&H",   "&HG", "&O8",        "&H-1",     "--5",     "1-2", "5\t", "\r\n5",
          "0x10", "inf", "nan",        "infinity", "\xd9\xa3"}) {
        EXPECT_FALSE(IsNumeric(text)) << text;
    }
}

TEST(ToInteger16, ReadsNumbers) {
    EXPECT_EQ(ToInteger16("12"), 12);
    EXPECT_EQ(ToInteger16(" -7 "), -7);
    EXPECT_EQ(ToInteger16("1,234"), 1234);
    EXPECT_EQ(ToInteger16("1e3"), 1000);
    EXPECT_EQ(ToInteger16("+1.5e+3"), 1500);
    EXPECT_EQ(ToInteger16("5."), 5);
    EXPECT_EQ(ToInteger16("1e-999"), 0);
    EXPECT_EQ(ToInteger16("-1.5E-999"), 0);
    EXPECT_EQ(ToInteger16("0." + std::string(400, '0') + "1"), 0);
    EXPECT_EQ(ToInteger16("&H10"), 16);
    EXPECT_EQ(ToInteger16("&HFFFF"), -1);
    EXPECT_EQ(ToInteger16("&HFFFFFFFF"), -1);
    EXPECT_EQ(ToInteger16("&O17"), 15);
    EXPECT_EQ(ToInteger16("32767"), 32767);
    EXPECT_EQ(ToInteger16("-32768"), -32768);
}

TEST(ToInteger16, RoundsHalfToEven) {
    EXPECT_EQ(ToInteger16("0.5"), 0);
    EXPECT_EQ(ToInteger16("1.5"), 2);
    EXPECT_EQ(ToInteger16("2.5"), 2);
    EXPECT_EQ(ToInteger16("-2.5"), -2);
    EXPECT_EQ(ToInteger16("2.51"), 3);
    EXPECT_EQ(ToInteger16(12.5), 12);
    EXPECT_EQ(ToInteger16(13.5), 14);
    EXPECT_EQ(ToInteger16("32767.4"), 32767);
}

TEST(ToInteger16, NoNumberIsATypeMismatch) {
    EXPECT_EQ(ErrorOfInteger(""), 13);
    EXPECT_EQ(ErrorOfInteger("twelve"), 13);
    EXPECT_EQ(ErrorOfInteger("12pt"), 13);
}

TEST(ToInteger16, NumberTooLargeOverflows) {
    EXPECT_EQ(ErrorOfInteger("32768"), 6);
    EXPECT_EQ(ErrorOfInteger("1e999"), 6);
    EXPECT_EQ(ErrorOfInteger(std::string(400, '9')), 6);
    EXPECT_EQ(ErrorOfInteger("32767.5"), 6);
    EXPECT_EQ(ErrorOfInteger("-32769"), 6);
    EXPECT_EQ(ErrorOfInteger("1e999"), 6);
    EXPECT_EQ(ErrorOfInteger("&H10000"), 6);
    EXPECT_EQ(ErrorOfInteger("&HFFFFFFFFFFFFFFFFF"), 6);
    EXPECT_THROW(ToInteger16(40000.0), RuntimeError);
}

TEST(Utf16Length, CountsUnits) {
    EXPECT_EQ(Utf16Length(""), 0U);
    EXPECT_EQ(Utf16Length("abc"), 3U);
    EXPECT_EQ(Utf16Length("\xc3\xa4\xe2\x82\xac"), 2U);
    EXPECT_EQ(Utf16Length("\xf0\x9f\x98\x80"), 2U);
}

TEST(ToValidUtf8, KeepsWellFormedText) {
    const std::string text("a\0\xc3\xa4\xe2\x82\xac\xf0\x9f\x98\x80\xf4\x8f\xbf\xbf", 15);
    EXPECT_EQ(ToValidUtf8(text), text);
}

TEST(ToValidUtf8, ReplacesInvalidSequences) {
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

TEST(Characters, RoundTripThroughAppendAndNext) {
    for (char32_t character : {U'\0', U'a', U'\x7f', U'\x80', U'\x7ff', U'\x800', U'\xd7ff',
                               U'\xe000', U'\xffff', U'\x10000', U'\x10ffff'}) {
        std::string text;
        AppendCharacter(text, character);
        std::size_t position = 0;
        EXPECT_EQ(NextCharacter(text, position), character);
        EXPECT_EQ(position, text.size());
    }
}

TEST(Characters, WhatIsNoCharacterIsReplaced) {
    std::string text;
    AppendCharacter(text, static_cast<char32_t>(0xd800));
    AppendCharacter(text, static_cast<char32_t>(0x110000));
    EXPECT_EQ(text, "\xef\xbf\xbd\xef\xbf\xbd");
}

}  // namespace
}  // namespace forms
