#include "forms/Gestures.h"
#include "notes/frmNote.h"
#include "tests/support/NoteProgram.h"

// The controls, menus, toolbar and panel of the editor. Closing and the alarm have their own tests.

namespace {

using base::DateTime;
using StandardCode::Shared;

class frmNoteTest : public testing_support::NoteProgram {};

using Texts = std::vector<std::string>;

TEST_F(frmNoteTest, LoadingSetsIconPickersAndClock) {
    SetNow(2031, 2, 3, 14, 5, 9);
    frmNote& note = MakeNote("Dentist");
    EXPECT_EQ(note.icon().path, "C:\\Jotwright\\note.ico");
    EXPECT_EQ(note.dtDate.value(), DateTime::FromDate(2031, 2, 3));
    EXPECT_EQ(note.dtTime.value(), DateTime::FromTime(12, 0, 0));
    EXPECT_EQ(note.lblSysTime.caption(), "Date and Time is \r\n2/3/2031 2:05:09 PM.");
    EXPECT_TRUE(note.tmrNow.enabled());
    EXPECT_TRUE(note.tmrLabel.enabled());
    EXPECT_FALSE(note.tmrNote.enabled());
}

TEST_F(frmNoteTest, LoadingClosesAVisibleControlPanel) {
    MakeNote("Dentist");
    EXPECT_EQ(panel, std::vector{PanelAction::UnloadIfVisible});
}

TEST_F(frmNoteTest, TheClockPanelIsRefreshedEverySecond) {
    SetNow(2031, 2, 3, 14, 5, 9);
    frmNote& note = MakeNote("Dentist");
    Advance(500);
    EXPECT_EQ(note.lblSysTime.caption(), "System Date and Time is \r\n2/3/2031 2:05:09 PM.");
    Advance(1000);
    EXPECT_EQ(note.lblSysTime.caption(), "System Date and Time is \r\n2/3/2031 2:05:10 PM.");
}

TEST_F(frmNoteTest, TheOptionsMenuOpensByDoubleClickAndRightButton) {
    frmNote& note = MakeNote("Dentist");
    stage->ExpectPopupDismissed("mnuPop");
    user->DoubleClick(note.txtNote);
    stage->ExpectPopupDismissed("mnuPop");
    user->RightClick(note.txtNote);
    stage->ExpectPopupDismissed("mnuPop");
    user->RightClick(note);
    forms::gestures::MouseUp(note.txtNote, forms::leftButton, 0, 0);
    forms::gestures::MouseUp(note, forms::leftButton, 0, 0);
    EXPECT_EQ(stage->Popups().size(), 3U);
}

TEST_F(frmNoteTest, ToolbarSaveWritesTheFileAndSaysSo) {
    frmNote& note = MakeNote("Dentist", "Call.\r\nAsk.");
    ExpectSaved("DENTIST");
    user->Click(note.tlbMain, "Save");
    EXPECT_EQ(FileOf("Dentist"),
              "\"Dentist\",\"Call.\r\nAsk.\",#2004-05-14#,#12:00:00#,1,12,\"0\",0,\"yes\"\r\n");
    EXPECT_EQ(Shared().NoteCount, 1);
    EXPECT_EQ(Shared().NotesArray[1].Title, "Dentist");
}

TEST_F(frmNoteTest, AFailedToolbarSaveDoesNotReportSuccess) {
    frmNote& note = MakeNote("Dentist", "text");
    files.SetFreeSpace(3);
    ExpectWriteError("61 - Disk full");
    user->Click(note.tlbMain, "Save");
    files.SetFreeSpace(std::nullopt);
    EXPECT_FALSE(FileOf("Dentist").has_value());
}

TEST_F(frmNoteTest, WritesAudioFlagAndAlarmState) {
    frmNote& note = MakeNote("Dentist");
    Start([&note] { note.chkAudioAlarm.value = 1; });
    user->Pick(note.dtDate, DateTime::FromDate(2031, 12, 25));
    user->Pick(note.dtTime, DateTime::FromTime(9, 30, 0));
    user->Click(note.cmdAlarm);
    Start([&note] { note.WriteNote(); });
    EXPECT_EQ(FileOf("Dentist"),
              "\"Dentist\",\"\",#2031-12-25#,#09:30:00#,1,12,\"1\",1,\"yes\"\r\n");
}

TEST_F(frmNoteTest, MidnightReadsBackAsMidnight) {
    frmNote& note = MakeNote("Dentist");
    user->Pick(note.dtTime, DateTime::FromTime(0, 0, 0));
    Start([&note] { note.WriteNote(); });
    EXPECT_EQ(Saved("Dentist").AlarmTime, DateTime::FromTime(0, 0, 0));
}

TEST_F(frmNoteTest, MakesAMissingFolderWhenItSaves) {
    frmNote& note = MakeNote("Dentist");
    ASSERT_FALSE(files.FolderExists("C:\\Jotwright\\Notes"));
    Start([&note] { note.WriteNote(); });
    EXPECT_TRUE(files.FolderExists("C:\\Jotwright\\Notes"));
    EXPECT_TRUE(FileOf("Dentist").has_value());
}

TEST_F(frmNoteTest, TheHundredthNoteReachesTheMaximum) {
    for (int i = 1; i <= 98; ++i) {
        PutNote(Note("Note " + std::to_string(i), ""));
    }
    frmNote& first = MakeNote("One more");
    Start([&first] { first.WriteNote(); });
    EXPECT_EQ(Shared().NoteCount, 99);
    frmNote& second = MakeNote("The last");
    Start([&second] { second.WriteNote(); });
    EXPECT_EQ(Shared().NoteCount, 100);
}

TEST_F(frmNoteTest, ToolbarHelpAndAboutAreHandledByTheMainWindow) {
    frmNote& note = MakeNote("Dentist");
    user->Click(note.tlbMain, "Help");
    EXPECT_EQ(helpShown, 1);
    EXPECT_EQ(aboutShown, 0);
    user->Click(note.tlbMain, "About");
    EXPECT_EQ(helpShown, 1);
    EXPECT_EQ(aboutShown, 1);
}

TEST_F(frmNoteTest, ToolbarAndMenuPrint) {
    frmNote& note = MakeNote("Dentist", "Call.");
    user->Click(note.tlbMain, "Print");
    user->Choose(note.mnuPrint);
    ASSERT_EQ(printer.documents.size(), 2U);
    for (const auto& document : printer.documents) {
        EXPECT_EQ(document.Text(), "\r\n\r\nNote Title: Dentist\r\n\r\nCall.\r\n");
    }
}

TEST_F(frmNoteTest, NoteTitlesListsTheOpenEditors) {
    MakeNote("First");
    frmNote& second = MakeNote("Second");
    MakeNote("Third");
    EXPECT_EQ(StandardCode::NoteTitles(), (Texts{"First", "Second", "Third"}));
    user->CloseBox(second);
    EXPECT_EQ(StandardCode::NoteTitles(), (Texts{"First", "Third"}));
    EXPECT_TRUE(testing_support::IsNoteOpen("First"));
    EXPECT_FALSE(testing_support::IsNoteOpen("Second"));
    EXPECT_FALSE(testing_support::IsNoteOpen("first"));
}

TEST_F(frmNoteTest, ClosingOneOfTwoNotesWithTheSameTitleLeavesTheOtherListed) {
    frmNote& first = MakeNote("Twin");
    Start([] { StandardCode::CreateNote("Twin"); });
    EXPECT_EQ(StandardCode::NoteTitles(), (Texts{"Twin", "Twin"}));
    user->CloseBox(first);
    EXPECT_EQ(StandardCode::NoteTitles(), Texts{"Twin"});
    EXPECT_TRUE(testing_support::IsNoteOpen("Twin"));
}

TEST_F(frmNoteTest, TheDefaultEditorHoldsNoNote) {
    files.PutFolder("C:\\Jotwright\\Notes");
    files.PutFile("C:\\Jotwright\\Notes\\Note.txt", "mine");
    Start([] { forms::Default<frmNote>().Load(); });
    panel.clear();
    for (const bool panelMode : {false, true}) {
        Shared().ControlPanelMode = panelMode;
        Start([] {
            forms::Default<frmNote>().Load();
            forms::Default<frmNote>().txtNote.text = "nobody typed this";
        });
        Advance(2000);
        panel.clear();
        Start([] { EXPECT_TRUE(forms::Default<frmNote>().Unload()); });
        EXPECT_TRUE(panel.empty());
    }
    EXPECT_TRUE(StandardCode::NoteTitles().empty());
    EXPECT_FALSE(testing_support::IsNoteOpen("Note"));
    EXPECT_EQ(files.Names("C:\\Jotwright\\Notes"), Texts{"Note.txt"});
    EXPECT_EQ(files.Peek("C:\\Jotwright\\Notes\\Note.txt"), "mine");
}

TEST_F(frmNoteTest, ATextBeyondSixteenBitsDoesNotEndTheProgram) {
    frmNote& note = MakeNote("Long", std::string(40'000, 'x'));
    frmNote& other = MakeNote("Other");
    user->Click(other.txtNote);
    user->Click(note.txtNote);
    EXPECT_FALSE(runtime->HasEnded());
    user->CloseBox(note);
    EXPECT_EQ(Saved("Long").Text.size(), 40'000U);
}

}  // namespace
