#include <cstdio>
#include <map>
#include <set>

#include "alarms/SpecialAlarmsFile.h"
#include "alarms/frmSpecialAlarms.h"
#include "forms/Gestures.h"
#include "notes/NoteFile.h"
#include "notes/NoteStore.h"
#include "notes/frmViewNotes.h"
#include "tests/long/Scale.h"
#include "tests/support/WholeProgram.h"

// Runs every operation that writes to the disk, with a fault at each of its steps: the program is
// killed, or the step fails. Afterwards, each saved file must be the old or the new one, and typed
// text must come back.

using namespace forms;
using headless::Killed;
using headless::MemoryFiles;

namespace {

using Disk = std::map<std::string, std::optional<std::string>>;

struct Operation {
    const char* name;
    std::function<void()> prepare;  // runs in a program that is running
    std::function<void()> act;
    // The text that the user has typed into the editor of Dentist, or nothing.
    std::string typed{};
    bool erases = false;  // the note may be gone afterwards
    bool reports = true;  // errors are shown in the box of the save
};

struct Outcome {
    int steps = 0;
    int cases = 0;
    int old = 0;
    int renewed = 0;
    int erased = 0;
};

constexpr const char* saveErrors = "WriteNote Sub Error";
constexpr base::ErrorNumber errors[] = {
    base::ErrorNumber::DiskFull,      base::ErrorNumber::PermissionDenied,
    base::ErrorNumber::PathNotFound,  base::ErrorNumber::PathFileAccessError,
    base::ErrorNumber::DeviceIoError, base::ErrorNumber::FileNotFound};

class FaultTest : public testing_support::WholeProgram {
  protected:
    void SetUp() override {
        WholeProgram::SetUp();
        shipped = files;
    }

    // Starts the program on a new machine and prepares the operation.
    void Prepare(const Operation& operation) {
        Restart();
        files = shipped;
        files.PutFolder(testing_support::applicationFolder + "\\Notes");
        SetNow(2004, 5, 14, 9, 0, 0);
        answer = BoxResult::Yes;
        PutNote(Note("Dentist", "old").At(9, 0, 10));
        PutNote(Note("Other", "other").InColor(3));
        StartAgain();
        operation.prepare();
    }

    void StartAgain() {
        stage->improvise.box = [this](const BoxRequest& box) {
            return box.options.buttons == BoxButtons::YesNo ? answer : BoxResult::Ok;
        };
        StartQuietly();
    }

    frmNote& TypeInto(const std::string& title, const std::string& text) {
        frmNote& note = Editor(title);
        if (note.windowState() == WindowState::Minimized) {
            user->Restore(note);
        }
        user->Type(note.txtNote, text);
        return note;
    }

    void TypeAndWait() {
        TypeInto("Dentist", newText);
        Advance(2000);
    }

    frmDisplayNote& ShowDisplay() {
        user->Restore(Editor("Dentist"));
        user->CloseBox(Editor("Dentist"));
        PutNote(Note("Dentist", "old").WithAlarmAt(9, 0, 10));
        Start([] { StandardCode::LoadNotesArray(); });
        Advance(12'000);
        auto* display = FindWindow<frmDisplayNote>("Dentist");
        EXPECT_NE(display, nullptr);
        return *display;
    }

    frmSpecialAlarms& ChangeSpecialAlarms(bool withFile) {
        if (withFile) {
            std::array<SpecialAlarmsFile::Row, SpecialAlarmsFile::rowCount> rows;
            for (auto& row : rows) {
                row = {"Monday", base::DateTime::FromTime(9, 0, 0), "old", 0};
            }
            files.PutFile(SpecialAlarmsFile::Path(), SpecialAlarmsFile::Encode(rows));
        }
        auto& window = Default<frmSpecialAlarms>();
        Start([&window] { window.Show(); });
        user->Type(window.txtMessage[2], "new");
        return window;
    }

    std::vector<Operation> Operations() {
        const auto dentist = [this]() -> frmNote& { return Editor("Dentist"); };
        return {
            {"save by the toolbar", [this] { TypeAndWait(); },
             [=, this] { user->Click(dentist().tlbMain, "Save"); }, newText},
            {"save as the window closes", [this] { TypeAndWait(); },
             [=, this] { user->CloseBox(dentist()); }, newText},
            {"save after the question",
             [this] {
                 TypeAndWait();
                 StandardCode::Shared().ControlPanelMode = true;
             },
             [=, this] { user->CloseBox(dentist()); }, newText},
            {"drop after the question",
             [this] {
                 TypeInto("Dentist", "longer than the old");
                 Advance(2000);
                 StandardCode::Shared().ControlPanelMode = true;
                 answer = BoxResult::No;
             },
             [=, this] { user->CloseBox(dentist()); }, "", false, false},
            {"first save of a new note",
             [this] {
                 files.Remove(PathOf("Dentist"));
                 TypeAndWait();
             },
             [=, this] { user->Click(dentist().tlbMain, "Save"); }, newText},
            {"save of what no code page holds",
             [this] {
                 TypeInto("Dentist", "\xE2\x98\x83 \xE6\x97\xA5");
                 Advance(2000);
             },
             [=, this] { user->Click(dentist().tlbMain, "Save"); }, "\xE2\x98\x83 \xE6\x97\xA5"},
            {"recovery copy", [this] { TypeInto("Dentist", newText); }, [this] { Advance(2000); },
             "", false, false},
            {"second recovery copy",
             [this] {
                 TypeAndWait();
                 TypeInto("Dentist", "newer");
             },
             [this] { Advance(2000); }, "", false, false},
            {"erase by the toolbar", [this] { TypeAndWait(); },
             [=, this] { user->Click(dentist().tlbMain, "Erase"); }, "", true, false},
            {"erase by the menu", [this] { TypeAndWait(); },
             [=, this] { user->Choose(dentist().mnuKillNote); }, newText, true},
            {"erase in the control panel",
             [this] {
                 user->Restore(Editor("Dentist"));
                 user->CloseBox(Editor("Dentist"));
                 ClickTrayIcon();
                 user->Click(Main().cmdViewNotes);
                 user->Select(Default<frmViewNotes>().lvwNotes, 0);
             },
             [this] { user->Click(Default<frmViewNotes>().cmdRemove); }, "", true, false},
            {"rewrite after the alarm",
             [this] {
                 ShowDisplay();
                 answer = BoxResult::No;
             },
             [this] { user->CloseBox(*FindWindow<frmDisplayNote>("Dentist")); }},
            {"rewrite of a changed text",
             [this] {
                 user->Type(ShowDisplay().lblNoteText, "changed");
                 answer = BoxResult::No;
             },
             [this] { user->CloseBox(*FindWindow<frmDisplayNote>("Dentist")); }},
            {"erase after the alarm", [this] { ShowDisplay(); },
             [this] { user->CloseBox(*FindWindow<frmDisplayNote>("Dentist")); }, "", true},
            {"special alarms, first save", [this] { ChangeSpecialAlarms(false); },
             [this] { user->Click(Default<frmSpecialAlarms>().cmdSave); }, "", false, false},
            {"special alarms, save", [this] { ChangeSpecialAlarms(true); },
             [this] { user->Click(Default<frmSpecialAlarms>().cmdSave); }, "", false, false},
            {"exit with two unsaved notes",
             [this] {
                 TypeInto("Other", "other new");
                 TypeAndWait();
                 ClickTrayIcon();
             },
             [this] { user->Click(Main().cmdExit); }, newText},
            {"end of the session",
             [this] {
                 TypeInto("Other", "other new");
                 TypeAndWait();
             },
             [] { gestures::EndSession(); }, newText, false, false},
        };
    }

    Disk WatchedFiles() const {
        Disk disk;
        for (const std::string& path : {testing_support::applicationFolder + "\\Notes\\Dentist.txt",
                                        testing_support::applicationFolder + "\\Notes\\Other.txt",
                                        SpecialAlarmsFile::Path()}) {
            disk[path] = files.Peek(path);
        }
        return disk;
    }

    void Act(const Operation& operation) {
        try {
            operation.act();
        } catch (const Killed&) {
        }
    }

    // Expects each file to hold its bytes from before or from after the operation.
    void ExpectOldOrNew(const Operation& operation, const Disk& before, const Disk& after,
                        Outcome& outcome) {
        bool changed = false;
        bool gone = false;
        for (const auto& [path, bytes] : WatchedFiles()) {
            const bool mayBeGone = operation.erases && path == PathOf("Dentist");
            EXPECT_TRUE(bytes == before.at(path) || bytes == after.at(path) ||
                        (mayBeGone && !bytes))
                << path << ": " << bytes.value_or("(none)");
            gone = gone || (before.at(path) && !bytes);
            changed = changed || bytes != before.at(path);
        }
        ++(gone ? outcome.erased : changed ? outcome.renewed : outcome.old);
    }

    void ExpectNoLeftovers() {
        for (const char* folder : {"\\Notes", "\\SpecialAlarms"}) {
            for (const std::string& name :
                 files.Names(testing_support::applicationFolder + folder)) {
                EXPECT_FALSE(name.ends_with(".tmp")) << name;
            }
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
                ExpectOldOrNew(operation, before, after, outcome);
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
                    ExpectOldOrNew(operation, before, after, outcome);
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

    // Expects the text after the next start.
    void ExpectTextComesBack(const Operation& operation) {
        StartAgain();
        ExpectNoLeftovers();
        if (!operation.typed.empty()) {
            EXPECT_EQ(Editor("Dentist").txtNote.text(), operation.typed);
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

    template <class Try>
    void ForEachOperation(Try attempt) {
        std::printf("%-32s %6s %6s %6s %6s %7s\n", "operation", "steps", "cases", "old", "new",
                    "erased");
        int total = 0;
        for (const Operation& operation : Operations()) {
            Outcome outcome;
            attempt(operation, outcome);
            std::printf("%-32s %6d %6d %6d %6d %7d\n", operation.name, outcome.steps, outcome.cases,
                        outcome.old, outcome.renewed, outcome.erased);
            total += outcome.cases;
        }
        std::printf("%d cases\n", total);
    }

    MemoryFiles shipped;
    std::string newText = "brand new";  // the text that the user types
    BoxResult answer = BoxResult::Yes;
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
        ForEachOperation([this](const Operation& operation, Outcome& outcome) {
            KillAtEachStep(operation, outcome);
        });
    }
}

TEST_F(FaultTest, AnErrorAtAnyStepIsReportedAndLosesNothing) {
    ForEachOperation([this](const Operation& operation, Outcome& outcome) {
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
