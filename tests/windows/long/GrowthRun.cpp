#include <windows.h>

#include <algorithm>
#include <cstdio>

#include "tests/windows/DriverTest.h"
#include "tests/windows/long/Load.h"

// Repeatedly makes, edits, hides, reopens and erases notes in the real program, and checks that
// they leave nothing behind. JOTWRIGHT_CYCLES is the number of repetitions.

namespace driver {

namespace {

// The kilobytes by which the program may grow once, and in each cycle. Under Wine it grows by about
// one kilobyte in each cycle, because Wine's Recycle Bin does not free the names of files.
constexpr std::size_t slack = 512;
constexpr std::size_t slackOfCycle = 2;

}  // namespace

class GrowthRun : public DriverTest {
  protected:
    Window OpenPanelFromTray(const Window& main) const;
    // Erases the only note of the panel, and closes the panel.
    void EraseAndClose(const Window& panel) const;
    // Closes the note, opens it in the control panel, and erases it there.
    void ThroughThePanel(const Window& main, const std::string& title);
    // Minimizes the note, shows it again together with all open notes, saves it, and erases it by
    // its toolbar.
    void InItsEditor(const Window& main, const std::string& title);
    void Cycle(const Window& main, int number);
    // Counts the program's objects. If before is given, waits until there are no more than before,
    // because threads of the system end a little later.
    Objects Count(const Objects* before) const;
    void Report(const std::string& when, const Objects& objects, std::size_t memory) const;
};

Window GrowthRun::OpenPanelFromTray(const Window& main) const {
    tray::Click(main);
    WaitUntil("the main window is shown", [&] { return main.IsVisible(); });
    return OpenPanel(main);
}

void GrowthRun::EraseAndClose(const Window& panel) const {
    const Window list = panel.Only(listClass);
    SelectRow(list, 0);
    WaitUntil("a note is selected", [&] { return panel.Button("&Erase").IsEnabled(); });
    panel.Button("&Erase").Click();
    Box(program, "Deleting Note").Click("Yes");
    WaitUntil("the list is empty", [&] { return RowCount(list) == 0; });
    panel.Button("&Close").Click();
    program.WaitUntilGone(panelCaption);
}

void GrowthRun::ThroughThePanel(const Window& main, const std::string& title) {
    const Window made = MakeNote(main, title);
    made.Only("Edit").Type("the text of " + title);
    CloseAndWait(made);
    Window panel = OpenPanelFromTray(main);
    SelectRow(panel.Only(listClass), 0);
    WaitUntil("a note is selected", [&] { return panel.Button("&Edit").IsEnabled(); });
    panel.Button("&Edit").Click();
    const Window again = program.WaitFor(title);
    WaitUntilFilled(again, "Edit");
    again.Only("Edit").Type("another, longer text of " + title);
    again.CloseBox();
    Box(program, saveQuestion).Click("Yes");
    WaitUntil("the editor has gone", [&] { return !again.Exists(); });
    EXPECT_TRUE(WholeFile(NotePath(title)).value_or("").find("another, longer") !=
                std::string::npos);
    panel = program.WaitFor(panelCaption);
    WaitUntilFilled(panel, listClass);
    EraseAndClose(panel);
}

void GrowthRun::InItsEditor(const Window& main, const std::string& title) {
    const Window editor = MakeNote(main, title);
    editor.Only("Edit").Type("the text of " + title);
    editor.Minimize();
    WaitUntil("the editor is minimized", [&] { return editor.IsMinimized(); });
    const Window panel = OpenPanelFromTray(main);
    panel.Button("&Open All Notes").Click();
    WaitUntilFilled(editor, "Edit");
    editor.Only("Edit").Type("another text of " + title);
    ClickToolbar(editor.Only(toolbarClass), toolbarSave);
    Box(program, "").Click("OK");
    EXPECT_TRUE(FileExists(NotePath(title)));
    ClickToolbar(editor.Only(toolbarClass), toolbarErase);
    Box(program, "Kill Note").Click("Yes");
    WaitUntil("the editor has gone", [&] { return !editor.Exists(); });
    for (const Window& open : program.Visible(panelCaption)) {
        open.Button("&Close").Click();
        program.WaitUntilGone(panelCaption);
    }
}

// Every note has a new title, so that anything kept by title shows as growth.
void GrowthRun::Cycle(const Window& main, int number) {
    if (!main.IsVisible()) {
        tray::Click(main);
        WaitUntil("the main window is shown", [&] { return main.IsVisible(); });
    }
    const std::string title = "Note " + std::to_string(100'000 + number);
    if (number % 2 == 0) {
        ThroughThePanel(main, title);
    } else {
        InItsEditor(main, title);
    }
    EXPECT_TRUE(FileNames(folder + "\\Notes").empty());
    main.Send(WM_NULL);
}

Objects GrowthRun::Count(const Objects* before) const {
    if (before != nullptr) {
        ComesTrue([&] { return program.CountObjects().AreNoMoreThan(*before); });
    }
    return program.CountObjects();
}

void GrowthRun::Report(const std::string& when, const Objects& objects, std::size_t memory) const {
    std::printf("%s: %s, %zu KB\n", when.c_str(), objects.Text().c_str(), memory);
    std::fflush(stdout);
}

TEST_F(GrowthRun, ErasedNotesLeaveNothingBehind) {
    const int cycles = std::max(2, Number("JOTWRIGHT_CYCLES", 6));
    const int warm = std::max(2, cycles / 10);
    const Window main = StartProgram();
    main.Send(WM_MOUSEMOVE);  // the window of its tool tips is made when the pointer first moves
    const Objects start = Count(nullptr);
    Report("start", start, program.PrivateKilobytes());
    EXPECT_GT(start.children, 10U);
    const ULONGLONG begin = ::GetTickCount64();
    std::size_t base = 0;
    int done = 0;
    while (done < cycles && !HasFailure()) {
        Cycle(main, ++done);
        if (done % warm != 0 && done != cycles) {
            continue;
        }
        const Objects now = Count(&start);
        const std::size_t memory = program.PrivateKilobytes();
        Report("after " + std::to_string(done) + " cycles", now, memory);
        EXPECT_EQ(now.windows, start.windows) << program.Description();
        EXPECT_EQ(now.children, start.children);
        EXPECT_LE(now.handles, start.handles);
        EXPECT_LE(now.gdi, start.gdi);
        EXPECT_LE(now.user, start.user);
        base = base == 0 ? memory : base;
        EXPECT_LE(memory, base + slack + slackOfCycle * static_cast<std::size_t>(done - warm))
            << "kilobytes, " << base << " after " << warm << " cycles";
    }
    std::printf("%d cycles, %llu ms each\n", done,
                (::GetTickCount64() - begin) / static_cast<ULONGLONG>(done));
}

}  // namespace driver
