#include <set>

#include "forms/headless/MemoryFiles.h"
#include "notes/NoteFile.h"
#include "tests/long/FaultProgram.h"
#include "tests/long/Scale.h"

// Runs every operation that writes to the disk, with a fault at each of its steps: the program is
// killed, or the step fails. Afterwards, each saved file must be the old or the new one, and typed
// text must come back.

using namespace forms;
using headless::Killed;
using headless::MemoryFiles;

namespace {

constexpr const char* saveErrors = "WriteNote Sub Error";
constexpr base::ErrorNumber errors[] = {
    base::ErrorNumber::DiskFull,      base::ErrorNumber::PermissionDenied,
    base::ErrorNumber::PathNotFound,  base::ErrorNumber::PathFileAccessError,
    base::ErrorNumber::DeviceIoError, base::ErrorNumber::FileNotFound};

class FaultTest : public long_tests::FaultProgram {
  protected:
    void Act(const Operation& operation) {
        try {
            operation.act();
        } catch (const Killed&) {
        }
    }

    // Runs the operation without a fault. Returns the files from before and from after it.
    std::pair<Disk, Disk> Undisturbed(const Operation& operation, Outcome& outcome) {
        Prepare(operation);
        const Disk before = WatchedFiles();
        files.ClearFaults();
        operation.act();
        outcome.steps = files.Steps();
        return {before, WatchedFiles()};
    }

    void KillAtEachStep(const Operation& operation, Outcome& outcome) {
        const auto [before, after] = Undisturbed(operation, outcome);
        for (int step = 1; step <= outcome.steps; ++step) {
            for (const auto moment : {MemoryFiles::Moment::Before, MemoryFiles::Moment::Middle,
                                      MemoryFiles::Moment::After}) {
                SCOPED_TRACE(std::string(operation.name) + ", killed at step " +
                             std::to_string(step) + " moment " +
                             std::to_string(static_cast<int>(moment)));
                Prepare(operation);
                files.KillAt(step, moment);
                Act(operation);
                Restart();
                ++outcome.cases;
                ExpectOneOf({before, after}, WatchedFiles(), operation, outcome);
                ExpectTextComesBack(operation);
            }
        }
    }

    void FailAtEachStep(const Operation& operation, Outcome& outcome) {
        const auto [before, after] = Undisturbed(operation, outcome);
        for (int step = 1; step <= outcome.steps; ++step) {
            for (const base::ErrorNumber error : errors) {
                for (const bool goesOn : {true, false}) {
                    SCOPED_TRACE(std::string(operation.name) + ", step " + std::to_string(step) +
                                 " fails with " + base::DescriptionOf(error) +
                                 (goesOn ? "" : ", then the program is started again"));
                    Prepare(operation);
                    const std::size_t boxesBefore = stage->Boxes().size();
                    files.FailAt(step, error);
                    Act(operation);
                    ++outcome.cases;
                    ExpectOneOf({before, after}, WatchedFiles(), operation, outcome);
                    if (WatchedFiles() != after && operation.reports) {
                        ExpectReport(boxesBefore, error);
                    }
                    files.ClearFaults();
                    if (goesOn) {
                        ExpectTextIsKept(operation);
                    } else {
                        Restart();
                        ExpectTextComesBack(operation);
                    }
                }
            }
        }
    }

    void ExpectReport(std::size_t boxesBefore, base::ErrorNumber error) {
        const std::string text =
            std::to_string(static_cast<int>(error)) + " - " + base::DescriptionOf(error);
        bool reported = false;
        for (std::size_t i = boxesBefore; i < stage->Boxes().size(); ++i) {
            const BoxRequest& box = stage->Boxes()[i];
            reported = reported || (box.caption == saveErrors && box.text == text);
        }
        EXPECT_TRUE(reported) << "no report \"" << text << '"';
    }

    // Expects that the window still shows the text and that the next save works. If the program has
    // ended, expects the text after the next start.
    void ExpectTextIsKept(const Operation& operation) {
        if (operation.typed.empty()) {
            return;
        }
        if (runtime->HasEnded()) {
            Restart();
            StartAgain();
        }
        auto* note = FindWindow<frmNote>("Dentist");
        if (note == nullptr) {
            StandardCode::NoteRecord saved;
            NoteFile::Decode(FileOf("Dentist").value_or(""), saved);
            EXPECT_EQ(saved.Text, operation.typed);
            return;
        }
        EXPECT_EQ(note->txtNote.text(), operation.typed);
        if (note->windowState() == WindowState::Minimized) {
            user->Restore(*note);
        }
        user->Click(note->tlbMain, "Save");
        StandardCode::NoteRecord saved;
        NoteFile::Decode(FileOf("Dentist").value_or(""), saved);
        EXPECT_EQ(saved.Text, operation.typed);
    }
};

}  // namespace

TEST_F(FaultTest, AKillAtAnyStepLeavesTheOldOrTheNewNote) {
    std::string longText;
    for (int line = 0; line < 2000; ++line) {
        longText += "line " + std::to_string(line) + " of a long text\r\n";
    }
    const std::vector<std::string> texts{"brand new", "\xC3\xA4rger \xE2\x98\x83", longText, ""};
    for (std::size_t i = 0; i < static_cast<std::size_t>(long_tests::Scaled(1, 4)); ++i) {
        newText = texts[i];
        ForEach(Operations(), [this](const Operation& operation, Outcome& outcome) {
            KillAtEachStep(operation, outcome);
        });
    }
}

TEST_F(FaultTest, AnErrorAtAnyStepIsReportedAndLosesNothing) {
    ForEach(Operations(), [this](const Operation& operation, Outcome& outcome) {
        FailAtEachStep(operation, outcome);
    });
}

// Faults that last until the user removes their cause.
TEST_F(FaultTest, ALastingFaultIsReportedAtEachSaveAndTheSaveAfterItWorks) {
    struct Condition {
        const char* name;
        std::function<void()> begin;
        std::function<void()> end;
        std::string report;  // empty if the program removes the cause itself
    };
    const std::string folder = testing_support::applicationFolder + "\\Notes";
    const std::string path = PathOf("Dentist");
    const std::vector<Condition> conditions{
        {"full disk", [&] { files.SetFreeSpace(0); }, [&] { files.SetFreeSpace(std::nullopt); },
         "61 - Disk full"},
        {"note open in another program, or no right to it", [&] { files.SetDenied(path, true); },
         [&] { files.SetDenied(path, false); }, "70 - Permission denied"},
        {"read-only note", [&] { files.SetReadOnly(path, true); },
         [&] { files.SetReadOnly(path, false); }, "75 - Path/File access error"},
        {"read-only medium", [&] { files.SetReadOnly(folder, true); },
         [&] { files.SetReadOnly(folder, false); }, "75 - Path/File access error"},
        {"no right to the folder", [&] { files.SetDenied(folder, true); },
         [&] { files.SetDenied(folder, false); }, "70 - Permission denied"},
        {"folder gone",
         [&] {
             for (const std::string& name : files.Names(folder)) {
                 files.Remove(folder + '\\' + name);
             }
             files.Remove(folder);
         },
         [] {}, ""},
    };
    const Operation save{"save", [this] { TypeAndWait(); }, [] {}};
    for (const Condition& condition : conditions) {
        for (const bool closes : {false, true}) {
            SCOPED_TRACE(std::string(condition.name) + (closes ? ", closing" : ", toolbar"));
            Prepare(save);
            const auto act = [&] {
                if (closes) {
                    user->CloseBox(Editor("Dentist"));
                } else {
                    user->Click(Editor("Dentist").tlbMain, "Save");
                }
            };
            condition.begin();
            for (int times = 1; times <= 2 && !condition.report.empty(); ++times) {
                const std::size_t boxes = stage->Boxes().size();
                act();
                ASSERT_EQ(stage->Boxes().size(), boxes + 1);
                EXPECT_EQ(stage->Boxes().back().caption, saveErrors);
                EXPECT_EQ(stage->Boxes().back().text, condition.report);
                EXPECT_EQ(Editor("Dentist").txtNote.text(), newText);
            }
            condition.end();
            act();
            StandardCode::NoteRecord saved;
            NoteFile::Decode(files.Peek(path).value_or(""), saved);
            EXPECT_EQ(saved.Text, newText);
        }
    }
}
