#include <gtest/gtest.h>

#include <string>

#include "forms/win32/BoxText.h"

namespace forms::win32 {

TEST(BoxTextTest, TextsThatFitAreUnchanged) {
    for (const std::wstring& text :
         {std::wstring(), std::wstring(L"  Would you?  "), std::wstring(80, L'x'),
          std::wstring(50 * 30, L' '), std::wstring(L"a\r\n\r\nb"), std::wstring(29, L'\n')}) {
        EXPECT_EQ(TextThatFits(text), text);
    }
}

TEST(BoxTextTest, LongerTextsEndInAnEllipsis) {
    const std::wstring longest(50 * 30, L' ');
    EXPECT_EQ(TextThatFits(longest + L" "), longest + L'\u2026');
    const std::wstring lines(29, L'\n');
    EXPECT_EQ(TextThatFits(lines + L"\n\n"), lines + L'\u2026');
    const std::wstring blanks(1499, L' ');
    EXPECT_EQ(TextThatFits(blanks + L"\xd83d\xde00 and more"), blanks + L'\u2026');
}

TEST(BoxTextTest, WordsLongerThanALineAreBroken) {
    const std::wstring word(80, L'x');
    EXPECT_EQ(TextThatFits(word + word + L"x and"), word + L"\r\n" + word + L"\r\nx and");
    const std::wstring emoji = std::wstring(79, L'x') + L"\xd83d\xde00";
    EXPECT_EQ(TextThatFits(emoji + L"y"), emoji + L"\r\ny");
    EXPECT_LE(TextThatFits(std::wstring(65536, L'x')).size(), 1600U);
}

}  // namespace forms::win32
