#include "forms/Gestures.h"
#include "notes/frmNote.h"
#include "tests/support/NoteProgram.h"

// Closing and erasing a note: the questions, and the effect on its file.

namespace {

using forms::BoxResult;
using StandardCode::Shared;
using testing_support::IsNoteOpen;

class frmNoteClosingTest : public testing_support::NoteProgram {
  protected:
    using Actions = std::vector<PanelAction>;
};

TEST_F(frmNoteClosingTest, ARestoredNoteSavesItsTextWithoutAQuestion) {
    PutNote(Note("Dentist", "old"));
    Start(StandardCode::ReadNotes);
    frmNote& note = Editor("Dentist");
    user->Restore(note);
    user->Type(note.txtNote, "new");
    panel.clear();
    user->CloseBox(note);
    EXPECT_FALSE(IsNoteOpen("Dentist"));
    EXPECT_EQ(Saved("Dentist").Text, "new");
    EXPECT_EQ(panel, Actions{PanelAction::Reload});
    EXPECT_EQ(Shared().NotesArray[1].Text, "new");
}

TEST_F(frmNoteClosingTest, ANewNoteIsSavedEvenIfItIsEmpty) {
    frmNote& note = MakeNote("Dentist");
    stage->ExpectPopup("mnuPop", "Hide Me");
    user->RightClick(note);
    EXPECT_FALSE(IsNoteOpen("Dentist"));
    EXPECT_EQ(Saved("Dentist").Text, "");
}

TEST_F(frmNoteClosingTest, ToolbarHideClosesAndSaves) {
    frmNote& note = MakeNote("Dentist", "text");
    user->Click(note.tlbMain, "Hide");
    EXPECT_FALSE(IsNoteOpen("Dentist"));
    EXPECT_EQ(Saved("Dentist").Text, "text");
}

TEST_F(frmNoteClosingTest, ThroughThePanelAnUnchangedNoteShowsThePanelAgain) {
    frmNote& note = OpenThroughPanel(Note("Dentist", "old"));
    const auto before = FileOf("Dentist");
    user->CloseBox(note);
    EXPECT_FALSE(IsNoteOpen("Dentist"));
    EXPECT_EQ(FileOf("Dentist"), before);
    EXPECT_EQ(panel, (Actions{PanelAction::Reload, PanelAction::Show}));
}

TEST_F(frmNoteClosingTest, ThroughThePanelALongerTextAsksAQuestion) {
    frmNote& note = OpenThroughPanel(Note("Dentist", "old"));
    user->Type(note.txtNote, "old and new");
    ExpectSaveQuestion(BoxResult::Yes);
    user->CloseBox(note);
    EXPECT_FALSE(IsNoteOpen("Dentist"));
    EXPECT_EQ(Saved("Dentist").Text, "old and new");
    EXPECT_EQ(panel, (Actions{PanelAction::Reload, PanelAction::ReloadAndShow}));
}

TEST_F(frmNoteClosingTest, ThroughThePanelNoDiscardsTheChanges) {
    frmNote& note = OpenThroughPanel(Note("Dentist", "old"));
    user->Type(note.txtNote, "old and new");
    ExpectSaveQuestion(BoxResult::No);
    user->CloseBox(note);
    EXPECT_FALSE(IsNoteOpen("Dentist"));
    EXPECT_EQ(Saved("Dentist").Text, "old");
    EXPECT_EQ(panel, (Actions{PanelAction::Reload, PanelAction::ReloadAndShow}));
}

TEST_F(frmNoteClosingTest, ThroughThePanelATextOfTheSameLengthIsNotNoticed) {
    frmNote& note = OpenThroughPanel(Note("Dentist", "old"));
    user->Type(note.txtNote, "new");
    user->CloseBox(note);
    EXPECT_FALSE(IsNoteOpen("Dentist"));
    EXPECT_EQ(Saved("Dentist").Text, "old");
    EXPECT_EQ(panel, (Actions{PanelAction::Reload, PanelAction::Show}));
}

TEST_F(frmNoteClosingTest, ThroughThePanelMenuItemsAndAlarmCountAsChanges) {
    using Change = std::function<void(frmNote&)>;
    const std::vector<Change> changes{
        [](frmNote& note) { forms::gestures::Choose(note.mnuRed); },
        [](frmNote& note) { forms::gestures::Choose(note.mnu16); },
        [this](frmNote& note) { user->Click(note.cmdAlarm); },
        [this](frmNote& note) { user->Choose(note.mnuAlarmStart); },
        [this](frmNote& note) { user->Pick(note.dtDate, base::DateTime::FromDate(2031, 1, 1)); },
        [this](frmNote& note) { user->Pick(note.dtTime, base::DateTime::FromTime(1, 0, 0)); },
        [](frmNote& note) {
            forms::gestures::MouseUp(note.chkAudioAlarm, forms::leftButton, 0, 0);
        },
    };
    for (const Change& change : changes) {
        frmNote& note = OpenThroughPanel(Note("Dentist", "old"));
        change(note);
        ExpectSaveQuestion(BoxResult::No);
        user->CloseBox(note);
        EXPECT_FALSE(stage->HasExpectations());
    }
}

TEST_F(frmNoteClosingTest, ThroughThePanelTheKeyboardOnTheAudioBoxIsNoChange) {
    frmNote& note = OpenThroughPanel(Note("Dentist", "old"));
    forms::gestures::Click(note.chkAudioAlarm);
    forms::gestures::MouseUp(note.chkAudioAlarm, forms::rightButton, 0, 0);
    ASSERT_EQ(note.chkAudioAlarm.value(), 1);
    user->CloseBox(note);
    EXPECT_EQ(Saved("Dentist").AudioAlarm, 0);
}

TEST_F(frmNoteClosingTest, AfterSavingThereIsNothingToAsk) {
    frmNote& note = OpenThroughPanel(Note("Dentist", "old"));
    forms::gestures::Choose(note.mnuRed);
    ExpectSaved("DENTIST");
    user->Click(note.tlbMain, "Save");
    user->CloseBox(note);
    EXPECT_EQ(Saved("Dentist").ColorIndex, 2);
    EXPECT_EQ(panel, (Actions{PanelAction::Reload, PanelAction::Show}));
}

TEST_F(frmNoteClosingTest, AFailedSaveAsksAtTheEnd) {
    frmNote& note = OpenThroughPanel(Note("Dentist", "old"));
    user->Type(note.txtNote, "new");
    files.SetDenied(PathOf("Dentist"), true);
    ExpectWriteError("70 - Permission denied");
    user->Click(note.tlbMain, "Save");
    files.SetDenied(PathOf("Dentist"), false);
    ExpectSaveQuestion(BoxResult::Yes);
    user->CloseBox(note);
    EXPECT_EQ(Saved("Dentist").Text, "new");
}

TEST_F(frmNoteClosingTest, ANoteThatCannotBeSavedStaysOpen) {
    frmNote& note = MakeNote("Dentist", "text");
    user->Minimize(note);
    files.PutFolder("C:\\Jotwright\\Notes");
    files.SetReadOnly("C:\\Jotwright\\Notes", true);
    ExpectWriteError("75 - Path/File access error");
    forms::gestures::Close(note);
    ASSERT_TRUE(IsNoteOpen("Dentist"));
    EXPECT_EQ(note.windowState(), forms::WindowState::Normal);
    EXPECT_EQ(StandardCode::NoteTitles(), std::vector<std::string>{"Dentist"});
    files.SetReadOnly("C:\\Jotwright\\Notes", false);
    user->CloseBox(note);
    EXPECT_FALSE(IsNoteOpen("Dentist"));
    EXPECT_EQ(Saved("Dentist").Text, "text");
}

TEST_F(frmNoteClosingTest, ThroughThePanelANoteThatCannotBeSavedStaysOpen) {
    frmNote& note = OpenThroughPanel(Note("Dentist", "old"));
    forms::gestures::Choose(note.mnuRed);
    files.SetDenied(PathOf("Dentist"), true);
    ExpectSaveQuestion(BoxResult::Yes);
    ExpectWriteError("70 - Permission denied");
    user->Click(note.tlbMain, "Hide");
    ASSERT_TRUE(IsNoteOpen("Dentist"));
    EXPECT_EQ(panel, Actions{PanelAction::Reload});
    files.SetDenied(PathOf("Dentist"), false);
    ExpectSaveQuestion(BoxResult::Yes);
    user->CloseBox(note);
    EXPECT_FALSE(IsNoteOpen("Dentist"));
    EXPECT_EQ(Saved("Dentist").ColorIndex, 2);
}

TEST_F(frmNoteClosingTest, ToolbarEraseRemovesTheFile) {
    frmNote& note = MakeNote("Dentist", "text");
    Start([&note] { note.WriteNote(); });
    panel.clear();
    ExpectKillNoteQuestion("DENTIST", BoxResult::Yes);
    user->Click(note.tlbMain, "Erase");
    EXPECT_FALSE(IsNoteOpen("Dentist"));
    EXPECT_FALSE(FileOf("Dentist").has_value());
    EXPECT_EQ(panel, Actions{PanelAction::Reload});
    EXPECT_EQ(files.RecycleBin(), std::vector<std::string>{"C:\\Jotwright\\Notes\\Dentist.txt"});
}

TEST_F(frmNoteClosingTest, ToolbarEraseAnsweredNoKeepsTheNoteAndNeverSavesIt) {
    frmNote& note = MakeNote("Dentist", "first");
    Start([&note] { note.WriteNote(); });
    ExpectKillNoteQuestion("DENTIST", BoxResult::No);
    user->Click(note.tlbMain, "Erase");
    ASSERT_TRUE(IsNoteOpen("Dentist"));
    user->Type(note.txtNote, "second");
    panel.clear();
    user->CloseBox(note);
    EXPECT_FALSE(IsNoteOpen("Dentist"));
    EXPECT_EQ(Saved("Dentist").Text, "first");
    EXPECT_EQ(panel, Actions{PanelAction::Reload});
}

TEST_F(frmNoteClosingTest, ThroughThePanelToolbarEraseAsksNothingMore) {
    frmNote& note = OpenThroughPanel(Note("Dentist", "old"));
    ExpectKillNoteQuestion("DENTIST", BoxResult::Yes);
    user->Click(note.tlbMain, "Erase");
    EXPECT_FALSE(FileOf("Dentist").has_value());
    EXPECT_EQ(panel, (Actions{PanelAction::Reload, PanelAction::Show}));
    frmNote& changed = OpenThroughPanel(Note("Plumber", "old"));
    user->Type(changed.txtNote, "old and new");
    ExpectKillNoteQuestion("PLUMBER", BoxResult::Yes);
    user->Click(changed.tlbMain, "Erase");
    EXPECT_FALSE(FileOf("Plumber").has_value());
    EXPECT_EQ(panel, Actions{PanelAction::Reload});
}

TEST_F(frmNoteClosingTest, MenuEraseWritesTheNoteBackAtOnce) {
    frmNote& note = MakeNote("Dentist", "text");
    Start([&note] { note.WriteNote(); });
    ExpectKillNoteQuestion("DENTIST", BoxResult::Yes);
    user->Choose(note.mnuKillNote);
    EXPECT_FALSE(IsNoteOpen("Dentist"));
    EXPECT_EQ(files.RecycleBin().size(), 1U);
    EXPECT_EQ(Saved("Dentist").Text, "text");
}

TEST_F(frmNoteClosingTest, MenuEraseThatCannotWriteTheNoteBackLosesNothing) {
    frmNote& note = MakeNote("Dentist", "text");
    Start([&note] { note.WriteNote(); });
    ExpectKillNoteQuestion("DENTIST", BoxResult::Yes);
    ExpectWriteError("61 - Disk full");
    files.FailAt(2, base::ErrorNumber::DiskFull);  // the first step after the file is erased
    user->Choose(note.mnuKillNote);
    EXPECT_FALSE(FileOf("Dentist").has_value());
    EXPECT_TRUE(IsNoteOpen("Dentist"));
    Advance(2000);
    RestartProgram();
    Start(StandardCode::ReadNotes);
    EXPECT_EQ(Editor("Dentist").txtNote.text(), "text");
}

TEST_F(frmNoteClosingTest, TextTypedAfterAnEraseThatCouldNotCloseTheWindowIsSaved) {
    frmNote& note = MakeNote("Dentist", "text");
    Start([&note] { note.WriteNote(); });
    ExpectKillNoteQuestion("DENTIST", BoxResult::Yes);
    ExpectWriteError("61 - Disk full");
    files.FailAt(2, base::ErrorNumber::DiskFull);
    user->Choose(note.mnuKillNote);
    files.ClearFaults();
    ASSERT_TRUE(IsNoteOpen("Dentist"));
    user->Type(note.txtNote, "typed afterwards");
    forms::gestures::EndSession();
    EXPECT_TRUE(runtime->LoadedForms().empty());
    EXPECT_EQ(Saved("Dentist").Text, "typed afterwards");
}

TEST_F(frmNoteClosingTest, TextTypedAfterAnEraseThatFailedHalfwayIsSaved) {
    frmNote& note = OpenThroughPanel(Note("Dentist", "old"));
    bool fails = true;
    StandardCode::Signals().ControlPanel.Subscribe([&fails](PanelAction) {
        if (fails) {
            throw base::RuntimeError(base::ErrorNumber::OutOfMemory);
        }
    });
    ExpectKillNoteQuestion("DENTIST", BoxResult::Yes);
    user->Choose(note.mnuKillNote);
    fails = false;
    ASSERT_TRUE(IsNoteOpen("Dentist"));
    user->Type(note.txtNote, "typed afterwards");
    forms::gestures::EndSession();
    EXPECT_EQ(Saved("Dentist").Text, "typed afterwards");
}

TEST_F(frmNoteClosingTest, ThroughThePanelMenuEraseIsFinalUnlessTheNoteIsSaved) {
    frmNote& note = OpenThroughPanel(Note("Dentist", "old"));
    stage->ExpectPopup("mnuPop", "mnuKill");
    ExpectKillNoteQuestion("DENTIST", BoxResult::Yes);
    user->RightClick(note);
    EXPECT_FALSE(FileOf("Dentist").has_value());
}

TEST_F(frmNoteClosingTest, ThroughThePanelMenuEraseOfAChangedNoteCanSaveItBack) {
    frmNote& note = OpenThroughPanel(Note("Dentist", "old"));
    user->Type(note.txtNote, "old and new");
    ExpectKillNoteQuestion("DENTIST", BoxResult::Yes);
    ExpectSaveQuestion(BoxResult::Yes);
    user->Choose(note.mnuKillNote);
    EXPECT_EQ(Saved("Dentist").Text, "old and new");
}

TEST_F(frmNoteClosingTest, ErasingIgnoresAFileThatIsMissingOrInUse) {
    frmNote& unsaved = MakeNote("Unsaved", "text");
    ExpectKillNoteQuestion("UNSAVED", BoxResult::Yes);
    user->Click(unsaved.tlbMain, "Erase");
    EXPECT_FALSE(IsNoteOpen("Unsaved"));
    EXPECT_FALSE(FileOf("Unsaved").has_value());
    frmNote& held = MakeNote("Held", "text");
    Start([&held] { held.WriteNote(); });
    files.SetDenied(PathOf("Held"), true);
    ExpectKillNoteQuestion("HELD", BoxResult::Yes);
    user->Click(held.tlbMain, "Erase");
    EXPECT_FALSE(IsNoteOpen("Held"));
    EXPECT_TRUE(FileOf("Held").has_value());
}

TEST_F(frmNoteClosingTest, TheEndOfTheSessionSavesAndAsksNothing) {
    frmNote& fresh = MakeNote("Fresh", "typed");
    frmNote& opened = OpenThroughPanel(Note("Opened", "old"));
    user->Type(opened.txtNote, "new");
    forms::gestures::Choose(opened.mnuRed);
    panel.clear();
    EXPECT_TRUE(fresh.IsLoaded());
    forms::gestures::EndSession();
    EXPECT_TRUE(runtime->LoadedForms().empty());
    EXPECT_EQ(Saved("Fresh").Text, "typed");
    EXPECT_EQ(Saved("Opened").Text, "new");
    EXPECT_TRUE(panel.empty());
}

TEST_F(frmNoteClosingTest, AFailureDoesNotDelayTheEndOfTheSession) {
    MakeNote("Dentist", "typed");
    files.PutFolder("C:\\Jotwright\\Notes");
    files.PutFile(PathOf("Dentist"), "held");
    files.SetDenied(PathOf("Dentist"), true);
    forms::gestures::EndSession();
    EXPECT_TRUE(runtime->LoadedForms().empty());
    files.SetDenied(PathOf("Dentist"), false);
    files.Remove(PathOf("Dentist"));
    RestartProgram();
    Start(StandardCode::ReadNotes);
    EXPECT_EQ(Editor("Dentist").txtNote.text(), "typed");
}

TEST_F(frmNoteClosingTest, BeforeTheEndAllNotesButErasedOnesAreSaved) {
    frmNote& kept = OpenThroughPanel(Note("Kept", "old"));
    user->Type(kept.txtNote, "new");
    frmNote& erased = OpenThroughPanel(Note("Erased", "old"));
    user->Type(erased.txtNote, "new");
    ExpectKillNoteQuestion("ERASED", BoxResult::No);
    user->Click(erased.tlbMain, "Erase");
    Start([&] {
        kept.SaveBeforeTheEnd();
        erased.SaveBeforeTheEnd();
    });
    EXPECT_EQ(Saved("Kept").Text, "new");
    EXPECT_EQ(Saved("Erased").Text, "old");
}

TEST_F(frmNoteClosingTest, ANoteWhoseTitleIsNoFileNameCanOnlyBeErased) {
    frmNote& note = MakeNote("What?", "text");
    ExpectWriteError("52 - Bad file name or number");
    user->CloseBox(note);
    ASSERT_TRUE(IsNoteOpen("What?"));
    ExpectKillNoteQuestion("WHAT?", BoxResult::Yes);
    user->Click(note.tlbMain, "Erase");
    EXPECT_FALSE(IsNoteOpen("What?"));
}

}  // namespace
