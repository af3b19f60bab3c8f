#include "notes/frmDisplayNote.h"
#include "tests/support/NoteProgram.h"

// A note that is edited while its alarm display is open.

namespace {

using forms::BoxResult;

class frmDisplayNoteEditedTest : public testing_support::NoteProgram {
  protected:
    void SetUp() override {
        NoteProgram::SetUp();
        PutNote(Note("Dentist", "old").WithAlarmAt(9, 30));
        Start([this] {
            StandardCode::LoadNotesArray();
            display = StandardCode::DisplayNote(1);
        });
    }

    frmNote& Edit() {
        Start([] {
            StandardCode::LoadNotesArray();
            StandardCode::OpenNote(1);
        });
        return Editor("Dentist");
    }

    static void Save(frmNote& note) { note.WriteNote(); }

    void CloseDisplay(BoxResult answer) {
        ExpectEraseNoteQuestion(answer);
        user->CloseBox(*display);
        EXPECT_FALSE(display->IsLoaded());
        display.reset();
    }

    std::shared_ptr<frmDisplayNote> display;
};

TEST_F(frmDisplayNoteEditedTest, KeepingTheNoteKeepsTheTextThatWasSavedMeanwhile) {
    frmNote& note = Edit();
    user->Type(note.txtNote, "new");
    stage->ExpectPopup("mnuPop", "mnuGreen");
    user->RightClick(note);
    Start([&note] { Save(note); });
    CloseDisplay(BoxResult::No);
    EXPECT_EQ(Saved("Dentist").Text, "new");
    EXPECT_EQ(Saved("Dentist").ColorIndex, 3);
    EXPECT_EQ(Saved("Dentist").AlarmState, "0");
    EXPECT_EQ(Saved("Dentist").AlarmTime, base::DateTime::FromTime(12, 0, 0));
}

TEST_F(frmDisplayNoteEditedTest, AnAlarmThatWasSetMeanwhileStaysSet) {
    frmNote& note = Edit();
    user->Click(note.cmdAlarm);
    user->Pick(note.dtTime, base::DateTime::FromTime(10, 0, 0));
    user->Click(note.cmdAlarm);
    Start([&note] { Save(note); });
    const auto before = FileOf("Dentist");
    CloseDisplay(BoxResult::No);
    EXPECT_EQ(FileOf("Dentist"), before);
    EXPECT_EQ(Saved("Dentist").AlarmState, "1");
    EXPECT_EQ(Saved("Dentist").AlarmTime, base::DateTime::FromTime(10, 0, 0));
}

TEST_F(frmDisplayNoteEditedTest, ATextTypedIntoTheDisplayLeavesTheNewAlarmSet) {
    frmNote& note = Edit();
    user->Click(note.cmdAlarm);
    user->Pick(note.dtTime, base::DateTime::FromTime(10, 0, 0));
    user->Click(note.cmdAlarm);
    Start([&note] { Save(note); });
    user->Type(display->lblNoteText, "of the display");
    CloseDisplay(BoxResult::No);
    EXPECT_EQ(Saved("Dentist").Text, "of the display");
    EXPECT_EQ(Saved("Dentist").AlarmState, "1");
    EXPECT_EQ(Saved("Dentist").AlarmTime, base::DateTime::FromTime(10, 0, 0));
}

TEST_F(frmDisplayNoteEditedTest, TextTypedIntoTheDisplayIsSavedAndTheTextOfTheEditorIsKept) {
    frmNote& note = Edit();
    user->Type(note.txtNote, "of the editor");
    Start([&note] { Save(note); });
    user->Type(display->lblNoteText, "of the display");
    CloseDisplay(BoxResult::No);
    EXPECT_EQ(Saved("Dentist").Text, "of the display");
    Advance(2000);
    RestartProgram();
    Start(StandardCode::ReadNotes);
    EXPECT_EQ(Editor("Dentist").txtNote.text(), "of the display");
    EXPECT_EQ(Editor("Dentist (recovered)").txtNote.text(), "of the editor");
}

TEST_F(frmDisplayNoteEditedTest, ErasingTheNoteLeavesTheTextOfTheEditorInACopy) {
    Edit();
    CloseDisplay(BoxResult::Yes);
    EXPECT_FALSE(FileOf("Dentist").has_value());
    Advance(2000);
    RestartProgram();
    Start(StandardCode::ReadNotes);
    EXPECT_EQ(Editor("Dentist").txtNote.text(), "old");
}

}  // namespace
