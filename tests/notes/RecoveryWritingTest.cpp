#include "forms/Gestures.h"
#include "tests/notes/RecoveryProgram.h"

// When the recovery copy of an unsaved note is written, and when it is removed.

namespace {

using forms::BoxResult;
using RecoveryWritingTest = testing_support::RecoveryProgram;

TEST_F(RecoveryWritingTest, ASavedTextNeedsNoCopy) {
    frmNote& note = MakeNote("Dentist", "typed");
    Advance(2000);
    EXPECT_EQ(FilesOfNotes().size(), 1U);
    Start([&note] { note.WriteNote(); });
    EXPECT_EQ(FilesOfNotes(), Names{"Dentist.txt"});
    user->Type(note.txtNote, "typed more");
    Advance(2000);
    EXPECT_EQ(FilesOfNotes().size(), 2U);
    user->Type(note.txtNote, "typed");
    Advance(2000);
    EXPECT_EQ(FilesOfNotes(), Names{"Dentist.txt"});
}

TEST_F(RecoveryWritingTest, ANoteThatIsEditedAgainUsesTheSameCopyAgain) {
    EditSaved(Note("Dentist", "old"), "new");
    const std::string copy = CopyPath();
    Start([this] { Editor("Dentist").WriteNote(); });
    EXPECT_EQ(FilesOfNotes(), Names{"Dentist.txt"});
    user->Type(Editor("Dentist").txtNote, "newer");
    Advance(2000);
    EXPECT_EQ(CopyPath(), copy);
}

TEST_F(RecoveryWritingTest, ARestoredNoteWithoutEditsNeedsNoCopy) {
    PutNote(Note("Dentist", "old"));
    Start(StandardCode::ReadNotes);
    files.ClearLog();
    Advance(3000);
    EXPECT_TRUE(files.Log().empty());
}

TEST_F(RecoveryWritingTest, AnAlarmThatRangNeedsNoCopy) {
    PutNote(Note("Dentist").WithAlarmAt(9, 0, 5));
    Start(StandardCode::ReadNotes);
    Advance(10'000);
    EXPECT_EQ(Editor("Dentist").cmdAlarm.caption(), "&Set Alarm");
    EXPECT_EQ(FilesOfNotes(), Names{"Dentist.txt"});
}

TEST_F(RecoveryWritingTest, ACopyIsWrittenOnlyWhenTheTextChanges) {
    MakeNote("Dentist", "typed");
    Advance(2000);
    files.ClearLog();
    Advance(60'000);
    EXPECT_TRUE(files.Log().empty());
}

TEST_F(RecoveryWritingTest, CopiesAreNotFlushedAndWrittenOnceASecond) {
    frmNote& note = MakeNote("Dentist", "typed");
    Advance(2000);
    const int flushes = files.Flushes();
    files.ClearLog();
    std::string text = "typed";
    for (int tenths = 0; tenths < 200; ++tenths) {
        text += 'x';
        user->Type(note.txtNote, text);
        Advance(100);
    }
    int copies = 0;
    for (const std::string& entry : files.Log()) {
        copies += entry.starts_with("replace ") ? 1 : 0;
    }
    EXPECT_EQ(copies, 20);
    EXPECT_EQ(files.Flushes(), flushes);
}

TEST_F(RecoveryWritingTest, TheCopyIsAtMostTwoSecondsBehindIfTheClockIsSet) {
    frmNote& note = MakeNote("Dentist", "typed");
    Advance(2000);
    for (const int sincePreviousText : {0, 300, 600, 900}) {
        for (int milliseconds = -1000; milliseconds <= 1000; milliseconds += 100) {
            Advance(sincePreviousText);
            const std::string text = "typed " + std::to_string(milliseconds);
            user->Type(note.txtNote, text);
            clock.Jump(0, milliseconds);
            Advance(2000);
            EXPECT_NE(files.Peek(CopyPath()).value().find(text), std::string::npos)
                << sincePreviousText;
        }
    }
}

TEST_F(RecoveryWritingTest, TheListOfNotesDoesNotShowCopies) {
    MakeNote("Dentist", "typed");
    Advance(2000);
    Start(StandardCode::LoadNotesArray);
    EXPECT_EQ(StandardCode::Shared().NoteCount, 0);
    ASSERT_EQ(FilesOfNotes().size(), 1U);
    EXPECT_EQ(FilesOfNotes()[0].find(".txt"), std::string::npos);
}

TEST_F(RecoveryWritingTest, EveryOrderlyEndRemovesTheCopy) {
    frmNote& dropped = OpenThroughPanel(Note("Dropped", "old"));
    user->Type(dropped.txtNote, "old and new");
    Advance(2000);
    ExpectSaveQuestion(BoxResult::No);
    user->CloseBox(dropped);
    EXPECT_EQ(FilesOfNotes(), Names{"Dropped.txt"});

    frmNote& unnoticed = OpenThroughPanel(Note("Dropped", "old"));
    user->Type(unnoticed.txtNote, "new");
    Advance(2000);
    user->CloseBox(unnoticed);
    EXPECT_EQ(FilesOfNotes(), Names{"Dropped.txt"});

    frmNote& erased = OpenThroughPanel(Note("Dropped", "old"));
    user->Type(erased.txtNote, "new");
    Advance(2000);
    ExpectKillNoteQuestion("DROPPED", BoxResult::Yes);
    user->Click(erased.tlbMain, "Erase");
    EXPECT_TRUE(FilesOfNotes().empty());

    StandardCode::Shared().ControlPanelMode = false;
    frmNote& saved = MakeNote("Saved", "typed");
    Advance(2000);
    user->CloseBox(saved);
    EXPECT_EQ(FilesOfNotes(), Names{"Saved.txt"});

    MakeNote("Session", "typed");
    Advance(2000);
    forms::gestures::EndSession();
    EXPECT_EQ(FilesOfNotes(), (Names{"Saved.txt", "Session.txt"}));
}

TEST_F(RecoveryWritingTest, ACopyThatWasRemovedIsWrittenAgain) {
    MakeNote("Dentist", "typed");
    Advance(2000);
    files.Remove(CopyPath());
    EXPECT_TRUE(FilesOfNotes().empty());
    Advance(2000);
    KillAndStartAgain();
    EXPECT_EQ(Editor("Dentist").txtNote.text(), "typed");
}

TEST_F(RecoveryWritingTest, ACopyThatCannotBeReadIsNotOverwritten) {
    const std::string damaged = folder + "\\~Dentist-" + system.instanceId + ".recovery";
    files.PutFolder(folder);
    files.PutFile(damaged, "somebody may still read this");
    Start(StandardCode::ReadNotes);
    MakeNote("Dentist", "typed");
    Advance(2000);
    EXPECT_EQ(files.Peek(damaged), "somebody may still read this");
    KillAndStartAgain();
    EXPECT_EQ(Editor("Dentist").txtNote.text(), "typed");
}

TEST_F(RecoveryWritingTest, OnAFullDiskTheCopyIsTriedAgainWithoutAMessage) {
    MakeNote("Twin", "first");
    Start([] { StandardCode::CreateNote("Twin"); });
    auto* second = dynamic_cast<frmNote*>(runtime->LoadedForms().back().get());
    user->Type(second->txtNote, "second");
    files.SetFreeSpace(1);
    Advance(3000);
    EXPECT_TRUE(stage->Boxes().empty());
    files.SetFreeSpace(std::nullopt);
    Advance(2000);
    EXPECT_EQ(FilesOfNotes().size(), 2U);
    KillAndStartAgain();
    EXPECT_EQ(runtime->LoadedForms().size(), 2U);
}

TEST_F(RecoveryWritingTest, ACopyThatIsInUseIsWrittenLaterWithoutAWait) {
    frmNote& note = MakeNote("Dentist", "typed");
    Advance(2000);
    files.SetDenied(CopyPath(), true);
    system.paused = 0;
    user->Type(note.txtNote, "typed more");
    Advance(2000);
    EXPECT_EQ(system.paused, 0);
    files.SetDenied(CopyPath(), false);
    Advance(2000);
    KillAndStartAgain();
    EXPECT_EQ(Editor("Dentist").txtNote.text(), "typed more");
}

TEST_F(RecoveryWritingTest, AKillAtAnyStepOfWritingLosesOnlyTheLastSeconds) {
    PutNote(Note("Dentist", "old"));
    for (int step = 1; step <= 12; ++step) {
        for (const auto moment : {forms::headless::MemoryFiles::Moment::Before,
                                  forms::headless::MemoryFiles::Moment::Middle,
                                  forms::headless::MemoryFiles::Moment::After}) {
            for (const auto& copy : files.List(folder, ".recovery")) {
                files.Remove(folder + "\\" + copy.name);
            }
            RestartProgram();
            Start(StandardCode::ReadNotes);
            user->Restore(Editor("Dentist"));
            user->Type(Editor("Dentist").txtNote, "first");
            Advance(2000);
            user->Type(Editor("Dentist").txtNote, "second");
            files.KillAt(step, moment);
            try {
                Advance(2000);
            } catch (const forms::headless::Killed&) {
            }
            KillAndStartAgain();
            const std::string text = Editor("Dentist").txtNote.text;
            EXPECT_TRUE(text == "first" || text == "second") << step << ": " << text;
        }
    }
}

}  // namespace
