#include <gtest/gtest.h>

#include "base/RuntimeError.h"
#include "notes/NoteStore.h"
#include "tests/support/ProductProgram.h"

namespace {

using base::DateTime;
using base::ErrorNumber;
using StandardCode::LoadNotesArray;
using StandardCode::NotePath;
using StandardCode::NoteRecord;
using StandardCode::Shared;

class NotesArrayTest : public testing_support::ProductProgram {
  protected:
    void SetUp() override {
        ProductProgram::SetUp();
        files.PutFolder(StandardCode::NotesFolder());
        StandardCode::Signals().NotesArrayLoaded.Subscribe([this] { ++timesLoaded; });
    }

    static Note DueNote(const std::string& title) {
        return Note(title, "Text of " + title).WithAlarmAt(9, 30).WithSound().InColor(5);
    }
    using ProductProgram::PutNote;
    void PutNote(const std::string& title) { PutNote(DueNote(title)); }

    void Load() {
        Start([] { LoadNotesArray(); });
    }

    std::vector<std::string> Titles() {
        std::vector<std::string> titles;
        for (int slot = 1; slot <= StandardCode::maximumNotes; ++slot) {
            if (!Shared().NotesArray[slot].Title.empty()) {
                titles.push_back(Shared().NotesArray[slot].Title);
            }
        }
        return titles;
    }

    int timesLoaded = 0;
};

TEST_F(NotesArrayTest, PathsOfNotes) {
    EXPECT_EQ(StandardCode::NotesFolder(), "C:\\Jotwright\\Notes");
    EXPECT_EQ(NotePath(" a b "), "C:\\Jotwright\\Notes\\ a b .txt");
}

TEST_F(NotesArrayTest, EmptyFolderHasNoNotes) {
    Shared().NoteCount = 7;
    Shared().NotesArray[7].Title = "old";
    Load();
    EXPECT_EQ(Shared().NoteCount, 0);
    EXPECT_EQ(timesLoaded, 1);
    EXPECT_TRUE(Titles().empty());
}

TEST_F(NotesArrayTest, MissingFolderHasNoNotes) {
    files.Remove(StandardCode::NotesFolder());
    Load();
    EXPECT_EQ(Shared().NoteCount, 0);
    EXPECT_EQ(timesLoaded, 1);
}

TEST_F(NotesArrayTest, SlotsFollowTheListing) {
    PutNote("b");
    PutNote("C");
    PutNote("a");
    files.PutFile("C:\\Jotwright\\Notes\\other.tmp", "x");
    Load();
    EXPECT_EQ(Shared().NoteCount, 3);
    EXPECT_EQ(Titles(), (std::vector<std::string>{"a", "b", "C"}));
    EXPECT_EQ(Shared().NotesArray[3], DueNote("C"));
    EXPECT_EQ(Shared().NotesArray[4], NoteRecord{});
}

TEST_F(NotesArrayTest, RemovedNotesLeaveEmptySlots) {
    PutNote("a");
    PutNote("b");
    Load();
    files.Remove(NotePath("a"));
    Load();
    EXPECT_EQ(Shared().NoteCount, 1);
    EXPECT_EQ(Titles(), std::vector<std::string>{"b"});
    EXPECT_EQ(Shared().NotesArray[2], NoteRecord{});
}

TEST_F(NotesArrayTest, TheTitleComesFromTheContentsOfTheFile) {
    PutNoteAs("x.txt", DueNote("Real title"));
    Load();
    EXPECT_EQ(Shared().NotesArray[1].Title, "Real title");
}

TEST_F(NotesArrayTest, RewrittenNoteIsLoaded) {
    Note record = DueNote("a");
    record.AlarmState = "0";
    files.PutFile(NotePath("a"), NoteFile::Encode(record, NoteFile::TimeField::RewrittenText));
    Load();
    EXPECT_EQ(Shared().NotesArray[1].AlarmTime, DateTime::FromTime(12, 0, 0));
    EXPECT_EQ(Shared().NotesArray[1].AlarmState, "0");
}

TEST_F(NotesArrayTest, ShortFileIsRecycledAndEndsTheListing) {
    PutNote("a");
    files.PutFile(NotePath("b"), "\"b\",\"text\",#2004-05-14#,");
    PutNote("c");
    Load();
    EXPECT_EQ(Shared().NoteCount, 1);
    EXPECT_EQ(Titles(), std::vector<std::string>{"a"});
    EXPECT_EQ(files.RecycleBin(), std::vector<std::string>{NotePath("b")});
    EXPECT_EQ(timesLoaded, 1);
    Load();
    EXPECT_EQ(Titles(), (std::vector<std::string>{"a", "c"}));
}

TEST_F(NotesArrayTest, AFileThatAnotherProgramIsWritingIsLoadedWhole) {
    PutNote("a");
    files.PutFile(NotePath("b"), "");
    PutNote("c");
    system.onPause = [this] { PutNote("b"); };
    Load();
    EXPECT_EQ(Titles(), (std::vector<std::string>{"a", "b", "c"}));
    EXPECT_TRUE(files.RecycleBin().empty());
    EXPECT_EQ(system.paused, 200);
}

TEST_F(NotesArrayTest, UnreachableNotesAreLoadedAgainHalfAMinuteLater) {
    PutNote("a");
    PutNote("b");
    for (const std::string& unreachable : {NotePath("a"), StandardCode::NotesFolder()}) {
        files.SetDenied(unreachable, true);
        ExpectNotesArrayError("Error Number: 70) - Permission denied");
        Load();
        const auto pass = [this](int milliseconds) {
            clock.Pass(milliseconds);
            Start([] { StandardCode::Notes().LoadAgainIfDue(); });
        };
        pass(29'900);
        EXPECT_TRUE(Shared().NotesArray[2].Title.empty());
        pass(200);  // still out of reach: no second message
        files.SetDenied(unreachable, false);
        pass(29'900);
        EXPECT_TRUE(Shared().NotesArray[2].Title.empty());
        pass(200);
        EXPECT_EQ(Titles(), (std::vector<std::string>{"a", "b"}));
        const int listings = files.Listings();
        pass(600'000);
        EXPECT_EQ(files.Listings(), listings);
    }
}

TEST_F(NotesArrayTest, AFileWithABadFieldIsNotLoadedAgain) {
    files.PutFile(NotePath("b"),
                  "\"b\",\"say hi\",#2004-15-14#,#09:30:00#,5,12,\"1\",1,\"yes\"\r\n");
    ExpectNotesArrayError("Error Number: 13) - Type mismatch");
    Load();
    const int listings = files.Listings();
    clock.Pass(600'000);
    Start([] { StandardCode::Notes().LoadAgainIfDue(); });
    EXPECT_EQ(files.Listings(), listings);
}

TEST_F(NotesArrayTest, EmptyFileIsRecycledAsTheOnlyNote) {
    files.PutFile(NotePath("a"), "");
    Load();
    EXPECT_EQ(Shared().NoteCount, 0);
    EXPECT_EQ(files.Names(StandardCode::NotesFolder()), std::vector<std::string>{});
}

TEST_F(NotesArrayTest, FieldThatCannotBeConvertedIsReportedAndLeavesTheCount) {
    PutNote("a");
    Load();
    files.PutFile(NotePath("b"),
                  "\"b\",\"say hi\",#2004-15-14#,#09:30:00#,5,12,\"1\",1,\"yes\"\r\n");
    PutNote("c");
    ExpectNotesArrayError("Error Number: 13) - Type mismatch");
    Load();
    EXPECT_EQ(Shared().NoteCount, 1);
    EXPECT_EQ(timesLoaded, 1);
    EXPECT_EQ(files.RecycleBin(), std::vector<std::string>{});
    // A new note still cannot have the damaged note's title.
    EXPECT_EQ(Titles(), (std::vector<std::string>{"a", "b"}));
    EXPECT_EQ(Shared().NotesArray[2].AlarmState, "");
}

TEST_F(NotesArrayTest, NumberTooLargeIsReported) {
    files.PutFile(NotePath("a"),
                  "\"a\",\"t\",#2004-05-14#,#09:30:00#,99999,12,\"1\",1,\"yes\"\r\n");
    ExpectNotesArrayError("Error Number: 6) - Overflow");
    Load();
    EXPECT_EQ(timesLoaded, 0);
}

TEST_F(NotesArrayTest, FileThatCannotBeReadIsReported) {
    PutNote("a");
    files.SetDenied(NotePath("a"), true);
    ExpectNotesArrayError("Error Number: 70) - Permission denied");
    Load();
}

TEST_F(NotesArrayTest, ShortFileThatCannotBeRemovedIsReported) {
    files.PutFile(NotePath("a"), "\"a\"");
    files.SetReadOnly(NotePath("a"), true);
    ExpectNotesArrayError("Error Number: 75) - Path/File access error");
    Load();
    EXPECT_TRUE(Titles().empty());
}

TEST_F(NotesArrayTest, HundredNotesFit) {
    for (int i = 1; i <= 100; ++i) {
        PutNote("Note " + std::to_string(i));
    }
    Load();
    EXPECT_EQ(Shared().NoteCount, 100);
    EXPECT_EQ(Titles().size(), 100U);
}

TEST_F(NotesArrayTest, TheHundredAndFirstFileIsAnError) {
    for (int i = 1; i <= 101; ++i) {
        PutNote("Note " + std::to_string(i));
    }
    ExpectNotesArrayError("Error Number: 9) - Subscript out of range");
    Load();
    EXPECT_EQ(Shared().NoteCount, 100);
    EXPECT_EQ(timesLoaded, 1);
    EXPECT_EQ(Titles().size(), 100U);
}

TEST_F(NotesArrayTest, UnchangedFilesAreNotReadAgain) {
    PutNote("a");
    PutNote("b");
    Load();
    files.ClearLog();
    Load();
    EXPECT_TRUE(files.Log().empty());
    EXPECT_EQ(Shared().NotesArray[1], DueNote("a"));
    EXPECT_EQ(Shared().NotesArray[2], DueNote("b"));
    PutNote("a");
    Load();
    EXPECT_EQ(files.Log(), std::vector<std::string>{"read " + NotePath("a")});
}

TEST_F(NotesArrayTest, AFileThatWasRemovedAndCameBackIsReadAgain) {
    PutNote("a");
    PutNote("b");
    Load();
    files.Remove(NotePath("b"));
    Load();
    PutNote("b");
    files.ClearLog();
    Load();
    EXPECT_EQ(files.Log(), std::vector<std::string>{"read " + NotePath("b")});
}

TEST_F(NotesArrayTest, AFileThatHasBecomeUnreadableDoesNotKeepItsOldAlarm) {
    PutNote("a");
    Load();
    ASSERT_EQ(Shared().NotesArray[1].AlarmState, "1");
    PutNoteWithBadDate("a");
    ExpectNotesArrayError("Error Number: 13) - Type mismatch");
    Load();
    EXPECT_EQ(Shared().NotesArray[1].Title, "a");
    EXPECT_EQ(Shared().NotesArray[1].AlarmState, "");
}

TEST_F(NotesArrayTest, RecordsMoveWithTheirFiles) {
    PutNote("b");
    PutNote("c");
    Load();
    PutNote("a");
    Load();
    EXPECT_EQ(Titles(), (std::vector<std::string>{"a", "b", "c"}));
    EXPECT_EQ(Shared().NotesArray[3].Text, "Text of c");
    files.Remove(NotePath("b"));
    files.ClearLog();
    Load();
    EXPECT_EQ(Titles(), (std::vector<std::string>{"a", "c"}));
    EXPECT_EQ(Shared().NotesArray[2].Text, "Text of c");
    EXPECT_TRUE(files.Log().empty());
}

// A file system with a coarse clock: two saves of the same length may get the same time.
class CoarseClockFiles : public forms::headless::MemoryFiles {
  public:
    std::vector<forms::FileEntry> List(const std::string& folder,
                                       const std::string& suffix) override {
        auto entries = MemoryFiles::List(folder, suffix);
        for (forms::FileEntry& entry : entries) {
            entry.changed = 0;
        }
        return entries;
    }
};

TEST_F(NotesArrayTest, TheProgramsOwnSavesAreSeenWhateverTheFileTime) {
    CoarseClockFiles coarse;
    coarse.PutFolder(StandardCode::NotesFolder());
    forms::Machine().files = &coarse;
    NoteRecord record = DueNote("Caf\xc3\xa9");
    StandardCode::Notes().Write("Caf\xc3\xa9.txt", record);
    Load();
    EXPECT_EQ(Shared().NotesArray[1].AlarmState, "1");
    record.AlarmState = "0";
    StandardCode::Notes().Write("CAF\xc3\x89.txt", record);
    Load();
    EXPECT_EQ(Shared().NotesArray[1].AlarmState, "0");
    forms::Machine().files = &files;
}

TEST_F(NotesArrayTest, SavingWritesTheRequestedForm) {
    StandardCode::Notes().Write("a.txt", DueNote("a"));
    EXPECT_EQ(files.Peek(NotePath("a")), NoteFile::Encode(DueNote("a")));
    StandardCode::Notes().Write("a.txt", DueNote("a"), NoteFile::TimeField::RewrittenText);
    EXPECT_EQ(files.Peek(NotePath("a")),
              NoteFile::Encode(DueNote("a"), NoteFile::TimeField::RewrittenText));
}

TEST_F(NotesArrayTest, AMissingFolderIsMade) {
    StandardCode::EnsureNotesFolder();
    EXPECT_TRUE(files.Log().empty());
    files.Remove(StandardCode::NotesFolder());
    StandardCode::EnsureNotesFolder();
    EXPECT_TRUE(files.FolderExists("C:\\Jotwright\\Notes"));
}

TEST_F(NotesArrayTest, WriteErrorsAreReported) {
    bool saved = true;
    ExpectWriteError("70 - Permission denied");
    PutNote("a");
    files.SetDenied(NotePath("a"), true);
    Start([&] {
        saved = StandardCode::ReportWriteErrors(
            [] { StandardCode::Notes().Write("a.txt", DueNote("b")); });
    });
    EXPECT_FALSE(saved);
}

TEST_F(NotesArrayTest, TitleThatIsNoFileNameIsReported) {
    ExpectWriteError("52 - Bad file name or number");
    Start([&] {
        StandardCode::ReportWriteErrors(
            [] { StandardCode::Notes().Write("what?.txt", DueNote("what?")); });
    });
    EXPECT_TRUE(files.Names(StandardCode::NotesFolder()).empty());
}

TEST_F(NotesArrayTest, Error457IsSilent) {
    bool saved = true;
    Start([&] {
        saved = StandardCode::ReportWriteErrors(
            [] { throw base::RuntimeError(ErrorNumber::KeyNotUnique); });
    });
    EXPECT_FALSE(saved);
}

TEST_F(NotesArrayTest, WithoutAnErrorThereIsNoReport) {
    bool saved = false;
    Start([&] { saved = StandardCode::ReportWriteErrors([] {}); });
    EXPECT_TRUE(saved);
}

}  // namespace
