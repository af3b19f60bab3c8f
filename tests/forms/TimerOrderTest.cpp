#include <gtest/gtest.h>

#include "forms/Devices.h"
#include "forms/Form.h"
#include "forms/MsgBox.h"
#include "forms/Runtime.h"
#include "forms/Timer.h"
#include "tests/support/TestProgram.h"

// The order in which polling timers tick within one second.

using namespace forms;

namespace {

class frmTwoClocks : public Form {
  public:
    frmTwoClocks() : Form("frmTwoClocks") {}
    Timer tmrFirst{this, "tmrFirst", TimerPhase::ClockSecond};
    Timer tmrSecond{this, "tmrSecond", TimerPhase::ClockSecond};
};

class TimerOrderTest : public testing_support::TestProgram {
  protected:
    void SetUp() override {
        TestProgram::SetUp();
        Start([this] {
            Form().Load();
            Form().tmrFirst.Tick = [this] { FirstTick(); };
            Form().tmrSecond.Tick = [this] { SecondTick(); };
            Form().tmrFirst.interval = 1000;
            Form().tmrSecond.interval = 1000;
            Form().tmrFirst.enabled = true;
        });
    }

    static frmTwoClocks& Form() { return Default<frmTwoClocks>(); }

    void FirstTick() {
        seenByFirst = Now().seconds;
        if (heldUp) {
            heldUp = false;
            MsgBox("Turn it off?", {}, "Alarm");
        }
    }
    void SecondTick() {
        ++secondTicks;
        if (!isFirstHeldUp) {
            wrong += seenByFirst == Now().seconds ? 0 : 1;
        }
    }

    // At its next tick the first timer shows a box for this long.
    void HoldUp(int milliseconds) {
        heldUp = true;
        ExpectMessage("Turn it off?", "Alarm", BoxIcon::None, [this, milliseconds] {
            isFirstHeldUp = true;
            Advance(milliseconds);
            isFirstHeldUp = false;
        });
    }

    std::int64_t seenByFirst = 0;
    bool heldUp = false;
    bool isFirstHeldUp = false;
    int secondTicks = 0;
    int wrong = 0;  // ticks of the second timer for seconds that the first timer missed
};

TEST_F(TimerOrderTest, ABoxThatHoldsUpTheFirstDoesNotReverseThem) {
    Form().tmrSecond.enabled = true;
    for (int held = 100; held < 3000; held += 100) {
        HoldUp(held);
        Advance(6000);
    }
    EXPECT_EQ(wrong, 0);
    EXPECT_GT(secondTicks, 29 * 4);
}

TEST_F(TimerOrderTest, AFirstTickThatTakesItsTimeDoesNotReverseThem) {
    Form().tmrSecond.enabled = true;
    for (const int busy : {300, 700, 900, 1100, 1700, 2300}) {
        bool isBusy = true;
        Form().tmrFirst.Tick = [&] {
            seenByFirst = Now().seconds;
            if (isBusy) {
                isBusy = false;
                clock.Pass(busy);
            }
        };
        Advance(6000);
    }
    EXPECT_EQ(wrong, 0);
}

TEST_F(TimerOrderTest, ATimerSwitchedOnAgainKeepsItsPlace) {
    Form().tmrSecond.enabled = true;
    Advance(1700);
    for (int i = 0; i < 5; ++i) {
        Form().tmrFirst.enabled = false;
        Form().tmrFirst.enabled = true;
        Advance(1100);
    }
    EXPECT_EQ(wrong, 0);
    EXPECT_GT(secondTicks, 5);
}

TEST_F(TimerOrderTest, ClocksThatDriftApartDoNotReverseThem) {
    for (const int partsPerMillion : {100, -100}) {
        clock.SetDrift(partsPerMillion);
        // The timer that is switched on later would tick exactly in the middle of the second. The
        // other timer ticks at the time to which the drift has moved it.
        for (int minutes = 1; minutes < 30; ++minutes) {
            Form().tmrSecond.enabled = false;
            Advance(minutes * 60'000);
            Form().tmrSecond.enabled = true;
            Advance(60'000);
        }
    }
    EXPECT_EQ(wrong, 0);
    EXPECT_GT(secondTicks, 58 * 59);
}

}  // namespace
