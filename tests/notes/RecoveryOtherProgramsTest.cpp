#include "tests/notes/RecoveryProgram.h"

// Recovery copies in a folder that other programs use at the same time.

namespace {

using RecoveryOtherProgramsTest = testing_support::RecoveryProgram;

TEST_F(RecoveryOtherProgramsTest, ACopyOfARunningProgramIsLeftAlone) {
    EditSaved(Note("Dentist", "old"), "typed");
    // Another program runs on the same folder.
    files.SetLocked(folder + "\\~Jotwright-" + system.instanceId + ".lock", true);
    const std::string first = system.instanceId;
    system.instanceId = "000000000000000b";
    const std::string copy = CopyPath();
    const auto before = files.Peek(copy);
    RestartProgram();
    files.SetLocked(folder + "\\~Jotwright-" + first + ".lock", true);
    Start(StandardCode::ReadNotes);
    EXPECT_EQ(Editor("Dentist").txtNote.text(), "old");
    user->Restore(Editor("Dentist"));
    user->Type(Editor("Dentist").txtNote, "typed here");
    Advance(2000);
    EXPECT_EQ(files.Peek(copy), before);
    EXPECT_EQ(FilesOfNotes().size(), 3U);
}

TEST_F(RecoveryOtherProgramsTest, TheStartWaitsForACopyAndAFileThatAreInUse) {
    EditSaved(Note("Dentist", "old"), "typed");
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

// The folder as seen by two programs that read it at the same time: neither program sees the
// other's copy.
struct FilesBeforeTheOther : forms::headless::MemoryFiles {
    bool FileExists(const std::string& path) override {
        return !path.ends_with(".recovery") && MemoryFiles::FileExists(path);
    }
};

TEST_F(RecoveryOtherProgramsTest, TwoProgramsThatWriteACopyAtTheSameTimeDoNotShareIt) {
    FilesBeforeTheOther disk;
    forms::Machine().files = &disk;
    disk.PutFolder(folder);
    for (const char* instance : {"000000000000000a", "000000000000000b"}) {
        system.instanceId = instance;
        StandardCode::Shared().RecoveryPaths.clear();
        RecoveredNote note;
        note.record = Note("Dentist", instance);
        RecoveryCopy().Keep(note);
    }
    EXPECT_EQ(disk.Names(folder).size(), 2U);
    forms::Machine().files = &files;
}

TEST_F(RecoveryOtherProgramsTest, TwoProgramsThatTakeOverOneCopyDoNotShareIt) {
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

}  // namespace
