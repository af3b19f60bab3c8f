#include <algorithm>

#include "forms/Services.h"
#include "tests/conformance/Stand.h"

using namespace forms;
using namespace forms_under_test;

// A real machine may be busy, or may be stopped for a while. Then there are fewer ticks, never
// more. So these tests wait for ticks as long as necessary, and fail if there are more ticks than
// the time allows.
namespace {

class TimersTest : public conformance::StandTest {
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

TEST_F(TimersTest, TickWhileTheirFormIsHidden) {
    int ticks = 0;
    const std::int64_t start = stand->Milliseconds();
    StartCounting(Form().tmrOne, 50, ticks);
    PumpUntil([&ticks] { return ticks >= 12; });
    EXPECT_LE(ticks, (stand->Milliseconds() - start) / 50 + 1);
}

TEST_F(TimersTest, StopWhenSwitchedOff) {
    int ticks = 0;
    StartCounting(Form().tmrOne, 30, ticks);
    PumpUntil([&ticks] { return ticks > 1; });
    Start([] { Form().tmrOne.enabled = false; });
    const int before = ticks;
    stand->Pump(200);
    EXPECT_EQ(ticks, before);
}

TEST_F(TimersTest, KeepTheirPhaseDespiteSlowHandlers) {
    constexpr int interval = 50;
    constexpr int busy = 20;
    int ticks = 0;
    int inPhase = 0;
    const std::int64_t start = stand->Milliseconds();
    std::int64_t last = start;
    StartCounting(Form().tmrOne, interval, ticks);
    Form().tmrOne.Tick = [&] {
        ++ticks;
        const std::int64_t now = stand->Milliseconds();
        inPhase += ticks > 1 && now - last < interval + busy ? 1 : 0;
        last = now;
        stand->BeBusy(busy);
    };
    // If the interval started again after each handler, the next tick would come later.
    PumpUntil([&inPhase] { return inPhase >= 5; });
    EXPECT_LE(ticks, (stand->Milliseconds() - start) / interval + 1);
}

TEST_F(TimersTest, MissedTicksAreDropped) {
    int ticks = 0;
    StartCounting(Form().tmrOne, 40, ticks);
    PumpUntil([&ticks] { return ticks > 0; });
    const int before = ticks;
    std::int64_t start = 0;
    Start([&] {
        stand->BeBusy(800);
        start = stand->Milliseconds();
    });
    // The timer may tick once more to make up for a missed tick.
    const auto possible = [&] { return before + 2 + (stand->Milliseconds() - start) / 40; };
    stand->Pump(20);
    EXPECT_LE(ticks, possible());
    stand->Pump(400);
    EXPECT_LE(ticks, possible());
}

TEST_F(TimersTest, AreNotReenteredUnderTheirOwnBoxAndOthersGoOn) {
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
    stand->stayOpenUntil = [&] { return ticks > 0 && others >= othersBefore + 5; };
    ExpectMessage("Wait", "Message", [&] {
        EXPECT_EQ(ticks, 1);
        // A message loop inside the loop of the box gives the timer no tick, either.
        othersBefore = others;
        PumpUntil([&] { return others >= othersBefore + 3; });
        EXPECT_EQ(ticks, 1);
    });
    PumpUntil([&ticks] { return ticks > 3; });
    EXPECT_EQ(deepest, 1);
}

TEST_F(TimersTest, GoOnUnderABox) {
    int ticks = 0;
    StartCounting(Form().tmrOne, 40, ticks);
    const int before = ticks;
    stand->stayOpenUntil = [&] { return ticks >= before + 5; };
    ExpectMessage("Wait", "Message");
    Start([] { MsgBox("Wait", {}, "Message"); });
    EXPECT_GE(ticks, before + 5);
}

TEST_F(TimersTest, GoOnUnderAModalForm) {
    int ticks = 0;
    StartCounting(Form().tmrOne, 40, ticks);
    const int before = ticks;
    stand->stayOpenUntil = [&] { return ticks >= before + 5; };
    stand->ExpectModal<frmSecond>([&](frmSecond& form) {
        EXPECT_GE(ticks, before + 5);
        stand->CloseBox(form);
    });
    Start([] { Default<frmSecond>().ShowModal(); });
}

TEST_F(TimersTest, GoOnWhileTheUserDragsAWindow) {
    int ticks = 0;
    StartCounting(Form().tmrOne, 40, ticks);
    Start([] { Form().Show(); });
    const int before = ticks;
    stand->stayOpenUntil = [&] { return ticks >= before + 5; };
    bool held = false;
    stand->Drag(Form(), [&] {
        held = true;
        EXPECT_GE(ticks, before + 5);
    });
    EXPECT_TRUE(held);
}

TEST_F(TimersTest, AnIntervalChangedInTheHandlerCountsFromThere) {
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

TEST_F(TimersTest, SwitchingOffInTheHandlerIsTheLastTick) {
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

TEST_F(TimersTest, SwitchingOffAndOnInTheHandlerKeepsTheTimerRunning) {
    int ticks = 0;
    StartCounting(Form().tmrOne, 30, ticks);
    Form().tmrOne.Tick = [&ticks] {
        ++ticks;
        Form().tmrOne.enabled = false;
        Form().tmrOne.enabled = true;
    };
    PumpUntil([&ticks] { return ticks >= 5; });
}

TEST_F(TimersTest, OneTimerMaySwitchOffAnother) {
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

TEST_F(TimersTest, PollingTimersSeeEverySecondOnce) {
    class frmClock : public forms::Form {
      public:
        frmClock() : Form("frmClock") {}
        Timer tmrNow{this, "tmrNow", TimerPhase::ClockSecond};
    };
    struct Look {
        std::int64_t second;
        std::int64_t moment;  // milliseconds
    };
    std::vector<Look> looks;
    // A second timer detects when the machine was stopped. A second that passed during that time
    // does not count.
    std::int64_t lastPulse = stand->Milliseconds();
    std::vector<Look> standstills;  // when each of them ended
    int pulses = 0;
    StartCounting(Form().tmrTwo, 50, pulses);
    Form().tmrTwo.Tick = [&] {
        const std::int64_t now = stand->Milliseconds();
        if (now - lastPulse > 400) {
            standstills.push_back({0, now});
        }
        lastPulse = now;
    };
    Start([&] {
        auto& form = Default<frmClock>();
        form.Load();
        form.tmrNow.Tick = [&] { looks.push_back({Now().seconds, stand->Milliseconds()}); };
        form.tmrNow.interval = 1000;
        form.tmrNow.enabled = true;
    });
    int judged = 0;
    std::size_t next = 1;
    PumpUntil([&] {
        // Wait until the second timer has ticked after the last look.
        while (next < looks.size() && lastPulse > looks[next].moment) {
            const bool stoodStill =
                std::any_of(standstills.begin(), standstills.end(), [&](const Look& end) {
                    return end.moment >= looks[next - 1].moment &&
                           end.moment <= looks[next].moment + 400;
                });
            if (!stoodStill) {
                EXPECT_EQ(looks[next].second, looks[next - 1].second + 1);
                ++judged;
            }
            ++next;
        }
        return judged >= 3;
    });
}
