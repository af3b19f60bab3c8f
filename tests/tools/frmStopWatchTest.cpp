#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "tests/support/TestProgram.h"
#include "tools/frmStopWatch.h"

namespace {

class frmStopWatchTest : public testing_support::TestProgram {
  protected:
    void SetUp() override {
        TestProgram::SetUp();
        Start([] { forms::Default<frmStopWatch>().Show(); });
    }

    frmStopWatch& Window() { return forms::Default<frmStopWatch>(); }
    std::string Shown() { return Window().lblTime.caption; }
    const std::vector<forms::ListView::Row>& Rows() { return Window().lvwTime.Rows(); }

    void Run(std::int64_t milliseconds) {
        user->Click(Window().cmdStart);
        Advance(milliseconds);
        user->Click(Window().cmdStop);
    }
};

TEST_F(frmStopWatchTest, LoadsIdle) {
    EXPECT_EQ(Shown(), "00:00:00");
    EXPECT_EQ(Window().lblTrys.caption(), "Total Watch Starts: 0");
    EXPECT_TRUE(Window().cmdStart.enabled());
    EXPECT_FALSE(Window().cmdStop.enabled());
    EXPECT_FALSE(Window().cmdSave.enabled());
    EXPECT_FALSE(Window().mnuFileSave.enabled());
    EXPECT_FALSE(Window().tmrMain.enabled());
}

TEST_F(frmStopWatchTest, MeasuresFromTheMomentOfTheStart) {
    Advance(4321);
    user->Click(Window().cmdStart);
    EXPECT_EQ(Shown(), "00:00:00");
    EXPECT_FALSE(Window().cmdStart.enabled());
    EXPECT_TRUE(Window().cmdStop.enabled());
    EXPECT_FALSE(Window().cmdSave.enabled());
    EXPECT_FALSE(Window().mnuFileSave.enabled());
    Advance(999);
    EXPECT_EQ(Shown(), "00:00:00");
    Advance(1);
    EXPECT_EQ(Shown(), "00:00:01");
    Advance(3'661'000);
    EXPECT_EQ(Shown(), "01:01:02");
}

TEST_F(frmStopWatchTest, StopKeepsTheLastTick) {
    Run(5900);
    EXPECT_EQ(Shown(), "00:00:05");
    EXPECT_TRUE(Window().cmdStart.enabled());
    EXPECT_FALSE(Window().cmdStop.enabled());
    EXPECT_TRUE(Window().cmdSave.enabled());
    EXPECT_TRUE(Window().mnuFileSave.enabled());
    Advance(5000);
    EXPECT_EQ(Shown(), "00:00:05");
    user->Click(Window().cmdSave);
    EXPECT_EQ(Rows()[0].texts, (std::vector<std::string>{"", "   #1", "00:00:05"}));
}

TEST_F(frmStopWatchTest, ARunIsSavedOnce) {
    EXPECT_FALSE(Window().TimeSaved);
    Run(2000);
    user->Click(Window().cmdSave);
    EXPECT_TRUE(Window().TimeSaved);
    EXPECT_FALSE(Window().cmdSave.enabled());
    EXPECT_FALSE(Window().mnuFileSave.enabled());
    EXPECT_EQ(Rows().size(), 1U);
    EXPECT_EQ(Rows()[0].image, 0);
    EXPECT_EQ(Window().lvwTime.imageList, &Window().ilsTime);
    EXPECT_EQ(Window().ilsTime.images.size(), 1U);
}

TEST_F(frmStopWatchTest, TheMenuSavesToo) {
    Run(2000);
    user->Choose(Window().mnuFileSave);
    EXPECT_EQ(Rows().size(), 1U);
    EXPECT_FALSE(Window().mnuFileSave.enabled());
    EXPECT_FALSE(Window().cmdSave.enabled());
}

TEST_F(frmStopWatchTest, StartingANewRunDisablesSave) {
    Run(2000);
    user->Click(Window().cmdStart);
    EXPECT_FALSE(Window().cmdSave.enabled());
    EXPECT_FALSE(Window().mnuFileSave.enabled());
    EXPECT_EQ(Shown(), "00:00:00");
}

TEST_F(frmStopWatchTest, TheNewestRunIsListedFirst) {
    for (int seconds = 1; seconds <= 3; ++seconds) {
        Run(seconds * 1000);
        user->Click(Window().cmdSave);
    }
    ASSERT_EQ(Rows().size(), 3U);
    EXPECT_EQ(Rows()[0].texts, (std::vector<std::string>{"", "   #3", "00:00:03"}));
    EXPECT_EQ(Rows()[1].texts, (std::vector<std::string>{"", "   #2", "00:00:02"}));
    EXPECT_EQ(Rows()[2].texts, (std::vector<std::string>{"", "   #1", "00:00:01"}));
}

TEST_F(frmStopWatchTest, TheLabelCountsSavedRunsOnly) {
    Run(1000);
    Run(1000);
    EXPECT_EQ(Window().lblTrys.caption(), "Total Watch Starts: 0");
    user->Click(Window().cmdSave);
    EXPECT_EQ(Window().lblTrys.caption(), "Total Watch Starts: 1");
}

TEST_F(frmStopWatchTest, ClearRestartsTheNumbersAtOne) {
    Run(1000);
    user->Click(Window().cmdSave);
    Run(1000);
    user->Click(Window().cmdSave);
    user->Choose(Window().mnuClearSavedTimes);
    EXPECT_TRUE(Rows().empty());
    EXPECT_EQ(Window().lblTrys.caption(), "Total Watch Starts: 0");
    Run(1000);
    user->Click(Window().cmdSave);
    EXPECT_EQ(Rows()[0].texts[1], "   #1");
    EXPECT_EQ(Window().lblTrys.caption(), "Total Watch Starts: 1");
}

TEST_F(frmStopWatchTest, ARunOfADayWraps) {
    user->Click(Window().cmdStart);
    clock.Suspend(86'400);
    Advance(1000);
    EXPECT_EQ(Shown(), "00:00:01");
}

TEST_F(frmStopWatchTest, AClockThatIsSetBackBeforeTheStartShowsTheDifference) {
    user->Click(Window().cmdStart);
    Advance(5000);
    clock.Jump(-16);
    Advance(1000);
    EXPECT_EQ(Shown(), "00:00:10");
    clock.Jump(-25 * 3600);
    Advance(1000);
    EXPECT_EQ(Shown(), "01:00:09");
    clock.Jump(26 * 3600);
    Advance(1000);
    EXPECT_EQ(Shown(), "00:59:52");
}

TEST_F(frmStopWatchTest, CloseAndExitDiscardTheList) {
    Run(1000);
    user->Click(Window().cmdSave);
    user->Click(Window().cmdClose);
    EXPECT_EQ(forms::LoadedDefault<frmStopWatch>(), nullptr);
    Start([] { forms::Default<frmStopWatch>().Show(); });
    EXPECT_TRUE(Rows().empty());
    EXPECT_FALSE(Window().TimeSaved);
    EXPECT_EQ(Window().lblTrys.caption(), "Total Watch Starts: 0");
    user->Choose(Window().mnuExit);
    EXPECT_EQ(forms::LoadedDefault<frmStopWatch>(), nullptr);
}

}  // namespace
