#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "app/StandardCode.h"
#include "forms/Gestures.h"
#include "notes/NoteFile.h"
#include "notes/NoteStore.h"
#include "notes/RestoreNotes.h"
#include "notes/frmDisplayNote.h"
#include "tests/support/OpenNotes.h"
#include "tests/support/ProductProgram.h"

// Closing the alarm display of a note: the question, and its effect on the file.

namespace {

using forms::BoxResult;
using StandardCode::Shared;
using PanelAction = StandardCode::SharedSignals::PanelAction;

const std::string notes = "C:\\Jotwright\\Notes";
const std::string dentist = notes + "\\Dentist.txt";
const std::string ringing =
    "\"Dentist\",\"Call to move the appointment.\r\nAsk for a Friday.\","
    "#2004-05-14#,#09:30:00#,5,12,\"1\",1,\"yes\"\r\n";
const std::string silenced =
    "\"Dentist\",\"Call to move the appointment.\r\nAsk for a Friday.\","
    "#2004-05-14#,\"#12:00#\",5,12,\"0\",0,\"yes\"\r\n";

class frmDisplayNoteClosingTest : public testing_support::ProductProgram {
  protected:
    void SetUp() override {
        ProductProgram::SetUp();
        files.PutFolder(notes);
        Watch();
    }

    // Rebuilds the array, as the control panel does.
    void Watch() {
        StandardCode::Signals().ControlPanel.Subscribe([this](PanelAction action) {
            panelActions.push_back(action);
            StandardCode::LoadNotesArray();
        });
    }

    static Note DueNote(const std::string& title = "Dentist") {
        return Note(title, "call").WithAlarmAt(9, 30).WithSound().InColor(5);
    }

    // Displays the only note, whose file holds these bytes.
    std::shared_ptr<frmDisplayNote> Open(const std::string& content = ringing,
                                         const std::string& fileName = "Dentist.txt") {
        files.PutFile(notes + '\\' + fileName, content);
        Start([] { StandardCode::LoadNotesArray(); });
        std::shared_ptr<frmDisplayNote> display;
        Start([&display] { display = StandardCode::DisplayNote(1); });
        return display;
    }
    std::shared_ptr<frmDisplayNote> Open(const StandardCode::NoteRecord& note,
                                         const std::string& fileName = "Dentist.txt") {
        return Open(NoteFile::Encode(note), fileName);
    }

    // The user has typed "typed here", and the file is read-only.
    std::shared_ptr<frmDisplayNote> OpenWithTextThatCannotBeWritten() {
        auto display = Open();
        user->Type(display->lblNoteText, "typed here");
        files.SetReadOnly(dentist, true);
        return display;
    }

    void ExpectTypedTextAtTheNextStart() {
        files.SetReadOnly(dentist, false);
        Restart();
        Start(StandardCode::ReadNotes);
        frmNote* note = testing_support::FindOpenNote("Dentist");
        ASSERT_NE(note, nullptr);
        EXPECT_EQ(note->txtNote.text(), "typed here");
        EXPECT_EQ(note->cmdAlarm.caption(), "&Set Alarm");
        EXPECT_EQ(StandardCode::NoteTitles().size(), 1U);
    }

    std::vector<PanelAction> panelActions;
};

TEST_F(frmDisplayNoteClosingTest, NoKeepsTheNoteWithItsAlarmOff) {
    const auto display = Open();
    ExpectEraseNoteQuestion(BoxResult::No);
    user->CloseBox(*display);
    EXPECT_FALSE(display->IsLoaded());
    EXPECT_EQ(files.Peek(dentist), silenced);
    EXPECT_EQ(files.Names(notes), std::vector<std::string>{"Dentist.txt"});
    EXPECT_EQ(panelActions, std::vector<PanelAction>{PanelAction::LoadAndUnload});
    // The file can still be read.
    EXPECT_EQ(Shared().NoteCount, 1);
    EXPECT_EQ(Shared().NotesArray[1].AlarmTime, base::DateTime::FromTime(12, 0, 0));
    EXPECT_EQ(Shared().NotesArray[1].AlarmState, "0");
    EXPECT_EQ(Shared().NotesArray[1].AudioAlarm, 0);
}

TEST_F(frmDisplayNoteClosingTest, YesErasesTheNote) {
    const auto display = Open();
    ExpectEraseNoteQuestion(BoxResult::Yes);
    user->CloseBox(*display);
    EXPECT_FALSE(display->IsLoaded());
    EXPECT_TRUE(files.Names(notes).empty());
    EXPECT_EQ(files.RecycleBin().size(), 1u);
    EXPECT_EQ(panelActions, std::vector<PanelAction>{PanelAction::LoadAndUnload});
    EXPECT_EQ(Shared().NoteCount, 0);
}

TEST_F(frmDisplayNoteClosingTest, YesErasesWithoutARecycleBinToo) {
    files.SetRecycleBin(false);
    const auto display = Open();
    ExpectEraseNoteQuestion(BoxResult::Yes);
    user->CloseBox(*display);
    EXPECT_TRUE(files.Names(notes).empty());
}

TEST_F(frmDisplayNoteClosingTest, TheMenuAsksTheSameQuestion) {
    for (const std::string entry : {"mnuErase", "mnuClose"}) {
        const auto display = Open();
        stage->ExpectPopup("mnuPop", entry);
        ExpectEraseNoteQuestion(BoxResult::No, [&] { EXPECT_TRUE(display->IsVisible()); });
        user->RightClick(*display);
        EXPECT_FALSE(display->IsLoaded());
        EXPECT_EQ(files.Peek(dentist), silenced);
    }
}

TEST_F(frmDisplayNoteClosingTest, ANoteErasedElsewhereAsksNothing) {
    const auto display = Open();
    files.Remove(dentist);
    user->CloseBox(*display);
    EXPECT_FALSE(display->IsLoaded());
    EXPECT_TRUE(files.Names(notes).empty());
    EXPECT_TRUE(panelActions.empty());
}

TEST_F(frmDisplayNoteClosingTest, TheSecondDisplayOfAnErasedNoteAsksNothing) {
    const auto first = Open();
    const auto second = Open();
    ExpectEraseNoteQuestion(BoxResult::Yes);
    user->CloseBox(*first);
    user->CloseBox(*second);
    EXPECT_TRUE(files.Names(notes).empty());
}

TEST_F(frmDisplayNoteClosingTest, ANoteErasedWhileTheQuestionIsOpenIsNoError) {
    const auto display = Open();
    ExpectEraseNoteQuestion(BoxResult::Yes, [&] { files.Remove(dentist); });
    user->CloseBox(*display);
    EXPECT_FALSE(display->IsLoaded());
}

TEST_F(frmDisplayNoteClosingTest, NoBringsBackANoteErasedWhileTheQuestionWasOpen) {
    const auto display = Open();
    ExpectEraseNoteQuestion(BoxResult::No, [&] { files.Remove(dentist); });
    user->CloseBox(*display);
    EXPECT_EQ(files.Peek(dentist), silenced);
}

TEST_F(frmDisplayNoteClosingTest, TheDateIsTheDayOfClosing) {
    SetNow(2004, 5, 14, 23, 59, 0);
    const auto display = Open();
    Advance(120000);
    ExpectEraseNoteQuestion(BoxResult::No);
    user->CloseBox(*display);
    EXPECT_NE(files.Peek(dentist).value().find(",#2004-05-15#,\"#12:00#\","), std::string::npos);
}

TEST_F(frmDisplayNoteClosingTest, EveryColorIsWrittenAsItsIndex) {
    for (int index = 1; index <= 6; ++index) {
        const auto display = Open(DueNote().InColor(index));
        ExpectEraseNoteQuestion(BoxResult::No);
        user->CloseBox(*display);
        EXPECT_EQ(files.Peek(dentist), "\"Dentist\",\"call\",#2004-05-14#,\"#12:00#\"," +
                                           std::to_string(index) + ",12,\"0\",0,\"yes\"\r\n");
    }
}

TEST_F(frmDisplayNoteClosingTest, AnyOtherColorIsWrittenAsSix) {
    const auto display = Open(DueNote().InColor(0));
    ExpectEraseNoteQuestion(BoxResult::No);
    user->CloseBox(*display);
    EXPECT_EQ(files.Peek(dentist),
              "\"Dentist\",\"call\",#2004-05-14#,\"#12:00#\",6,12,\"0\",0,\"yes\"\r\n");
}

TEST_F(frmDisplayNoteClosingTest, TheFontSizeIsTheSizeShown) {
    for (const auto& [stored, written] : {std::pair{10, 10}, {14, 14}, {16, 16}, {11, 12}}) {
        const auto display = Open(DueNote().InPoints(stored));
        ExpectEraseNoteQuestion(BoxResult::No);
        user->CloseBox(*display);
        EXPECT_EQ(files.Peek(dentist), "\"Dentist\",\"call\",#2004-05-14#,\"#12:00#\",5," +
                                           std::to_string(written) + ",\"0\",0,\"yes\"\r\n");
    }
}

TEST_F(frmDisplayNoteClosingTest, TheTypedTextIsKept) {
    const auto display = Open();
    user->Type(display->lblNoteText, "moved");
    ExpectEraseNoteQuestion(BoxResult::No);
    user->CloseBox(*display);
    EXPECT_EQ(files.Peek(dentist),
              "\"Dentist\",\"moved\",#2004-05-14#,\"#12:00#\",5,12,\"0\",0,\"yes\"\r\n");
}

TEST_F(frmDisplayNoteClosingTest, ATextOutsideTheCodePageIsKeptWhole) {
    const auto display = Open();
    const std::string text = "\xD0\x9F\xD1\x80\xD0\xB8\xD0\xB2\xD0\xB5\xD1\x82 \xF0\x9F\x95\x91";
    user->Type(display->lblNoteText, text);
    ExpectEraseNoteQuestion(BoxResult::No);
    user->CloseBox(*display);
    EXPECT_EQ(Shared().NotesArray[1].Text, text);
}

TEST_F(frmDisplayNoteClosingTest, BlanksAroundTheTitleAreTrimmedInTheFile) {
    // The display shows the title field, not the name of the file.
    const auto display = Open(DueNote(" Dentist"));
    ASSERT_EQ(display->caption(), " Dentist");
    ExpectEraseNoteQuestion(BoxResult::No);
    user->CloseBox(*display);
    EXPECT_EQ(files.Names(notes), std::vector<std::string>{"Dentist.txt"});
    EXPECT_EQ(files.Peek(dentist),
              "\"Dentist\",\"call\",#2004-05-14#,\"#12:00#\",5,12,\"0\",0,\"yes\"\r\n");
}

TEST_F(frmDisplayNoteClosingTest, TheFileStaysIfItsReplacementFailed) {
    const Note note = DueNote(" Dentist");
    const auto display = Open(note);
    files.SetFreeSpace(0);
    ExpectEraseNoteQuestion(BoxResult::No);
    ExpectWriteError("61 - Disk full");
    user->CloseBox(*display);
    EXPECT_EQ(files.Peek(dentist), NoteFile::Encode(note));
}

TEST_F(frmDisplayNoteClosingTest, AsksAboutTheFileThatTheNoteCameFrom) {
    const auto display = Open(DueNote(" Dentist"), " Dentist.txt");
    ExpectEraseNoteQuestion(BoxResult::Yes);
    user->CloseBox(*display);
    EXPECT_FALSE(display->IsLoaded());
    EXPECT_TRUE(files.Names(notes).empty());
}

TEST_F(frmDisplayNoteClosingTest, ResetsTheAnswer) {
    Shared().Answer = 2;
    const auto display = Open();
    ExpectEraseNoteQuestion(BoxResult::No);
    user->CloseBox(*display);
    EXPECT_EQ(Shared().Answer, 0);
}

TEST_F(frmDisplayNoteClosingTest, TheDefaultInstanceHoldsNoNote) {
    const Note other = DueNote("note");
    PutNote(other);
    Start([] { forms::Default<frmDisplayNote>().Load(); });
    ASSERT_EQ(forms::Default<frmDisplayNote>().caption(), "note");
    Start([] { forms::Default<frmDisplayNote>().Unload(); });
    EXPECT_EQ(forms::LoadedDefault<frmDisplayNote>(), nullptr);
    EXPECT_EQ(FileOf("note"), NoteFile::Encode(other));
    EXPECT_TRUE(panelActions.empty());
}

TEST_F(frmDisplayNoteClosingTest, TheEndOfTheSessionKeepsTheNoteAndAsksNothing) {
    const auto display = Open();
    forms::gestures::EndSession();
    EXPECT_FALSE(display->IsLoaded());
    EXPECT_EQ(files.Peek(dentist), silenced);
}

TEST_F(frmDisplayNoteClosingTest, AFailingRewriteIsReportedAndLosesNothing) {
    const auto display = Open();
    files.SetReadOnly(dentist, true);
    ExpectEraseNoteQuestion(BoxResult::No);
    ExpectWriteError("75 - Path/File access error");
    user->CloseBox(*display);
    EXPECT_EQ(files.Peek(dentist), ringing);
    EXPECT_EQ(panelActions.size(), 1u);
}

TEST_F(frmDisplayNoteClosingTest, TextThatCannotBeWrittenKeepsTheWindow) {
    const auto display = OpenWithTextThatCannotBeWritten();
    ExpectEraseNoteQuestion(BoxResult::No);
    ExpectWriteError("75 - Path/File access error");
    user->CloseBox(*display);
    EXPECT_TRUE(display->IsVisible());
    EXPECT_EQ(display->lblNoteText.text(), "typed here");
    files.SetReadOnly(dentist, false);
    ExpectEraseNoteQuestion(BoxResult::No);
    user->CloseBox(*display);
    EXPECT_FALSE(display->IsLoaded());
    EXPECT_NE(files.Peek(dentist)->find("typed here"), std::string::npos);
}

TEST_F(frmDisplayNoteClosingTest, TextThatCannotBeWrittenOutlivesTheEndOfTheSession) {
    auto display = OpenWithTextThatCannotBeWritten();
    forms::gestures::EndSession();
    EXPECT_TRUE(stage->Boxes().empty());
    EXPECT_TRUE(runtime->LoadedForms().empty());
    EXPECT_EQ(files.Peek(dentist), ringing);
    display.reset();
    ExpectTypedTextAtTheNextStart();
}

TEST_F(frmDisplayNoteClosingTest, TextOutlivesTheEndOfTheSessionBehindTheReport) {
    auto display = OpenWithTextThatCannotBeWritten();
    ExpectEraseNoteQuestion(BoxResult::No);
    ExpectWriteError("75 - Path/File access error", [] { forms::gestures::EndSession(); });
    user->CloseBox(*display);
    EXPECT_TRUE(runtime->HasEnded());
    display.reset();
    ExpectTypedTextAtTheNextStart();
}

TEST_F(frmDisplayNoteClosingTest, TextOutlivesTheEndOfTheSessionBehindTheQuestion) {
    auto display = OpenWithTextThatCannotBeWritten();
    ExpectEraseNoteQuestion(BoxResult::No, [] { forms::gestures::EndSession(); });
    user->CloseBox(*display);
    EXPECT_TRUE(runtime->HasEnded());
    display.reset();
    ExpectTypedTextAtTheNextStart();
}

TEST_F(frmDisplayNoteClosingTest, WithoutTypedTextTheEndOfTheSessionLeavesNoCopy) {
    const auto display = Open();
    files.SetReadOnly(dentist, true);
    forms::gestures::EndSession();
    EXPECT_EQ(files.Peek(dentist), ringing);
    EXPECT_EQ(files.List(notes, ".recovery").size(), 0U);
}

TEST_F(frmDisplayNoteClosingTest, SavingOrErasingTheTextRemovesItsCopy) {
    for (const BoxResult answer : {BoxResult::No, BoxResult::Yes}) {
        const auto display = OpenWithTextThatCannotBeWritten();
        ExpectEraseNoteQuestion(BoxResult::No);
        ExpectWriteError("75 - Path/File access error");
        user->CloseBox(*display);
        EXPECT_EQ(files.List(notes, ".recovery").size(), 1U);
        files.SetReadOnly(dentist, false);
        ExpectEraseNoteQuestion(answer);
        user->CloseBox(*display);
        EXPECT_FALSE(display->IsLoaded());
        EXPECT_EQ(files.List(notes, ".recovery").size(), 0U);
    }
}

TEST_F(frmDisplayNoteClosingTest, AFailingEraseIsReported) {
    const auto display = Open();
    files.SetDenied(dentist, true);
    ExpectEraseNoteQuestion(BoxResult::Yes);
    ExpectWriteError("70 - Permission denied");
    user->CloseBox(*display);
    EXPECT_EQ(files.Peek(dentist), ringing);
    EXPECT_FALSE(runtime->HasEnded());
}

TEST_F(frmDisplayNoteClosingTest, AFullDiskLeavesTheOldNote) {
    const auto display = Open();
    files.SetFreeSpace(10);
    ExpectEraseNoteQuestion(BoxResult::No);
    ExpectWriteError("61 - Disk full");
    user->CloseBox(*display);
    EXPECT_EQ(files.Peek(dentist), ringing);
}

// No matter at which step of the closing the program is killed, the disk holds the old note or the
// new note.
TEST_F(frmDisplayNoteClosingTest, AKillAtAnyStepLeavesOneWholeNote) {
    using forms::headless::MemoryFiles;
    bool reachedEnd = false;
    for (int step = 1; step < 40 && !reachedEnd; ++step) {
        for (const auto moment : {MemoryFiles::Moment::Before, MemoryFiles::Moment::Middle,
                                  MemoryFiles::Moment::After}) {
            auto display = Open();
            bool killed = false;
            ExpectEraseNoteQuestion(BoxResult::No, [&] { files.KillAt(step, moment); });
            try {
                Start([&] { display->Unload(); });
            } catch (const forms::headless::Killed&) {
                killed = true;
            }
            reachedEnd = !killed;
            files.Restart();
            const auto left = files.Peek(dentist);
            EXPECT_TRUE(left == ringing || left == silenced) << step << ": " << left.value_or("");
            files.Remove(dentist);
            display.reset();
            if (killed) {
                Restart();
                Watch();
            }
        }
    }
    EXPECT_TRUE(reachedEnd);
}

}  // namespace
