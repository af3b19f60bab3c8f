#include <windows.h>
#include <commctrl.h>

#include <algorithm>
#include <functional>
#include <vector>

#include "bench/Report.h"
#include "bench/Rest.h"
#include "bench/Scenarios.h"
#include "bench/Subject.h"
#include "forms/win32/Utf.h"
#include "tests/windows/RemoteMemory.h"
#include "tests/windows/Wait.h"

namespace bench {

using driver::Failure;
using driver::Window;

namespace {

constexpr int hideButton = 3;           // in the editor's toolbar
constexpr const char* title = "Zebra";  // the last one in the list

bool HasFocus(const Window& note) {
    const Window focus = note.Focus();
    return focus && focus.Parent() == note;
}

void Type(const Window& note) {
    note.Only("Edit").Send(WM_CHAR, 'x', 1);
    note.Send(WM_PAINT);
}

// A note that is made, hidden, listed in the panel and erased.
class OneNote {
  public:
    explicit OneNote(const Settings& settings)
        : subject(settings.executable, settings.notes, settings.children), rows(settings.notes) {
        subject.AwaitStart();
    }

    void Make() const {
        subject.ShowMain();
        const Window main = subject.Main();
        main.Only("Edit").Type(title);
        Report("make", Subject::Click(main, "Make &Note", [&] {
                   const Window note = subject.Find(title);
                   return note && HasFocus(note) && IsAtRest(note) && !main.IsVisible();
               }));
        if (!subject.IsBaseline()) {
            Type(subject.Find(title));
        }
    }

    void Hide() {
        const Window note = subject.Find(title);
        Report("hide", Measure("hide", HideButton(note),
                               [&] { return !note.Exists() && Answers(subject.Main()); }));
        ++rows;
        CheckFile(true);
    }

    // Hides the note while the panel is shown: the note's window must close, and the panel must
    // list one note more.
    void HideBesidePanel() {
        const Window note = subject.Find(title);
        ++rows;
        Report("hide-beside-panel",
               Subject::MeasureWithBox("hide beside the panel", HideButton(note), "Save Changes?",
                                       IDYES,
                                       [&] { return !note.Exists() && subject.PanelLists(rows); }));
        CheckFile(true);
    }

    void OpenPanel(const char* name) const {
        subject.ShowMain();
        Report(name, Subject::Click(subject.Main(), "Notes &Control Panel",
                                    [&] { return subject.PanelLists(rows); }));
    }

    void Erase() {
        const Window panel = subject.Panel();
        const Window list = subject.List();
        list.Press(VK_END);
        Await("select the last row", [&] {
            return list.Send(LVM_GETNEXTITEM, static_cast<WPARAM>(-1), LVNI_SELECTED) == rows - 1 &&
                   IsAtRest(panel);
        });
        const Window button = panel.Button("&Erase");
        --rows;
        Report("erase", Subject::MeasureWithBox(
                            "erase", [&] { button.Click(); }, "Deleting Note", IDYES,
                            [&] { return subject.PanelLists(rows); }));
        CheckFile(false);
        Subject::Click(panel, "&Close", [&] { return !panel.Exists(); });
    }

  private:
    std::function<void()> HideButton(const Window& note) const {
        if (subject.IsBaseline()) {
            return [note] { note.CloseBox(); };
        }
        const Window toolbar = note.Only("ToolbarWindow32");
        const driver::Remote<RECT> area(toolbar);
        toolbar.Send(TB_GETITEMRECT, hideButton, area.Parameter());
        const RECT button = area.Value();
        return [toolbar, place = MAKELPARAM(button.left + 5, button.top + 5)] {
            toolbar.Post(WM_LBUTTONDOWN, MK_LBUTTON, place);
            toolbar.Post(WM_LBUTTONUP, 0, place);
        };
    }

    void CheckFile(bool isThere) const {
        const std::string path = subject.Folder() + "\\Notes\\" + title + ".txt";
        const bool exists =
            ::GetFileAttributesW(forms::win32::Wide(path).c_str()) != INVALID_FILE_ATTRIBUTES;
        if (!subject.IsBaseline() && exists != isThere) {
            throw Failure(path + (exists ? " still exists" : " was not saved"));
        }
    }

    Subject subject;
    int rows;
};

}  // namespace

void MakeHideErase(const Settings& settings) {
    OneNote note(settings);
    for (int time = 0; time < settings.times; ++time) {
        note.Make();
        note.Hide();
        note.OpenPanel("panel");
        note.Erase();
        note.Make();
        note.OpenPanel("panel");
        note.HideBesidePanel();
        note.Erase();
    }
}

void RestoreNotes(const Settings& settings) {
    const Subject subject(settings.executable, settings.notes, settings.children);
    subject.AwaitStart();
    for (int number = 1; number <= std::min(settings.times, settings.notes); ++number) {
        const Window note = subject.Note(number);
        Report("restore", Measure(
                              "restore", [&] { note.Restore(); },
                              [&] { return HasFocus(note) && IsAtRest(note); }));
    }
    if (!subject.IsBaseline()) {
        Report("children", static_cast<double>(subject.Note(1).Children().size()));
    }
}

void OpenAllAndExit(const Settings& settings) {
    Subject subject(settings.executable, settings.notes, settings.children);
    subject.AwaitStart();
    std::vector<Window> notes;
    for (int number = 1; number <= settings.notes; ++number) {
        notes.push_back(subject.Note(number));
    }
    Subject::Click(subject.Main(), "Notes &Control Panel",
                   [&] { return subject.Panel() && IsAtRest(subject.Panel()); });
    const Window openAll = subject.Panel().Button("&Open All Notes");
    double start = 0;
    double first = 0;
    std::size_t open = 0;
    const double all = Measure(
        "Open All Notes",
        [&] {
            start = Now();
            openAll.Click();
        },
        [&] {
            if (first == 0 && std::ranges::any_of(notes, IsAtRest)) {
                first = Now();
            }
            while (open < notes.size() && IsAtRest(notes[open])) {
                ++open;
            }
            return open == notes.size();
        });
    Report("open-all", all);
    Report("open-first", first - start);
    // Making a note ends the mode in which the program asks a question for each note that closes.
    subject.ShowMain();
    subject.Main().Only("Edit").Type(title);
    Subject::Click(subject.Main(), "Make &Note", [&] {
        const Window note = subject.Find(title);
        return note && IsAtRest(note);
    });
    notes.push_back(subject.Find(title));
    if (!subject.IsBaseline()) {
        for (const Window& note : notes) {
            Type(note);
        }
    }
    subject.ShowMain();
    Await("all at rest", [&] { return IsAtRest(notes.front()) && IsAtRest(notes.back()); });
    Report("exit", subject.MeasureExit());
}

}  // namespace bench
