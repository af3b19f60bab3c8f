#include <windows.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

#include "forms/win32/devices/Handle.h"
#include "forms/win32/devices/WinFiles.h"
#include "tests/conformance/win32/TempFolder.h"
#include "tests/support/ErrorOf.h"

namespace forms::win32 {

namespace {

using testing_support::ErrorOf;

// Opens a file so that no other program can open it.
Handle OpenAlone(const std::string& path) {
    return Handle(::CreateFileW(Wide(path).c_str(), GENERIC_READ, 0, nullptr, OPEN_EXISTING,
                                FILE_ATTRIBUTE_NORMAL, nullptr));
}

class WinFilesTest : public testing::Test {
  protected:
    void SetAttributes(const std::string& path, DWORD attributes) {
        ASSERT_NE(::SetFileAttributesW(Wide(path).c_str(), attributes), 0);
    }

    std::vector<std::string> Names(const std::string& suffix) {
        std::vector<std::string> names;
        for (const FileEntry& entry : files.List(folder.Path(), suffix)) {
            names.push_back(entry.name);
        }
        std::sort(names.begin(), names.end());
        return names;
    }

    TempFolder folder;
    WinFiles files;
    const std::string note = folder / "note.txt";
    const std::string other = folder / "other.txt";
};

}  // namespace

TEST_F(WinFilesTest, WrittenBytesAreReadBack) {
    const std::string bytes("one\r\ntwo\0\xff\x1a three", 17);
    files.Write(note, bytes);
    EXPECT_EQ(files.Read(note), bytes);
    files.Write(note, "short");
    EXPECT_EQ(files.Read(note), "short");
    files.Write(note, "");
    EXPECT_EQ(files.Read(note), "");
}

TEST_F(WinFilesTest, LargeFilesAreWholeAndTooLargeOnesRefused) {
    const std::string large(20U << 20U, 'x');
    files.Write(note, large);
    EXPECT_TRUE(files.Read(note) == large);
    {
        const Handle file(::CreateFileW(Wide(note).c_str(), GENERIC_WRITE, 0, nullptr,
                                        OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr));
        LARGE_INTEGER end{};
        end.QuadPart = (64LL << 20U) + 1;
        ASSERT_TRUE(file);
        ASSERT_NE(::SetFilePointerEx(file.get(), end, nullptr, FILE_BEGIN), 0);
        ASSERT_NE(::SetEndOfFile(file.get()), 0);
    }
    EXPECT_EQ(ErrorOf([&] { files.Read(note); }), 57);
}

TEST_F(WinFilesTest, FilesAndFoldersAreToldApart) {
    files.Write(note, "x");
    EXPECT_TRUE(files.FileExists(note));
    EXPECT_FALSE(files.FolderExists(note));
    EXPECT_TRUE(files.FolderExists(folder.Path()));
    EXPECT_TRUE(files.FolderExists(folder.Path() + "\\"));
    EXPECT_FALSE(files.FileExists(folder.Path()));
    EXPECT_FALSE(files.FileExists(other));
    EXPECT_FALSE(files.FileExists("note.txt"));
    EXPECT_FALSE(files.FileExists(""));
}

TEST_F(WinFilesTest, NamesAreUnicode) {
    const std::string name = "\xc3\x9c\x62\x65r \xe6\x97\xa5\xe6\x9c\xac \xf0\x9f\x93\x9d.txt";
    files.Write(folder / name, "x");
    EXPECT_EQ(Names(".txt"), std::vector{name});
    EXPECT_EQ(files.Read(folder / name), "x");
}

TEST_F(WinFilesTest, ListComparesTheWholeSuffixInEitherCase) {
    files.Write(folder / "a.txt", "12345");
    files.Write(folder / "B.TXT", "");
    files.Write(folder / "c.txt2", "");  // its short name ends in .TXT
    files.Write(folder / "dtxt", "");
    files.MakeFolder(folder / "e.txt");
    EXPECT_EQ(Names(".txt"), (std::vector<std::string>{"B.TXT", "a.txt"}));
    EXPECT_EQ(Names("").size(), 4U);
    EXPECT_EQ(files.List(folder / "missing", ".txt").size(), 0U);
    EXPECT_EQ(files.List(folder / "a.txt", ".txt").size(), 0U);
}

TEST_F(WinFilesTest, AFolderThatIsOutOfReachIsNoEmptyFolder) {
    EXPECT_EQ(ErrorOf([&] { files.List(folder / "missing\\deep", ".txt"); }), 76);
    EXPECT_NE(ErrorOf([&] { files.List("\\\\jotwright.invalid\\share\\Notes", ".txt"); }), 0);
}

TEST_F(WinFilesTest, AShortNameIsNotTheNameOfItsFile) {
    const std::string name = "My notes of this year.txt";
    files.Write(folder / name, "long");
    wchar_t path[MAX_PATH]{};
    ASSERT_NE(::GetShortPathNameW(Wide(folder / name).c_str(), path, MAX_PATH), 0U);
    const std::string whole = Narrow(path);
    const std::string shortPath = folder / whole.substr(whole.find_last_of('\\') + 1);
    if (shortPath == folder / name) {
        GTEST_SKIP() << "skipped: needs a disk with short names";
    }
    ASSERT_NE(::GetFileAttributesW(Wide(shortPath).c_str()), INVALID_FILE_ATTRIBUTES)
        << "what follows would prove nothing";
    EXPECT_FALSE(files.FileExists(shortPath));
    files.Write(other, "new");
    EXPECT_EQ(ErrorOf([&] { files.NameOnDisk(shortPath); }), 52);
    EXPECT_EQ(ErrorOf([&] { files.Read(shortPath); }), 52);
    EXPECT_EQ(ErrorOf([&] { files.Write(shortPath, "new"); }), 52);
    EXPECT_EQ(ErrorOf([&] { files.Replace(other, shortPath); }), 52);
    EXPECT_EQ(ErrorOf([&] { files.Copy(other, shortPath); }), 52);
    EXPECT_EQ(ErrorOf([&] { files.Delete(shortPath); }), 52);
    EXPECT_EQ(ErrorOf([&] { files.Recycle(shortPath); }), 52);
    EXPECT_EQ(files.Read(folder / name), "long");
    // A name that only looks like a short one.
    files.Write(folder / "A~1.txt", "x");
    EXPECT_EQ(files.Read(folder / "a~1.TXT"), "x");
    EXPECT_EQ(files.NameOnDisk(folder / "a~1.TXT"), "A~1.txt");
}

TEST_F(WinFilesTest, NameOnDiskHasTheCaseOfTheDisk) {
    files.Write(folder / "Shopping.txt", "x");
    EXPECT_EQ(files.NameOnDisk(folder / "SHOPPING.TXT"), "Shopping.txt");
    EXPECT_EQ(files.NameOnDisk(folder / "Other.TXT"), "Other.TXT");
}

TEST_F(WinFilesTest, ListReportsSizeAndTimeOfChange) {
    files.Write(note, "12345");
    const FileEntry first = files.List(folder.Path(), ".txt").at(0);
    EXPECT_EQ(first.size, 5U);
    ::Sleep(50);
    files.Write(note, "54321");
    const FileEntry second = files.List(folder.Path(), ".txt").at(0);
    EXPECT_EQ(second.size, 5U);
    EXPECT_GT(second.changed, first.changed);
}

TEST_F(WinFilesTest, MissingFilesAndFolders) {
    const std::string nowhere = folder / "missing\\note.txt";
    files.Write(note, "x");
    EXPECT_EQ(ErrorOf([&] { files.Read(other); }), 53);
    EXPECT_EQ(ErrorOf([&] { files.Delete(other); }), 53);
    EXPECT_EQ(ErrorOf([&] { files.Recycle(other); }), 53);
    EXPECT_EQ(ErrorOf([&] { files.Replace(other, note); }), 53);
    EXPECT_EQ(ErrorOf([&] { files.Copy(other, note); }), 53);
    EXPECT_EQ(ErrorOf([&] { files.Read(nowhere); }), 76);
    EXPECT_EQ(ErrorOf([&] { files.Write(nowhere, "x"); }), 76);
    EXPECT_EQ(ErrorOf([&] { files.Replace(note, nowhere); }), 76);
    EXPECT_EQ(ErrorOf([&] { files.Copy(note, nowhere); }), 76);
    EXPECT_EQ(ErrorOf([&] { files.MakeFolder(folder / "missing\\deep"); }), 76);
    EXPECT_EQ(ErrorOf([&] { files.Write(note + "\\inner.txt", "x"); }), 76);
    EXPECT_EQ(files.Read(note), "x");
}

TEST_F(WinFilesTest, ReadOnlyFilesAreLeftAlone) {
    files.Write(note, "old");
    files.Write(other, "new");
    SetAttributes(note, FILE_ATTRIBUTE_READONLY);
    EXPECT_EQ(ErrorOf([&] { files.Write(note, "new"); }), 75);
    EXPECT_EQ(ErrorOf([&] { files.Replace(other, note); }), 75);
    EXPECT_EQ(ErrorOf([&] { files.Replace(note, folder / "third.txt"); }), 75);
    EXPECT_EQ(ErrorOf([&] { files.Copy(other, note); }), 75);
    EXPECT_EQ(ErrorOf([&] { files.Delete(note); }), 75);
    EXPECT_EQ(ErrorOf([&] { files.Recycle(note); }), 75);
    EXPECT_EQ(files.Read(note), "old");
    EXPECT_EQ(files.Read(other), "new");
    SetAttributes(note, FILE_ATTRIBUTE_NORMAL);
    files.Replace(other, note);
    EXPECT_EQ(files.Read(note), "new");
}

TEST_F(WinFilesTest, AFolderInTheFilesPlace) {
    files.Write(other, "x");
    files.MakeFolder(note);
    EXPECT_EQ(ErrorOf([&] { files.Read(note); }), 75);
    EXPECT_EQ(ErrorOf([&] { files.Write(note, "x"); }), 75);
    EXPECT_EQ(ErrorOf([&] { files.Replace(other, note); }), 75);
    EXPECT_EQ(ErrorOf([&] { files.Copy(other, note); }), 75);
    EXPECT_EQ(ErrorOf([&] { files.Copy(note, folder / "third.txt"); }), 75);
    EXPECT_EQ(ErrorOf([&] { files.Delete(note); }), 75);
    EXPECT_EQ(ErrorOf([&] { files.Recycle(note); }), 75);
    EXPECT_EQ(ErrorOf([&] { files.MakeFolder(note); }), 75);
    EXPECT_EQ(ErrorOf([&] { files.MakeFolder(other); }), 75);
    EXPECT_TRUE(files.FolderExists(note));
}

TEST_F(WinFilesTest, FilesThatAnotherProgramHolds) {
    files.Write(note, "old");
    files.Write(other, "new");
    {
        const Handle held = OpenAlone(note);
        ASSERT_TRUE(held);
        EXPECT_EQ(ErrorOf([&] { files.Read(note); }), 70);
        EXPECT_EQ(ErrorOf([&] { files.Write(note, "new"); }), 70);
        EXPECT_EQ(ErrorOf([&] { files.Replace(other, note); }), 70);
        EXPECT_EQ(ErrorOf([&] { files.Copy(other, note); }), 70);
        EXPECT_EQ(ErrorOf([&] { files.Delete(note); }), 70);
    }
    EXPECT_EQ(files.Read(note), "old");
    EXPECT_EQ(files.Read(other), "new");
}

TEST_F(WinFilesTest, AFileThatAnotherProgramWritesCanBeRead) {
    files.Write(note, "x");
    const Handle writer(::CreateFileW(Wide(note).c_str(), GENERIC_READ | GENERIC_WRITE | DELETE,
                                      FILE_SHARE_READ, nullptr, OPEN_EXISTING,
                                      FILE_ATTRIBUTE_NORMAL, nullptr));
    ASSERT_TRUE(writer);
    EXPECT_EQ(files.Read(note), "x");
}

TEST_F(WinFilesTest, AFileThatMustBeNewIsNotWrittenOver) {
    files.Write(note, "old");
    EXPECT_EQ(ErrorOf([&] { files.Write(note, "new", {.mustBeNew = true}); }), 58);
    EXPECT_EQ(files.Read(note), "old");
    files.Write(other, "new", {.mustBeNew = true, .durability = Durability::Cached});
    EXPECT_EQ(files.Read(other), "new");
}

TEST_F(WinFilesTest, ALockHoldsUntilItIsDestroyedAndLeavesNoFile) {
    WinFiles otherProgram;
    const std::string lockFile = folder / "a.lock";
    auto lock = files.Lock(lockFile);
    ASSERT_NE(lock, nullptr);
    EXPECT_EQ(otherProgram.Lock(lockFile), nullptr);
    lock.reset();
    EXPECT_FALSE(files.FileExists(lockFile));
    EXPECT_NE(otherProgram.Lock(lockFile), nullptr);
    EXPECT_EQ(ErrorOf([&] { files.Lock(folder / "nowhere\\a.lock"); }), 76);
}

TEST_F(WinFilesTest, ReplaceRenamesOverAFileAndToANewName) {
    files.Write(note, "new");
    files.Replace(note, other);
    EXPECT_FALSE(files.FileExists(note));
    EXPECT_EQ(files.Read(other), "new");
}

TEST_F(WinFilesTest, OnlyPlainNamesAreAccepted) {
    files.Write(note, "x");
    for (const char* name : {"",
                             "a:b.txt",
                             "note.txt::$DATA",
                             "a*.txt",
                             "a?.txt",
                             "a<b",
                             "a>b",
                             "a|b",
                             "a\"b",
                             "a/b",
                             "..\\x.txt",
                             "..",
                             ".",
                             "x.txt.",
                             "x.txt ",
                             "CON",
                             "con.txt",
                             "Aux .txt",
                             "NUL.a.b",
                             "com1.txt",
                             "LPT9",
                             "COM\xc2\xb2.txt",
                             "conin$",
                             "a\tb",
                             "a\x01"}) {
        const std::string path = folder / name;
        if (*name != '\0') {
            EXPECT_EQ(ErrorOf([&] { files.Write(path, "y"); }), 52) << name;
            EXPECT_EQ(ErrorOf([&] { files.Replace(note, path); }), 52) << name;
            EXPECT_EQ(ErrorOf([&] { files.Copy(note, path); }), 52) << name;
            EXPECT_EQ(ErrorOf([&] { files.MakeFolder(path); }), 52) << name;
            EXPECT_EQ(ErrorOf([&] { files.Read(path); }), 52) << name;
            EXPECT_EQ(ErrorOf([&] { files.Delete(path); }), 52) << name;
            EXPECT_FALSE(files.FolderExists(path)) << name;
        }
        EXPECT_FALSE(files.FileExists(path)) << name;
    }
    for (const char* path : {"", "note.txt", "\\note.txt", "C:note.txt", "1:\\note.txt", "\\\\",
                             "\\\\server", "C:\\\\note.txt"}) {
        EXPECT_EQ(ErrorOf([&] { files.Write(path, "y"); }), 52) << path;
    }
    EXPECT_EQ(Names(""), std::vector<std::string>{"note.txt"});
    EXPECT_EQ(files.Read(note), "x");
}

TEST_F(WinFilesTest, NamesThatOnlyResembleDevicesAreAccepted) {
    for (const char* name : {"console.txt", "com.txt", "com10.txt", "nul1.txt", "my con.txt",
                             ".txt", " x.txt", "a..txt", "100%.txt", "a;b.txt"}) {
        files.Write(folder / name, name);
        EXPECT_EQ(files.Read(folder / name), name);
    }
    EXPECT_EQ(ErrorOf([&] { files.Write(folder / std::string(256, 'n'), "x"); }), 52);
    EXPECT_EQ(ErrorOf([&] { files.Write(folder / std::string(255, 'n'), "x"); }), 0);
}

TEST_F(WinFilesTest, PathsMayBeLong) {
    std::string path = folder.Path();
    for (int i = 0; i < 4; ++i) {
        path += "\\" + std::string(100, 'd');
        files.MakeFolder(path);
    }
    EXPECT_TRUE(files.FolderExists(path));
    const std::string file = path + "\\note.txt";
    files.Write(file + ".new", "x");
    files.Replace(file + ".new", file);
    EXPECT_EQ(files.Read(file), "x");
    EXPECT_EQ(files.Read("\\\\?\\" + file), "x");
    EXPECT_EQ(files.List(path, ".txt").size(), 1U);
    files.Copy(file, file + ".copy");
    // The shell does not accept such a path.
    EXPECT_FALSE(files.Recycle(file));
    files.Delete(file);
    files.Delete(file + ".copy");
    EXPECT_EQ(files.List(path, "").size(), 0U);
}

TEST_F(WinFilesTest, CopyAndDelete) {
    files.Write(note, "x");
    files.Write(other, "y");
    files.Copy(note, other);
    EXPECT_EQ(files.Read(other), "x");
    EXPECT_EQ(files.Read(note), "x");
    files.Delete(note);
    EXPECT_FALSE(files.FileExists(note));
}

}  // namespace forms::win32
