#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "notes/CreateNote.h"
#include "notes/NoteStore.h"
#include "notes/OpenNote.h"
#include "notes/RestoreNotes.h"
#include "notes/frmViewNotes.h"
#include "tests/notes/ViewNotesProgram.h"

namespace {

using forms::BoxResult;
using StandardCode::Shared;
using frmViewNotesActionsTest = testing_support::ViewNotesProgram;
using PanelAction = StandardCode::SharedSignals::PanelAction;

TEST_F(frmViewNotesActionsTest, EditOpensTheSelectedNote) {
    PutNote(Note("Milk"));
    PutNote(Note("Shopping"));
    Open();
    user->Select(Panel().lvwNotes, 1);
    user->Click(Panel().cmdEdit);
    const auto note = StandardCode::CurrentNote();
    ASSERT_TRUE(note);
    EXPECT_EQ(note->caption(), "Shopping");
    EXPECT_EQ(note->txtNote.text(), "text");
    EXPECT_TRUE(note->IsVisible());
    // Loading an editor hides the panel.
    EXPECT_FALSE(IsOpen());
    CloseNote(*note);
}

TEST_F(frmViewNotesActionsTest, EditOpensTheSelectedOfTwoNotesWithTheSameTitle) {
    PutNoteAs("One.txt", Note("Same"));
    PutNoteAs("Two.txt", Note("Same", "second"));
    Open();
    user->Select(Panel().lvwNotes, 1);
    user->Click(Panel().cmdEdit);
    ASSERT_TRUE(StandardCode::CurrentNote());
    EXPECT_EQ(StandardCode::CurrentNote()->txtNote.text(), "second");
    CloseNote(*StandardCode::CurrentNote());
}

TEST_F(frmViewNotesActionsTest, EditOfAnOpenNoteBringsUpItsEditor) {
    PutNote(Note("Milk"));
    Start([] { StandardCode::ReadNotes(); });
    auto* note = testing_support::FindOpenNote("Milk");
    user->Restore(*note);
    user->Type(note->txtNote, "typed and not saved");
    user->Minimize(*note);
    Open();
    user->Select(Panel().lvwNotes, 0);
    user->Click(Panel().cmdEdit);
    EXPECT_EQ(StandardCode::CurrentNote().get(), note);
    EXPECT_EQ(note->windowState(), forms::WindowState::Normal);
    EXPECT_EQ(note->txtNote.text(), "typed and not saved");
    EXPECT_TRUE(note->mnuHide.enabled());
    EXPECT_FALSE(note->mnuShow.enabled());
    EXPECT_FALSE(IsOpen());
    EXPECT_EQ(StandardCode::NoteTitles(), std::vector<std::string>{"Milk"});
    // Nothing was typed since the window was activated, but the text differs from the saved text.
    ASSERT_TRUE(Shared().ControlPanelMode);
    ExpectSaveQuestion(BoxResult::Yes);
    user->CloseBox(*note);
    EXPECT_TRUE(StandardCode::NoteTitles().empty());
    EXPECT_EQ(Shared().NotesArray[1].Text, "typed and not saved");
}

TEST_F(frmViewNotesActionsTest, ANoteWithoutATitleIsEditedAndErasedByItsFile) {
    PutNote(Note("Milk"));
    PutNoteAs("x.txt", Note("", "of nobody"));
    Open();
    ASSERT_EQ(Titles(), (std::vector<std::string>{"Milk", ""}));
    user->Select(Panel().lvwNotes, 1);
    user->Click(Panel().cmdEdit);
    ASSERT_TRUE(StandardCode::CurrentNote());
    EXPECT_EQ(StandardCode::CurrentNote()->txtNote.text(), "of nobody");
    CloseNote(*StandardCode::CurrentNote());
    Open();
    user->Select(Panel().lvwNotes, 1);
    ExpectDeletingNoteQuestion("", BoxResult::Yes);
    user->Click(Panel().cmdRemove);
    EXPECT_EQ(files.Names(folder), std::vector<std::string>{"Milk.txt"});
    EXPECT_EQ(Titles(), std::vector<std::string>{"Milk"});
}

TEST_F(frmViewNotesActionsTest, AnotherEditorDoesNotUndoASaveThroughThePanel) {
    PutNote(Note("Milk"));
    Start([] { StandardCode::ReadNotes(); });
    Open();
    user->Select(Panel().lvwNotes, 0);
    user->Click(Panel().cmdEdit);
    user->Type(StandardCode::CurrentNote()->txtNote, "what was typed last");
    ExpectSaveQuestion(BoxResult::Yes);
    user->CloseBox(*StandardCode::CurrentNote());
    CloseNotes();
    Start([] { StandardCode::LoadNotesArray(); });
    EXPECT_EQ(Shared().NotesArray[1].Text, "what was typed last");
}

TEST_F(frmViewNotesActionsTest, ADoubleClickEdits) {
    PutNote(Note("Milk"));
    Open();
    user->Select(Panel().lvwNotes, 0);
    user->DoubleClick(Panel().lvwNotes);
    ASSERT_TRUE(StandardCode::CurrentNote());
    EXPECT_EQ(StandardCode::CurrentNote()->caption(), "Milk");
    CloseNote(*StandardCode::CurrentNote());
}

TEST_F(frmViewNotesActionsTest, EditingWithNothingSelectedDoesNothing) {
    PutNote(Note("Milk"));
    Open();
    user->DoubleClick(Panel().lvwNotes);
    stage->ExpectPopup("mnuPop", "mnuEditNote");
    user->RightClick(Panel().lvwNotes);
    EXPECT_FALSE(StandardCode::CurrentNote());
    EXPECT_TRUE(IsOpen());
}

TEST_F(frmViewNotesActionsTest, ThePopupMenuActsOnTheSelectedNote) {
    PutNote(Note("Milk"));
    Open();
    user->Select(Panel().lvwNotes, 0);
    stage->ExpectPopup("mnuPop", "mnuEraseNote");
    ExpectDeletingNoteQuestion("MILK", BoxResult::No);
    user->RightClick(Panel().lvwNotes);
    ASSERT_EQ(stage->Popups().size(), 1U);
    EXPECT_EQ(
        stage->Popups()[0].captions,
        (std::vector<std::string>{"Edit Selected Note", "Erase Selected Note", "Open All Notes"}));
    stage->ExpectPopup("mnuPop", "mnuEditNote");
    user->RightClick(Panel().lvwNotes);
    ASSERT_TRUE(StandardCode::CurrentNote());
    CloseNote(*StandardCode::CurrentNote());
}

TEST_F(frmViewNotesActionsTest, OpenAllShowsEveryOpenNoteAtNormalSize) {
    PutNote(Note("Milk"));
    PutNote(Note("Shopping"));
    Start([] { StandardCode::ReadNotes(); });
    ASSERT_EQ(StandardCode::NoteTitles().size(), 2U);
    auto* const milk = testing_support::FindOpenNote("Milk");
    auto* const shopping = testing_support::FindOpenNote("Shopping");
    Start([&] { shopping->Hide(); });
    EXPECT_EQ(milk->windowState(), forms::WindowState::Minimized);
    Open();
    user->Click(Panel().cmdOpenAll);
    for (const auto& note : {milk, shopping}) {
        EXPECT_TRUE(note->IsVisible());
        EXPECT_EQ(note->windowState(), forms::WindowState::Normal);
    }
    EXPECT_TRUE(IsOpen());
    CloseNotes();
}

TEST_F(frmViewNotesActionsTest, OpenAllLeavesClosedNotesClosed) {
    PutNote(Note("Milk"));
    Open();
    user->Click(Panel().cmdOpenAll);
    stage->ExpectPopup("mnuPop", "mnuOpenAll");
    user->RightClick(Panel().lvwNotes);
    EXPECT_EQ(runtime->LoadedForms().size(), 1U);
}

TEST_F(frmViewNotesActionsTest, OpenAllLeavesTheEditorWithoutANoteHidden) {
    Start([] { forms::Default<frmNote>().Load(); });
    frmNote& hidden = forms::Default<frmNote>();
    PutNote(Note("Milk"));
    Open();
    user->Click(Panel().cmdOpenAll);
    EXPECT_FALSE(hidden.IsVisible());
}

TEST_F(frmViewNotesActionsTest, NewAsksForTheTitleBoxAndCloses) {
    int timesAsked = 0;
    StandardCode::Signals().FocusNoteTitle.Subscribe([&] {
        ++timesAsked;
        EXPECT_TRUE(IsOpen());
    });
    Open();
    user->Click(Panel().cmdNew);
    EXPECT_EQ(timesAsked, 1);
    EXPECT_FALSE(IsOpen());
}

TEST_F(frmViewNotesActionsTest, CloseUnloads) {
    Open();
    user->Click(Panel().cmdOK);
    EXPECT_FALSE(IsOpen());
}

TEST_F(frmViewNotesActionsTest, ReloadRebuildsTheListAndHidesThePanel) {
    PutNote(Note("Milk"));
    Open();
    PutNote(Note("Shopping"));
    EXPECT_EQ(Titles().size(), 1U);
    Raise(PanelAction::Reload);
    ASSERT_TRUE(IsOpen());
    EXPECT_FALSE(Panel().IsVisible());
    EXPECT_EQ(Titles(), (std::vector<std::string>{"Milk", "Shopping"}));
    EXPECT_EQ(Shared().NoteCount, 2);
}

TEST_F(frmViewNotesActionsTest, ReloadLoadsAPanelThatWasNotLoaded) {
    PutNote(Note("Milk"));
    Raise(PanelAction::Reload);
    ASSERT_TRUE(IsOpen());
    EXPECT_FALSE(Panel().IsVisible());
    EXPECT_FALSE(Shared().ControlPanelMode);
}

TEST_F(frmViewNotesActionsTest, ReloadAndShowAndShow) {
    PutNote(Note("Milk"));
    Open();
    PutNote(Note("Shopping"));
    Raise(PanelAction::Show);
    EXPECT_EQ(Titles().size(), 1U);
    Raise(PanelAction::ReloadAndShow);
    EXPECT_TRUE(Panel().IsVisible());
    EXPECT_EQ(Titles().size(), 2U);
    user->Click(Panel().cmdOK);
    Raise(PanelAction::Show);
    EXPECT_TRUE(Panel().IsVisible());
}

TEST_F(frmViewNotesActionsTest, UnloadIfVisibleLeavesAHiddenPanelLoaded) {
    Raise(PanelAction::UnloadIfVisible);
    EXPECT_FALSE(IsOpen());
    Raise(PanelAction::Reload);
    Raise(PanelAction::UnloadIfVisible);
    EXPECT_TRUE(IsOpen());
    Open();
    Raise(PanelAction::UnloadIfVisible);
    EXPECT_FALSE(IsOpen());
}

TEST_F(frmViewNotesActionsTest, LoadAndUnloadRebuildsTheArrayOnly) {
    PutNote(Note("Milk"));
    Raise(PanelAction::LoadAndUnload);
    EXPECT_FALSE(IsOpen());
    EXPECT_EQ(Shared().NoteCount, 1);
    EXPECT_FALSE(Shared().ControlPanelMode);
}

TEST_F(frmViewNotesActionsTest, LoadAndUnloadRebuildsTheArrayOfALoadedPanel) {
    PutNote(Note("Milk"));
    Raise(PanelAction::Reload);
    ASSERT_EQ(Shared().NoteCount, 1);
    files.Remove(folder + "\\Milk.txt");
    Raise(PanelAction::LoadAndUnload);
    EXPECT_FALSE(IsOpen());
    EXPECT_EQ(Shared().NoteCount, 0);
    EXPECT_EQ(Shared().NotesArray[1].Title, "");
}

TEST_F(frmViewNotesActionsTest, RebuildingTheArrayUpdatesTotalAndList) {
    PutNote(Note("Milk"));
    Open();
    PutNote(Note("Shopping").WithAlarmAt(9, 30));
    Start([] { StandardCode::LoadNotesArray(); });
    EXPECT_EQ(Panel().lblTotalNotes.caption(), "Total Notes: 2");
    ASSERT_EQ(Titles(), (std::vector<std::string>{"Milk", "Shopping"}));
    EXPECT_EQ(Panel().lvwNotes.Rows()[1].texts[2], "5/14/2004 9:30:00 AM");
    files.Remove(folder + "\\Milk.txt");
    files.Remove(folder + "\\Shopping.txt");
    Start([] { StandardCode::LoadNotesArray(); });
    EXPECT_EQ(Panel().lblTotalNotes.caption(), "Total Notes: 0");
    EXPECT_TRUE(Titles().empty());
    EXPECT_FALSE(Panel().lvwNotes.enabled());
}

TEST_F(frmViewNotesActionsTest, ARebuildKeepsTheSelectedNote) {
    PutNote(Note("Milk"));
    PutNote(Note("Shopping"));
    Open();
    user->Select(Panel().lvwNotes, 1);
    PutNote(Note("Dentist"));
    Start([] { StandardCode::LoadNotesArray(); });
    ASSERT_EQ(Titles(), (std::vector<std::string>{"Dentist", "Milk", "Shopping"}));
    EXPECT_EQ(Panel().lvwNotes.SelectedRow(), 2);
    EXPECT_TRUE(Panel().cmdEdit.enabled());
    EXPECT_TRUE(Panel().cmdRemove.enabled());
    files.Remove(folder + "\\Shopping.txt");
    Start([] { StandardCode::LoadNotesArray(); });
    EXPECT_EQ(Panel().lvwNotes.SelectedRow(), -1);
    EXPECT_FALSE(Panel().cmdEdit.enabled());
    EXPECT_FALSE(Panel().cmdRemove.enabled());
}

TEST_F(frmViewNotesActionsTest, ARebuildDoesNotEnableTheControlsThatAnsweringNoDisabled) {
    PutNote(Note("Shopping"));
    Open();
    user->Select(Panel().lvwNotes, 0);
    ExpectDeletingNoteQuestion("SHOPPING", BoxResult::No);
    user->Click(Panel().cmdRemove);
    PutNote(Note("Milk"));
    Start([] { StandardCode::LoadNotesArray(); });
    EXPECT_EQ(Panel().lvwNotes.SelectedRow(), 1);
    EXPECT_FALSE(Panel().cmdEdit.enabled());
    EXPECT_FALSE(Panel().cmdRemove.enabled());
}

TEST_F(frmViewNotesActionsTest, AHiddenPanelShowsNotesSavedMeanwhileWhenItComesBack) {
    Raise(PanelAction::Reload);
    Start([] { StandardCode::CreateNote("Milk"); });
    frmNote& note = *testing_support::FindOpenNote("Milk");
    ExpectSaved("MILK");
    user->Click(note.tlbMain, "Save");
    Open();
    EXPECT_EQ(Titles(), std::vector<std::string>{"Milk"});
    CloseNote(note);
}

TEST_F(frmViewNotesActionsTest, AnUnchangedListIsNotDrawnAgain) {
    PutMany(3);
    Open();
    Start([] { StandardCode::LoadNotesArray(); });
    const auto before = stage->ChangesShown();
    Start([] { StandardCode::LoadNotesArray(); });
    EXPECT_EQ(stage->ChangesShown(), before);
}

TEST_F(frmViewNotesActionsTest, TheHundredthNoteAppearsInAnOpenPanel) {
    PutMany(99);
    Start([] { StandardCode::CreateNote("The last"); });
    frmNote& note = *testing_support::FindOpenNote("The last");
    Open();
    EXPECT_TRUE(Panel().cmdNew.enabled());
    ExpectSaved("THE LAST");
    user->Click(note.tlbMain, "Save");
    EXPECT_EQ(Panel().lblTotalNotes.caption(), "Total Notes: 100 ( Maximum Reached )");
    EXPECT_EQ(Panel().lblTotalNotes.foreColor(), (forms::Color{255, 0, 0}));
    EXPECT_FALSE(Panel().cmdNew.enabled());
    EXPECT_EQ(Titles().size(), 100U);
    CloseNote(note);
}

TEST_F(frmViewNotesActionsTest, TheEditorOfAnErasedNoteStaysAndSavesTheNoteAgain) {
    PutNote(Note("Milk"));
    Start([] { StandardCode::ReadNotes(); });
    auto* note = testing_support::FindOpenNote("Milk");
    Open();
    user->Select(Panel().lvwNotes, 0);
    ExpectDeletingNoteQuestion("MILK", BoxResult::Yes);
    user->Click(Panel().cmdRemove);
    EXPECT_TRUE(Titles().empty());
    ASSERT_TRUE(note->IsLoaded());
    ExpectSaved("MILK");
    user->Restore(*note);
    user->Click(note->tlbMain, "Save");
    EXPECT_TRUE(files.FileExists(folder + "\\Milk.txt"));
    EXPECT_EQ(Titles(), std::vector<std::string>{"Milk"});
    CloseNote(*note);
}

TEST_F(frmViewNotesActionsTest, ClosingAnEditorShowsThePanelAgain) {
    PutNote(Note("Milk"));
    Open();
    user->Select(Panel().lvwNotes, 0);
    user->Click(Panel().cmdEdit);
    const auto note = StandardCode::CurrentNote();
    user->Type(note->txtNote, "more than before, and longer");
    ExpectSaveQuestion(BoxResult::Yes);
    user->CloseBox(*note);
    ASSERT_TRUE(IsOpen());
    EXPECT_TRUE(Panel().IsVisible());
    EXPECT_EQ(Shared().NotesArray[1].Text, "more than before, and longer");
}

}  // namespace
