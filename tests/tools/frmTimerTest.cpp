#include <gtest/gtest.h>

#include <string>

#include "tests/support/ProductProgram.h"
#include "tools/frmTimer.h"

namespace {

using forms::BoxIcon;
using Sounds = forms::headless::RecordedSound;

class frmTimerTest : public testing_support::ProductProgram {
  protected:
    void SetUp() override {
        ProductProgram::SetUp();
        Start([] { forms::Default<frmTimer>().Show(); });
    }

    frmTimer& Window() { return forms::Default<frmTimer>(); }
    std::string Shown() { return Window().lblTime.caption; }

    void StartWith(const std::string& entry) {
        user->Type(Window().txtMinutes, entry);
        user->Click(Window().cmdStart);
    }
};

TEST_F(frmTimerTest, LoadsIdle) {
    EXPECT_EQ(Shown(), "Time Left:\r\n0 Minutes\r\n0 Seconds");
    EXPECT_TRUE(Window().cmdStart.enabled());
    EXPECT_FALSE(Window().cmdStop.enabled());
    EXPECT_FALSE(Window().tmrMain.enabled());
    EXPECT_TRUE(Window().txtMinutes.HasFocus());
}

TEST_F(frmTimerTest, AMissingIconIsAnErrorOfLoading) {
    Start([&] { Window().Unload(); });
    files.Remove("C:\\Jotwright\\logo.ico");
    ExpectRunTimeError(53, "File not found");
    Start([&] { Window().Show(); });
}

TEST_F(frmTimerTest, AnEmptyEntryIsRefused) {
    ExpectMessage("Please Enter A Start Time.               ", "No Minutes Entered",
                  BoxIcon::Exclamation);
    user->Click(Window().cmdStart);
    EXPECT_TRUE(Window().txtMinutes.HasFocus());
    EXPECT_TRUE(Window().cmdStart.enabled());
    EXPECT_FALSE(Window().tmrMain.enabled());
}

TEST_F(frmTimerTest, AnEntryThatIsNotANumberIsRefusedAndCleared) {
    for (const char* entry : {"ten", "   ", "5 min", "1,5x"}) {
        ExpectMessage("Please Enter Numeric Values Only.         ", "Non-Numeric Entry",
                      BoxIcon::Exclamation);
        StartWith(entry);
        EXPECT_EQ(Window().txtMinutes.text(), "");
        EXPECT_TRUE(Window().txtMinutes.HasFocus());
        EXPECT_FALSE(Window().tmrMain.enabled());
    }
}

TEST_F(frmTimerTest, StartShowsTheMinutesAndDisablesTheEntry) {
    StartWith("5");
    EXPECT_EQ(Shown(), "Time Left:\r\n5 minutes\r\n0 seconds");
    EXPECT_FALSE(Window().txtMinutes.enabled());
    EXPECT_FALSE(Window().cmdStart.enabled());
    EXPECT_TRUE(Window().cmdStop.enabled());
    EXPECT_TRUE(Window().tmrMain.enabled());
    EXPECT_EQ(Window().tmrMain.interval(), 1000);
}

TEST_F(frmTimerTest, EntriesAreRoundedHalfToEven) {
    const std::pair<const char*, const char*> entries[] = {
        {"2.5", "2"}, {"3.5", "4"}, {"  7  ", "7"}, {"+6", "6"}, {"0.5", "0"}, {"-2.5", "-2"}};
    for (const auto& [entry, minutes] : entries) {
        StartWith(entry);
        EXPECT_EQ(Window().txtMinutes.text(), minutes);
        EXPECT_EQ(Shown(), std::string("Time Left:\r\n") + minutes + " minutes\r\n0 seconds");
        user->Click(Window().cmdStop);
    }
}

TEST_F(frmTimerTest, AnEntryBeyondSixteenBitsOverflows) {
    ExpectRunTimeError(6, "Overflow");
    StartWith("32768");
    EXPECT_TRUE(runtime->HasEnded());
}

TEST_F(frmTimerTest, TheLowestEntryOverflowsAtItsFirstTick) {
    StartWith("-32768");
    ExpectRunTimeError(6, "Overflow");
    Advance(1000);
}

TEST_F(frmTimerTest, TheFirstTickComesASecondAfterTheStart) {
    Advance(370);
    StartWith("5");
    Advance(999);
    EXPECT_EQ(Shown(), "Time Left:\r\n5 minutes\r\n0 seconds");
    Advance(1);
    EXPECT_EQ(Shown(), "Time Left:\r\n4 Minutes\r\n59 Seconds");
}

TEST_F(frmTimerTest, SecondsWrapAtAMinute) {
    StartWith("5");
    Advance(59'000);
    EXPECT_EQ(Shown(), "Time Left:\r\n4 Minutes\r\n1 Seconds");
    Advance(1000);
    EXPECT_EQ(Shown(), "Time Left:\r\n3 Minutes\r\n0 Seconds.");
    EXPECT_EQ(Window().ElapsedMinutes, 1);
    EXPECT_EQ(Window().SecondsCount, 0);
    Advance(1000);
    EXPECT_EQ(Shown(), "Time Left:\r\n3 Minutes\r\n59 Seconds");
}

TEST_F(frmTimerTest, ACounterThatIsNotPositiveShowsTheWholeMinutes) {
    StartWith("5");
    Window().SecondsCount = -2;
    Advance(1000);
    EXPECT_EQ(Shown(), "Time Left:\r\n5 Minutes\r\n00 Seconds");
    Advance(1000);
    EXPECT_EQ(Shown(), "Time Left:\r\n5 Minutes\r\n00 Seconds");
    Advance(1000);
    EXPECT_EQ(Shown(), "Time Left:\r\n4 Minutes\r\n59 Seconds");
}

TEST_F(frmTimerTest, ACountdownOfOneMinuteChimesAndReports) {
    StartWith("1");
    Advance(1000);
    EXPECT_EQ(Shown(), "Time Left:\r\n0 Minutes\r\n59 Seconds");
    Advance(58'000);
    EXPECT_EQ(Shown(), "Time Left:\r\n0 Minutes\r\n1 Seconds");
    ExpectTimeIsUp([&] {
        EXPECT_EQ(Shown(), "Time Left:\r\n-1 Minutes\r\n0 Seconds.");
        EXPECT_EQ(sound.PlayingPath(), "C:\\Jotwright\\Alert chime.wav");
        // The countdown does not continue while the box is open.
        Advance(90'000);
        EXPECT_EQ(Shown(), "Time Left:\r\n-1 Minutes\r\n0 Seconds.");
        EXPECT_EQ(Window().SecondsCount, 0);
        EXPECT_TRUE(sound.IsPlaying());
    });
    Advance(1000);
    ASSERT_EQ(sound.log.size(), 2U);
    EXPECT_EQ(sound.log[0].kind, Sounds::Kind::Loop);
    EXPECT_EQ(sound.log[1].kind, Sounds::Kind::Stop);
    EXPECT_EQ(Shown(), "Time Left: 0 minutes 0 seconds.");
    EXPECT_EQ(Window().ElapsedMinutes, 0);
    EXPECT_FALSE(Window().tmrMain.enabled());
    EXPECT_TRUE(Window().cmdStart.enabled());
    EXPECT_FALSE(Window().cmdStop.enabled());
    EXPECT_EQ(Window().txtMinutes.text(), "");
    EXPECT_TRUE(Window().txtMinutes.HasFocus());
    Advance(5000);
    EXPECT_EQ(Shown(), "Time Left: 0 minutes 0 seconds.");
}

TEST_F(frmTimerTest, ZeroMinutesEndAtTheFirstTickAndItsSecondIsKept) {
    StartWith("0");
    ExpectTimeIsUp([&] { EXPECT_EQ(Shown(), "Time Left:\r\n-1 Minutes\r\n59 Seconds"); });
    Advance(1000);
    EXPECT_EQ(Window().SecondsCount, 1);
    StartWith("2");
    Advance(1000);
    EXPECT_EQ(Shown(), "Time Left:\r\n1 Minutes\r\n58 Seconds");
}

TEST_F(frmTimerTest, ANegativeEntryRunsUntilStopped) {
    StartWith("-3");
    Advance(1000);
    EXPECT_EQ(Shown(), "Time Left:\r\n-4 Minutes\r\n59 Seconds");
    Advance(10LL * 60'000);
    EXPECT_TRUE(Window().tmrMain.enabled());
    user->Click(Window().cmdStop);
    EXPECT_EQ(Shown(), "Time Left:\r\n0 Minutes\r\n0 Seconds");
}

TEST_F(frmTimerTest, StopKeepsTheCountersForTheNextRun) {
    StartWith("5");
    Advance(150'000);
    user->Click(Window().cmdStop);
    EXPECT_EQ(Shown(), "Time Left:\r\n0 Minutes\r\n0 Seconds");
    EXPECT_TRUE(Window().txtMinutes.enabled());
    EXPECT_TRUE(Window().txtMinutes.HasFocus());
    EXPECT_EQ(Window().txtMinutes.text(), "");
    EXPECT_TRUE(Window().cmdStart.enabled());
    EXPECT_FALSE(Window().cmdStop.enabled());
    Advance(10'000);
    StartWith("5");
    Advance(1000);
    EXPECT_EQ(Shown(), "Time Left:\r\n2 Minutes\r\n29 Seconds");
}

TEST_F(frmTimerTest, ARunShorterThanTheKeptMinutesNeverEnds) {
    StartWith("5");
    Advance(120'000);
    user->Click(Window().cmdStop);
    StartWith("1");
    Advance(120'000);
    EXPECT_EQ(Shown(), "Time Left:\r\n-4 Minutes\r\n0 Seconds.");
    EXPECT_TRUE(Window().tmrMain.enabled());
}

TEST_F(frmTimerTest, ClosingResetsTheCounters) {
    StartWith("5");
    Advance(90'000);
    user->Click(Window().cmdClose);
    EXPECT_EQ(forms::LoadedDefault<frmTimer>(), nullptr);
    EXPECT_FALSE(runtime->timers.NextDue().has_value());
    Start([] { forms::Default<frmTimer>().Show(); });
    EXPECT_EQ(Window().ElapsedMinutes, 0);
    EXPECT_EQ(Window().SecondsCount, 0);
}

}  // namespace
