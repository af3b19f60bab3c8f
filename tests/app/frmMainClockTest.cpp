#include "alarms/SpecialAlarmsFile.h"
#include "notes/NoteStore.h"
#include "tests/support/WholeProgram.h"

using namespace forms;
using headless::RecordedSound;

namespace {

// The program starts on Friday, 14 May 2004, 9:00:00. Its main window is open at 9:00:01.
class frmMainClockTest : public testing_support::WholeProgram {
  protected:
    // Closes all editors, which saves their notes.
    void CloseEditors() {
        for (;;) {
            frmNote* open = nullptr;
            for (const auto& form : runtime->LoadedForms()) {
                auto* note = dynamic_cast<frmNote*>(form.get());
                if (note != nullptr && note->IsVisible()) {
                    open = note;
                }
            }
            if (open == nullptr) {
                return;
            }
            user->CloseBox(*open);
        }
    }

    void AdvanceTo(int hour, int minute, int second) {
        const auto target = base::Combine(Today(), base::DateTime::FromTime(hour, minute, second));
        while (Now() < target) {
            Advance(100);
        }
    }

    void SetSpecialAlarm(std::size_t row, const std::string& day, base::DateTime time,
                         const std::string& message) {
        SpecialAlarmsFile::StoreSharedRow(row, {day, time, message, 1});
    }
};

}  // namespace

TEST_F(frmMainClockTest, ASavedNoteIsDisplayedOnceInItsSecond) {
    PutNote(Note("Dentist").WithAlarmAt(9, 30).InColor(2));
    StartQuietly();
    CloseEditors();
    AdvanceTo(9, 29, 59);
    Advance(999);
    EXPECT_EQ(CountVisible<frmDisplayNote>(), 0);
    Advance(1000);
    auto* display = FindWindow<frmDisplayNote>("Dentist");
    ASSERT_NE(display, nullptr);
    EXPECT_EQ(display->lblNoteText.backColor(), (Color{255, 128, 128}));
    Advance(5000);
    EXPECT_EQ(CountVisible<frmDisplayNote>(), 1);
    EXPECT_TRUE(sound.log.empty());
}

TEST_F(frmMainClockTest, ANoteInAFolderThatWasOutOfReachRingsWhenItIsBack) {
    PutNote(Note("Dentist").WithAlarmAt(9, 30));
    StartQuietly();
    CloseEditors();
    const std::string folder = testing_support::applicationFolder + "\\Notes";
    files.SetDenied(folder, true);
    ExpectNotesArrayError("Error Number: 70) - Permission denied");
    Start([] { StandardCode::LoadNotesArray(); });
    EXPECT_TRUE(StandardCode::Shared().NotesArray[1].Title.empty());
    files.SetDenied(folder, false);
    AdvanceTo(9, 30, 1);
    EXPECT_NE(FindWindow<frmDisplayNote>("Dentist"), nullptr);
}

TEST_F(frmMainClockTest, AnAlarmSetForNoonFiresOnTheFirstTickWithinThatSecond) {
    PutNote(Note("Noon").WithAlarmAt(12, 0));
    StartQuietly();
    CloseEditors();
    AdvanceTo(12, 0, 0);
    EXPECT_EQ(CountVisible<frmDisplayNote>(), 0);
    Advance(500);
    EXPECT_EQ(CountVisible<frmDisplayNote>(), 1);
    EXPECT_EQ(Now().TimeOnly(), base::DateTime::FromTime(12, 0, 0));
}

TEST_F(frmMainClockTest, AnAlarmInThePastNeverFires) {
    PutNote(Note("Past").WithAlarmAt(8, 59));
    PutNote(Note("Later").WithAlarmAt(9, 30));
    StartQuietly();
    CloseEditors();
    Advance(26 * 3600 * std::int64_t{1000});  // past the same time of the next day
    EXPECT_EQ(FindWindow<frmDisplayNote>("Past"), nullptr);
    EXPECT_NE(FindWindow<frmDisplayNote>("Later"), nullptr);
}

TEST_F(frmMainClockTest, AnotherDayDoesNotFire) {
    PutNote(Note("Tomorrow").WithAlarmAt(9, 30).On(base::DateTime::FromDate(2004, 5, 15)));
    StartQuietly();
    CloseEditors();
    AdvanceTo(9, 31, 0);
    EXPECT_EQ(CountVisible<frmDisplayNote>(), 0);
}

TEST_F(frmMainClockTest, OnlyTheOpenEditorOfANoteRings) {
    PutNote(Note("Dentist").WithAlarmAt(9, 30));
    StartQuietly();
    EXPECT_EQ(Editor("Dentist").windowState(), WindowState::Minimized);
    AdvanceTo(9, 30, 1);
    EXPECT_EQ(Editor("Dentist").windowState(), WindowState::Normal);
    EXPECT_EQ(Editor("Dentist").cmdAlarm.caption(), "&Set Alarm");
    EXPECT_EQ(CountVisible<frmDisplayNote>(), 0);
}

TEST_F(frmMainClockTest, TheSoundStartsOneSecondAfterTheDisplayOpened) {
    PutNote(Note("Dentist").WithAlarmAt(9, 30).WithSound());
    StartQuietly();
    CloseEditors();
    AdvanceTo(9, 30, 1);
    EXPECT_EQ(CountVisible<frmDisplayNote>(), 1);
    EXPECT_EQ(sound.Count(RecordedSound::Kind::Once), 0);
    EXPECT_TRUE(StandardCode::Shared().AlarmSounding);
    Advance(500);
    ASSERT_EQ(sound.Count(RecordedSound::Kind::Once), 1);
    EXPECT_EQ(sound.log.back().path, "C:\\Jotwright\\Alarm buzzer.wav");
}

TEST_F(frmMainClockTest, IfSeveralNotesAreDueOnlyTheLastDisplaySounds) {
    PutNote(Note("A").WithAlarmAt(9, 30).WithSound());
    PutNote(Note("B").WithAlarmAt(9, 30).WithSound());
    StartQuietly();
    CloseEditors();
    AdvanceTo(9, 30, 3);
    EXPECT_EQ(CountVisible<frmDisplayNote>(), 2);
    EXPECT_EQ(sound.Count(RecordedSound::Kind::Once), 1);
}

TEST_F(frmMainClockTest, TheLastDisplaySoundsEvenIfOnlyAnotherNoteHasAnAudioAlarm) {
    PutNote(Note("A").WithAlarmAt(9, 30).WithSound());
    PutNote(Note("B").WithAlarmAt(9, 30));
    StartQuietly();
    CloseEditors();
    AdvanceTo(9, 30, 1);
    auto* first = FindWindow<frmDisplayNote>("A");
    auto* last = FindWindow<frmDisplayNote>("B");
    ASSERT_NE(first, nullptr);
    ASSERT_NE(last, nullptr);
    EXPECT_FALSE(first->tmrSoundAlarm.enabled());
    EXPECT_TRUE(last->tmrSoundAlarm.enabled());
    Advance(2000);
    EXPECT_EQ(sound.Count(RecordedSound::Kind::Once), 1);
}

TEST_F(frmMainClockTest, AWeeklyAlarmInTheSameSecondKeepsTheDisplaySilent) {
    PutNote(Note("Dentist").WithAlarmAt(9, 30).WithSound());
    StartQuietly();
    CloseEditors();
    SetSpecialAlarm(0, "Friday", base::DateTime::FromTime(9, 30, 0), "now");
    ExpectDailyAlarm("now", [this] { EXPECT_EQ(CountVisible<frmDisplayNote>(), 1); });
    AdvanceTo(9, 30, 5);
    EXPECT_EQ(sound.Count(RecordedSound::Kind::Once), 0);
    EXPECT_EQ(sound.Count(RecordedSound::Kind::Loop), 1);
}

TEST_F(frmMainClockTest, TheCheckEndsAtTheFirstNoteWithoutATitle) {
    PutNote(Note("A").WithAlarmAt(9, 30));
    PutNote(Note("C").WithAlarmAt(9, 30));
    StartQuietly();
    CloseEditors();
    PutNoteAs("B.txt", Note("", "").WithAlarmAt(9, 30));
    Start(StandardCode::LoadNotesArray);
    AdvanceTo(9, 30, 2);
    EXPECT_NE(FindWindow<frmDisplayNote>("A"), nullptr);
    EXPECT_EQ(CountVisible<frmDisplayNote>(), 1);
}

TEST_F(frmMainClockTest, TheArrayFollowsTheAnswerAboutADisplayedNote) {
    PutNote(Note("A").WithAlarmAt(9, 30));
    PutNote(Note("B").WithAlarmAt(9, 30));
    StartQuietly();
    CloseEditors();
    AdvanceTo(9, 30, 1);
    for (const auto answer : {BoxResult::No, BoxResult::Yes}) {
        // Closing an editor leaves the control panel loaded.
        user->CloseBox(MakeNote(answer == BoxResult::No ? "Y" : "Z"));
        auto* display = FindWindow<frmDisplayNote>(answer == BoxResult::No ? "A" : "B");
        ASSERT_NE(display, nullptr);
        ExpectEraseNoteQuestion(answer);
        user->CloseBox(*display);
        EXPECT_EQ(StandardCode::Shared().NotesArray[1].AlarmState, "0");
        EXPECT_EQ(StandardCode::Shared().NoteCount, 3);
    }
    EXPECT_EQ(StandardCode::Shared().NotesArray[2].Title, "Y");
}

TEST_F(frmMainClockTest, ALoopingSoundKeepsFurtherDisplaysSilent) {
    settings.values[{"Options", "NoteLoops"}] = "1";
    PutNote(Note("A").WithAlarmAt(9, 30).WithSound());
    PutNote(Note("B").WithAlarmAt(9, 30, 10).WithSound());
    StartQuietly();
    CloseEditors();
    ExpectDisplayAlarm([this] {
        Advance(20'000);
        EXPECT_EQ(CountVisible<frmDisplayNote>(), 2);
        EXPECT_EQ(sound.Count(RecordedSound::Kind::Loop), 1);
    });
    AdvanceTo(9, 30, 2);
    EXPECT_EQ(sound.Count(RecordedSound::Kind::Stop), 1);
    Advance(5000);
    EXPECT_EQ(sound.Count(RecordedSound::Kind::Loop), 1);
    EXPECT_FALSE(StandardCode::Shared().AlarmSounding);
}

TEST_F(frmMainClockTest, ASpecialAlarmShowsItsMessageAndSounds) {
    StartQuietly();
    SetSpecialAlarm(2, "Friday", base::DateTime::FromTime(9, 5, 0), "Pay the rent");
    ExpectDailyAlarm("Pay the rent",
                     [this] { EXPECT_EQ(sound.PlayingPath(), "C:\\Jotwright\\Alarm buzzer.wav"); });
    AdvanceTo(9, 5, 2);
    EXPECT_FALSE(sound.IsPlaying());
}

TEST_F(frmMainClockTest, ASpecialAlarmWithoutAMessageSaysSo) {
    StartQuietly();
    SetSpecialAlarm(0, "Friday", base::DateTime::FromTime(9, 5, 0), "");
    ExpectDailyAlarm("No Special Message");
    AdvanceTo(9, 5, 2);
    EXPECT_EQ(StandardCode::Shared().SpecialAlarmMessage[0], "No Special Message");
}

TEST_F(frmMainClockTest, TheTickIsBlockedWhileASpecialAlarmWaits) {
    StartQuietly();
    SetSpecialAlarm(0, "Friday", base::DateTime::FromTime(9, 5, 0), "first");
    SetSpecialAlarm(1, "Friday", base::DateTime::FromTime(9, 5, 0), "second");
    SetSpecialAlarm(2, "Friday", base::DateTime::FromTime(9, 5, 10), "missed");
    ExpectDailyAlarm("first", [this] { Advance(30'000); });
    ExpectDailyAlarm("second");
    AdvanceTo(9, 6, 0);
}

TEST_F(frmMainClockTest, TheCuckooIsSwitchedOnAndOff) {
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

TEST_F(frmMainClockTest, TheCuckooStartsWithTheProgram) {
    settings.values[{"Options", "StartCookoo"}] = "1";
    StartQuietly();
    EXPECT_EQ(Main().cmdCookoo.caption(), "Stop CooKoo &Clock");
    EXPECT_EQ(Main().cmdCookoo.toolTip(), "Stop the Cookoo Clock");
    EXPECT_TRUE(Main().lblCooKoo.visible);
    EXPECT_EQ(StandardCode::Shared().StartCookooFlag, 1);
}

TEST_F(frmMainClockTest, TheCuckooStrikesTheHourFifteenSecondsLate) {
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

TEST_F(frmMainClockTest, NoonIsSilentAndMidnightAndElevenAtNightStrikeTwelve) {
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

TEST_F(frmMainClockTest, ALateTickMissesTheHour) {
    SetNow(2004, 5, 14, 13, 59, 50);
    StartQuietly();
    user->Click(Main().cmdCookoo);
    AdvanceTo(14, 0, 14);
    Advance(600);
    clock.Pass(1500);  // the handler is busy for the whole second
    Advance(3000);
    EXPECT_EQ(sound.Count(RecordedSound::Kind::ToEnd), 0);
}

TEST_F(frmMainClockTest, TheCuckooIsSilentWhileAlarmSoundingIsSet) {
    SetNow(2004, 5, 14, 14, 59, 50);
    StartQuietly();
    user->Click(Main().cmdCookoo);
    Main().tmrNow.Tick = [] { StandardCode::Shared().AlarmSounding = true; };
    AdvanceTo(15, 0, 40);
    EXPECT_EQ(sound.Count(RecordedSound::Kind::ToEnd), 0);
}

TEST_F(frmMainClockTest, TheCuckooIsSilentInTheSecondOfASpecialAlarm) {
    SetNow(2004, 5, 14, 14, 59, 50);
    StartQuietly();
    user->Click(Main().cmdCookoo);
    SetSpecialAlarm(0, "Friday", base::DateTime::FromTime(15, 0, 15), "now");
    ExpectDailyAlarm("now");
    AdvanceTo(15, 0, 40);
    EXPECT_EQ(sound.Count(RecordedSound::Kind::ToEnd), 0);
}

TEST_F(frmMainClockTest, TheCuckooIsSilentInTheSecondOfANotesSound) {
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
TEST_F(frmMainClockTest, TheMainClockTicksBeforeTheCuckooAlsoAfterABox) {
    for (int held = 100; held <= 3000; held += 100) {
        SetNow(2004, 5, 14, 14, 59, 40);
        PutNote(Note("Dentist").WithAlarmAt(15, 0, 15).WithSound());
        settings.values[{"Options", "StartCookoo"}] = "1";
        StartQuietly();
        CloseEditors();
        SetSpecialAlarm(0, "Friday", base::DateTime::FromTime(14, 59, 50), "now");
        ExpectDailyAlarm("now", [this, held] { Advance(held); });
        AdvanceTo(15, 0, 40);
        EXPECT_EQ(sound.Count(RecordedSound::Kind::ToEnd), 0) << held;
        EXPECT_EQ(sound.Count(RecordedSound::Kind::Once), 1) << held;
        sound.log.clear();
        Restart();
    }
}

TEST_F(frmMainClockTest, ASpecialAlarmIsNotMissedIfTheMainClockWasSwitchedOnLast) {
    SetNow(2004, 5, 14, 14, 59, 50);
    StartQuietly();
    user->Click(Main().cmdCookoo);
    Start([this] {
        Main().tmrNow.enabled = false;
        Main().tmrNow.enabled = true;
    });
    SetSpecialAlarm(0, "Friday", base::DateTime::FromTime(15, 0, 15), "now");
    ExpectDailyAlarm("now");
    AdvanceTo(15, 0, 40);
    EXPECT_EQ(sound.Count(RecordedSound::Kind::ToEnd), 0);
}

TEST_F(frmMainClockTest, TheCuckooIsSilentWhileASpecialAlarmWaits) {
    SetNow(2004, 5, 14, 14, 59, 50);
    StartQuietly();
    user->Click(Main().cmdCookoo);
    SetSpecialAlarm(0, "Friday", base::DateTime::FromTime(15, 0, 15), "now");
    ExpectDailyAlarm("now", [this] {
        clock.Jump(3600 - 10);
        Advance(20'000);  // past the next hour
        EXPECT_EQ(sound.PlayingPath(), "C:\\Jotwright\\Alarm buzzer.wav");
    });
    AdvanceTo(16, 0, 40);
    EXPECT_EQ(sound.Count(RecordedSound::Kind::ToEnd), 0);
    EXPECT_FALSE(StandardCode::Shared().AlarmSounding);
}

TEST_F(frmMainClockTest, TheCuckooIsSilentWhileAnEditorRings) {
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
