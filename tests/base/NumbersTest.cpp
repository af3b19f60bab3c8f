#include <gtest/gtest.h>

#include <limits>
#include <string>
#include <vector>

#include "base/Numbers.h"
#include "base/RuntimeError.h"
#include "tests/support/ErrorOf.h"

namespace base {
namespace {

using testing_support::ErrorOf;

const NumberFormat american;
const NumberFormat german{",", ".", "\xe2\x82\xac"};
const NumberFormat french{",", "\xe2\x80\xaf", "\xe2\x82\xac"};   // narrow no-break space
const NumberFormat olderFrench{",", "\xc2\xa0", "\xe2\x82\xac"};  // no-break space
const NumberFormat swiss{".", "\xe2\x80\x99", "CHF"};             // a typographic apostrophe
const NumberFormat egyptian{".", ",", "EGP"};  // begins with the letter of an exponent

int ErrorOfInteger(const std::string& text, const NumberFormat& format = american) {
    try {
        ToInteger16(text, format);
    } catch (const RuntimeError& error) {
        return error.number();
    }
    return 0;
}

struct Case {
    const char* text;
    int value;
};

void ExpectNumbers(const NumberFormat& format, const std::vector<Case>& cases) {
    for (const auto& [text, value] : cases) {
        ASSERT_TRUE(IsNumeric(text, format)) << text;
        EXPECT_EQ(ToInteger16(text, format), value) << text;
    }
}

void ExpectNoNumbers(const NumberFormat& format, const std::vector<std::string>& texts) {
    for (const std::string& text : texts) {
        EXPECT_FALSE(IsNumeric(text, format)) << text;
        EXPECT_EQ(ErrorOfInteger(text, format), 13) << text;
    }
}

TEST(NumbersTest, PlainOnes) {
    ExpectNumbers(american, {{"2004", 2004},
                             {"12", 12},
                             {"007", 7},
                             {"  7  ", 7},
                             {"5.", 5},
                             {".6", 1},
                             {"32767", 32767},
                             {"-32768", -32768},
                             {"32767.4", 32767},
                             {"-0", 0}});
}

TEST(NumbersTest, ASignStandsBeforeOrBehind) {
    ExpectNumbers(american, {{"-5", -5},
                             {"+5", 5},
                             {"5-", -5},
                             {"5+", 5},
                             {"- 5", -5},
                             {"5 -", -5},
                             {" -7 ", -7},
                             {"1e2-", -100},
                             {"(5)", -5},
                             {" ( 5 ) ", -5}});
    ExpectNoNumbers(american, {"-", "+", "--5", "-5-", "+5-", "5--", "(5", "5)", "()", "(-5)",
                               "(5-)", "((5))", "-(5)", "1-2", ")5("});
}

TEST(NumbersTest, TheCurrencySymbolStandsAtEitherEnd) {
    ExpectNumbers(american, {{"$5", 5},
                             {"-$5", -5},
                             {"$-5", -5},
                             {"$ 5", 5},
                             {"5$", 5},
                             {"5 $", 5},
                             {"($5)", -5},
                             {"$(5)", -5},
                             {"$1,234.50", 1234}});
    ExpectNoNumbers(american, {"$", "$5$", "$$5", "5$5",
                               "\xe2\x82\xac"
                               "5"});
    ExpectNumbers(german,
                  {{"5 \xe2\x82\xac", 5}, {"5\xe2\x82\xac", 5}, {"-5,00 \xe2\x82\xac", -5}});
    ExpectNoNumbers(german, {"$5"});
    ExpectNumbers(swiss, {{"CHF 5", 5}, {"5 CHF", 5}});
    ExpectNumbers(egyptian, {{"5EGP", 5}, {"5E2", 500}});
}

TEST(NumbersTest, ThousandsSignsAreIgnoredBeforeTheDecimalSign) {
    ExpectNumbers(american, {{"1,000", 1000},
                             {"1,0,0", 100},
                             {"5,", 5},
                             {",5", 5},
                             {"1,,5", 15},
                             {"1,000.5", 1000},
                             {"5,.", 5}});
    ExpectNoNumbers(american, {",", ",.", "1.5,0", "1.2.3", "5 5"});
}

TEST(NumbersTest, GermanOnes) {
    ExpectNumbers(german, {{"2,5", 2},
                           {"3,5", 4},
                           {"1.000", 1000},
                           {"1.234,5", 1234},
                           {"-2,5", -2},
                           {",6", 1},
                           {"5,", 5},
                           {"1,5e1", 15}});
    ExpectNoNumbers(german, {"1,2,3", "1,5.0"});
}

TEST(NumbersTest, FrenchOnes) {
    for (const NumberFormat& format : {french, olderFrench}) {
        ExpectNumbers(format, {{"2,5", 2},
                               {"1\xe2\x80\xaf"
                                "000",
                                1000},
                               {"1\xc2\xa0"
                                "000",
                                1000},
                               {"1 000", 1000},
                               {"1 000,4", 1000},
                               {"5 \xe2\x82\xac", 5},
                               {"5 -", -5},
                               {" 7 ", 7}});
        ExpectNoNumbers(format, {"1.000", "2.5", "1  000", "1 a"});
    }
}

TEST(NumbersTest, OnesWithoutAThousandsSign) {
    const NumberFormat bare{".", "", ""};
    ExpectNumbers(bare, {{"1000.4", 1000}});
    ExpectNoNumbers(bare, {"1,000", "$5", ""});
}

TEST(NumbersTest, Exponents) {
    ExpectNumbers(american, {{"1e2", 100},
                             {"1E+2", 100},
                             {"1d2", 100},
                             {"2D4", 20000},
                             {"1.5e-3", 0},
                             {"+1.5e+3", 1500},
                             {"1e-999", 0},
                             {"-1.5E-999", 0}});
    EXPECT_EQ(ToInteger16("0." + std::string(400, '0') + "1", american), 0);
    ExpectNoNumbers(american, {"1e", "1e+", "e5", "1e5.0", "1e 5", "1e2e3"});
}

TEST(NumbersTest, HexadecimalAndOctalOnes) {
    ExpectNumbers(american, {{"&H10", 16},
                             {"&hff", 255},
                             {"&HFFFF", -1},
                             {"&HFFFFFFFF", -1},
                             {"&O17", 15},
                             {"&o17", 15},
                             {"&17", 15},
                             {" &H1F ", 31}});
    ExpectNoNumbers(american, {"&", "&H", "&HG", "&O8", "&H-1", "&H1.5"});
}

TEST(NumbersTest, EverythingElseIsNone) {
    ExpectNoNumbers(american, {"", " ", "2004 plans", "a", "twelve", "12pt", ".", "-.", "5\t",
                               "\r\n5", "0x10", "inf", "nan", "infinity", "\xd9\xa3"});
}

TEST(NumbersTest, AreRoundedHalfToEven) {
    ExpectNumbers(american,
                  {{"0.5", 0}, {"1.5", 2}, {"2.5", 2}, {"-2.5", -2}, {"2.51", 3}, {"(3.5)", -4}});
    EXPECT_EQ(ToInteger16(12.5), 12);
    EXPECT_EQ(ToInteger16(13.5), 14);
}

TEST(NumbersTest, OnesThatDoNotFitOverflow) {
    for (const std::string& text :
         {std::string("32768"), std::string("32767.5"), std::string("-32769"), std::string("1e999"),
          std::string("(40000)"), std::string(400, '9'), std::string("&H10000"),
          std::string("&HFFFFFFFFFFFFFFFFF")}) {
        EXPECT_TRUE(IsNumeric(text, american)) << text;
        EXPECT_EQ(ErrorOfInteger(text), 6) << text;
    }
    EXPECT_THROW(ToInteger16(40000.0), RuntimeError);
}

TEST(NumbersTest, ASumThatDoesNotFitIsAnOverflow) {
    EXPECT_EQ(CheckedAdd(32766, 1), 32767);
    EXPECT_EQ(CheckedAdd(-32767, -1), -32768);
    EXPECT_EQ(ErrorOf([] { CheckedAdd(32767, 1); }), 6);
    EXPECT_EQ(ErrorOf([] { CheckedAdd(-32768, -1); }), 6);
    EXPECT_EQ(ErrorOf([] { CheckedAdd(1, std::numeric_limits<int>::max()); }), 6);
}

}  // namespace
}  // namespace base
