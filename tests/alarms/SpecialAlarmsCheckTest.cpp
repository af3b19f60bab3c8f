#include "tests/support/WholeProgram.h"

using namespace forms;
using headless::RecordedSound;

namespace {

// The program starts on Friday, 14 May 2004, 9:00:00. Its main window is open at 9:00:01.
class SpecialAlarmsCheckTest : public testing_support::WholeProgram {};

}  // namespace

TEST_F(SpecialAlarmsCheckTest, ASpecialAlarmShowsItsMessageAndSounds) {
    StartQuietly();
    SetFridaysAlarm(2, base::DateTime::FromTime(9, 5, 0), "Pay the rent");
    ExpectDailyAlarm("Pay the rent",
                     [this] { EXPECT_EQ(sound.PlayingPath(), "C:\\Jotwright\\Alarm buzzer.wav"); });
    AdvanceTo(9, 5, 2);
    EXPECT_FALSE(sound.IsPlaying());
}

TEST_F(SpecialAlarmsCheckTest, ASpecialAlarmWithoutAMessageSaysSo) {
    StartQuietly();
    SetFridaysAlarm(0, base::DateTime::FromTime(9, 5, 0), "");
    ExpectDailyAlarm("No Special Message");
    AdvanceTo(9, 5, 2);
    EXPECT_EQ(StandardCode::Shared().SpecialAlarmMessage[0], "No Special Message");
}

TEST_F(SpecialAlarmsCheckTest, TheClockDoesNotTickWhileASpecialAlarmIsShown) {
    StartQuietly();
    SetFridaysAlarm(0, base::DateTime::FromTime(9, 5, 0), "first");
    SetFridaysAlarm(1, base::DateTime::FromTime(9, 5, 0), "second");
    SetFridaysAlarm(2, base::DateTime::FromTime(9, 5, 10), "missed");
    ExpectDailyAlarm("first", [this] { Advance(30'000); });
    ExpectDailyAlarm("second");
    AdvanceTo(9, 6, 0);
}

TEST_F(SpecialAlarmsCheckTest, ASpecialAlarmIsNotMissedIfTheMainClockWasSwitchedOnLast) {
    SetNow(2004, 5, 14, 14, 59, 50);
    StartQuietly();
    user->Click(Main().cmdCookoo);
    Start([this] {
        Main().tmrNow.enabled = false;
        Main().tmrNow.enabled = true;
    });
    SetFridaysAlarm(0, base::DateTime::FromTime(15, 0, 15), "now");
    ExpectDailyAlarm("now");
    AdvanceTo(15, 0, 40);
    EXPECT_EQ(sound.Count(RecordedSound::Kind::ToEnd), 0);
}
