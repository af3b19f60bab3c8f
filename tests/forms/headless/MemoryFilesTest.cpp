#include <gtest/gtest.h>

#include "forms/headless/MemoryFiles.h"

namespace forms::headless {
namespace {

using Moment = MemoryFiles::Moment;

class MemoryFilesTest : public testing::Test {
  protected:
    MemoryFilesTest() { files.PutFolder("C:\\App\\Notes"); }

    template <class Action>
    int ErrorOf(Action action) {
        try {
            action();
        } catch (const base::RuntimeError& error) {
            return error.number();
        }
        return 0;
    }

    std::vector<std::string> Listed(const std::string& suffix) {
        std::vector<std::string> names;
        for (const FileEntry& entry : files.List("C:\\App\\Notes", suffix)) {
            names.push_back(entry.name);
        }
        return names;
    }

    MemoryFiles files;
};

TEST_F(MemoryFilesTest, NamesAreFoundInAnyCaseAndKeepTheirOwn) {
    files.Write("C:\\App\\Notes\\\xc3\x84rzte.txt", "one");
    files.Write("c:\\app\\NOTES\\\xc3\xa4RZTE.TXT", "two");
    EXPECT_EQ(files.Read("C:\\App\\Notes\\\xc3\xa4rzte.txt"), "two");
    EXPECT_EQ(files.Names("C:\\App\\Notes"), std::vector<std::string>{"\xc3\x84rzte.txt"});
}

TEST_F(MemoryFilesTest, ListingIsAlphabeticalWithoutFolders) {
    for (const char* name : {"b.txt", "A.txt", "c.TXT", "d.tmp", "a b.txt"}) {
        files.PutFile(std::string("C:\\App\\Notes\\") + name, "x");
    }
    files.PutFolder("C:\\App\\Notes\\e.txt");
    files.PutFile("C:\\App\\Notes\\Sub\\f.txt", "x");
    EXPECT_EQ(Listed(".txt"), (std::vector<std::string>{"a b.txt", "A.txt", "b.txt", "c.TXT"}));
    EXPECT_TRUE(files.List("C:\\Nowhere", ".txt").empty());
}

TEST_F(MemoryFilesTest, ListingTellsSizeAndChange) {
    files.Write("C:\\App\\Notes\\a.txt", "12345");
    const FileEntry before = files.List("C:\\App\\Notes", ".txt").at(0);
    EXPECT_EQ(before.size, 5U);
    files.Write("C:\\App\\Notes\\a.txt", "54321");
    EXPECT_GT(files.List("C:\\App\\Notes", ".txt").at(0).changed, before.changed);
}

TEST_F(MemoryFilesTest, NameOnDiskHasTheLettersOfTheDisk) {
    files.PutFile("C:\\App\\Notes\\Shopping.txt", "x");
    EXPECT_EQ(files.NameOnDisk("C:\\app\\notes\\SHOPPING.TXT"), "Shopping.txt");
    EXPECT_EQ(files.NameOnDisk("C:\\App\\Notes\\other.TXT"), "other.TXT");
}

TEST_F(MemoryFilesTest, RefusesNamesAsWindowsDoes) {
    for (const char* name : {"a*", "a?", "a\"", "a<", "a>", "a|", "a:b", "con", "CON.txt",
                             "nul.tar.txt", "Com1", "lpt9.x", "a\tb", " ", "..."}) {
        const std::string path = std::string("C:\\App\\Notes\\") + name;
        EXPECT_EQ(ErrorOf([&] { files.Write(path, "x"); }), 52) << name;
        EXPECT_FALSE(files.FileExists(path));
    }
    EXPECT_EQ(ErrorOf([&] { files.Write("C:\\App\\Notes\\..\\a.txt", "x"); }), 52);
    EXPECT_EQ(ErrorOf([&] { files.Read("relative.txt"); }), 52);
    EXPECT_EQ(ErrorOf([&] { files.Read("C:relative.txt"); }), 52);
    EXPECT_EQ(ErrorOf([&] { files.Write("C:\\App\\Notes\\com0.txt", "x"); }), 0);
    EXPECT_EQ(ErrorOf([&] { files.Write("C:\\App\\Notes\\Connie.txt", "x"); }), 0);
}

TEST_F(MemoryFilesTest, RefusesLongNamesAndPaths) {
    EXPECT_EQ(ErrorOf([&] { files.Write("C:\\" + std::string(256, 'a'), ""); }), 52);
    EXPECT_EQ(ErrorOf([&] { files.Write("C:\\App\\Notes\\" + std::string(247, 'a'), ""); }), 76);
    EXPECT_EQ(ErrorOf([&] { files.Write("C:\\App\\Notes\\" + std::string(246, 'a'), ""); }), 0);
}

TEST_F(MemoryFilesTest, TrailingDotsAndBlanksAreDropped) {
    files.Write("C:\\App\\Notes\\a.txt. .", "x");
    EXPECT_EQ(files.Names("C:\\App\\Notes"), std::vector<std::string>{"a.txt"});
    EXPECT_TRUE(files.FileExists("C:\\App\\Notes\\a.txt "));
}

TEST_F(MemoryFilesTest, MissingFilesAndFolders) {
    EXPECT_EQ(ErrorOf([&] { files.Read("C:\\App\\Notes\\a.txt"); }), 53);
    EXPECT_EQ(ErrorOf([&] { files.Delete("C:\\App\\Notes\\a.txt"); }), 53);
    EXPECT_EQ(ErrorOf([&] { files.Replace("C:\\App\\a.txt", "C:\\App\\b.txt"); }), 53);
    EXPECT_EQ(ErrorOf([&] { files.Read("C:\\App\\None\\a.txt"); }), 76);
    EXPECT_EQ(ErrorOf([&] { files.Write("C:\\App\\None\\a.txt", "x"); }), 76);
    EXPECT_EQ(ErrorOf([&] { files.MakeFolder("C:\\None\\Notes"); }), 76);
}

TEST_F(MemoryFilesTest, FoldersAreNoFiles) {
    EXPECT_TRUE(files.FolderExists("C:\\app\\notes\\"));
    EXPECT_FALSE(files.FileExists("C:\\App\\Notes"));
    EXPECT_EQ(ErrorOf([&] { files.Read("C:\\App\\Notes"); }), 75);
    EXPECT_EQ(ErrorOf([&] { files.Write("C:\\App\\Notes", "x"); }), 75);
    EXPECT_EQ(ErrorOf([&] { files.MakeFolder("C:\\App\\Notes"); }), 75);
    files.MakeFolder("C:\\App\\More");
    EXPECT_TRUE(files.FolderExists("C:\\App\\More"));
}

TEST_F(MemoryFilesTest, ReadOnlyFilesStay) {
    files.PutFile("C:\\App\\Notes\\a.txt", "old");
    files.PutFile("C:\\App\\Notes\\b.txt", "new");
    files.SetReadOnly("C:\\App\\Notes\\a.txt", true);
    EXPECT_EQ(ErrorOf([&] { files.Write("C:\\App\\Notes\\a.txt", "x"); }), 75);
    EXPECT_EQ(ErrorOf([&] { files.Delete("C:\\App\\Notes\\a.txt"); }), 75);
    EXPECT_EQ(ErrorOf([&] { files.Recycle("C:\\App\\Notes\\a.txt"); }), 75);
    EXPECT_EQ(ErrorOf([&] { files.Replace("C:\\App\\Notes\\b.txt", "C:\\App\\Notes\\a.txt"); }),
              75);
    EXPECT_EQ(files.Read("C:\\App\\Notes\\a.txt"), "old");
    EXPECT_TRUE(files.FileExists("C:\\App\\Notes\\b.txt"));
}

TEST_F(MemoryFilesTest, ReadOnlyFolderTakesNoNewNamesButItsFilesCanBeWritten) {
    files.PutFile("C:\\App\\Notes\\a.txt", "old");
    files.SetReadOnly("C:\\App\\Notes", true);
    EXPECT_EQ(ErrorOf([&] { files.Write("C:\\App\\Notes\\b.txt", "x"); }), 75);
    EXPECT_EQ(ErrorOf([&] { files.Delete("C:\\App\\Notes\\a.txt"); }), 75);
    files.Write("C:\\App\\Notes\\a.txt", "new");
    EXPECT_EQ(files.Read("C:\\App\\Notes\\a.txt"), "new");
}

TEST_F(MemoryFilesTest, ADeniedFolderIsNotListed) {
    files.PutFile("C:\\App\\Notes\\a.txt", "text");
    files.SetDenied("C:\\App\\Notes", true);
    EXPECT_TRUE(files.FolderExists("C:\\App\\Notes"));
    EXPECT_EQ(ErrorOf([&] { files.List("C:\\App\\Notes", ".txt"); }), 70);
    files.SetDenied("C:\\App\\Notes", false);
    EXPECT_EQ(files.List("C:\\App\\Notes", ".txt").size(), 1U);
}

TEST_F(MemoryFilesTest, DeniedFilesAreNotRead) {
    files.PutFile("C:\\App\\Notes\\a.txt", "old");
    files.SetDenied("C:\\App\\Notes\\a.txt", true);
    EXPECT_EQ(ErrorOf([&] { files.Read("C:\\App\\Notes\\a.txt"); }), 70);
    EXPECT_EQ(ErrorOf([&] { files.Write("C:\\App\\Notes\\a.txt", "x"); }), 70);
    EXPECT_EQ(ErrorOf([&] { files.Delete("C:\\App\\Notes\\a.txt"); }), 70);
}

TEST_F(MemoryFilesTest, AFullDiskKeepsTheBytesThatFit) {
    files.SetFreeSpace(4);
    EXPECT_EQ(ErrorOf([&] { files.Write("C:\\App\\Notes\\a.txt", "123456"); }), 61);
    EXPECT_EQ(files.Peek("C:\\App\\Notes\\a.txt"), "1234");
    EXPECT_EQ(ErrorOf([&] { files.Write("C:\\App\\Notes\\b.txt", "1"); }), 61);
    files.Delete("C:\\App\\Notes\\a.txt");
    files.Write("C:\\App\\Notes\\b.txt", "1234");
    files.Write("C:\\App\\Notes\\b.txt", "4321");
    EXPECT_EQ(files.Peek("C:\\App\\Notes\\b.txt"), "4321");
}

TEST_F(MemoryFilesTest, ReplaceTakesTheNewNameAndTheOldFileIsGone) {
    files.PutFile("C:\\App\\Notes\\a.txt", "old");
    files.PutFile("C:\\App\\Notes\\x.tmp", "new");
    files.Replace("C:\\App\\Notes\\x.tmp", "C:\\App\\Notes\\A.txt");
    EXPECT_EQ(files.Names("C:\\App\\Notes"), std::vector<std::string>{"A.txt"});
    EXPECT_EQ(files.Peek("C:\\App\\Notes\\a.txt"), "new");
}

TEST_F(MemoryFilesTest, CopyOverwrites) {
    files.PutFile("C:\\App\\Notes\\a.txt", "a");
    files.PutFile("C:\\App\\Notes\\b.txt", "b");
    files.Copy("C:\\App\\Notes\\a.txt", "C:\\App\\Notes\\b.txt");
    EXPECT_EQ(files.Peek("C:\\App\\Notes\\b.txt"), "a");
    EXPECT_EQ(ErrorOf([&] { files.Copy("C:\\App\\Notes\\c.txt", "C:\\App\\d.txt"); }), 53);
}

TEST_F(MemoryFilesTest, ARecycledFileIsInTheBinIfThereIsABin) {
    files.PutFile("C:\\App\\Notes\\a.txt", "a");
    files.PutFile("C:\\App\\Notes\\b.txt", "b");
    EXPECT_TRUE(files.Recycle("C:\\App\\Notes\\a.txt"));
    files.SetRecycleBin(false);
    EXPECT_FALSE(files.Recycle("C:\\App\\Notes\\b.txt"));
    EXPECT_EQ(files.RecycleBin(), std::vector<std::string>{"C:\\App\\Notes\\a.txt"});
    EXPECT_EQ(files.RecycledBytes(), std::vector<std::string>{"a"});
    EXPECT_EQ(files.Names("C:\\App\\Notes"), std::vector<std::string>{"b.txt"});
}

TEST_F(MemoryFilesTest, AFileThatMustBeNewIsNotWrittenOver) {
    files.PutFile("C:\\App\\Notes\\a.txt", "a");
    EXPECT_EQ(ErrorOf([&] { files.Write("C:\\App\\Notes\\A.txt", "b", {.mustBeNew = true}); }), 58);
    EXPECT_EQ(files.Peek("C:\\App\\Notes\\a.txt"), "a");
}

TEST_F(MemoryFilesTest, ALockHoldsUntilItIsDestroyed) {
    auto lock = files.Lock("C:\\App\\Notes\\a.lock");
    EXPECT_NE(lock, nullptr);
    EXPECT_EQ(files.Lock("C:\\App\\Notes\\A.lock"), nullptr);
    EXPECT_EQ(ErrorOf([&] { files.Lock("C:\\App\\Nowhere\\a.lock"); }), 76);
    lock.reset();
    EXPECT_NE(files.Lock("C:\\App\\Notes\\a.lock"), nullptr);
}

TEST_F(MemoryFilesTest, LogNamesEveryCallInOrder) {
    files.Write("C:\\App\\a.tmp", "a");
    files.Replace("C:\\App\\a.tmp", "C:\\App\\a.txt");
    ErrorOf([&] { files.Read("C:\\App\\b.txt"); });
    EXPECT_EQ(files.Log(), (std::vector<std::string>{"write C:\\App\\a.tmp",
                                                     "replace C:\\App\\a.tmp C:\\App\\a.txt",
                                                     "read C:\\App\\b.txt"}));
    files.ClearLog();
    EXPECT_TRUE(files.Log().empty());
}

TEST_F(MemoryFilesTest, FailsAtTheStepAskedFor) {
    files.PutFile("C:\\App\\Notes\\a.txt", "old");
    files.FailAt(2, base::ErrorNumber::DeviceIoError);
    EXPECT_EQ(ErrorOf([&] { files.Write("C:\\App\\Notes\\a.txt", "123456"); }), 57);
    EXPECT_EQ(files.Peek("C:\\App\\Notes\\a.txt"), "123");
    EXPECT_EQ(ErrorOf([&] { files.Write("C:\\App\\Notes\\a.txt", "123456"); }), 0);
    EXPECT_EQ(files.Steps(), 5);
    files.FailAt(1, base::ErrorNumber::PermissionDenied);
    EXPECT_EQ(ErrorOf([&] { files.Read("C:\\App\\Notes\\a.txt"); }), 70);
    EXPECT_EQ(ErrorOf([&] { files.Read("C:\\App\\Notes\\a.txt"); }), 0);
}

// The contents of a file that held "old!", after the process was killed at one step of a write.
struct KillCase {
    int step;
    Moment moment;
    std::string left;
};

class MemoryFilesKilledWriteTest : public MemoryFilesTest,
                                   public testing::WithParamInterface<KillCase> {};

TEST_P(MemoryFilesKilledWriteTest, LeavesTheBytesThatReachedTheMedium) {
    files.PutFile("C:\\App\\Notes\\a.txt", "old!");
    files.KillAt(GetParam().step, GetParam().moment);
    EXPECT_THROW(files.Write("C:\\App\\Notes\\a.txt", "new text"), Killed);
    files.Restart();
    EXPECT_EQ(files.Peek("C:\\App\\Notes\\a.txt"), GetParam().left);
}

INSTANTIATE_TEST_SUITE_P(
    Steps, MemoryFilesKilledWriteTest,
    testing::Values(KillCase{1, Moment::Before, "old!"}, KillCase{1, Moment::After, ""},
                    KillCase{2, Moment::Before, ""},
                    KillCase{2, Moment::Middle, std::string("ne\0\0", 4)},
                    KillCase{2, Moment::After, std::string("new \0\0\0\0", 8)},
                    KillCase{3, Moment::Before, std::string("new \0\0\0\0", 8)},
                    KillCase{3, Moment::After, "new text"}));

TEST_F(MemoryFilesTest, AfterAKillNothingHappensUntilTheRestart) {
    files.PutFile("C:\\App\\Notes\\a.txt", "old");
    files.PutFile("C:\\App\\Notes\\b.tmp", "new");
    files.KillAt(1, Moment::Before);
    EXPECT_THROW(files.Replace("C:\\App\\Notes\\b.tmp", "C:\\App\\Notes\\a.txt"), Killed);
    files.Delete("C:\\App\\Notes\\a.txt");
    files.Write("C:\\App\\Notes\\a.txt", "x");
    files.Copy("C:\\App\\Notes\\b.tmp", "C:\\App\\Notes\\c.txt");
    files.MakeFolder("C:\\App\\More");
    EXPECT_FALSE(files.FileExists("C:\\App\\Notes\\a.txt"));
    EXPECT_TRUE(Listed(".txt").empty());
    EXPECT_THROW(files.Read("C:\\App\\Notes\\a.txt"), Killed);
    files.Restart();
    EXPECT_EQ(files.Read("C:\\App\\Notes\\a.txt"), "old");
    EXPECT_EQ(Listed(""), (std::vector<std::string>{"a.txt", "b.tmp"}));
    EXPECT_FALSE(files.FolderExists("C:\\App\\More"));
}

TEST_F(MemoryFilesTest, KilledAfterAReplaceTheNewFileStands) {
    files.PutFile("C:\\App\\Notes\\a.txt", "old");
    files.PutFile("C:\\App\\Notes\\b.tmp", "new");
    files.KillAt(1, Moment::After);
    EXPECT_THROW(files.Replace("C:\\App\\Notes\\b.tmp", "C:\\App\\Notes\\a.txt"), Killed);
    files.Restart();
    EXPECT_EQ(files.Names("C:\\App\\Notes"), std::vector<std::string>{"a.txt"});
    EXPECT_EQ(files.Read("C:\\App\\Notes\\a.txt"), "new");
}

TEST_F(MemoryFilesTest, NoHandlerTrapsKilled) {
    EXPECT_FALSE((std::is_base_of_v<std::exception, Killed>));
}

}  // namespace
}  // namespace forms::headless
