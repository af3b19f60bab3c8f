#include <gtest/gtest.h>

#include <set>

#include "forms/Form.h"
#include "forms/MsgBox.h"
#include "forms/Runtime.h"
#include "forms/Timer.h"
#include "tests/support/TestProgram.h"

using namespace forms;
using Moments = std::vector<std::int64_t>;

namespace {

class frmTimers : public Form {
  public:
    frmTimers() : Form("frmTimers") {}
    Timer tmrFast{this, "tmrFast"};
    Timer tmrSlow{this, "tmrSlow"};
    Timer tmrClock{this, "tmrClock", TimerPhase::ClockSecond};
    Timer tmrBlink{this, "tmrBlink", TimerPhase::ClockSecond};
    Timer tmrOther{this, "tmrOther", TimerPhase::ClockSecond};
};

class TimerTest : public testing_support::TestProgram {
  protected:
    void SetUp() override {
        TestProgram::SetUp();
        Start([] { Default<frmTimers>().Load(); });
        start = clock.MonotonicMilliseconds();
    }

    static frmTimers& Form() { return Default<frmTimers>(); }
    std::int64_t Elapsed() { return clock.MonotonicMilliseconds() - start; }
    static void SwitchOn(Timer& timer, int interval) {
        timer.interval = interval;
        timer.enabled = true;
    }

    // Runs a polling timer and another one for two seconds, each with an interval of one second.
    void RunBothKinds() {
        Form().tmrClock.Tick = [this] { ++polled; };
        Form().tmrFast.Tick = [this] { ticks.push_back(Elapsed()); };
        SwitchOn(Form().tmrClock, 1000);
        SwitchOn(Form().tmrFast, 1000);
        Advance(2000);
    }

    std::int64_t start = 0;
    Moments ticks;
    int polled = 0;
};

}  // namespace

TEST_F(TimerTest, TheFirstTickComesOneIntervalAfterSwitchingOn) {
    Form().tmrFast.Tick = [this] { ticks.push_back(Elapsed()); };
    SwitchOn(Form().tmrFast, 300);
    Advance(299);
    EXPECT_EQ(ticks, Moments{});
    Advance(701);
    EXPECT_EQ(ticks, (Moments{300, 600, 900}));
}

TEST_F(TimerTest, StandsStillWithoutIntervalOrWhileDisabled) {
    Form().tmrFast.Tick = [this] { ticks.push_back(Elapsed()); };
    Form().tmrFast.enabled = true;
    Advance(5000);
    Form().tmrFast.enabled = false;
    Form().tmrFast.interval = 100;
    Advance(5000);
    EXPECT_EQ(ticks, Moments{});
    EXPECT_FALSE(runtime->timers.NextDue().has_value());
}

TEST_F(TimerTest, SwitchingOffAndOnOrANewIntervalRestartsTheTimer) {
    Form().tmrFast.Tick = [this] { ticks.push_back(Elapsed()); };
    SwitchOn(Form().tmrFast, 1000);
    Advance(900);
    Form().tmrFast.enabled = false;
    Form().tmrFast.enabled = true;
    Advance(900);
    EXPECT_EQ(ticks, Moments{});
    Form().tmrFast.interval = 500;
    Advance(500);
    EXPECT_EQ(ticks, Moments{2300});
}

TEST_F(TimerTest, AssigningTheSameValuesChangesNothing) {
    Form().tmrFast.Tick = [this] { ticks.push_back(Elapsed()); };
    SwitchOn(Form().tmrFast, 1000);
    Advance(900);
    SwitchOn(Form().tmrFast, 1000);
    Advance(100);
    EXPECT_EQ(ticks, Moments{1000});
}

TEST_F(TimerTest, ATimerWithoutHandlerDoesNotWakeTheMachine) {
    SwitchOn(Form().tmrFast, 500);
    SwitchOn(Form().tmrClock, 1000);
    EXPECT_FALSE(runtime->timers.NextDue().has_value());
}

TEST_F(TimerTest, TicksOnlyWhileItsFormIsLoaded) {
    Start([] { Form().Unload(); });
    auto form = New<frmTimers>();
    form->tmrFast.Tick = [this] { ticks.push_back(Elapsed()); };
    SwitchOn(form->tmrFast, 100);
    Advance(1000);
    EXPECT_EQ(ticks, Moments{});
    Start([&form] { form->Load(); });
    Advance(100);
    EXPECT_EQ(ticks, Moments{1100});
    Start([&form] { form->Unload(); });
    Advance(1000);
    EXPECT_EQ(ticks, Moments{1100});
}

TEST_F(TimerTest, KeepsItsPhaseUnderJitter) {
    clock.SetJitter(40);
    Form().tmrFast.Tick = [this] { ticks.push_back(Elapsed()); };
    SwitchOn(Form().tmrFast, 1000);
    Advance(3'600'500);
    ASSERT_EQ(ticks.size(), 3600U);
    for (std::size_t n = 0; n < ticks.size(); ++n) {
        const std::int64_t late = ticks[n] - static_cast<std::int64_t>(n + 1) * 1000;
        EXPECT_GE(late, 0);
        EXPECT_LE(late, 40);
    }
}

TEST_F(TimerTest, MissedTicksAreDroppedAndThePhaseIsKept) {
    Form().tmrFast.Tick = [this] {
        ticks.push_back(Elapsed());
        if (ticks.size() == 1) {
            clock.Pass(3250);  // a slow handler
        }
    };
    SwitchOn(Form().tmrFast, 1000);
    Advance(6000);
    EXPECT_EQ(ticks.front(), 1000);
    EXPECT_EQ(ticks.back(), 6000);
    // The next tick was computed before the handler ran; the ticks at 3000 and 4000 are dropped.
    EXPECT_EQ(ticks, (Moments{1000, 4250, 5000, 6000}));
}

TEST_F(TimerTest, IsNotEnteredAgainWhileItsHandlerRunsAndOthersGoOn) {
    int others = 0;
    bool asked = false;
    Form().tmrFast.Tick = [this, &asked] {
        ticks.push_back(Elapsed());
        if (!asked) {
            asked = true;
            MsgBox("Wait", {}, "Box");
        }
    };
    Form().tmrSlow.Tick = [&others] { ++others; };
    SwitchOn(Form().tmrFast, 1000);
    SwitchOn(Form().tmrSlow, 500);
    ExpectMessage("Wait", "Box", BoxIcon::None, [&] {
        Advance(10'000);
        EXPECT_EQ(ticks, Moments{1000});
        EXPECT_GE(others, 20);
    });
    Advance(1500);
    ticks.clear();
    Advance(3000);
    // The ticks that were due while the box was open are replaced by one late tick. The phase does
    // not change.
    EXPECT_EQ(ticks, (Moments{11'000, 12'000, 13'000, 14'000}));
}

TEST_F(TimerTest, ATimerMaySwitchOffAnotherThatIsDueInTheSameMoment) {
    int fast = 0;
    int slow = 0;
    Form().tmrFast.Tick = [&] {
        ++fast;
        Form().tmrSlow.enabled = false;
    };
    Form().tmrSlow.Tick = [&] {
        ++slow;
        Form().tmrFast.enabled = false;
    };
    SwitchOn(Form().tmrFast, 100);
    SwitchOn(Form().tmrSlow, 100);
    Advance(100);
    EXPECT_EQ(fast + slow, 1);
}

TEST_F(TimerTest, MayBeSwitchedOffAndOnInItsHandler) {
    Form().tmrFast.Tick = [this] {
        ticks.push_back(Elapsed());
        Form().tmrFast.enabled = false;
        clock.Pass(50);
        Form().tmrFast.enabled = true;
    };
    SwitchOn(Form().tmrFast, 100);
    Advance(450);
    EXPECT_EQ(ticks, (Moments{100, 250, 400}));
}

TEST_F(TimerTest, ANewIntervalInItsHandlerCountsFromThere) {
    Form().tmrFast.Tick = [this] {
        ticks.push_back(Elapsed());
        Form().tmrFast.interval = 700;
    };
    SwitchOn(Form().tmrFast, 100);
    Advance(1500);
    EXPECT_EQ(ticks, (Moments{100, 800, 1500}));
}

TEST_F(TimerTest, ATimerSwitchedOffUnderABoxStaysOff) {
    Form().tmrFast.Tick = [this] {
        ticks.push_back(Elapsed());
        MsgBox("Wait", {}, "Box");
    };
    Form().tmrSlow.Tick = [] { Form().tmrFast.enabled = false; };
    SwitchOn(Form().tmrFast, 100);
    SwitchOn(Form().tmrSlow, 150);
    ExpectMessage("Wait", "Box", BoxIcon::None, [this] { Advance(100); });
    Advance(1000);
    EXPECT_EQ(ticks, Moments{100});
}

TEST_F(TimerTest, PollingTimersTickInTheMiddleOfTheSecond) {
    clock.SetNow(clock.Now(), 900);
    Form().tmrClock.Tick = [this] { ticks.push_back(clock.MillisecondOfSecond()); };
    SwitchOn(Form().tmrClock, 1000);
    Advance(3000);
    EXPECT_EQ(ticks, (Moments{500, 500, 500}));
}

TEST_F(TimerTest, APollingTimerSeesEverySecondOfADayOnceUnderJitter) {
    for (const std::uint32_t seed : {1U, 2U, 3U}) {
        clock.SetJitter(450, seed);
        base::DateTime last = clock.Now();
        int seen = 0;
        int wrong = 0;
        Form().tmrClock.enabled = false;
        Form().tmrClock.Tick = [&] {
            const base::DateTime now = clock.Now();
            wrong += now.seconds == last.seconds + 1 || (seen == 0 && now == last) ? 0 : 1;
            last = now;
            ++seen;
        };
        SwitchOn(Form().tmrClock, 1000);
        Advance(base::secondsPerDay * 1000);
        EXPECT_EQ(wrong, 0);
        EXPECT_GE(seen, base::secondsPerDay - 1);
    }
}

TEST_F(TimerTest, PollingTimersOfOneIntervalWakeTheMachineTogether) {
    int wakeUps = 0;
    const auto alarm = clock.onAlarm;
    clock.onAlarm = [&] {
        ++wakeUps;
        alarm();
    };
    int given = 0;
    for (Timer* timer : {&Form().tmrClock, &Form().tmrOther, &Form().tmrBlink}) {
        timer->Tick = [&given] { ++given; };
        SwitchOn(*timer, 1000);
        Advance(333);
    }
    Advance(9001);
    EXPECT_EQ(wakeUps, 10);
    EXPECT_EQ(given, 29);  // the third was switched on after the middle of the first second
}

TEST_F(TimerTest, PollingTimersOfOtherIntervalsShareAGrid) {
    Moments blink;
    Moments other;
    Form().tmrBlink.Tick = [&] { blink.push_back(Elapsed()); };
    Form().tmrOther.Tick = [&] { other.push_back(Elapsed()); };
    SwitchOn(Form().tmrBlink, 750);
    Advance(200);
    SwitchOn(Form().tmrOther, 750);
    Advance(7500);
    ASSERT_FALSE(blink.empty());
    EXPECT_EQ(blink.back(), other.back());
    for (std::size_t n = 1; n < blink.size(); ++n) {
        EXPECT_EQ(blink[n] - blink[n - 1], 750);
    }
}

TEST_F(TimerTest, AJumpOfTheWallClockMovesPollingTimersOnly) {
    RunBothKinds();
    clock.Jump(-3600);
    Advance(2000);
    clock.Jump(86'400);
    Advance(2000);
    EXPECT_EQ(ticks, (Moments{1000, 2000, 3000, 4000, 5000, 6000}));
    EXPECT_GE(polled, 5);
    EXPECT_LE(polled, 7);
}

TEST_F(TimerTest, AJumpOfTheWallClockDropsNoTickThatIsDue) {
    base::DateTime seen;
    Form().tmrClock.Tick = [&] { seen = clock.Now(); };
    SwitchOn(Form().tmrClock, 1000);
    Advance(2000);
    clock.Pass(1000);  // busy until the second half of a second
    while (clock.MillisecondOfSecond() < 600) {
        clock.Pass(50);
    }
    clock.Jump(3600);
    const base::DateTime second = clock.Now();
    Advance(100);
    EXPECT_EQ(seen, second);
}

TEST_F(TimerTest, AfterSleepMissedTicksAreDropped) {
    RunBothKinds();
    const int before = polled;
    clock.Suspend(3600);
    EXPECT_LE(polled, before + 1);
    EXPECT_LE(ticks.size(), 3U);
    Advance(2000);
    EXPECT_LE(polled, before + 3);
    EXPECT_LE(ticks.size(), 5U);
}

TEST_F(TimerTest, AHandlerMayDestroyItsFormAndMakeAnother) {
    Form().tmrFast.Tick = [] {
        Form().Unload();
        Default<frmTimers>().Load();
    };
    SwitchOn(Form().tmrFast, 100);
    Advance(1000);
    EXPECT_TRUE(Form().IsLoaded());
    EXPECT_FALSE(Form().tmrFast.enabled);
}

TEST_F(TimerTest, ATimerThatRestsDoesNotTickAndTicksAtOnceWhenItIsWoken) {
    clock.SetNow(clock.Now(), 500);
    Form().tmrBlink.Tick = [this] { ticks.push_back(Elapsed()); };
    SwitchOn(Form().tmrBlink, 600);
    Form().tmrBlink.Rest();
    EXPECT_EQ(runtime->timers.Size(), 0U);
    Advance(3500);
    EXPECT_EQ(ticks, Moments{});
    Form().tmrBlink.Wake();
    Advance(1500);
    EXPECT_EQ(ticks, (Moments{3500, 4100, 4700}));
    // The timer is awake, so Wake() changes nothing.
    Form().tmrBlink.Wake();
    Advance(600);
    EXPECT_EQ(ticks, (Moments{3500, 4100, 4700, 5300}));
}

TEST_F(TimerTest, ATimerThatRestsIsNotStartedByBeingSwitchedOn) {
    Form().tmrBlink.Tick = [this] { ticks.push_back(Elapsed()); };
    Form().tmrBlink.Rest();
    SwitchOn(Form().tmrBlink, 600);
    Advance(2000);
    EXPECT_EQ(ticks, Moments{});
}

TEST_F(TimerTest, ATimerThatIsOffStaysOffWhenItIsWoken) {
    Form().tmrBlink.Tick = [this] { ticks.push_back(Elapsed()); };
    Form().tmrBlink.Rest();
    Form().tmrBlink.Wake();
    Advance(2000);
    EXPECT_EQ(ticks, Moments{});
    SwitchOn(Form().tmrBlink, 600);
    Advance(600);
    EXPECT_EQ(ticks.size(), 1U);
}

TEST_F(TimerTest, ATimerWokenEachSecondMissesNoneWhileAwake) {
    std::set<std::int64_t> seen;
    std::set<std::int64_t> awake;
    Form().tmrBlink.Tick = [&] { seen.insert(clock.Now().seconds); };
    Form().tmrClock.Tick = [&] {
        if (clock.Now().seconds % 5 == 0) {
            Form().tmrBlink.Rest();
        } else {
            awake.insert(clock.Now().seconds);
            Form().tmrBlink.Wake();
        }
    };
    SwitchOn(Form().tmrClock, 1000);
    SwitchOn(Form().tmrBlink, 600);
    Advance(60000);
    EXPECT_EQ(awake.size(), 48U);
    for (const std::int64_t second : awake) {
        EXPECT_EQ(seen.count(second), 1U) << second;
    }
}
