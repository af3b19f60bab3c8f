#include "notes/NoteStore.h"
#include "tests/support/WholeProgram.h"

using namespace forms;
using headless::RecordedSound;

namespace {

// The program starts on Friday, 14 May 2004, 9:00:00. Its main window is open at 9:00:01.
class frmMainClockTest : public testing_support::WholeProgram {};

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
    SetFridaysAlarm(0, base::DateTime::FromTime(9, 30, 0), "now");
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
