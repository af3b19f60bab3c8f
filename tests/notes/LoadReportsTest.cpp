#include "tests/notes/NoteStoreProgram.h"

namespace {

using StandardCode::Shared;

class LoadReportsTest : public testing_support::NoteStoreProgram {};

TEST_F(LoadReportsTest, OneBadFileIsReportedOnceUntilTheFolderChanges) {
    PutNote(Note("a"));
    PutNote(Note("b"));
    files.SetDenied(folder + "\\b.txt", true);
    const auto expectReport = [this] {
        ExpectNotesArrayError("Error Number: 70) - Permission denied");
    };
    expectReport();
    Start([] {
        StandardCode::LoadNotesArray();
        StandardCode::LoadNotesArray();
    });
    Start([] { StandardCode::LoadNotesArray(); });
    EXPECT_FALSE(stage->HasExpectations());
    PutNote(Note("a", "changed"));
    expectReport();
    Start([] { StandardCode::LoadNotesArray(); });
    PutNote(Note("a", "changed again"));
    Start([] {
        const NoteStore::Quiet quiet(StandardCode::Notes());
        StandardCode::LoadNotesArray();
    });
}

// If a file ends too early, another program may still be writing it, so the program waits. A wrong
// date is no reason to wait.
TEST_F(LoadReportsTest, AnImpossibleDateIsReportedWithoutAPause) {
    PutNote(Note("a"));
    files.PutFile(folder + "\\b.txt",
                  "\"b\",\"text\",#2004-13-14#,#09:30:00#,5,12,\"1\",1,\"yes\"\r\n");
    ExpectNotesArrayError("Error Number: 13) - Type mismatch");
    Start([] { StandardCode::LoadNotesArray(); });
    EXPECT_EQ(system.paused, 0);
}

TEST_F(LoadReportsTest, TheHundredAndFirstFileIsReportedOnceForEachAction) {
    for (int i = 1; i <= 101; ++i) {
        PutNoteAs("Note " + std::to_string(1000 + i) + ".txt", Note("Note"));
    }
    for (int action = 1; action <= 2; ++action) {
        ExpectNotesArrayError("Error Number: 9) - Subscript out of range");
        Start([] {
            StandardCode::LoadNotesArray();
            StandardCode::LoadNotesArray();
        });
    }
    EXPECT_EQ(Shared().NoteCount, 100);
    EXPECT_EQ(Shared().NotesArray[100].Title, "Note");
}

}  // namespace
