#include "forms/Gestures.h"
#include "tests/notes/RecoveryProgram.h"

// Unsaved text survives when the program is killed: the next start shows it again.

namespace {

using forms::BoxResult;
using RecoveryTest = testing_support::RecoveryProgram;

TEST_F(RecoveryTest, TypingIsKeptWithinTwoSeconds) {
    EditSaved(Note("Dentist", "old"), "new \"quoted\"\r\nlines");
    KillAndStartAgain();
    frmNote& note = Editor("Dentist");
    EXPECT_EQ(note.txtNote.text(), "new \"quoted\"\r\nlines");
    EXPECT_EQ(note.windowState(), forms::WindowState::Normal);
    EXPECT_EQ(Saved("Dentist").Text, "old");
    EXPECT_EQ(runtime->LoadedForms().size(), 1U);
}

TEST_F(RecoveryTest, ANoteThatWasNeverSavedComesBack) {
    MakeNote("Dentist", "typed");
    Advance(2000);
    KillAndStartAgain();
    frmNote& note = Editor("Dentist");
    EXPECT_EQ(note.txtNote.text(), "typed");
    EXPECT_FALSE(FileOf("Dentist").has_value());
    user->CloseBox(note);
    EXPECT_EQ(Saved("Dentist").Text, "typed");
    EXPECT_EQ(FilesOfNotes(), Names{"Dentist.txt"});
}

TEST_F(RecoveryTest, ASecondKillLosesNothing) {
    MakeNote("Dentist", "typed");
    Advance(2000);
    KillAndStartAgain();
    KillAndStartAgain();
    EXPECT_EQ(Editor("Dentist").txtNote.text(), "typed");
}

TEST_F(RecoveryTest, TheUserCanDiscardARecoveredTextLikeAnyEdit) {
    EditSaved(Note("Dentist", "old"), "new");
    KillAndStartAgain();
    StandardCode::Shared().ControlPanelMode = true;
    ExpectSaveQuestion(BoxResult::No);
    user->CloseBox(Editor("Dentist"));
    EXPECT_EQ(Saved("Dentist").Text, "old");
    EXPECT_EQ(FilesOfNotes(), Names{"Dentist.txt"});
    KillAndStartAgain();
    EXPECT_EQ(Editor("Dentist").txtNote.text(), "old");
}

TEST_F(RecoveryTest, ACopyThatEqualsTheSavedNoteIsNoEdit) {
    MakeNote("Dentist", "typed");
    Advance(2000);
    PutNote(Note("Dentist", "typed"));
    KillAndStartAgain();
    EXPECT_EQ(FilesOfNotes(), Names{"Dentist.txt"});
    frmNote& note = Editor("Dentist");
    EXPECT_EQ(note.windowState(), forms::WindowState::Minimized);
    user->Restore(note);
    StandardCode::Shared().ControlPanelMode = true;
    user->CloseBox(note);
    EXPECT_FALSE(testing_support::IsNoteOpen("Dentist"));
}

TEST_F(RecoveryTest, UnsavedAlarmColorAndFontSizeComeBackAndTheAlarmRings) {
    PutNote(Note("Dentist"));
    Start(StandardCode::ReadNotes);
    frmNote& note = Editor("Dentist");
    user->Restore(note);
    user->Pick(note.dtTime, base::DateTime::FromTime(9, 1, 0));
    user->Click(note.chkAudioAlarm);
    user->Click(note.cmdAlarm);
    forms::gestures::Choose(note.mnuBlue);
    forms::gestures::Choose(note.mnu16);
    Advance(2000);
    KillAndStartAgain();
    frmNote& again = Editor("Dentist");
    EXPECT_EQ(again.cmdAlarm.caption(), "&Turn Off Alarm");
    EXPECT_EQ(again.lblClock.caption(), "9:01:00 AM");
    EXPECT_TRUE(again.mnuBlue.checked());
    EXPECT_TRUE(again.mnu16.checked());
    EXPECT_EQ(again.chkAudioAlarm.value(), 1);
    EXPECT_EQ(Saved("Dentist").AlarmState, "0");
    ExpectEditorAlarm();
    Advance(60'000);
}

TEST_F(RecoveryTest, EachUnsavedColorComesBack) {
    const std::size_t colors = StandardCode::noteColors.size();
    PutNote(Note("Dentist").InColor(static_cast<int>(colors)));
    Start(StandardCode::ReadNotes);
    for (std::size_t color = 0; color < colors; ++color) {
        forms::gestures::Choose(*Editor("Dentist").mnuColor.entries[color]);
        Advance(3000);
        KillAndStartAgain();
        EXPECT_TRUE(Editor("Dentist").mnuColor.entries[color]->checked()) << color;
        EXPECT_EQ(Editor("Dentist").txtNote.backColor(), StandardCode::noteColors[color].back)
            << color;
    }
}

TEST_F(RecoveryTest, AnAlarmThatWasTurnedOffButNotSavedStaysOff) {
    PutNote(Note("Dentist").WithAlarmAt(9, 1));
    Start(StandardCode::ReadNotes);
    user->Restore(Editor("Dentist"));
    user->Click(Editor("Dentist").cmdAlarm);
    Advance(2000);
    KillAndStartAgain();
    EXPECT_EQ(Editor("Dentist").cmdAlarm.caption(), "&Set Alarm");
    Advance(60'000);
    EXPECT_EQ(Editor("Dentist").fraAlarm.caption(), " Schedule Alarm ");
}

TEST_F(RecoveryTest, NotesWhoseTitlesAreNoFileNamesAreKept) {
    MakeNote("What? <a|b> * \"c\":", "typed");
    MakeNote("con", "device");
    MakeNote(std::string(240, 'x'), "long");
    MakeNote("Übung", "text äöü \xE2\x98\x83");
    Advance(2000);
    KillAndStartAgain();
    EXPECT_EQ(Editor("What? <a|b> * \"c\":").txtNote.text(), "typed");
    EXPECT_EQ(Editor("con").txtNote.text(), "device");
    EXPECT_EQ(Editor(std::string(240, 'x')).txtNote.text(), "long");
    EXPECT_EQ(Editor("Übung").txtNote.text(), "text äöü \xE2\x98\x83");
}

TEST_F(RecoveryTest, FilesThatAreNoCopiesAreIgnored) {
    MakeNote("Dentist", "typed");
    Advance(2000);
    const std::string whole = files.Peek(CopyPath()).value_or("");
    const std::size_t titleEnd = whole.find("Dentist") + std::string("Dentist").size();
    for (std::size_t length = 0; length < titleEnd + 2; ++length) {
        files.PutFile(folder + "\\~Cut " + std::to_string(length) + ".recovery",
                      whole.substr(0, length));
    }
    KillAndStartAgain();
    EXPECT_EQ(runtime->LoadedForms().size(), 1U);
    EXPECT_EQ(Editor("Dentist").txtNote.text(), "typed");
}

TEST_F(RecoveryTest, ATextComesBackBesideMoreNotesThanSlots) {
    EditSaved(Note("Zebra", "saved"), "typed");
    for (int number = 1; number <= StandardCode::maximumNotes; ++number) {
        PutNote(Note("Note " + std::to_string(1000 + number)));
    }
    KillAndStartAgain();
    Advance(200);
    EXPECT_EQ(StandardCode::Notes().OpenNotes().size(), StandardCode::maximumNotes + 1U);
    EXPECT_EQ(Editor("Zebra").txtNote.text(), "typed");
}

}  // namespace
