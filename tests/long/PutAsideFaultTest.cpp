#include <algorithm>
#include <cstdio>

#include "notes/EditedNote.h"
#include "notes/NoteFile.h"
#include "notes/NoteStore.h"
#include "tests/support/WholeProgram.h"

// Runs operations that put a note file aside, or that rename a leftover to the note it belongs to.
// At each step, the program is killed, the step fails, or the disk is full or read-only. No text
// of a file or of a window may be lost.

using namespace forms;
using headless::Killed;
using headless::MemoryFiles;

namespace {

using testing_support::Note;

const std::string notesFolder = testing_support::applicationFolder + "\\Notes";
const std::string milk = NoteFile::Compose(Note("Shopping", "milk"));
const std::string lost = NoteFile::Compose(Note("Lost", "found"));
const std::string there = NoteFile::Compose(Note("There", "saved"));
const std::string half = "\"b\",\"half a note";

struct Operation {
    const char* name;
    bool hasRecycleBin;
    std::function<void()> prepare;  // sets up the disk, and starts the program if it must run
    std::function<void()> act;
    std::vector<std::string> files;  // each must be complete in a file or in the Recycle Bin
    std::string typed;               // text in a note's file or window; may be empty
    std::string file;                // must be complete after the next start; may be empty
};

class PutAsideFaultTest : public testing_support::WholeProgram {
  protected:
    void SetUp() override {
        WholeProgram::SetUp();
        shipped = files;
    }

    void StartAgain() {
        stage->improvise.box = [](const BoxRequest&) { return BoxResult::Ok; };
        StartQuietly();
    }

    void Put(const std::string& name, const std::string& bytes) {
        files.PutFile(notesFolder + '\\' + name, bytes);
    }

    void Prepare(const Operation& operation) {
        Restart();
        files = shipped;
        files.PutFolder(notesFolder);
        files.SetRecycleBin(operation.hasRecycleBin);
        stage->improvise.box = [](const BoxRequest&) { return BoxResult::Ok; };
        operation.prepare();
    }

    // True if the program was killed.
    static bool IsKilledIn(const Operation& operation) {
        try {
            operation.act();
            return false;
        } catch (const Killed&) {
            return true;
        }
    }

    std::vector<Operation> Operations() {
        // A new note takes the file of a saved one.
        const auto typeBread = [this] {
            Put("Shopping.txt", milk);
            StartAgain();
            user->Restore(Editor("Shopping"));
            user->CloseBox(Editor("Shopping"));
            user->Type(MakeNote("shopping").txtNote, "bread");
            Advance(2000);
        };
        const auto hide = [this] { user->Click(Editor("shopping").tlbMain, "Hide"); };
        const auto damage = [this] {
            StartAgain();
            Put("b.txt", half);
        };
        const auto lookAtPanel = [this] { user->Click(Main().cmdViewNotes); };
        const auto leaveOver = [this] {
            Put("~Jotwright-0123456789abcdef-3.tmp", lost);
            Put("~Jotwright-0123456789abcdef-4.tmp", lost.substr(0, 20));
            Put("~Jotwright-0123456789abcdef-5.tmp", NoteFile::Compose(Note("There", "older")));
            Put("There.txt", there);
        };
        return {
            {"put aside, Recycle Bin", true, typeBread, hide, {milk}, "bread", "Shopping.txt"},
            {"put aside, .replaced", false, typeBread, hide, {milk}, "bread", "Shopping.txt"},
            {"damaged, Recycle Bin", true, damage, lookAtPanel, {half}, "", ""},
            {"damaged, renamed", false, damage, lookAtPanel, {half}, "", ""},
            {"damaged at start, renamed",
             false,
             [this] { Put("b.txt", half); },
             [this] { StartAgain(); },
             {half},
             "",
             ""},
            {"leftover becomes the note",
             true,
             leaveOver,
             [this] { StartAgain(); },
             {lost, there},
             "",
             "Lost.txt"},
        };
    }

    bool IsInAFile(const std::string& bytes) const {
        const auto names = files.Names(notesFolder);
        const auto& recycled = files.RecycledBytes();
        return std::find(recycled.begin(), recycled.end(), bytes) != recycled.end() ||
               std::any_of(names.begin(), names.end(), [&](const std::string& name) {
                   return files.Peek(notesFolder + '\\' + name) == bytes;
               });
    }

    bool IsANote(const std::string& text) const {
        const auto& open = StandardCode::Notes().OpenNotes();
        if (std::any_of(open.begin(), open.end(), [&](const EditedNote* note) {
                return static_cast<frmNote&>(note->Editor().Window()).txtNote.text() == text;
            })) {
            return true;
        }
        const auto names = files.Names(notesFolder);
        return std::any_of(names.begin(), names.end(), [&](const std::string& name) {
            StandardCode::NoteRecord record;
            try {
                NoteFile::Decode(files.Peek(notesFolder + '\\' + name).value_or(""), record);
            } catch (const base::RuntimeError&) {
                return false;
            }
            return name.ends_with(".txt") && record.Text == text;
        });
    }

    void ExpectFiles(const Operation& operation) {
        for (const std::string& bytes : operation.files) {
            EXPECT_TRUE(IsInAFile(bytes)) << "lost: " << bytes;
        }
    }

    void ExpectAll(const Operation& operation) {
        ExpectFiles(operation);
        EXPECT_TRUE(operation.typed.empty() || IsANote(operation.typed))
            << "lost: " << operation.typed;
    }

    // Expects that the next start finds all texts and removes the temporary files.
    void ExpectAllAfterTheNextStart(const Operation& operation) {
        Restart();
        ExpectFiles(operation);
        StartAgain();
        ExpectAll(operation);
        if (!operation.file.empty()) {
            const std::string bytes = files.Peek(notesFolder + '\\' + operation.file).value_or("");
            EXPECT_TRUE(NoteFile::IsWhole(bytes)) << operation.file << ": " << bytes;
        }
        for (const std::string& name : files.Names(notesFolder)) {
            EXPECT_FALSE(name.ends_with(".tmp")) << name;
        }
    }

    // The number of steps of the operation.
    int StepsOf(const Operation& operation) {
        Prepare(operation);
        files.ClearFaults();
        operation.act();
        const int steps = files.Steps();
        ExpectAll(operation);
        ExpectAllAfterTheNextStart(operation);
        return steps;
    }

    template <class Case>
    void ForEachStep(Case each) {
        for (const Operation& operation : Operations()) {
            const int steps = StepsOf(operation);
            EXPECT_GT(steps, 0) << operation.name;
            int cases = 0;
            for (int step = 1; step <= steps; ++step) {
                cases += each(operation, step);
            }
            std::printf("%-32s %6d steps %6d cases\n", operation.name, steps, cases);
        }
    }

    MemoryFiles shipped;
};

}  // namespace

TEST_F(PutAsideFaultTest, AKillAtAnyStepLosesNothing) {
    ForEachStep([this](const Operation& operation, int step) {
        int cases = 0;
        for (const auto moment : {MemoryFiles::Moment::Before, MemoryFiles::Moment::Middle,
                                  MemoryFiles::Moment::After}) {
            SCOPED_TRACE(testing::Message() << operation.name << ", killed at step " << step
                                            << " moment " << static_cast<int>(moment));
            Prepare(operation);
            files.KillAt(step, moment);
            EXPECT_TRUE(IsKilledIn(operation));
            ExpectAllAfterTheNextStart(operation);
            ++cases;
        }
        return cases;
    });
}

TEST_F(PutAsideFaultTest, AnErrorAtAnyStepLosesNothing) {
    ForEachStep([this](const Operation& operation, int step) {
        int cases = 0;
        for (const auto error :
             {base::ErrorNumber::DiskFull, base::ErrorNumber::PermissionDenied,
              base::ErrorNumber::PathFileAccessError, base::ErrorNumber::DeviceIoError}) {
            SCOPED_TRACE(testing::Message() << operation.name << ", step " << step << " fails with "
                                            << base::DescriptionOf(error));
            Prepare(operation);
            files.FailAt(step, error);
            operation.act();
            files.ClearFaults();
            ExpectAll(operation);
            ExpectAllAfterTheNextStart(operation);
            ++cases;
        }
        return cases;
    });
}

TEST_F(PutAsideFaultTest, AFullOrReadOnlyDiskLosesNothing) {
    struct Condition {
        const char* name;
        std::function<void()> begin;
        std::function<void()> end;
    };
    const auto setReadOnly = [this](bool readOnly) {
        for (const std::string& name : files.Names(notesFolder)) {
            files.SetReadOnly(notesFolder + '\\' + name, readOnly);
        }
    };
    const std::vector<Condition> conditions{
        {"full disk", [this] { files.SetFreeSpace(0); },
         [this] { files.SetFreeSpace(std::nullopt); }},
        {"nearly full disk", [this] { files.SetFreeSpace(20); },
         [this] { files.SetFreeSpace(std::nullopt); }},
        {"read-only folder", [this] { files.SetReadOnly(notesFolder, true); },
         [this] { files.SetReadOnly(notesFolder, false); }},
        {"read-only files", [&] { setReadOnly(true); }, [&] { setReadOnly(false); }},
        {"no right to the folder", [this] { files.SetDenied(notesFolder, true); },
         [this] { files.SetDenied(notesFolder, false); }},
    };
    for (const Operation& operation : Operations()) {
        for (const Condition& condition : conditions) {
            SCOPED_TRACE(testing::Message() << operation.name << ", " << condition.name);
            Prepare(operation);
            condition.begin();
            operation.act();
            ExpectAll(operation);
            condition.end();
            ExpectAllAfterTheNextStart(operation);
        }
    }
}
