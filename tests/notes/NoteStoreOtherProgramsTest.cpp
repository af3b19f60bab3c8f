#include <algorithm>
#include <string>

#include "tests/notes/NoteStoreProgram.h"

// Other programs change, damage, remove and lock the files of open notes.

namespace {

using forms::BoxResult;
using StandardCode::Shared;
using NoteStoreOtherProgramsTest = testing_support::NoteStoreProgram;

TEST_F(NoteStoreOtherProgramsTest, ADamagedFileOfAnOpenEditorIsKeptAndWrittenAgain) {
    PutNote(Note("Dentist"));
    ReadAll();
    Advance(2000);
    files.PutFile(PathOf("Dentist"), "\"Dent");
    Start([] { StandardCode::LoadNotesArray(); });
    EXPECT_TRUE(InFolder().empty());
    Advance(2000);
    ASSERT_EQ(InFolder().size(), 1U);
    RestartProgram();
    ReadAll();
    EXPECT_EQ(Editor("Dentist").txtNote.text(), "text");
    user->CloseBox(Editor("Dentist"));
    EXPECT_EQ(Saved("Dentist").Text, "text");
    EXPECT_EQ(InFolder(), Names{"Dentist.txt"});
}

TEST_F(NoteStoreOtherProgramsTest, AnErasedOrReplacedFileOfAnOpenEditorIsUnsaved) {
    for (const bool isErased : {true, false}) {
        files.PutFolder(folder);
        PutNote(Note("Dentist"));
        ReadAll();
        if (isErased) {
            files.Remove(PathOf("Dentist"));
        } else {
            PutNote(Note("Dentist", "by another program"));
        }
        Start([] { StandardCode::LoadNotesArray(); });
        Advance(2000);
        EXPECT_EQ(InFolder().size(), isErased ? 1U : 2U);
        user->Restore(Editor("Dentist"));
        user->Click(Editor("Dentist").tlbMain, "Hide");
        // The editor has no edit, so it does not replace the file that another program changed.
        EXPECT_EQ(Saved("Dentist").Text, isErased ? "text" : "by another program");
        EXPECT_EQ(files.RecycledBytes().size(), isErased ? 0U : 1U);
    }
}

TEST_F(NoteStoreOtherProgramsTest, AnEditIsWrittenOverAFileThatWasChangedElsewhere) {
    PutNote(Note("Dentist"));
    ReadAll();
    PutNote(Note("Dentist", "by another program"));
    TypeInto(Editor("Dentist"), "typed here");
    user->CloseBox(Editor("Dentist"));
    EXPECT_EQ(Saved("Dentist").Text, "typed here");
    ASSERT_EQ(files.RecycledBytes().size(), 1U);
    EXPECT_NE(files.RecycledBytes()[0].find("by another program"), std::string::npos);
}

TEST_F(NoteStoreOtherProgramsTest, IfItsFileCanNoLongerBeReadAnEditorIsUnsaved) {
    PutNote(Note("Dentist"));
    ReadAll();
    PutNoteWithBadDate("Dentist");
    ExpectNotesArrayError("Error Number: 13) - Type mismatch");
    Start([] { StandardCode::LoadNotesArray(); });
    Advance(2000);
    EXPECT_EQ(InFolder().size(), 2U);
}

TEST_F(NoteStoreOtherProgramsTest, AnEditorWhoseFileIsInNoSlotNoticesAChangeOfTheFile) {
    for (const bool isFull : {true, false}) {
        SCOPED_TRACE(isFull ? "more than 100 files" : "behind a file that fails");
        files.PutFolder(folder);
        for (int i = 1; isFull && i <= 100; ++i) {
            PutNoteAs("Note " + std::to_string(1000 + i) + ".txt", Note("Note"));
        }
        PutNote(Note("Zebra", "stripes"));
        Start(StandardCode::ReadNotes);
        Advance(200);  // more notes than slots are restored after the handler
        if (!isFull) {
            PutNoteWithBadDate("abad");
        }
        stage->improvise.box = [](const forms::BoxRequest&) { return BoxResult::Ok; };
        const auto load = [this] { Start([] { StandardCode::LoadNotesArray(); }); };
        const auto isRead = [this] {
            return std::count(files.Log().begin(), files.Log().end(),
                              "read " + folder + "\\Zebra.txt");
        };
        load();
        const EditedNote& note = *StandardCode::Notes().FindOpen("Zebra.txt");
        EXPECT_FALSE(note.IsFileOther());
        files.ClearLog();
        load();
        load();
        EXPECT_EQ(isRead(), 0);
        PutNote(Note("Zebra", "spots"));
        load();
        EXPECT_TRUE(note.IsFileOther());
        EXPECT_EQ(isRead(), 1);
        load();
        EXPECT_EQ(isRead(), 1);
        Advance(2000);
        EXPECT_EQ(files.List(folder, ".recovery").size(), 1U);
        // Another program restores the original bytes, so only the time of the file has changed.
        PutNote(Note("Zebra", "stripes"));
        load();
        EXPECT_FALSE(note.IsFileOther());
        EXPECT_TRUE(note.IsSaved());
        files.Remove(folder + "\\Zebra.txt");
        load();
        EXPECT_FALSE(note.IsSaved());
        RestartProgram();
        for (const std::string& name : InFolder()) {
            files.Remove(folder + '\\' + name);
        }
    }
}

TEST_F(NoteStoreOtherProgramsTest, AnEmptyNoteWhoseFileIsGoneIsUnsavedOnlyIfItsAlarmIsSet) {
    for (const bool isAlarmSet : {false, true}) {
        SCOPED_TRACE(isAlarmSet);
        StandardCode::NoteRecord record = Note("Dentist", "");
        record.AlarmState = isAlarmSet ? "1" : "0";
        PutNote(record);
        ReadAll();
        files.Remove(PathOf("Dentist"));
        Start([] { StandardCode::LoadNotesArray(); });
        Advance(3000);
        EXPECT_EQ(InFolder().size(), isAlarmSet ? 1U : 0U);
        RestartProgram();
        for (const std::string& name : InFolder()) {
            files.Remove(folder + '\\' + name);
        }
    }
}

TEST_F(NoteStoreOtherProgramsTest, AFileWithoutASlotThatWasInUseIsReadLater) {
    files.PutFolder(folder);
    PutNote(Note("Zebra", "stripes"));
    Start(StandardCode::ReadNotes);
    PutNoteWithBadDate("abad");
    stage->improvise.box = [](const forms::BoxRequest&) { return BoxResult::Ok; };
    PutNote(Note("Zebra", "stripes"));
    files.SetDenied(folder + "\\Zebra.txt", true);
    Start([] { StandardCode::LoadNotesArray(); });
    const EditedNote& note = *StandardCode::Notes().FindOpen("Zebra.txt");
    EXPECT_TRUE(note.IsFileOther());
    files.SetDenied(folder + "\\Zebra.txt", false);
    Start([] { StandardCode::LoadNotesArray(); });
    EXPECT_FALSE(note.IsFileOther());
}

TEST_F(NoteStoreOtherProgramsTest, AFolderThatIsMissingForAMomentLeavesNothingUnsaved) {
    for (const bool isNoticed : {true, false}) {
        SCOPED_TRACE(isNoticed ? "the array is rebuilt" : "nobody looks when it is back");
        PutNote(Note("Dentist"));
        ReadAll();
        const auto disk = files;
        files.Remove(PathOf("Dentist"));
        files.Remove(folder);
        Start([] { StandardCode::LoadNotesArray(); });
        EXPECT_TRUE(Shared().NotesArray[1].Title.empty());
        // Now only the editor has the text.
        Advance(5000);
        EXPECT_EQ(InFolder().size(), 1U);
        files = disk;
        if (isNoticed) {
            Start([] { StandardCode::LoadNotesArray(); });
            Advance(3000);
            EXPECT_EQ(InFolder(), Names{"Dentist.txt"});
        }
        Advance(5000);
        const auto before = FileOf("Dentist");
        user->Restore(Editor("Dentist"));
        user->CloseBox(Editor("Dentist"));
        EXPECT_EQ(FileOf("Dentist"), before);
        EXPECT_EQ(InFolder(), Names{"Dentist.txt"});
    }
}

TEST_F(NoteStoreOtherProgramsTest, ASaveWaitsForAFileThatIsInUseForAMoment) {
    PutNote(Note("Dentist", "old"));
    ReadAll();
    TypeInto(Editor("Dentist"), "new");
    files.SetDenied(PathOf("Dentist"), true);
    int pauses = 0;
    system.onPause = [&] {
        if (++pauses == 20) {
            files.SetDenied(PathOf("Dentist"), false);
        }
    };
    user->Click(Editor("Dentist").tlbMain, "Hide");
    EXPECT_EQ(Saved("Dentist").Text, "new");
    EXPECT_EQ(pauses, 20);
}

TEST_F(NoteStoreOtherProgramsTest, ErasingWaitsForAFileThatIsInUseForAMoment) {
    PutNote(Note("Dentist"));
    ReadAll();
    files.SetDenied(PathOf("Dentist"), true);
    int pauses = 0;
    system.onPause = [&] {
        if (++pauses == 70) {
            files.SetDenied(PathOf("Dentist"), false);
        }
    };
    ExpectKillNoteQuestion("DENTIST", BoxResult::Yes);
    user->Restore(Editor("Dentist"));
    user->Click(Editor("Dentist").tlbMain, "Erase");
    EXPECT_TRUE(InFolder().empty());
    EXPECT_EQ(pauses, 70);
}

TEST_F(NoteStoreOtherProgramsTest, AFileThatStaysInUseIsReportedAfterOneAndAHalfSeconds) {
    PutNote(Note("Dentist", "old"));
    ReadAll();
    TypeInto(Editor("Dentist"), "new");
    files.SetDenied(PathOf("Dentist"), true);
    system.paused = 0;
    ExpectWriteError("70 - Permission denied");
    user->Click(Editor("Dentist").tlbMain, "Hide");
    EXPECT_EQ(system.paused, 1500);
    EXPECT_EQ(Editor("Dentist").txtNote.text(), "new");
    files.SetDenied(PathOf("Dentist"), false);
    user->Click(Editor("Dentist").tlbMain, "Hide");
    EXPECT_EQ(Saved("Dentist").Text, "new");
}

TEST_F(NoteStoreOtherProgramsTest, AFileInPlaceOfTheFolderIsReportedAtEachSave) {
    files.PutFile(folder, "a file");
    ReadAll();
    frmNote& note = MakeNote("Dentist", "text");
    ExpectWriteError("75 - Path/File access error");
    user->CloseBox(note);
    EXPECT_EQ(Editor("Dentist").txtNote.text(), "text");
    files.Remove(folder);
    user->CloseBox(note);
    EXPECT_EQ(Saved("Dentist").Text, "text");
}

}  // namespace
