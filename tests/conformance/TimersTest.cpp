#include <algorithm>

#include "forms/Devices.h"
#include "tests/conformance/Stand.h"

using namespace forms;
using namespace forms_under_test;

// Ticks are counted, and the bounds are wide: on a real screen other programs take their time too.
namespace {

class Timers : public conformance::StandTest {
  protected:
    static frmFirst& Form() { return Default<frmFirst>(); }
    void StartCounting(Timer& timer, int interval, int& count) {
        Start([&] {
            timer.form.Load();
            timer.Tick = [&count] { ++count; };
            timer.interval = interval;
            timer.enabled = true;
        });
    }
};

}  // namespace

TEST_F(Timers, TickWhileTheirFormIsHidden) {
    int ticks = 0;
    StartCounting(Form().tmrOne, 50, ticks);
    stand->Pump(1020);
    EXPECT_GE(ticks, 12);
    EXPECT_LE(ticks, 21);
}

TEST_F(Timers, StopWhenSwitchedOff) {
    int ticks = 0;
    StartCounting(Form().tmrOne, 30, ticks);
    PumpUntil([&ticks] { return ticks > 1; });
    Start([] { Form().tmrOne.enabled = false; });
    const int before = ticks;
    stand->Pump(200);
    EXPECT_EQ(ticks, before);
}

TEST_F(Timers, KeepTheirPhaseThoughTheirHandlersTakeTime) {
    int ticks = 0;
    StartCounting(Form().tmrOne, 50, ticks);
    Form().tmrOne.Tick = [this, &ticks] {
        ++ticks;
        stand->BeBusy(20);
    };
    const std::int64_t start = stand->Milliseconds();
    stand->Pump(2000);
    const auto possible = (stand->Milliseconds() - start) / 50;
    // A timer that began to count anew after each handler would reach seven tenths.
    EXPECT_GE(ticks, possible * 85 / 100);
    EXPECT_LE(ticks, possible + 1);
}

TEST_F(Timers, MissedTicksAreDropped) {
    int ticks = 0;
    StartCounting(Form().tmrOne, 40, ticks);
    PumpUntil([&ticks] { return ticks > 0; });
    const int before = ticks;
    Start([this] { stand->BeBusy(800); });
    stand->Pump(20);
    EXPECT_LE(ticks, before + 2);
    stand->Pump(400);
    EXPECT_LE(ticks, before + 13);
}

TEST_F(Timers, AreNotEnteredAgainUnderTheirOwnBoxAndOthersGoOn) {
    int depth = 0;
    int deepest = 0;
    int ticks = 0;
    int others = 0;
    int othersBefore = 0;
    StartCounting(Form().tmrTwo, 40, others);
    Start([&] {
        Form().tmrOne.Tick = [&] {
            ++ticks;
            deepest = std::max(deepest, ++depth);
            if (ticks == 1) {
                othersBefore = others;
                MsgBox("Wait", {}, "Message");
            }
            --depth;
        };
        Form().tmrOne.interval = 40;
        Form().tmrOne.enabled = true;
    });
    stand->stayOpen = 600;
    stand->ExpectBox("Wait", "Message", BoxButtons::Ok, BoxResult::Ok, [&] {
        EXPECT_EQ(ticks, 1);
        EXPECT_GE(others, othersBefore + 5);
        // A loop inside the box's loop changes nothing.
        othersBefore = others;
        stand->Pump(400);
        EXPECT_EQ(ticks, 1);
        EXPECT_GE(others, othersBefore + 3);
    });
    PumpUntil([&ticks] { return ticks > 3; });
    EXPECT_EQ(deepest, 1);
}

TEST_F(Timers, GoOnUnderABox) {
    int ticks = 0;
    StartCounting(Form().tmrOne, 40, ticks);
    stand->stayOpen = 600;
    stand->ExpectBox("Wait", "Message", BoxButtons::Ok, BoxResult::Ok);
    const int before = ticks;
    Start([] { MsgBox("Wait", {}, "Message"); });
    EXPECT_GE(ticks, before + 5);
}

TEST_F(Timers, GoOnUnderAModalForm) {
    int ticks = 0;
    StartCounting(Form().tmrOne, 40, ticks);
    stand->stayOpen = 600;
    const int before = ticks;
    stand->ExpectModal<frmSecond>([&](frmSecond& form) {
        EXPECT_GE(ticks, before + 5);
        stand->CloseBox(form);
    });
    Start([] { Default<frmSecond>().ShowModal(); });
}

TEST_F(Timers, GoOnWhileTheUserDragsAWindow) {
    int ticks = 0;
    StartCounting(Form().tmrOne, 40, ticks);
    Start([] { Form().Show(); });
    stand->stayOpen = 600;
    const int before = ticks;
    bool held = false;
    stand->Drag(Form(), [&] {
        held = true;
        EXPECT_GE(ticks, before + 5);
    });
    EXPECT_TRUE(held);
}

TEST_F(Timers, AnIntervalChangedInTheHandlerCountsFromThere) {
    int ticks = 0;
    StartCounting(Form().tmrOne, 30, ticks);
    Form().tmrOne.Tick = [&ticks] {
        ++ticks;
        Form().tmrOne.interval = 60'000;
    };
    PumpUntil([&ticks] { return ticks >= 1; });
    stand->Pump(300);
    EXPECT_EQ(ticks, 1);
}

TEST_F(Timers, SwitchingOffInTheHandlerIsTheLastTick) {
    int ticks = 0;
    StartCounting(Form().tmrOne, 30, ticks);
    Form().tmrOne.Tick = [&ticks] {
        ++ticks;
        Form().tmrOne.enabled = false;
    };
    PumpUntil([&ticks] { return ticks >= 1; });
    stand->Pump(300);
    EXPECT_EQ(ticks, 1);
    Start([] { Form().tmrOne.enabled = true; });
    PumpUntil([&ticks] { return ticks >= 2; });
    stand->Pump(300);
    EXPECT_EQ(ticks, 2);
}

TEST_F(Timers, SwitchingOffAndOnInTheHandlerGoesOn) {
    int ticks = 0;
    StartCounting(Form().tmrOne, 30, ticks);
    Form().tmrOne.Tick = [&ticks] {
        ++ticks;
        Form().tmrOne.enabled = false;
        Form().tmrOne.enabled = true;
    };
    PumpUntil([&ticks] { return ticks >= 5; });
}

TEST_F(Timers, OneMaySwitchOffTheOther) {
    int ticks = 0;
    StartCounting(Form().tmrTwo, 30, ticks);
    int own = 0;
    StartCounting(Form().tmrOne, 30, own);
    Form().tmrOne.Tick = [&own] {
        ++own;
        Form().tmrTwo.enabled = false;
    };
    PumpUntil([&own] { return own >= 3; });
    EXPECT_LE(ticks, 1);
}

TEST_F(Timers, PollingTimersSeeEverySecondOnce) {
    class frmClock : public forms::Form {
      public:
        frmClock() : Form("frmClock") {}
        Timer tmrNow{this, "tmrNow", TimerPhase::ClockSecond};
    };
    std::vector<std::int64_t> seconds;
    Start([&seconds] {
        auto& form = Default<frmClock>();
        form.Load();
        form.tmrNow.Tick = [&seconds] { seconds.push_back(Now().seconds); };
        form.tmrNow.interval = 1000;
        form.tmrNow.enabled = true;
    });
    stand->Pump(4300);
    ASSERT_GE(seconds.size(), 3U);
    for (std::size_t n = 1; n < seconds.size(); ++n) {
        EXPECT_EQ(seconds[n], seconds[n - 1] + 1);
    }
}
