#include "notes/frmViewNotes.h"
#include "tests/support/WholeProgram.h"

using namespace forms;

namespace {

// The control panel beside the main window and the alarm displays.
class ControlPanelTest : public testing_support::WholeProgram {
  protected:
    frmViewNotes& Panel() { return Default<frmViewNotes>(); }
};

}  // namespace

TEST_F(ControlPanelTest, ErasingOneOfAHundredNotesAllowsNewOnesInTheMainWindow) {
    for (int number = 1; number <= 100; ++number) {
        PutNote(Note("Note " + std::to_string(1000 + number)));
    }
    ExpectMaximumReached();
    StartQuietly();
    user->Click(Main().cmdViewNotes);
    EXPECT_FALSE(Main().cmdMakeNote.enabled());
    EXPECT_FALSE(Main().txtNoteTitle.enabled());
    EXPECT_FALSE(Panel().cmdNew.enabled());
    user->Select(Panel().lvwNotes, 0);
    ExpectDeletingNoteQuestion("NOTE 1001", BoxResult::Yes);
    user->Click(Panel().cmdRemove);
    EXPECT_TRUE(Main().cmdMakeNote.enabled());
    EXPECT_TRUE(Main().txtNoteTitle.enabled());
    EXPECT_TRUE(Panel().cmdNew.enabled());
    EXPECT_EQ(Panel().lblTotalNotes.caption(), "Total Notes: 99");
}

TEST_F(ControlPanelTest, ErasingOneOfAHundredNotesInItsEditorAllowsNewOnes) {
    for (int number = 1; number <= 100; ++number) {
        PutNote(Note("Note " + std::to_string(1000 + number)));
    }
    stage->improvise.box = [](const BoxRequest& box) {
        return box.options.buttons == BoxButtons::YesNo ? BoxResult::Yes : BoxResult::Ok;
    };
    StartQuietly();
    EXPECT_FALSE(Main().cmdMakeNote.enabled());
    user->Restore(Editor("Note 1001"));
    user->Click(Editor("Note 1001").tlbMain, "Erase");
    EXPECT_EQ(StandardCode::Shared().NoteCount, 99);
    EXPECT_TRUE(Main().cmdMakeNote.enabled());
    EXPECT_TRUE(Main().txtNoteTitle.enabled());
}

TEST_F(ControlPanelTest, TheTextOfAnEditorWhoseNoteWasErasedOutlivesAKill) {
    PutNote(Note("Dentist"));
    StartQuietly();
    user->Restore(Editor("Dentist"));
    user->Click(Main().cmdViewNotes);
    user->Select(Panel().lvwNotes, 0);
    ExpectDeletingNoteQuestion("DENTIST", BoxResult::Yes);
    user->Click(Panel().cmdRemove);
    EXPECT_FALSE(FileOf("Dentist").has_value());
    Advance(2000);
    Restart();
    StartQuietly();
    EXPECT_EQ(Editor("Dentist").txtNote.text(), "text");
}

TEST_F(ControlPanelTest, ANoteErasedInItsAlarmDisplayLeavesTheArray) {
    PutNote(Note("Dentist").WithAlarmAt(9, 30));
    StartQuietly();
    // Closing without a question leaves the panel loaded but hidden.
    user->Restore(Editor("Dentist"));
    user->CloseBox(Editor("Dentist"));
    ASSERT_NE(LoadedDefault<frmViewNotes>(), nullptr);
    Advance(30 * 60'000);
    auto* display = FindWindow<frmDisplayNote>("Dentist");
    ASSERT_NE(display, nullptr);
    ExpectEraseNoteQuestion(BoxResult::Yes);
    user->CloseBox(*display);
    EXPECT_EQ(StandardCode::Shared().NoteCount, 0);
    EXPECT_EQ(StandardCode::Shared().NotesArray[1].Title, "");
    EXPECT_EQ(LoadedDefault<frmViewNotes>(), nullptr);
}
