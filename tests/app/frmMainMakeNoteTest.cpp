#include "app/dlgMsgBox.h"
#include "app/frmMain.h"
#include "tests/support/WholeProgram.h"

// The title box and "Make Note".

using namespace forms;

namespace {

class frmMainMakeNoteTest : public testing_support::WholeProgram {
  protected:
    void ExpectRejection(const std::string& title, const std::string& picture,
                         const std::string& caption, const std::string& text) {
        user->Type(Main().txtNoteTitle, title);
        stage->ExpectModal<dlgMsgBox>([&, this](dlgMsgBox& box) {
            EXPECT_EQ(box.imgMsg.picture().path, "C:\\Jotwright\\" + picture);
            EXPECT_EQ(box.caption(), caption);
            EXPECT_EQ(box.lblMsg.caption(), text);
            user->Click(box.cmdOk);
        });
        user->Click(Main().cmdMakeNote);
    }
};

}  // namespace

TEST_F(frmMainMakeNoteTest, MakingANoteOpensItsEditorAndHidesTheMainWindow) {
    settings.values[{"Options", "DefaultColor"}] = "3";
    settings.values[{"Options", "DefaultFontSize"}] = "3";
    StartQuietly();
    StandardCode::Shared().ControlPanelMode = true;
    StandardCode::Shared().NoteFlag = 1;
    auto& note = MakeNote(" Dentist ");
    EXPECT_EQ(note.caption(), " Dentist ");
    EXPECT_EQ(note.txtNote.backColor(), (Color{128, 128, 255}));
    EXPECT_EQ(note.txtNote.foreColor(), white);
    EXPECT_TRUE(note.mnuBlue.checked);
    EXPECT_FALSE(note.mnuWhite.checked);
    EXPECT_EQ(note.txtNote.fontSize(), 16);
    EXPECT_TRUE(note.mnu16.checked);
    EXPECT_TRUE(note.txtNote.HasFocus());
    EXPECT_EQ(Main().txtNoteTitle.text(), "");
    EXPECT_FALSE(note.IsModal());
    EXPECT_EQ(Main().focus.ActiveControl(), &Main().txtNoteTitle);
    EXPECT_FALSE(Main().IsShownOnStage());
    EXPECT_FALSE(Main().mnuHide.enabled);
    EXPECT_TRUE(Main().mnuShow.enabled);
    EXPECT_FALSE(StandardCode::Shared().ControlPanelMode);
    EXPECT_EQ(StandardCode::Shared().NoteFlag, 0);
    EXPECT_FALSE(FileOf(" Dentist ").has_value());
}

TEST_F(frmMainMakeNoteTest, EnterInTheTitleBoxMakesTheNote) {
    StartQuietly();
    user->Type(Main().txtNoteTitle, "Dentist");
    user->PressEnter();
    EXPECT_NE(FindWindow<frmNote>("Dentist"), nullptr);
}

TEST_F(frmMainMakeNoteTest, ANumericTitleIsRejectedAndStaysInTheBox) {
    StartQuietly();
    ExpectRejection("2004", "letters.gif", " Note Title Error",
                    "Note titles can't contain numeric characters only.\r\n Please add a couple "
                    "of letters.");
    EXPECT_EQ(Main().txtNoteTitle.text(), "2004");
    MakeNote("2004 plans");
}

TEST_F(frmMainMakeNoteTest, ARejectedTitleIsClearedAndTheBoxGetsTheFocus) {
    StartQuietly();
    const auto expectCleared = [this] {
        EXPECT_EQ(Main().txtNoteTitle.text(), "");
        EXPECT_TRUE(Main().txtNoteTitle.HasFocus());
        EXPECT_EQ(CountVisible<frmNote>(), 0);
    };
    ExpectRejection("", "mascot_error.gif", "  Note Title Error",
                    "Please Enter A Title For Your Note.\r\n");
    expectCleared();
    ExpectRejection("a/b", "no_Fslash.gif", "  Note Title Error",
                    "Note titles can't contain a forwardslash.");
    expectCleared();
    ExpectRejection("a\\b", "no_Fslash.gif", "  Note Title Error",
                    "Note titles can't contain a backslash.");
    expectCleared();
    ExpectRejection("a.b", "error.gif", "Note Title Error", "Note titles can't contain a period.");
    expectCleared();
    ExpectRejection("a\"b", "error.gif", "Note Title Error",
                    "Note titles can't contain a double quote.");
    expectCleared();
}

TEST_F(frmMainMakeNoteTest, ATitleOfBlanksIsClearedWithoutAMessage) {
    StartQuietly();
    user->Type(Main().txtNoteTitle, "   ");
    user->Click(Main().cmdMakeNote);
    EXPECT_EQ(Main().txtNoteTitle.text(), "");
    EXPECT_TRUE(Main().txtNoteTitle.HasFocus());
    EXPECT_TRUE(Main().IsVisible());
}

TEST_F(frmMainMakeNoteTest, ASavedTitleIsRejectedInTheSameCaseOnly) {
    PutNote(Note("Shopping"));
    StartQuietly();
    ExpectRejection("Shopping", "error.gif", "Name Already Exists",
                    "A note with this title already exits.\r\n\r\nPlease choose another title for "
                    "your new note.");
    auto& note = MakeNote("shopping");
    user->Type(note.txtNote, "in small letters");
    user->CloseBox(note);
    // For the disk, the two names are the same, so the new note replaces the saved one.
    EXPECT_EQ(files.Names("C:\\Jotwright\\Notes"), std::vector<std::string>{"Shopping.txt"});
    EXPECT_NE(FileOf("Shopping")->find("in small letters"), std::string::npos);
}

TEST_F(frmMainMakeNoteTest, TwoNewNotesWithTheSameTitleMayBeOpen) {
    StartQuietly();
    MakeNote("Shopping");
    MakeNote("Shopping");
    EXPECT_EQ(CountVisible<frmNote>(), 2);
}

TEST_F(frmMainMakeNoteTest, AMissingPictureIsReportedAsAnErrorOfTheNote) {
    StartQuietly();
    files.Remove("C:\\Jotwright\\note.ico");
    user->Type(Main().txtNoteTitle, "Dentist");
    ExpectMessage("Error Creating New Note. File not found      ", "Note Error", BoxIcon::Critical);
    user->Click(Main().cmdMakeNote);
    EXPECT_FALSE(runtime->HasEnded());
}

TEST_F(frmMainMakeNoteTest, AMissingPictureOfARejectionIsReportedAsAnErrorOfTheNote) {
    StartQuietly();
    files.Remove("C:\\Jotwright\\error.gif");
    user->Type(Main().txtNoteTitle, "a.b");
    ExpectMessage("Error Creating New Note. File not found      ", "Note Error", BoxIcon::Critical);
    user->Click(Main().cmdMakeNote);
    EXPECT_EQ(Main().txtNoteTitle.text(), "a.b");
    EXPECT_FALSE(runtime->HasEnded());
}

TEST_F(frmMainMakeNoteTest, ADefaultThatIsNoNumberIsReportedAsAnErrorOfTheNote) {
    settings.values[{"Options", "DefaultColor"}] = "blue";
    StartQuietly();
    user->Type(Main().txtNoteTitle, "Dentist");
    ExpectMessage("Error Creating New Note. Type mismatch      ", "Note Error", BoxIcon::Critical);
    user->Click(Main().cmdMakeNote);
    EXPECT_EQ(Main().txtNoteTitle.text(), "Dentist");
    EXPECT_TRUE(Main().IsShownOnStage());
}
