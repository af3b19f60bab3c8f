#include <gtest/gtest.h>

#include "forms/Devices.h"
#include "forms/Form.h"
#include "forms/MsgBox.h"
#include "forms/Runtime.h"
#include "forms/Timer.h"
#include "tests/support/TestProgram.h"

// The second that forms::Now() gives to a tick if earlier ticks of the round took long.

using namespace forms;
using Seconds = std::vector<std::int64_t>;

namespace {

class frmClocks : public Form {
  public:
    frmClocks() : Form("frmClocks") {}
    Timer tmrFirst{this, "tmrFirst", TimerPhase::ClockSecond};
    Timer tmrSecond{this, "tmrSecond", TimerPhase::ClockSecond};
    Timer tmrStart{this, "tmrStart"};
};

class TimerMomentTest : public testing_support::TestProgram {
  protected:
    void SetUp() override {
        TestProgram::SetUp();
        clock.SetNow(clock.Now(), 0);
        noon = clock.Now().seconds;
        Start([this] {
            Form().Load();
            Form().tmrFirst.Tick = [this] {
                first.push_back(Now().seconds - noon);
                if (first.size() == 1) {
                    clock.Pass(busy);
                }
            };
            Form().tmrSecond.Tick = [this] { second.push_back(Now().seconds - noon); };
            for (Timer* timer : {&Form().tmrFirst, &Form().tmrSecond}) {
                timer->interval = 1000;
                timer->enabled = true;
            }
        });
    }

    static frmClocks& Form() { return Default<frmClocks>(); }

    std::int64_t noon = 0;
    int busy = 0;  // milliseconds that the first tick of the first timer takes
    Seconds first;
    Seconds second;
};

TEST_F(TimerMomentTest, TicksThatAreDueTogetherSeeOneSecond) {
    busy = 700;
    Advance(3000);
    EXPECT_EQ(first, (Seconds{0, 1, 2}));
    // The tick for the second that began during the long tick comes at once.
    EXPECT_EQ(second, (Seconds{0, 1, 2}));
}

TEST_F(TimerMomentTest, SecondsInsideALongTickAreDropped) {
    busy = 5000;
    Advance(500);
    EXPECT_EQ(second, Seconds{0});
    Advance(1500);
    EXPECT_EQ(second, (Seconds{0, 5, 6}));
}

TEST_F(TimerMomentTest, ATickThatIsGivenUnderABoxIsForItsOwnSecond) {
    Form().tmrFirst.Tick = [this] {
        if (first.empty()) {
            clock.Pass(800);
            MsgBox("Turn it off?", {}, "Alarm");
        }
        first.push_back(Now().seconds - noon);
    };
    ExpectMessage("Turn it off?", "Alarm", BoxIcon::None, [&] {
        Advance(10);
        EXPECT_EQ(second, Seconds{0});
        // The tick for the second that began during the wait comes in the middle of that second, as
        // usual.
        Advance(200);
        EXPECT_EQ(second, (Seconds{0, 1}));
        Advance(1800);
    });
    Advance(500);
    EXPECT_EQ(second, (Seconds{0, 1, 2}));
    Advance(500);
    EXPECT_EQ(second, (Seconds{0, 1, 2, 3}));
    // After the box, forms::Now() gives the real time again.
    EXPECT_EQ(first.front(), 3);
}

TEST_F(TimerMomentTest, OutsideOfTicksNowGivesTheRealTime) {
    busy = 700;
    Advance(500);
    Start([this] {
        clock.Pass(1000);
        EXPECT_EQ(Now().seconds, clock.Now().seconds);
    });
    std::int64_t seen = 0;
    Form().tmrStart.Tick = [&] {
        clock.Pass(1000);
        seen = Now().seconds - clock.Now().seconds;
    };
    Form().tmrStart.interval = 100;
    Form().tmrStart.enabled = true;
    Advance(100);
    EXPECT_EQ(seen, 0);
}

TEST_F(TimerMomentTest, ARestartedTimerSeesTheCurrentSecond) {
    busy = 700;
    Form().tmrFirst.Tick = [this] {
        if (first.empty()) {
            clock.Pass(busy);
            Form().tmrSecond.enabled = false;
            Form().tmrSecond.enabled = true;
        }
        first.push_back(Now().seconds - noon);
    };
    Advance(1500);
    EXPECT_EQ(second, Seconds{1});
    Advance(1000);
    EXPECT_EQ(second, (Seconds{1, 2}));
}

}  // namespace
