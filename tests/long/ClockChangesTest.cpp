#include <map>

#include "tests/support/WholeProgram.h"
#include "tools/frmStopWatch.h"
#include "tools/frmTimer.h"

// Tests the seconds and alarms when the wall clock jumps: at the start and end of daylight saving
// time, when the clock is set, and when the machine sleeps. docs/reliability.md has the table.

using namespace forms;
using headless::RecordedSound;

namespace {

constexpr std::int64_t hour = 3600;
constexpr std::int64_t minute = 60;

class ClockChangesTest : public testing_support::WholeProgram {
  protected:
    // Starts the program on Friday, 14 May 2004, at this time, with the cuckoo on. Counts how often
    // the ticks see each second.
    void StartAt(int hours, int minutes, int seconds) {
        SetNow(2004, 5, 14, hours, minutes, seconds);
        settings.values[{"Options", "StartCookoo"}] = "1";
        sound.defaultLength = 0;
        stage->improvise.box = [this](const BoxRequest& box) {
            rung.push_back({box.caption, clock.Now()});
            return BoxResult::Ok;
        };
        StartQuietly();
        const auto tick = Main().tmrNow.Tick;
        Main().tmrNow.Tick = [this, tick] {
            ++seen[clock.Now().seconds];
            tick();
        };
    }

    void CloseEditor(const std::string& title) {
        user->Restore(Editor(title));
        user->CloseBox(Editor(title));
    }

    int TimesSeen(int hours, int minutes, int seconds) {
        const auto moment = base::Combine(clock.Now().DateOnly(),
                                          base::DateTime::FromTime(hours, minutes, seconds));
        const auto found = seen.find(moment.seconds);
        return found == seen.end() ? 0 : found->second;
    }

    int Strikes() const { return sound.Count(RecordedSound::Kind::ToEnd); }

    std::map<std::int64_t, int> seen;  // by second of the wall clock
    struct Ring {
        std::string caption;
        base::DateTime at;
    };
    std::vector<Ring> rung;
};

}  // namespace

// The system moves the local time by an hour without a message that the clock was set. The fraction
// of the second does not change.
TEST_F(ClockChangesTest, AlarmsInTheHourThatSummerTimeSkipsDoNotRing) {
    StartAt(1, 59, 50);
    SetFridaysAlarm(0, base::DateTime::FromTime(2, 30, 0), "message");
    Advance(9000);  // to 1:59:59 and a fraction of a second
    clock.MoveWallClock(hour);
    Advance(2 * hour * 1000);
    EXPECT_TRUE(rung.empty());
    EXPECT_EQ(TimesSeen(2, 30, 0), 0);
    EXPECT_EQ(TimesSeen(3, 0, 0), 1);
    EXPECT_EQ(Strikes(), 3 + 4);  // three and four o'clock; two o'clock is skipped
    for (const auto& [second, times] : seen) {
        EXPECT_EQ(times, 1) << base::FormatTime24(base::DateTime{second});
    }
}

TEST_F(ClockChangesTest, AlarmsInTheRepeatedHourRingTwice) {
    PutNote(Note("Dentist").WithAlarmAt(1, 15));
    StartAt(1, 0, 5);
    SetFridaysAlarm(0, base::DateTime::FromTime(1, 30, 0), "message");
    Advance((59 * minute + 54) * 1000);  // to 1:59:59 and a fraction of a second
    ASSERT_EQ(clock.Now().TimeOnly(), base::DateTime::FromTime(2, 0, 0));
    clock.MoveWallClock(-hour);
    Advance((hour + 30) * 1000);
    // An alarm that is due at a time of day rings each time the clock shows that time.
    EXPECT_EQ(rung.size(), 2U);
    EXPECT_EQ(Strikes(), 1 + 1 + 2);
    EXPECT_EQ(TimesSeen(1, 30, 0), 2);
    // The alarm of an editor is turned off when it has rung.
    EXPECT_EQ(Editor("Dentist").cmdAlarm.caption(), "&Set Alarm");
}

TEST_F(ClockChangesTest, AClosedDisplayDoesNotComeUpAgainInTheRepeatedHour) {
    PutNote(Note("Dentist").WithAlarmAt(1, 15));
    StartAt(1, 14, 50);
    CloseEditor("Dentist");
    Advance(20'000);
    auto* display = FindWindow<frmDisplayNote>("Dentist");
    ASSERT_NE(display, nullptr);
    stage->improvise.box = [](const BoxRequest&) { return BoxResult::No; };
    user->CloseBox(*display);
    clock.MoveWallClock(-hour);
    Advance(2 * hour * 1000);
    EXPECT_EQ(CountVisible<frmDisplayNote>(), 0);
}

TEST_F(ClockChangesTest, AnOpenDisplayDoesNotComeUpAgainInTheRepeatedHour) {
    PutNote(Note("Dentist").WithAlarmAt(1, 15));
    StartAt(1, 14, 50);
    CloseEditor("Dentist");
    Advance(20'000);
    ASSERT_EQ(CountVisible<frmDisplayNote>(), 1);
    clock.MoveWallClock(-hour);
    Advance(2 * hour * 1000);
    EXPECT_EQ(CountVisible<frmDisplayNote>(), 1);
    stage->improvise.box = [](const BoxRequest&) { return BoxResult::No; };
    user->CloseBox(*FindWindow<frmDisplayNote>("Dentist"));
    clock.Jump(-3 * hour);
    Advance(4 * hour * 1000);
    EXPECT_EQ(CountVisible<frmDisplayNote>(), 0);
}

TEST_F(ClockChangesTest, AlarmsThatASetClockSkipsDoNotRing) {
    StartAt(9, 0, 0);
    SetFridaysAlarm(0, base::DateTime::FromTime(9, 30, 0), "message");
    Advance(5000);
    clock.Jump(hour);
    Advance(2 * hour * 1000);
    EXPECT_TRUE(rung.empty());
    EXPECT_EQ(Strikes(), 10 + 11);  // nine o'clock is skipped, noon is silent
    for (const auto& [second, times] : seen) {
        EXPECT_EQ(times, 1) << base::FormatTime24(base::DateTime{second});
    }
}

TEST_F(ClockChangesTest, AlarmsRingAgainAfterTheClockIsSetBack) {
    StartAt(9, 29, 50);
    SetFridaysAlarm(0, base::DateTime::FromTime(9, 30, 0), "message");
    Advance(20'000);
    clock.Jump(-minute);
    Advance(2 * minute * 1000);
    EXPECT_EQ(rung.size(), 2U);
    EXPECT_EQ(TimesSeen(9, 30, 0), 2);
    EXPECT_EQ(TimesSeen(9, 30, 59), 1);
}

// Programs that synchronize the clock move it by fractions of a second.
TEST_F(ClockChangesTest, ACorrectionOfLessThanASecondNeitherMissesNorDoublesASecond) {
    for (const bool isTold : {true, false}) {
        for (int millisecond = 0; millisecond < 1000; millisecond += 50) {
            for (const int correction : {-900, -600, -400, -100, -10, 10, 100, 400}) {
                SCOPED_TRACE("at " + std::to_string(millisecond) + " by " +
                             std::to_string(correction) + (isTold ? ", told" : ""));
                Restart();
                seen.clear();
                rung.clear();
                StartAt(8, 59, 50);
                SetFridaysAlarm(0, base::DateTime::FromTime(9, 0, 0), "message");
                Advance(9000 + millisecond);
                if (isTold) {
                    clock.Jump(0, correction);
                } else {
                    clock.MoveWallClock(0, correction);
                }
                Advance(10'000);
                EXPECT_EQ(TimesSeen(8, 59, 58), 1);
                EXPECT_EQ(TimesSeen(8, 59, 59), 1);
                EXPECT_EQ(TimesSeen(9, 0, 0), 1);
                EXPECT_EQ(TimesSeen(9, 0, 1), 1);
                EXPECT_EQ(rung.size(), 1U);
                EXPECT_EQ(TimesSeen(9, 0, 5), 1);
            }
        }
    }
}

TEST_F(ClockChangesTest, AlarmsDuringSleepDoNotRingAndTheClockGoesOnAtOnce) {
    PutNote(Note("Dentist").WithAlarmAt(10, 30));
    StartAt(9, 0, 0);
    SetFridaysAlarm(0, base::DateTime::FromTime(10, 0, 0), "message");
    CloseEditor("Dentist");
    Advance(5000);
    clock.Suspend(3 * hour);
    EXPECT_TRUE(rung.empty());
    EXPECT_EQ(CountVisible<frmDisplayNote>(), 0);
    SetFridaysAlarm(0, base::DateTime::FromTime(12, 1, 0), "message");
    Advance(2 * minute * 1000);
    EXPECT_EQ(rung.size(), 1U);
    for (const auto& [second, times] : seen) {
        EXPECT_EQ(times, 1) << base::FormatTime24(base::DateTime{second});
    }
}

TEST_F(ClockChangesTest, TheCountdownUsesElapsedTimeAndTheStopWatchTheWallClock) {
    StartAt(9, 0, 0);
    frmTimer& timer = Shown<frmTimer>();
    user->Type(timer.txtMinutes, "2");
    user->Click(timer.cmdStart);
    frmStopWatch& watch = Shown<frmStopWatch>();
    user->Click(watch.cmdStart);
    const auto left = [&timer] { return timer.lblTime.caption(); };
    const auto elapsed = [&watch] { return watch.lblTime.caption(); };
    Advance(10'000);
    EXPECT_EQ(left(), "Time Left:\r\n1 Minutes\r\n50 Seconds");
    EXPECT_EQ(elapsed(), "00:00:10");
    clock.Jump(-hour);
    Advance(10'000);
    EXPECT_EQ(left(), "Time Left:\r\n1 Minutes\r\n40 Seconds");
    EXPECT_EQ(elapsed(), "00:59:40");
    clock.Jump(2 * hour);
    Advance(10'000);
    EXPECT_EQ(left(), "Time Left:\r\n1 Minutes\r\n30 Seconds");
    EXPECT_EQ(elapsed(), "01:00:30");
}
