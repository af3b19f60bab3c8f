#include <algorithm>

#include "forms/Gestures.h"
#include "notes/RecoveryCopy.h"
#include "tests/support/NoteProgram.h"

// Text that was typed and not saved outlives a program that is killed.

namespace {

using forms::BoxResult;
using Names = std::vector<std::string>;

class RecoveryTest : public testing_support::NoteProgram {
  protected:
    Names FilesOfNotes() const { return files.Names("C:\\Jotwright\\Notes"); }

    // The path of the only copy.
    std::string CopyPath() {
        const auto copies = files.List("C:\\Jotwright\\Notes", ".recovery");
        EXPECT_EQ(copies.size(), 1U);
        return "C:\\Jotwright\\Notes\\" + (copies.empty() ? "none" : copies.front().name);
    }

    // The process dies without a word and the program is started again.
    void KillAndStartAgain() {
        RestartProgram();
        Start(StandardCode::ReadNotes);
    }
};

TEST_F(RecoveryTest, TypingIsKeptWithinTwoSeconds) {
    PutNote(Note("Dentist", "old"));
    Start(StandardCode::ReadNotes);
    user->Restore(Editor("Dentist"));
    user->Type(Editor("Dentist").txtNote, "new \"quoted\"\r\nlines");
    Advance(2000);
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

TEST_F(RecoveryTest, WhatIsSavedNeedsNoCopy) {
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

TEST_F(RecoveryTest, ACopyIsWrittenOnlyWhenTheTextChanges) {
    MakeNote("Dentist", "typed");
    Advance(2000);
    files.ClearLog();
    Advance(60'000);
    EXPECT_TRUE(files.Log().empty());
}

TEST_F(RecoveryTest, TheListOfNotesDoesNotShowCopies) {
    MakeNote("Dentist", "typed");
    Advance(2000);
    Start(StandardCode::LoadNotesArray);
    EXPECT_EQ(StandardCode::Shared().NoteCount, 0);
    ASSERT_EQ(FilesOfNotes().size(), 1U);
    EXPECT_EQ(FilesOfNotes()[0].find(".txt"), std::string::npos);
}

TEST_F(RecoveryTest, EveryOrderlyEndRemovesTheCopy) {
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

TEST_F(RecoveryTest, ARecoveredTextIsDroppedAsAnyEdit) {
    PutNote(Note("Dentist", "old"));
    Start(StandardCode::ReadNotes);
    user->Restore(Editor("Dentist"));
    user->Type(Editor("Dentist").txtNote, "new");
    Advance(2000);
    KillAndStartAgain();
    StandardCode::Shared().ControlPanelMode = true;
    ExpectSaveQuestion(BoxResult::No);
    user->CloseBox(Editor("Dentist"));
    EXPECT_EQ(Saved("Dentist").Text, "old");
    EXPECT_EQ(FilesOfNotes(), Names{"Dentist.txt"});
    KillAndStartAgain();
    EXPECT_EQ(Editor("Dentist").txtNote.text(), "old");
}

TEST_F(RecoveryTest, ASecondKillLosesNothing) {
    MakeNote("Dentist", "typed");
    Advance(2000);
    KillAndStartAgain();
    KillAndStartAgain();
    EXPECT_EQ(Editor("Dentist").txtNote.text(), "typed");
}

TEST_F(RecoveryTest, ColorAndAlarmOfTheNoteStay) {
    PutNote(Note("Dentist", "old").WithAlarm().InColor(3));
    Start(StandardCode::ReadNotes);
    user->Restore(Editor("Dentist"));
    user->Type(Editor("Dentist").txtNote, "new");
    Advance(2000);
    // An earlier file now ends the restoring.
    files.PutFile(PathOf("Aaa"), "damaged");
    RestartProgram();
    ExpectLoadError("Input past end of file");
    Start(StandardCode::ReadNotes);
    frmNote& note = Editor("Dentist");
    EXPECT_EQ(note.txtNote.text(), "new");
    EXPECT_TRUE(note.mnuGreen.checked());
    EXPECT_EQ(note.cmdAlarm.caption(), "&Turn Off Alarm");
}

TEST_F(RecoveryTest, TwoNewNotesOfOneTitleBothComeBack) {
    MakeNote("Twin", "first");
    Start([] { StandardCode::CreateNote("Twin"); });
    auto* second = dynamic_cast<frmNote*>(runtime->LoadedForms().back().get());
    user->Type(second->txtNote, "second");
    Advance(2000);
    KillAndStartAgain();
    ASSERT_EQ(runtime->LoadedForms().size(), 2U);
    std::vector<std::string> texts;
    for (const auto& form : runtime->LoadedForms()) {
        texts.push_back(dynamic_cast<frmNote&>(*form).txtNote.text());
    }
    EXPECT_EQ(texts, (Names{"first", "second"}));
}

TEST_F(RecoveryTest, OfTwoNotesInOneFileBothAreKept) {
    frmNote& first = MakeNote("Twin", "first");
    Start([&first] { first.WriteNote(); });
    Start([] { StandardCode::CreateNote("twin"); });
    auto* second = dynamic_cast<frmNote*>(runtime->LoadedForms().back().get());
    user->Type(second->txtNote, "second");
    Start([second] { second->WriteNote(); });
    EXPECT_EQ(Saved("Twin").Text, "second");
    Advance(2000);
    KillAndStartAgain();
    EXPECT_EQ(Editor("twin").txtNote.text(), "second");
    EXPECT_EQ(Editor("Twin (recovered)").txtNote.text(), "first");
}

TEST_F(RecoveryTest, ACopyThatSomebodyRemovesIsWrittenAgain) {
    MakeNote("Dentist", "typed");
    Advance(2000);
    ASSERT_EQ(FilesOfNotes().size(), 1U);
    files.Remove("C:\\Jotwright\\Notes\\" + FilesOfNotes()[0]);
    EXPECT_TRUE(FilesOfNotes().empty());
    Advance(2000);
    KillAndStartAgain();
    EXPECT_EQ(Editor("Dentist").txtNote.text(), "typed");
}

TEST_F(RecoveryTest, ATitleThatIsNoFileNameIsKeptAllTheSame) {
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

TEST_F(RecoveryTest, WhatIsNoCopyIsPassedOver) {
    MakeNote("Dentist", "typed");
    Advance(2000);
    const std::string folder = "C:\\Jotwright\\Notes\\";
    ASSERT_EQ(FilesOfNotes().size(), 1U);
    const std::string whole = *files.Peek(folder + FilesOfNotes()[0]);
    const std::size_t titleEnd = whole.find("Dentist") + std::string("Dentist").size();
    for (std::size_t length = 0; length < titleEnd + 2; ++length) {
        files.PutFile(folder + "~Cut " + std::to_string(length) + ".recovery",
                      whole.substr(0, length));
    }
    KillAndStartAgain();
    EXPECT_EQ(runtime->LoadedForms().size(), 1U);
    EXPECT_EQ(Editor("Dentist").txtNote.text(), "typed");
}

TEST_F(RecoveryTest, AFullDiskIsTriedAgainWithoutAWord) {
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

TEST_F(RecoveryTest, ACopyThatCannotBeReadIsNotWrittenOver) {
    const std::string damaged = "C:\\Jotwright\\Notes\\~Dentist-" + system.instanceId + ".recovery";
    files.PutFolder("C:\\Jotwright\\Notes");
    files.PutFile(damaged, "somebody may still read this");
    Start(StandardCode::ReadNotes);
    MakeNote("Dentist", "typed");
    Advance(2000);
    EXPECT_EQ(files.Peek(damaged), "somebody may still read this");
    KillAndStartAgain();
    EXPECT_EQ(Editor("Dentist").txtNote.text(), "typed");
}

TEST_F(RecoveryTest, ARestoredNoteThatIsLeftAloneNeedsNoCopy) {
    PutNote(Note("Dentist", "old"));
    Start(StandardCode::ReadNotes);
    files.ClearLog();
    Advance(3000);
    EXPECT_TRUE(files.Log().empty());
}

TEST_F(RecoveryTest, ACopyOfWhatWasSavedAfterAllIsNoEdit) {
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

TEST_F(RecoveryTest, AKillAtAnyStepOfTheCopyLosesOnlyTheLastSeconds) {
    PutNote(Note("Dentist", "old"));
    for (int step = 1; step <= 12; ++step) {
        for (const auto moment : {forms::headless::MemoryFiles::Moment::Before,
                                  forms::headless::MemoryFiles::Moment::Middle,
                                  forms::headless::MemoryFiles::Moment::After}) {
            for (const auto& copy : files.List("C:\\Jotwright\\Notes", ".recovery")) {
                files.Remove("C:\\Jotwright\\Notes\\" + copy.name);
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

TEST_F(RecoveryTest, AnAlarmAColorAndASizeThatWereNotSavedComeBackAndTheAlarmRings) {
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

TEST_F(RecoveryTest, AnAlarmThatWasTurnedOffAndNotSavedStaysOff) {
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

TEST_F(RecoveryTest, AnAlarmThatRangNeedsNoCopy) {
    PutNote(Note("Dentist").WithAlarmAt(9, 0, 5));
    Start(StandardCode::ReadNotes);
    Advance(10'000);
    EXPECT_EQ(Editor("Dentist").cmdAlarm.caption(), "&Set Alarm");
    EXPECT_EQ(FilesOfNotes(), Names{"Dentist.txt"});
}

// A scanner holds the copy while the note is saved and closed; the copy then says less than the
// file.
TEST_F(RecoveryTest, ACopyThatCouldNotBeRemovedNeverTakesThePlaceOfASavedText) {
    PutNote(Note("Dentist", "old"));
    Start(StandardCode::ReadNotes);
    user->Restore(Editor("Dentist"));
    user->Type(Editor("Dentist").txtNote, "first half");
    Advance(2000);
    const std::string copy = CopyPath();
    ASSERT_TRUE(files.Peek(copy).has_value());
    files.SetDenied(copy, true);
    user->Type(Editor("Dentist").txtNote, "first half, second half");
    user->CloseBox(Editor("Dentist"));
    files.SetDenied(copy, false);
    KillAndStartAgain();
    EXPECT_EQ(Editor("Dentist").txtNote.text(), "first half, second half");
    EXPECT_EQ(Editor("Dentist (recovered)").txtNote.text(), "first half");
    while (!StandardCode::NoteTitles().empty()) {
        user->CloseBox(Editor(StandardCode::NoteTitles().front()));
    }
    EXPECT_EQ(Saved("Dentist").Text, "first half, second half");
    EXPECT_EQ(Saved("Dentist (recovered)").Text, "first half");
    EXPECT_EQ(FilesOfNotes(), (Names{"Dentist (recovered).txt", "Dentist.txt"}));
}

TEST_F(RecoveryTest, ACopyOfAnOlderFileComesUpBesideTheNote) {
    PutNote(Note("Dentist", "old"));
    Start(StandardCode::ReadNotes);
    user->Restore(Editor("Dentist"));
    user->Type(Editor("Dentist").txtNote, "typed");
    Advance(2000);
    RestartProgram();
    PutNote(Note("Dentist", "by another machine"));
    Start(StandardCode::ReadNotes);
    EXPECT_EQ(Editor("Dentist").txtNote.text(), "by another machine");
    EXPECT_EQ(Editor("Dentist").windowState(), forms::WindowState::Minimized);
    EXPECT_EQ(Editor("Dentist (recovered)").txtNote.text(), "typed");
    EXPECT_EQ(Editor("Dentist (recovered)").windowState(), forms::WindowState::Normal);
    // Killed once more before it is saved, it comes back under its new name.
    KillAndStartAgain();
    EXPECT_EQ(Editor("Dentist (recovered)").txtNote.text(), "typed");
    EXPECT_EQ(StandardCode::NoteTitles().size(), 2U);
}

TEST_F(RecoveryTest, ANewNoteWhoseTitleWasTakenMeanwhileComesUpBesideTheOther) {
    MakeNote("Dentist", "typed");
    Advance(2000);
    RestartProgram();
    PutNote(Note("Dentist", "by another machine"));
    Start(StandardCode::ReadNotes);
    EXPECT_EQ(Editor("Dentist").txtNote.text(), "by another machine");
    EXPECT_EQ(Editor("Dentist (recovered)").txtNote.text(), "typed");
}

TEST_F(RecoveryTest, ACopyOfAProgramThatRunsIsLeftAlone) {
    PutNote(Note("Dentist", "old"));
    Start(StandardCode::ReadNotes);
    user->Restore(Editor("Dentist"));
    user->Type(Editor("Dentist").txtNote, "typed");
    Advance(2000);
    // Another program on the same folder.
    files.SetLocked("C:\\Jotwright\\Notes\\~Jotwright-" + system.instanceId + ".lock", true);
    const std::string first = system.instanceId;
    system.instanceId = "000000000000000b";
    const std::string copy = CopyPath();
    const auto before = files.Peek(copy);
    RestartProgram();
    files.SetLocked("C:\\Jotwright\\Notes\\~Jotwright-" + first + ".lock", true);
    Start(StandardCode::ReadNotes);
    EXPECT_EQ(Editor("Dentist").txtNote.text(), "old");
    user->Restore(Editor("Dentist"));
    user->Type(Editor("Dentist").txtNote, "typed here");
    Advance(2000);
    EXPECT_EQ(files.Peek(copy), before);
    EXPECT_EQ(FilesOfNotes().size(), 3U);
}

TEST_F(RecoveryTest, ATornCopyComesUpBesideTheNote) {
    PutNote(Note("Dentist", "saved"));
    Start(StandardCode::ReadNotes);
    user->Restore(Editor("Dentist"));
    user->Type(Editor("Dentist").txtNote, "typed before the power went");
    Advance(2000);
    const std::string copy = CopyPath();
    std::string bytes = files.Peek(copy).value_or("");
    RestartProgram();
    const std::size_t torn = bytes.find(" before");
    ASSERT_NE(torn, std::string::npos);
    std::fill(bytes.begin() + static_cast<std::ptrdiff_t>(torn), bytes.end(), '\0');
    files.PutFile(copy, bytes);
    Start(StandardCode::ReadNotes);
    EXPECT_EQ(Editor("Dentist").txtNote.text(), "saved");
    EXPECT_TRUE(Editor("Dentist (recovered)").txtNote.text().starts_with("typed"));
}

TEST_F(RecoveryTest, ACopyAndAFileThatAreHeldForAMomentAtTheStartAreWaitedFor) {
    PutNote(Note("Dentist", "old"));
    Start(StandardCode::ReadNotes);
    user->Restore(Editor("Dentist"));
    user->Type(Editor("Dentist").txtNote, "typed");
    Advance(2000);
    const std::string copy = CopyPath();
    RestartProgram();
    files.SetDenied(copy, true);
    int pauses = 0;
    system.onPause = [&] {
        ++pauses;
        if (pauses == 3) {
            files.SetDenied(copy, false);
            files.SetDenied(PathOf("Dentist"), true);
        } else if (pauses == 6) {
            files.SetDenied(PathOf("Dentist"), false);
        }
    };
    Start(StandardCode::ReadNotes);
    EXPECT_EQ(pauses, 6);
    EXPECT_EQ(StandardCode::NoteTitles(), Names{"Dentist"});
    EXPECT_EQ(Editor("Dentist").txtNote.text(), "typed");
}

TEST_F(RecoveryTest, ACopyIsNotDroppedForANoteWhoseTitleBeginsAlike) {
    PutNote(Note("ABC", "typed"));
    PutNote(Note("A", "old"));
    Start(StandardCode::ReadNotes);
    user->Restore(Editor("A"));
    user->Type(Editor("A").txtNote, "typed");
    Advance(2000);
    RestartProgram();
    PutNote(Note("A", "by another machine"));
    Start(StandardCode::ReadNotes);
    EXPECT_EQ(Editor("A (recovered)").txtNote.text(), "typed");
    // One that was saved under such a title is.
    user->CloseBox(Editor("A (recovered)"));
    ASSERT_EQ(Saved("A (recovered)").Text, "typed");
    RecoveredNote again;
    again.file = "A.txt";
    again.base = 1;
    again.record = Note("A", "typed");
    RecoveryCopy().Keep(again);
    KillAndStartAgain();
    EXPECT_EQ(StandardCode::NoteTitles(), (Names{"A (recovered)", "A", "ABC"}));
    EXPECT_EQ(FilesOfNotes().size(), 3U);
}

TEST_F(RecoveryTest, AMissingAlarmIconDoesNotCostTheAlarmOfACopy) {
    PutNote(Note("Dentist"));
    Start(StandardCode::ReadNotes);
    user->Restore(Editor("Dentist"));
    user->Pick(Editor("Dentist").dtTime, base::DateTime::FromTime(17, 0, 0));
    user->Click(Editor("Dentist").cmdAlarm);
    Advance(2000);
    const std::string icon = "C:\\Jotwright\\alarmon.ico";
    const std::string picture = files.Peek(icon).value_or("");
    files.Remove(icon);
    RestartProgram();
    ExpectLoadError("File not found");
    Start(StandardCode::ReadNotes);
    Advance(3000);
    EXPECT_EQ(StandardCode::NoteTitles(), Names{"Dentist"});
    files.PutFile(icon, picture);
    KillAndStartAgain();
    EXPECT_EQ(Editor("Dentist").cmdAlarm.caption(), "&Turn Off Alarm");
    EXPECT_EQ(Editor("Dentist").lblClock.caption(), "5:00:00 PM");
}

TEST_F(RecoveryTest, ARecoveredNoteWithALongTitleCanBeSaved) {
    // With its folder and extension, as long as a path may be.
    const std::string title(259 - std::string("C:\\Jotwright\\Notes\\.txt").size(), 'x');
    PutNote(Note(title, "old"));
    Start(StandardCode::ReadNotes);
    for (const char* text : {"first", "second"}) {
        user->Restore(Editor(title));
        user->Type(Editor(title).txtNote, text);
        Advance(2000);
        RestartProgram();
        PutNote(Note(title, std::string("newer than the ") + text));
        Start(StandardCode::ReadNotes);
        ASSERT_EQ(StandardCode::NoteTitles().size(), *text == 'f' ? 2U : 3U);
        const std::string beside =
            title.substr(0, 219) + (*text == 'f' ? " (recovered)" : " (recovered 2)");
        EXPECT_EQ(Editor(beside).txtNote.text(), text);
        user->CloseBox(Editor(beside));
        EXPECT_EQ(Saved(beside).Text, text);
    }
}

TEST_F(RecoveryTest, ACopyOfAnEarlierVersionComesUpBesideTheNote) {
    PutNote(Note("Dentist", "saved").InColor(3));
    const auto put = [this](const std::string& title, const std::string& text) {
        files.PutFile("C:\\Jotwright\\Notes\\~" + title + ".recovery",
                      "Jotwright recovery copy\r\n" + std::to_string(title.size()) + "\r\n" +
                          title + "\r\n" + text);
    };
    put("Dentist", "typed \"quoted\",\r\nlines \xc3\xa4");
    put("New", "never saved");
    PutNote(Note("Same", "saved after all"));
    put("Same", "saved after all");
    KillAndStartAgain();
    EXPECT_EQ(Editor("Dentist").txtNote.text(), "saved");
    frmNote& beside = Editor("Dentist (recovered)");
    EXPECT_EQ(beside.txtNote.text(), "typed \"quoted\",\r\nlines \xc3\xa4");
    EXPECT_EQ(beside.windowState(), forms::WindowState::Normal);
    EXPECT_EQ(beside.dtDate.value(), base::DateTime::FromDate(2004, 5, 14));
    EXPECT_EQ(beside.dtTime.value(), base::DateTime::FromTime(12, 0, 0));
    EXPECT_EQ(Editor("New").txtNote.text(), "never saved");
    EXPECT_EQ(StandardCode::NoteTitles().size(), 4U);
    // Both are unsaved, and outlive another kill.
    KillAndStartAgain();
    EXPECT_EQ(Editor("New").txtNote.text(), "never saved");
    user->CloseBox(Editor("Dentist (recovered)"));
    EXPECT_EQ(Saved("Dentist (recovered)").Text, "typed \"quoted\",\r\nlines \xc3\xa4");
    EXPECT_EQ(Saved("Dentist").Text, "saved");
}

// What each of two programs sees that look at the folder in the same moment.
struct FilesBeforeTheOther : forms::headless::MemoryFiles {
    bool FileExists(const std::string& path) override {
        return !path.ends_with(".recovery") && MemoryFiles::FileExists(path);
    }
};

TEST_F(RecoveryTest, TwoProgramsThatWriteACopyInTheSameMomentDoNotShareIt) {
    FilesBeforeTheOther disk;
    forms::Machine().files = &disk;
    disk.PutFolder("C:\\Jotwright\\Notes");
    for (const char* instance : {"000000000000000a", "000000000000000b"}) {
        system.instanceId = instance;
        StandardCode::Shared().RecoveryPaths.clear();
        RecoveredNote note;
        note.record = Note("Dentist", instance);
        RecoveryCopy().Keep(note);
    }
    EXPECT_EQ(disk.Names("C:\\Jotwright\\Notes").size(), 2U);
    forms::Machine().files = &files;
}

TEST_F(RecoveryTest, TwoProgramsThatTakeOverOneCopyDoNotShareIt) {
    MakeNote("Dentist", "typed");
    Advance(2000);
    RestartProgram();
    const auto found = RecoveryCopy::Find();
    ASSERT_EQ(found.size(), 1U);
    RecoveryCopy first;
    first.Adopt(found[0]);
    StandardCode::Shared().RecoveryPaths.clear();
    system.instanceId = "000000000000000b";
    RecoveryCopy second;
    second.Adopt(found[0]);
    RecoveredNote note = found[0];
    for (auto [copy, text] : {std::pair{&first, "typed here"}, {&second, "typed there"}}) {
        note.record.Text = text;
        copy->Keep(note);
        EXPECT_TRUE(copy->IsWritten());
    }
    EXPECT_EQ(FilesOfNotes().size(), 2U);
}

TEST_F(RecoveryTest, CopiesAreNotFlushedAndWrittenAtMostEveryTwoSeconds) {
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
    EXPECT_EQ(copies, 10);
    EXPECT_EQ(files.Flushes(), flushes);
}

}  // namespace
