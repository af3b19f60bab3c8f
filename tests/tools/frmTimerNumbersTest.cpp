#include <gtest/gtest.h>

#include <string>
#include <utility>

#include "tests/support/TestProgram.h"
#include "tools/frmTimer.h"

namespace {

// Entries of the countdown in the user's number format.
class frmTimerNumbersTest : public testing_support::TestProgram {
  protected:
    void SetUp() override {
        TestProgram::SetUp();
        Start([] { forms::Default<frmTimer>().Show(); });
    }

    std::string MinutesOf(const std::string& entry) {
        frmTimer& timer = forms::Default<frmTimer>();
        user->Type(timer.txtMinutes, entry);
        user->Click(timer.cmdStart);
        const std::string minutes = timer.txtMinutes.text();
        user->Click(timer.cmdStop);
        return minutes;
    }
};

TEST_F(frmTimerNumbersTest, TheDecimalCommaOfTheUserIsAccepted) {
    EXPECT_EQ(MinutesOf("2,5"), "25");
    locale.numbers = {",", ".", "\xe2\x82\xac"};
    EXPECT_EQ(MinutesOf("2,5"), "2");
    EXPECT_EQ(MinutesOf("3,5"), "4");
    EXPECT_EQ(MinutesOf("1.000"), "1000");
}

TEST_F(frmTimerNumbersTest, SignsAndSymbolsAreAccepted) {
    for (const auto& [entry, minutes] :
         {std::pair("5-", "-5"), std::pair("$5", "5"), std::pair("(5)", "-5"),
          std::pair("&H10", "16"), std::pair("1d2", "100"), std::pair("5,", "5")}) {
        EXPECT_EQ(MinutesOf(entry), minutes) << entry;
    }
}

}  // namespace
