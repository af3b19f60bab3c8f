#include <gtest/gtest.h>

#include "notes/TitleRules.h"

namespace {

using TitleRules::Check;
using TitleRules::Verdict;

void ExpectVerdict(const std::string& title, int rule, const std::string& picture,
                   const std::string& caption, const std::string& text, bool clearTitle,
                   bool isTaken = false) {
    const Verdict verdict = Check(title, isTaken);
    EXPECT_EQ(verdict.rule, rule) << title;
    EXPECT_EQ(verdict.picture, picture) << title;
    EXPECT_EQ(verdict.caption, caption) << title;
    EXPECT_EQ(verdict.text, text) << title;
    EXPECT_EQ(verdict.clearTitle, clearTitle) << title;
    EXPECT_EQ(verdict.IsAccepted(), rule == 0) << title;
    EXPECT_EQ(verdict.HasMessage(), !text.empty()) << title;
}

TEST(TitleRulesTest, ANumberIsRejectedAndStays) {
    for (const char* title : {"2004", "-5", "1,000.50", "1e5", " 7 ", ".5"}) {
        ExpectVerdict(title, 1, "letters.gif", " Note Title Error",
                      "Note titles can't contain numeric characters only.\r\n"
                      " Please add a couple of letters.",
                      false);
    }
}

TEST(TitleRulesTest, ANumberWithLettersIsAccepted) {
    ExpectVerdict("2004 plans", 0, "", "", "", false);
}

TEST(TitleRulesTest, EmptyTitle) {
    ExpectVerdict("", 2, "mascot_error.gif", "  Note Title Error",
                  "Please Enter A Title For Your Note.\r\n", true);
}

TEST(TitleRulesTest, BlanksAreRejectedWithoutAMessage) {
    ExpectVerdict(" ", 3, "", "", "", true);
    ExpectVerdict("   ", 3, "", "", "", true);
}

TEST(TitleRulesTest, ForbiddenCharacters) {
    ExpectVerdict("a/b", 4, "no_Fslash.gif", "  Note Title Error",
                  "Note titles can't contain a forwardslash.", true);
    ExpectVerdict("a\\b", 5, "no_Fslash.gif", "  Note Title Error",
                  "Note titles can't contain a backslash.", true);
    ExpectVerdict("a.b", 6, "error.gif", "Note Title Error", "Note titles can't contain a period.",
                  true);
    ExpectVerdict("a:b", 7, "error.gif", "Note Title Error", "Note titles can't contain a colon.",
                  true);
    ExpectVerdict("a;b", 8, "error.gif", "Note Title Error",
                  "Note titles can't contain a semi-colon.", true);
    ExpectVerdict("a'b", 9, "error.gif", "Note Title Error",
                  "Note titles can't contain a single quote.", true);
    ExpectVerdict("a\"b", 10, "error.gif", "Note Title Error",
                  "Note titles can't contain a double quote.", true);
}

TEST(TitleRulesTest, TheFirstRuleThatIsBrokenDecides) {
    EXPECT_EQ(Check("1.5", false).rule, 1);
    EXPECT_EQ(Check("\"';:.\\/", false).rule, 4);
    EXPECT_EQ(Check("\"';:.\\", false).rule, 5);
    EXPECT_EQ(Check("\"';:.", false).rule, 6);
    EXPECT_EQ(Check("\"';:", false).rule, 7);
    EXPECT_EQ(Check("\"';", false).rule, 8);
    EXPECT_EQ(Check("\"'", false).rule, 9);
}

TEST(TitleRulesTest, PeriodIsRejectedBeforeTheDuplicateTest) {
    EXPECT_EQ(Check("a.b", true).rule, 6);
}

TEST(TitleRulesTest, TakenTitle) {
    ExpectVerdict("Shopping", 11, "error.gif", "Name Already Exists",
                  "A note with this title already exits.\r\n\r\n"
                  "Please choose another title for your new note.",
                  true, true);
}

TEST(TitleRulesTest, OtherCharactersThatFileNamesCannotHoldAreAccepted) {
    for (const char* title : {"a*b", "a?b", "a|b", "a<b", "a>b", "con", "\xce\xb1", "a, b", "\t"}) {
        EXPECT_TRUE(Check(title, false).IsAccepted()) << title;
    }
}

}  // namespace
