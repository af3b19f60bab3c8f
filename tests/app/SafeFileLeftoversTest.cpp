#include "tests/app/SafeFileDevices.h"

// The temporary files of SafeFile, especially those that stay if the program is killed.

namespace {

using base::ErrorNumber;
using forms::headless::Killed;
using forms::headless::MemoryFiles;
using testing_support::ErrorOf;
using Moment = MemoryFiles::Moment;

class SafeFileLeftoversTest : public testing_support::SafeFileDevices {
  protected:
    // The beginning of the path of a temporary file of a program that was killed.
    const std::string dead = folder + "\\~Jotwright-0123456789abcdef-";
};

// No temporary file may ever be read as a note.
TEST_F(SafeFileLeftoversTest, TheTemporaryFileIsNotListedAsANote) {
    files.KillAt(5, Moment::Before);
    EXPECT_THROW(SafeFile::ReplaceFile(path, newBytes), Killed);
    files.Restart();
    EXPECT_EQ(files.List(folder, ".txt").size(), 1U);
    EXPECT_EQ(Names().size(), 2U);
}

TEST_F(SafeFileLeftoversTest, ALeftoverOfTheSameNameDoesNotPreventTheSave) {
    const std::string own = folder + "\\~Jotwright-" + system.instanceId + "-";
    files.PutFile(own + "1.tmp", "junk");
    files.PutFolder(own + "2.tmp");
    EXPECT_TRUE(SafeFile::ReplaceFile(path, newBytes));
    EXPECT_EQ(files.Peek(path), newBytes);
    EXPECT_EQ(files.Peek(own + "1.tmp"), "junk");
}

TEST_F(SafeFileLeftoversTest, TwoProgramsOnOneFolderUseDifferentTemporaryNames) {
    files.KillAt(5, Moment::Before);
    EXPECT_THROW(SafeFile::ReplaceFile(path, newBytes), Killed);
    files.Restart();
    const auto first = Names();
    system.instanceId = "000000000000000b";
    files.KillAt(5, Moment::Before);
    EXPECT_THROW(SafeFile::ReplaceFile(path, newBytes + "!"), Killed);
    files.Restart();
    EXPECT_EQ(Names().size(), first.size() + 1);
}

TEST_F(SafeFileLeftoversTest, OnlyLeftoversOfThisProgramAreRemoved) {
    files.PutFile(dead + "1.tmp", "junk");
    files.PutFile(dead + "12.tmp", "junk");
    for (const char* name :
         {"mine.tmp", "~Jotwright.txt", "~Jotwright report.tmp", "~Jotwright1.tmp",
          "~Jotwright-.tmp", "~Jotwright-0123456789abcdef-.tmp", "~Jotwright--1.tmp",
          "~Jotwright-xyz-1.tmp", "~Jotwright-0123456789abcdef-1a.tmp"}) {
        files.PutFile(folder + '\\' + name, "mine");
    }
    RemoveLeftovers(folder);
    EXPECT_EQ(Names().size(), 10U);
    EXPECT_FALSE(files.FileExists(dead + "1.tmp"));
    EXPECT_FALSE(files.FileExists(dead + "12.tmp"));
}

TEST_F(SafeFileLeftoversTest, LeftoversOfARunningProgramStay) {
    files.PutFile(dead + "1.tmp", "being written");
    files.SetLocked(folder + "\\~Jotwright-0123456789abcdef.lock", true);
    RemoveLeftovers(folder);
    EXPECT_TRUE(files.FileExists(dead + "1.tmp"));
    files.SetLocked(folder + "\\~Jotwright-0123456789abcdef.lock", false);
    RemoveLeftovers(folder);
    EXPECT_EQ(Names(), justTheNote);
}

TEST_F(SafeFileLeftoversTest, ALeftoverThatCannotBeRemovedDoesNotStopTheRemovingOfOthers) {
    files.PutFile(dead + "1.tmp", "junk");
    files.PutFile(dead + "2.tmp", "junk");
    files.SetDenied(dead + "1.tmp", true);
    RemoveLeftovers(folder);
    EXPECT_EQ(Names(),
              (std::vector<std::string>{"Dentist.txt", "~Jotwright-0123456789abcdef-1.tmp"}));
    RemoveLeftovers("C:\\Nowhere");
}

TEST_F(SafeFileLeftoversTest, RemovingLeftoversFromAFolderThatCannotBeListedRaisesNothing) {
    struct : MemoryFiles {
        std::vector<forms::FileEntry> List(const std::string&, const std::string&) override {
            throw base::RuntimeError(ErrorNumber::PermissionDenied);
        }
    } unreadable;
    forms::Machine().files = &unreadable;
    EXPECT_EQ(ErrorOf([] { RemoveLeftovers(folder); }), 0);
}

TEST_F(SafeFileLeftoversTest, ALeftoverThatCannotTakeItsPlaceStays) {
    files.PutFile(dead + "1.tmp", newBytes);
    files.SetReadOnly(folder, true);
    SafeFile::SettleLeftovers(folder, [](const std::string&) { return folder + "\\Lost.txt"; });
    EXPECT_EQ(files.Peek(dead + "1.tmp"), newBytes);
    files.SetReadOnly(folder, false);
    SafeFile::SettleLeftovers(folder, [](const std::string&) { return folder + "\\Lost.txt"; });
    EXPECT_EQ(files.Peek(folder + "\\Lost.txt"), newBytes);
    EXPECT_FALSE(files.FileExists(dead + "1.tmp"));
}

}  // namespace
