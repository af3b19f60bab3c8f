#include "tests/support/WholeProgram.h"

using namespace forms;
using headless::RecordedSound;

namespace {

// The program starts on Friday, 14 May 2004, 9:00:00. Its main window is open at 9:00:01.
class CuckooClockTest : public testing_support::WholeProgram {};

}  // namespace

TEST_F(CuckooClockTest, TheCuckooIsSwitchedOnAndOff) {
    StartQuietly();
    user->Click(Main().cmdCookoo);
    EXPECT_EQ(Main().cmdCookoo.caption(), "Stop CooKoo &Clock");
    EXPECT_EQ(Main().cmdCookoo.toolTip(), "Stop the Cookoo Clock");
    EXPECT_TRUE(Main().lblCooKoo.visible);
    EXPECT_TRUE(Main().tmrCooKoo.enabled);
    user->Click(Main().cmdCookoo);
    EXPECT_EQ(Main().cmdCookoo.caption(), "Start CooKoo &Clock");
    EXPECT_EQ(Main().cmdCookoo.toolTip(), "Start the Cookoo Clock");
    EXPECT_FALSE(Main().lblCooKoo.visible);
    EXPECT_FALSE(Main().tmrCooKoo.enabled);
}

TEST_F(CuckooClockTest, TheCuckooStartsWithTheProgram) {
    settings.values[{"Options", "StartCookoo"}] = "1";
    StartQuietly();
    EXPECT_EQ(Main().cmdCookoo.caption(), "Stop CooKoo &Clock");
    EXPECT_EQ(Main().cmdCookoo.toolTip(), "Stop the Cookoo Clock");
    EXPECT_TRUE(Main().lblCooKoo.visible);
    EXPECT_EQ(StandardCode::Shared().StartCookooFlag, 1);
}

TEST_F(CuckooClockTest, TheCuckooStrikesTheHourFifteenSecondsLate) {
    SetNow(2004, 5, 14, 14, 59, 50);
    StartQuietly();
    user->Click(Main().cmdCookoo);
    AdvanceTo(15, 0, 15);
    EXPECT_EQ(sound.Count(RecordedSound::Kind::ToEnd), 0);
    AdvanceTo(15, 0, 30);
    EXPECT_EQ(sound.Count(RecordedSound::Kind::ToEnd), 3);
    EXPECT_EQ(sound.log.front().path, "C:\\Jotwright\\Cuckoo clock.wav");
    EXPECT_TRUE(Main().tmrCooKoo.enabled);
}

TEST_F(CuckooClockTest, NoonIsSilentAndMidnightAndElevenAtNightStrikeTwelve) {
    SetNow(2004, 5, 14, 11, 59, 50);
    StartQuietly();
    user->Click(Main().cmdCookoo);
    AdvanceTo(12, 1, 0);
    EXPECT_EQ(sound.Count(RecordedSound::Kind::ToEnd), 0);
    clock.Jump(11 * 3600 - 70);
    AdvanceTo(23, 1, 0);
    EXPECT_EQ(sound.Count(RecordedSound::Kind::ToEnd), 12);
    clock.Jump(3600 - 70);
    Advance(60'000);
    EXPECT_EQ(sound.Count(RecordedSound::Kind::ToEnd), 24);
}

TEST_F(CuckooClockTest, ALateTickMissesTheHour) {
    SetNow(2004, 5, 14, 13, 59, 50);
    StartQuietly();
    user->Click(Main().cmdCookoo);
    AdvanceTo(14, 0, 14);
    Advance(600);
    clock.Pass(1500);  // the handler is busy for the whole second
    Advance(3000);
    EXPECT_EQ(sound.Count(RecordedSound::Kind::ToEnd), 0);
}

TEST_F(CuckooClockTest, TheCuckooIsSilentWhileAlarmSoundingIsSet) {
    SetNow(2004, 5, 14, 14, 59, 50);
    StartQuietly();
    user->Click(Main().cmdCookoo);
    Main().tmrNow.Tick = [] { StandardCode::Shared().AlarmSounding = true; };
    AdvanceTo(15, 0, 40);
    EXPECT_EQ(sound.Count(RecordedSound::Kind::ToEnd), 0);
}

TEST_F(CuckooClockTest, TheCuckooIsSilentInTheSecondOfASpecialAlarm) {
    SetNow(2004, 5, 14, 14, 59, 50);
    StartQuietly();
    user->Click(Main().cmdCookoo);
    SetFridaysAlarm(0, base::DateTime::FromTime(15, 0, 15), "now");
    ExpectDailyAlarm("now");
    AdvanceTo(15, 0, 40);
    EXPECT_EQ(sound.Count(RecordedSound::Kind::ToEnd), 0);
}

TEST_F(CuckooClockTest, TheCuckooIsSilentInTheSecondOfANotesSound) {
    SetNow(2004, 5, 14, 14, 59, 50);
    PutNote(Note("Dentist").WithAlarmAt(15, 0, 15).WithSound());
    StartQuietly();
    CloseEditors();
    user->Click(Main().cmdCookoo);
    AdvanceTo(15, 0, 40);
    EXPECT_EQ(sound.Count(RecordedSound::Kind::ToEnd), 0);
    EXPECT_EQ(sound.Count(RecordedSound::Kind::Once), 1);
}

// This is true no matter how long the box of an alarm has delayed the main clock before.
TEST_F(CuckooClockTest, TheMainClockTicksBeforeTheCuckooAlsoAfterABox) {
    for (int held = 100; held <= 3000; held += 100) {
        SetNow(2004, 5, 14, 14, 59, 40);
        PutNote(Note("Dentist").WithAlarmAt(15, 0, 15).WithSound());
        settings.values[{"Options", "StartCookoo"}] = "1";
        StartQuietly();
        CloseEditors();
        SetFridaysAlarm(0, base::DateTime::FromTime(14, 59, 50), "now");
        ExpectDailyAlarm("now", [this, held] { Advance(held); });
        AdvanceTo(15, 0, 40);
        EXPECT_EQ(sound.Count(RecordedSound::Kind::ToEnd), 0) << held;
        EXPECT_EQ(sound.Count(RecordedSound::Kind::Once), 1) << held;
        sound.log.clear();
        Restart();
    }
}

TEST_F(CuckooClockTest, TheCuckooIsSilentWhileASpecialAlarmWaits) {
    SetNow(2004, 5, 14, 14, 59, 50);
    StartQuietly();
    user->Click(Main().cmdCookoo);
    SetFridaysAlarm(0, base::DateTime::FromTime(15, 0, 15), "now");
    ExpectDailyAlarm("now", [this] {
        clock.Jump(3600 - 10);
        Advance(20'000);  // past the next hour
        EXPECT_EQ(sound.PlayingPath(), "C:\\Jotwright\\Alarm buzzer.wav");
    });
    AdvanceTo(16, 0, 40);
    EXPECT_EQ(sound.Count(RecordedSound::Kind::ToEnd), 0);
    EXPECT_FALSE(StandardCode::Shared().AlarmSounding);
}

TEST_F(CuckooClockTest, TheCuckooIsSilentWhileAnEditorRings) {
    SetNow(2004, 5, 14, 14, 59, 50);
    PutNote(Note("Dentist").WithAlarmAt(15, 0).WithSound());
    StartQuietly();
    user->Click(Main().cmdCookoo);
    ExpectEditorAlarm([this] {
        Advance(30'000);
        EXPECT_EQ(sound.PlayingPath(), "C:\\Jotwright\\Alarm buzzer.wav");
    });
    AdvanceTo(15, 0, 40);
    EXPECT_EQ(sound.Count(RecordedSound::Kind::ToEnd), 0);
    clock.Jump(3600 - 60);
    AdvanceTo(16, 0, 40);
    EXPECT_EQ(sound.Count(RecordedSound::Kind::ToEnd), 4);
}
