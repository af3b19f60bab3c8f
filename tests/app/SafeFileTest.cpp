#include <set>

#include "base/Text.h"
#include "tests/app/SafeFileDevices.h"

namespace {

using base::ErrorNumber;
using forms::headless::Killed;
using forms::headless::MemoryFiles;
using testing_support::ErrorOf;
using Moment = MemoryFiles::Moment;
using SafeFileTest = testing_support::SafeFileDevices;

TEST_F(SafeFileTest, ReplacesAnExistingFile) {
    EXPECT_TRUE(SafeFile::ReplaceFile(path, newBytes));
    EXPECT_EQ(files.Peek(path), newBytes);
    EXPECT_EQ(Names(), justTheNote);
}

TEST_F(SafeFileTest, MakesANewFile) {
    const std::string other = folder + "\\Other.txt";
    EXPECT_TRUE(SafeFile::ReplaceFile(other, newBytes));
    EXPECT_EQ(files.Peek(other), newBytes);
    EXPECT_EQ(files.Peek(path), oldBytes);
}

TEST_F(SafeFileTest, WritesNothingIfTheFileHoldsTheseBytes) {
    EXPECT_FALSE(SafeFile::ReplaceFile(path, oldBytes));
    EXPECT_EQ(files.Log(), std::vector<std::string>{"read " + path});
    EXPECT_TRUE(SafeFile::ReplaceFile(path, oldBytes + " "));
    EXPECT_FALSE(SafeFile::ReplaceFile(path, oldBytes + " "));
}

TEST_F(SafeFileTest, AnEmptyFileIsMadeToo) {
    const std::string empty = folder + "\\Empty.txt";
    EXPECT_TRUE(SafeFile::ReplaceFile(empty, ""));
    EXPECT_EQ(files.Peek(empty), "");
    EXPECT_FALSE(SafeFile::ReplaceFile(empty, ""));
}

TEST_F(SafeFileTest, TheFileKeepsTheCaseOfItsNameOnDisk) {
    EXPECT_TRUE(SafeFile::ReplaceFile(folder + "\\dENTIST.txt", newBytes));
    EXPECT_EQ(Names(), justTheNote);
    EXPECT_EQ(files.Peek(path), newBytes);
}

TEST_F(SafeFileTest, AFileWhoseNameEndsTheSameIsLeftAlone) {
    EXPECT_TRUE(SafeFile::ReplaceFile(folder + "\\tist.txt", newBytes));
    EXPECT_EQ(Names(), (std::vector<std::string>{"Dentist.txt", "tist.txt"}));
    EXPECT_EQ(files.Peek(path), oldBytes);
}

TEST_F(SafeFileTest, TheLongestTitleThatTheSystemAllowsCanBeSaved) {
    const std::string longest = folder + '\\' + std::string(259 - folder.size() - 5, 'x') + ".txt";
    EXPECT_TRUE(SafeFile::ReplaceFile(longest, newBytes));
    EXPECT_EQ(files.Peek(longest), newBytes);
    EXPECT_EQ(ErrorOf([&] { SafeFile::ReplaceFile(longest + "xxxx", newBytes); }), 76);
}

TEST_F(SafeFileTest, NamesThatTheSystemRefusesLeaveNothingBehind) {
    for (const char* name : {"a*b", "what?", "a|b", "a<b", "a>b", "con", "LPT1"}) {
        EXPECT_EQ(ErrorOf([&] { SafeFile::ReplaceFile(folder + '\\' + name + ".txt", newBytes); }),
                  52)
            << name;
        EXPECT_EQ(Names(), justTheNote) << name;
    }
}

struct KillPoint {
    int step;
    Moment moment;
};

std::vector<KillPoint> EveryKillPoint(int steps) {
    std::vector<KillPoint> points;
    for (int step = 1; step <= steps; ++step) {
        for (const Moment moment : {Moment::Before, Moment::Middle, Moment::After}) {
            points.push_back({step, moment});
        }
    }
    return points;
}

// The steps are: read the old file, create the temporary file, write, flush, rename.
constexpr int stepsOfReplacing = 5;

TEST_F(SafeFileTest, StepsOfASave) {
    files.ClearFaults();
    SafeFile::ReplaceFile(path, newBytes);
    EXPECT_EQ(files.Steps(), stepsOfReplacing);
}

class SafeFileKilledSaveTest : public SafeFileTest,
                               public testing::WithParamInterface<KillPoint> {};

TEST_P(SafeFileKilledSaveTest, LeavesTheWholeOldFileOrTheWholeNewFile) {
    files.KillAt(GetParam().step, GetParam().moment);
    EXPECT_THROW(SafeFile::ReplaceFile(path, newBytes), Killed);
    files.Restart();
    const bool isRenamed =
        GetParam().step == stepsOfReplacing && GetParam().moment == Moment::After;
    EXPECT_EQ(files.Peek(path), isRenamed ? newBytes : oldBytes);

    RemoveLeftovers(folder);
    EXPECT_EQ(Names(), justTheNote);
    SafeFile::ReplaceFile(path, newBytes);
    EXPECT_EQ(files.Peek(path), newBytes);
    EXPECT_EQ(Names(), justTheNote);
}

TEST_P(SafeFileKilledSaveTest, LeavesAWholeNewFileOrNone) {
    const std::string other = folder + "\\Other.txt";
    files.KillAt(GetParam().step, GetParam().moment);
    try {
        SafeFile::ReplaceFile(other, newBytes);
        // There is no old file to read, so there is one step less.
        EXPECT_EQ(GetParam().step, stepsOfReplacing);
    } catch (const Killed&) {
        EXPECT_LT(GetParam().step, stepsOfReplacing);
    }
    files.Restart();
    const bool isRenamed =
        GetParam().step == stepsOfReplacing ||
        (GetParam().step == stepsOfReplacing - 1 && GetParam().moment == Moment::After);
    EXPECT_EQ(files.Peek(other), isRenamed ? std::optional(newBytes) : std::nullopt);
    EXPECT_EQ(files.Peek(path), oldBytes);
}

INSTANTIATE_TEST_SUITE_P(EveryStep, SafeFileKilledSaveTest,
                         testing::ValuesIn(EveryKillPoint(stepsOfReplacing)));

class SafeFileFailedSaveTest : public SafeFileTest, public testing::WithParamInterface<int> {};

TEST_P(SafeFileFailedSaveTest, LeavesTheOldFileAndNoOther) {
    files.FailAt(GetParam(), ErrorNumber::DeviceIoError);
    const int error = ErrorOf([] { SafeFile::ReplaceFile(path, newBytes); });
    if (GetParam() == 1) {
        // The old file cannot be read for the comparison, so the save writes the new bytes.
        EXPECT_EQ(error, 0);
        EXPECT_EQ(files.Peek(path), newBytes);
    } else {
        EXPECT_EQ(error, 57);
        EXPECT_EQ(files.Peek(path), oldBytes);
    }
    EXPECT_EQ(Names(), justTheNote);
}

INSTANTIATE_TEST_SUITE_P(EveryStep, SafeFileFailedSaveTest,
                         testing::Range(1, stepsOfReplacing + 1));

TEST_F(SafeFileTest, FullDiskKeepsTheOldFile) {
    for (std::uint64_t space = 0; space < newBytes.size(); ++space) {
        files.SetFreeSpace(space);
        EXPECT_EQ(ErrorOf([] { SafeFile::ReplaceFile(path, newBytes); }), 61);
        EXPECT_EQ(files.Peek(path), oldBytes);
        EXPECT_EQ(Names(), justTheNote);
    }
    files.SetFreeSpace(newBytes.size());
    EXPECT_TRUE(SafeFile::ReplaceFile(path, newBytes));
    EXPECT_EQ(files.Peek(path), newBytes);
}

TEST_F(SafeFileTest, ReadOnlyFileStays) {
    files.SetReadOnly(path, true);
    EXPECT_EQ(ErrorOf([] { SafeFile::ReplaceFile(path, newBytes); }), 75);
    EXPECT_EQ(files.Peek(path), oldBytes);
    EXPECT_EQ(Names(), justTheNote);
}

TEST_F(SafeFileTest, ReadOnlyFolderStays) {
    files.SetReadOnly(folder, true);
    EXPECT_EQ(ErrorOf([] { SafeFile::ReplaceFile(path, newBytes); }), 75);
    EXPECT_EQ(files.Peek(path), oldBytes);
    EXPECT_EQ(Names(), justTheNote);
}

TEST_F(SafeFileTest, FileInUseStays) {
    files.SetDenied(path, true);
    EXPECT_EQ(ErrorOf([] { SafeFile::ReplaceFile(path, newBytes); }), 70);
    EXPECT_EQ(files.Peek(path), oldBytes);
    EXPECT_EQ(Names(), justTheNote);
}

TEST_F(SafeFileTest, MissingFolderIsReported) {
    EXPECT_EQ(ErrorOf([] { SafeFile::ReplaceFile("C:\\Nowhere\\a.txt", newBytes); }), 76);
}

TEST_F(SafeFileTest, TheErrorOfTheSaveIsRaisedEvenIfTheTemporaryFileStays) {
    files.FailAt(4, ErrorNumber::DeviceIoError);
    class StuckFiles : public forms::FileSystem {
      public:
        explicit StuckFiles(MemoryFiles& disk) : inner(disk) {}
        bool FolderExists(const std::string& p) override { return inner.FolderExists(p); }
        bool FileExists(const std::string& p) override { return inner.FileExists(p); }
        void MakeFolder(const std::string& p) override { inner.MakeFolder(p); }
        std::vector<forms::FileEntry> List(const std::string& f, const std::string& s) override {
            return inner.List(f, s);
        }
        std::string NameOnDisk(const std::string& p) override { return inner.NameOnDisk(p); }
        std::string Read(const std::string& p) override { return inner.Read(p); }
        void Write(const std::string& p, const std::string& bytes,
                   forms::WriteOptions options) override {
            inner.Write(p, bytes, options);
        }
        void Replace(const std::string& from, const std::string& to,
                     forms::Durability durability) override {
            inner.Replace(from, to, durability);
        }
        void Delete(const std::string&) override {
            throw base::RuntimeError(ErrorNumber::PermissionDenied);
        }
        bool Recycle(const std::string& p) override { return inner.Recycle(p); }
        void Copy(const std::string& from, const std::string& to) override { inner.Copy(from, to); }
        std::unique_ptr<forms::FileLock> Lock(const std::string& p) override {
            return inner.Lock(p);
        }

      private:
        MemoryFiles& inner;
    } stuck(files);
    forms::Machine().files = &stuck;
    EXPECT_EQ(ErrorOf([] { SafeFile::ReplaceFile(path, newBytes); }), 57);
    EXPECT_EQ(Names().size(), 2U);
    RemoveLeftovers(folder);
    EXPECT_TRUE(SafeFile::ReplaceFile(path, newBytes));
    EXPECT_EQ(files.Peek(path), newBytes);
}

TEST_F(SafeFileTest, AReplacementThatFailsAfterTheOldFileIsGoneKeepsTheNewBytes) {
    files.SetDenied(path, false);
    int kept = 0;
    for (int step = 1;; ++step) {
        files.PutFile(path, oldBytes);
        files.FailAt(step, ErrorNumber::DeviceIoError);
        const int error = ErrorOf([&] {
            SafeFile::ReplaceFile(path, newBytes, {.isKnownToDiffer = true, .isForeign = true});
        });
        files.ClearFaults();
        ASSERT_EQ(Names().size(), 1U) << step;
        const auto held = files.Peek(folder + '\\' + Names()[0]);
        if (error == 0) {
            EXPECT_EQ(held, newBytes);
            break;
        }
        EXPECT_EQ(error, 57);
        if (files.FileExists(path)) {
            EXPECT_EQ(held, oldBytes) << step;
            continue;
        }
        EXPECT_EQ(held, newBytes) << step;
        EXPECT_EQ(files.RecycledBytes(), std::vector<std::string>{oldBytes});
        ++kept;
        files.Remove(folder + '\\' + Names()[0]);
    }
    EXPECT_EQ(kept, 1);
}

TEST_F(SafeFileTest, ACachedReplacementIsNotFlushed) {
    SafeFile::ReplaceFile(path, newBytes, {.durability = forms::Durability::Cached});
    EXPECT_EQ(files.Peek(path), newBytes);
    EXPECT_EQ(files.Flushes(), 0);
    SafeFile::ReplaceFile(path, oldBytes);
    EXPECT_EQ(files.Flushes(), 2);
}

TEST_F(SafeFileTest, AFileWithALongNameIsPutAsideUnderAShorterName) {
    files.SetRecycleBin(false);
    const std::size_t longest = 259 - folder.size() - 1;
    for (const std::string& character : {std::string("x"), std::string("\xf0\x9f\x98\x80")}) {
        std::string stem;
        for (std::size_t i = 0; i < (longest - 4) / (character == "x" ? 1 : 2); ++i) {
            stem += character;
        }
        const std::string held = folder + '\\' + stem + ".txt";
        for (const char* bytes : {"first", "second"}) {
            files.PutFile(held, bytes);
            SafeFile::PutAside(held, ".replaced");
            EXPECT_FALSE(files.FileExists(held));
        }
        files.Remove(path);
        std::set<std::string> kept;
        for (const std::string& name : Names()) {
            EXPECT_TRUE(name.ends_with(".replaced")) << name;
            EXPECT_EQ(base::ToValidUtf8(name), name);
            kept.insert(files.Peek(folder + '\\' + name).value_or(""));
            files.Remove(folder + '\\' + name);
        }
        EXPECT_EQ(kept, (std::set<std::string>{"first", "second"}));
    }
}

TEST_F(SafeFileTest, InADeepFolderNamesAreNotShortenedToNothing) {
    EXPECT_EQ(SafeFile::LongestName("C:\\a"), 254U);
    EXPECT_EQ(SafeFile::LongestName("C:"), 255U);
    EXPECT_EQ(SafeFile::LongestName("C:\\" + std::string(300, 'd')), 100U);
    EXPECT_EQ(SafeFile::Shortened("a\xc3\xa4\xf0\x9f\x98\x80", 3), "a\xc3\xa4");
    EXPECT_EQ(SafeFile::Shortened("abc", 3), "abc");
    EXPECT_EQ(SafeFile::Shortened("abc", 0), "");
}

TEST_F(SafeFileTest, NamesAreComparedAsTheFileSystemComparesThem) {
    EXPECT_EQ(SafeFile::NameKey("a.txt"), SafeFile::NameKey("A.TXT"));
    EXPECT_EQ(SafeFile::NameKey("\xc3\xa4.txt "), SafeFile::NameKey("\xc3\x84.TXT."));
    EXPECT_NE(SafeFile::NameKey("a .txt"), SafeFile::NameKey("a.txt"));
    EXPECT_NE(SafeFile::NameKey("a.txt"), SafeFile::NameKey("b.txt"));
}

TEST_F(SafeFileTest, OnADiskThatReplacesInTwoStepsAKillKeepsTheOldFileOrTheNewOne) {
    files.SetReplacesInTwoSteps(true);
    int adopted = 0;
    for (int step = 1;; ++step) {
        files.PutFile(path, oldBytes);
        files.KillAt(step, Moment::After);
        bool isKilled = false;
        try {
            SafeFile::ReplaceFile(path, newBytes);
        } catch (const Killed&) {
            isKilled = true;
        }
        files.Restart();
        if (!isKilled) {
            break;
        }
        const bool isMissing = !files.FileExists(path);
        SafeFile::SettleLeftovers(folder, [&](const std::string& bytes) {
            return isMissing && bytes == newBytes ? path : std::string();
        });
        adopted += isMissing ? 1 : 0;
        EXPECT_EQ(Names(), justTheNote) << step;
        EXPECT_TRUE(files.Peek(path) == oldBytes || files.Peek(path) == newBytes) << step;
    }
    EXPECT_EQ(adopted, 1);
}

TEST_F(SafeFileTest, OnADiskThatReplacesInTwoStepsAnErrorKeepsTheOldBytesOrTheNewOnes) {
    files.SetReplacesInTwoSteps(true);
    for (int step = 1;; ++step) {
        files.PutFile(path, oldBytes);
        files.FailAt(step, ErrorNumber::DeviceIoError);
        const int error = ErrorOf([&] { SafeFile::ReplaceFile(path, newBytes); });
        files.ClearFaults();
        ASSERT_EQ(Names().size(), 1U) << step;
        const auto held = files.Peek(folder + '\\' + Names()[0]);
        EXPECT_TRUE(held == oldBytes || held == newBytes) << step;
        files.Remove(folder + '\\' + Names()[0]);
        if (error == 0) {
            break;
        }
    }
}

}  // namespace
