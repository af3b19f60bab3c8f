#include "tests/long/FaultProgram.h"

#include <algorithm>
#include <array>

#include "alarms/SpecialAlarmsFile.h"
#include "forms/Gestures.h"
#include "notes/NoteStore.h"
#include "notes/frmViewNotes.h"

using namespace forms;

namespace long_tests {

void FaultProgram::SetUp() {
    WholeProgram::SetUp();
    shipped = files;
}

void FaultProgram::Prepare(const Operation& operation) {
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

void FaultProgram::StartAgain() {
    AnswerBoxes();
    StartQuietly();
}

void FaultProgram::AnswerBoxes() {
    stage->improvise.box = [this](const BoxRequest& box) {
        return box.options.buttons == BoxButtons::YesNo ? answer : BoxResult::Ok;
    };
}

frmNote& FaultProgram::TypeInto(const std::string& title, const std::string& text) {
    frmNote& note = Editor(title);
    if (note.windowState() == WindowState::Minimized) {
        user->Restore(note);
    }
    user->Type(note.txtNote, text);
    return note;
}

void FaultProgram::TypeAndWait() {
    TypeInto("Dentist", newText);
    Advance(2000);
}

frmDisplayNote& FaultProgram::ShowDisplay() {
    user->Restore(Editor("Dentist"));
    user->CloseBox(Editor("Dentist"));
    PutNote(Note("Dentist", "old").WithAlarmAt(9, 0, 10));
    Start([] { StandardCode::LoadNotesArray(); });
    Advance(12'000);
    auto* display = FindWindow<frmDisplayNote>("Dentist");
    EXPECT_NE(display, nullptr);
    return *display;
}

frmSpecialAlarms& FaultProgram::ChangeSpecialAlarms(bool withFile) {
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

std::vector<FaultProgram::Operation> FaultProgram::Operations() {
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
        {"recovery copy", [this] { TypeInto("Dentist", newText); }, [this] { Advance(2000); }, "",
         false, false},
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

FaultProgram::Disk FaultProgram::WatchedFiles() const {
    Disk disk;
    for (const std::string& path :
         {testing_support::applicationFolder + "\\Notes\\Dentist.txt",
          testing_support::applicationFolder + "\\Notes\\Other.txt", SpecialAlarmsFile::Path()}) {
        disk[path] = files.Peek(path);
    }
    return disk;
}

void FaultProgram::ExpectOneOf(const std::vector<Disk>& known, const Disk& found,
                               const Operation& operation, Outcome& outcome) {
    bool changed = false;
    bool gone = false;
    for (const auto& watched : found) {
        const auto& [path, bytes] = watched;
        const bool mayBeGone = operation.erases && path == PathOf("Dentist");
        const bool isKnown = std::ranges::any_of(known, [&watched](const Disk& disk) {
            return disk.at(watched.first) == watched.second;
        });
        EXPECT_TRUE(isKnown || (mayBeGone && !bytes)) << path << ": " << bytes.value_or("(none)");
        gone = gone || (known.front().at(path) && !bytes);
        changed = changed || bytes != known.front().at(path);
    }
    ++(gone ? outcome.erased : changed ? outcome.renewed : outcome.old);
}

void FaultProgram::ExpectNoLeftovers() {
    for (const char* folder : {"\\Notes", "\\SpecialAlarms"}) {
        for (const std::string& name : files.Names(testing_support::applicationFolder + folder)) {
            EXPECT_FALSE(name.ends_with(".tmp")) << name;
        }
    }
}

void FaultProgram::ExpectTextComesBack(const Operation& operation) {
    StartAgain();
    ExpectNoLeftovers();
    if (!operation.typed.empty()) {
        EXPECT_EQ(Editor("Dentist").txtNote.text(), operation.typed);
    }
}

}  // namespace long_tests
