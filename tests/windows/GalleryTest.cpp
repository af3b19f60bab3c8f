#include <windows.h>
#include <commctrl.h>

#include <algorithm>
#include <cstdio>

#include "forms/win32/Utf.h"
#include "tests/windows/DriverTest.h"
#include "tests/windows/Hands.h"

namespace driver {

namespace {

constexpr DWORD timeToPaint = 250;  // milliseconds

// Moves the pointer to the corner of the screen, where it highlights no button.
void ParkPointer() { hands::MoveTo(0, 0); }

void Bring(const Window& window) {
    ::SetForegroundWindow(window.handle);
    ::SetWindowPos(window.handle, HWND_TOP, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE);
}

bool IsPainted(const Window& window) {
    const auto isPainted = [](const Window& part) {
        return !part.IsVisible() || ::GetUpdateRect(part.handle, nullptr, FALSE) == 0;
    };
    const auto children = window.Children();
    return isPainted(window) && std::all_of(children.begin(), children.end(), isPainted);
}

void WaitUntilPainted(const Window& window) {
    WaitUntil("the window is painted", [&] { return IsPainted(window); });
    // Give the display time to show it.
    ::Sleep(timeToPaint);
}

// The part of the rectangle that is on the screen.
RECT Visible(const RECT& place) {
    const RECT screen{0, 0, ::GetSystemMetrics(SM_CXSCREEN), ::GetSystemMetrics(SM_CYSCREEN)};
    RECT seen{};
    ::IntersectRect(&seen, &place, &screen);
    return seen;
}

std::string LongText() {
    std::string text = "Things to take along\r\n\r\n";
    for (int i = 1; i <= 24; ++i) {
        text +=
            std::to_string(i) +
            ". A line that is long enough to be wrapped where the note's edge is, and goes on.\r\n";
    }
    return text;
}

}  // namespace

// Opens every window in every relevant state and saves a picture of it (see scripts/gallery). Other
// tests check the behaviour of the windows. Pictures are named "<group>-<contents>".
class GalleryTest : public DriverTest {
  protected:
    void SetUp() override {
        Variable("JOTWRIGHT_ASK_HOST");
        DriverTest::SetUp();
    }
    // Waits until the window has been drawn.
    static void Keep(const Window& window, const std::string& name);
    // Saves a picture of the window with the menu that a right click on this control opens.
    void KeepWithMenu(const Window& window, const Window& control, const std::string& name) const;
    void KeepAndClose(const std::string& caption, const std::string& name) const;
    void KeepBox(const std::string& caption, const std::string& name,
                 const std::string& button) const;
    void PutNote(const std::string& title, const std::string& text, int color, int points = 12,
                 bool alarm = false) const;
    void Reject(const Window& main, const std::string& title, const std::string& caption,
                const std::string& name) const;
    void KeepSpareWindow(const std::string& form, const std::string& caption,
                         const std::string& name) const;
};

void GalleryTest::Keep(const Window& window, const std::string& name) {
    ParkPointer();
    Bring(window);
    window.Send(WM_NULL);
    for (const Window& toolbar : window.ChildrenOfClass("ToolbarWindow32")) {
        WaitUntil("no button is highlighted",
                  [&] { return static_cast<int>(toolbar.Send(TB_GETHOTITEM)) == -1; });
    }
    ::Sleep(timeToPaint);
    WaitUntilPainted(window);
    TakePicture(name, Visible(window.Place()));
}

void GalleryTest::KeepWithMenu(const Window& window, const Window& control,
                               const std::string& name) const {
    // The menu opens at the pointer.
    const RECT area = control.Place();
    hands::MoveTo((area.left + area.right) / 2, (area.top + area.bottom) / 2);
    RightClick(control);
    WaitUntil("a menu opens", [&] { return static_cast<bool>(program.OpenMenu()); });
    ::Sleep(timeToPaint);
    const RECT menu = program.OpenMenu().Place();
    const RECT place = window.Place();
    RECT both{};
    ::UnionRect(&both, &menu, &place);
    TakePicture(name, Visible(both));
    CloseMenu(program, window);
}

void GalleryTest::KeepAndClose(const std::string& caption, const std::string& name) const {
    const Window window = program.WaitFor(caption);
    Keep(window, name);
    window.CloseBox();
    program.WaitUntilGone(caption);
}

void GalleryTest::KeepBox(const std::string& caption, const std::string& name,
                          const std::string& button) const {
    const Box box(program, caption);
    Keep(box.window, name);
    box.Click(button);
}

void GalleryTest::PutNote(const std::string& title, const std::string& text, int color, int points,
                          bool alarm) const {
    WriteNote(title, '"' + title + "\",\"" + text + "\",#2031-06-02#,#09:01:00#," +
                         std::to_string(color) + ',' + std::to_string(points) + ",\"" +
                         (alarm ? "1" : "0") + "\",0,\"yes\"\r\n");
}

void GalleryTest::Reject(const Window& main, const std::string& title, const std::string& caption,
                         const std::string& name) const {
    main.Only("Edit").Type(title);
    main.Button("Make &Note").Click();
    KeepAndClose(caption, name);
}

TEST_F(GalleryTest, Start) {
    EraseSettings();
    program.Start(executable);
    const Window tips = program.WaitFor("Jotwright - Tips and Tricks");
    Keep(tips, "start-tips");
    tips.Button("&Next Tip").Click();
    Keep(tips, "start-tips-long");
    for (int i = 0; i < 8; ++i) {
        tips.Button("&Next Tip").Click();
    }
    Keep(tips, "start-tips-last");
    tips.CloseBox();
    program.WaitUntilGone("Jotwright - Tips and Tricks");

    Program second;
    second.Start(executable);
    const Window box = second.WaitFor("  Jotwright Is Running");
    Keep(box, "start-already-running");
    box.CloseBox();
    second.WaitForEnd();
    ExitProgram();
}

TEST_F(GalleryTest, Main) {
    const Window main = StartProgram();
    Keep(main, "main");
    KeepWithMenu(main, main, "main-menu");
    main.Button("Start CooKoo &Clock").Click();
    Keep(main, "main-cuckoo");
    main.Button("Stop CooKoo &Clock").Click();

    Reject(main, "2004", " Note Title Error", "rejected-number");
    Reject(main, "", "  Note Title Error", "rejected-empty");
    Reject(main, "a/b", "  Note Title Error", "rejected-slash");
    Reject(main, "a.b", "Note Title Error", "rejected-period");
    const Window first = MakeNote(main, "Twice");
    HideNote(first);
    tray::Click(main);
    WaitUntil("the main window is back", [&] { return main.IsVisible(); });
    Reject(main, "Twice", "Name Already Exists", "rejected-twice");
    ExitProgram();
}

TEST_F(GalleryTest, Tools) {
    const Window main = StartProgram();
    main.Button("S&pecial Alarms").Click();
    KeepAndClose("Special Alarms", "tools-special-alarms");
    ChooseFromMenuBar(program, main, barChooseAlarmSound);
    const Window sounds = program.WaitFor("Choose An Alarm");
    Keep(sounds, "tools-alarm-sound");
    sounds.Button("&Test").Click();
    KeepBox("Jotwright Audio Alarm", "box-sampling", "OK");
    sounds.Button("Selected .wav File").Click();
    Keep(sounds, "tools-alarm-sound-own");
    sounds.CloseBox();
    program.WaitUntilGone("Choose An Alarm");
    ChooseFromMenuBar(program, main, barNoteOptions);
    KeepAndClose("Note Options", "tools-options");
    ChooseFromMenuBar(program, main, barAbout);
    KeepAndClose("About Jotwright", "tools-about");

    main.Button("&Timer").Click();
    const Window timer = program.WaitFor("Novelty Timer");
    Keep(timer, "tools-timer");
    timer.Button("&Start Timer").Click();
    KeepBox("No Minutes Entered", "box-no-minutes", "OK");
    timer.Only("Edit").Type("25");
    timer.Button("&Start Timer").Click();
    WaitUntil("it runs", [&] { return timer.Button("&Stop Timer").IsEnabled(); });
    ::Sleep(1500);
    Keep(timer, "tools-timer-running");
    timer.CloseBox();

    main.Button("&Stop Watch").Click();
    const Window watch = program.WaitFor("Novelty Stop Watch");
    for (int run = 0; run < 3; ++run) {
        watch.Button("&Start").Click();
        WaitUntil("it runs", [&] { return watch.Button("S&top").IsEnabled(); });
        ::Sleep(1200);
        watch.Button("S&top").Click();
        WaitUntil("it has stopped", [&] { return watch.Button("Sa&ve").IsEnabled(); });
        watch.Button("Sa&ve").Click();
        WaitUntil("it is saved", [&] { return !watch.Button("Sa&ve").IsEnabled(); });
    }
    Keep(watch, "tools-stop-watch");
    ExitProgram();
}

TEST_F(GalleryTest, Editor) {
    const Window main = StartProgram();
    const Window editor = MakeNote(main, "Dentist");
    const Window text = editor.Only("Edit");
    text.Type("Call to move the appointment.\r\nAsk for a Friday.");
    Keep(editor, "editor-white");
    const std::vector<std::string> colors{"red", "green", "blue", "yellow", "gray"};
    for (std::size_t i = 0; i < colors.size(); ++i) {
        ChooseFromPopup(program, text, {0, static_cast<int>(i) + 1});
        Keep(editor, "editor-" + colors[i]);
    }
    ChooseFromPopup(program, text, popupYellow);
    editor.Button(audioBoxCaption).Click();
    editor.Button(editorSet).Click();
    WaitUntil("the alarm is set",
              [&] { return static_cast<bool>(editor.FindChild("Button", editorTurnOff)); });
    Keep(editor, "editor-alarm-set");
    ChooseFromMenuBar(program, editor, {1, 0});
    KeepBox("Information", "box-alarm-started", "OK");
    KeepWithMenu(editor, text, "editor-menu");
    ClickToolbar(editor.Only("ToolbarWindow32"), toolbarSave);
    KeepBox("", "box-saved", "OK");
    ClickToolbar(editor.Only("ToolbarWindow32"), toolbarErase);
    KeepBox("Kill Note", "box-erase", "No");
    editor.Button("Hide &System Date/Time").Click();
    Keep(editor, "editor-no-clock");
    text.Type(LongText());
    Keep(editor, "editor-long-text");
    const RECT place = editor.Place();
    const int width = place.right - place.left;
    ::SetWindowPos(editor.handle, nullptr, 20, 20, width * 3 / 2, width * 5 / 4, SWP_NOZORDER);
    Keep(editor, "editor-enlarged");
    ::SetWindowPos(editor.handle, nullptr, 20, 20, 10, 10, SWP_NOZORDER);
    Keep(editor, "editor-smallest");
    ExitProgram();
}

TEST_F(GalleryTest, Restored) {
    PutNote("Restored red", "A note that was red when it was saved.", 2);
    PutNote("Restored green", "A note that was green when it was saved.", 3, 16);
    PutNote("Restored blue", "A note that was blue when it was saved.", 4, 14, true);
    PutNote("Restored gray", "A note that was gray when it was saved.", 6, 10);
    StartProgram();
    for (const char* color : {"red", "green", "blue", "gray"}) {
        Keep(OpenRestored(std::string("Restored ") + color),
             std::string("editor-restored-") + color);
    }
    TakePicture("notes-cascade");
    ExitProgram();
}

TEST_F(GalleryTest, Displays) {
    const std::vector<std::string> colors{"white", "red", "green", "blue", "yellow", "gray"};
    for (std::size_t i = 0; i < colors.size(); ++i) {
        PutNote("Due " + colors[i], i == 0 ? LongText() : "Take the cake out of the oven.",
                static_cast<int>(i) + 1, 12, true);
    }
    const Window main = StartProgram();
    for (const std::string& color : colors) {
        const Window restored = program.WaitFor("Due " + color);
        if (color == "gray") {
            // A restored note is yellow instead of gray, so choose gray again.
            ChooseFromPopup(program, OpenRestored("Due gray").Only("Edit"), {0, 5});
        }
        restored.CloseBox();
        WaitUntil("the editor has gone", [&] { return !restored.Exists(); });
    }
    LetAlarmCome("2031-06-02 09:00:58", "Due " + colors[0]);
    for (const std::string& color : colors) {
        program.WaitFor("Due " + color);
    }
    for (const std::string& color : colors) {
        Keep(program.WaitFor("Due " + color), "display-" + color);
    }
    const Window display = program.WaitFor("Due yellow");
    display.CloseBox();
    KeepBox(" Erase Note?", "box-erase-due", "No");
    main.Post(WM_CLOSE);
}

TEST_F(GalleryTest, ControlPanel) {
    Window main = StartProgram();
    main.Button("Notes &Control Panel").Click();
    KeepAndClose("Notes Control Panel", "panel-empty");
    ExitProgram();

    PutNote("Dentist", "Call", 1, 12, true);
    PutNote("Shopping", "Milk", 5);
    PutNote("A title that is so long that the column of titles may be too narrow for it", "Long",
            1);
    main = StartProgram();
    main.Button("Notes &Control Panel").Click();
    const Window panel = program.WaitFor("Notes Control Panel");
    WaitUntilFilled(panel, listClass);
    SelectRow(panel.Only(listClass), 0);
    WaitUntil("the row is selected", [&] { return panel.Button("&Erase").IsEnabled(); });
    Keep(panel, "panel-notes");
    panel.Button("&Erase").Click();
    KeepBox("Deleting Note", "box-panel-erase", "No");
    panel.CloseBox();
    ExitProgram();
}

TEST_F(GalleryTest, Limit) {
    for (int i = 1; i <= 100; ++i) {
        PutNote("Note " + std::to_string(i), "text", 1 + i % 5, 12, i % 3 == 0);
    }
    Clock::Set("2031-06-02 10:00:00");
    program.Start(executable);
    KeepBox("Jotwright: Maximum Notes Reached", "box-limit", "OK");
    const Window main = MainWindow();
    Keep(main, "main-limit");
    main.Button("Notes &Control Panel").Click();
    KeepAndClose("Notes Control Panel", "panel-limit");
    ExitProgram();
}

TEST_F(GalleryTest, DailyAlarm) {
    MakeFolder(folder + "\\SpecialAlarms");
    std::string rows =
        "\"Monday\",#09:01:00#,\"Pay the rent\",1\r\n"
        "\"Friday\",#17:30:00#,\"Water the plants\",1\r\n";
    for (int i = 0; i < 5; ++i) {
        rows += "\"Sunday\",#12:00:00#,\"\",0\r\n";
    }
    WriteWholeFile(folder + "\\SpecialAlarms\\SpecialAlarms.txt", rows);
    const Window main = StartProgram();
    main.Button("S&pecial Alarms").Click();
    KeepAndClose("Special Alarms", "tools-special-alarms-set");
    LetAlarmCome("2031-06-02 09:00:58", "Jotwright Daily Alarm");
    KeepBox("Jotwright Daily Alarm", "box-daily-alarm", "OK");
    ExitProgram();
}

void GalleryTest::KeepSpareWindow(const std::string& form, const std::string& caption,
                                  const std::string& name) const {
    wchar_t path[MAX_PATH]{};
    ::GetModuleFileNameW(nullptr, path, MAX_PATH);
    const std::string built = FolderOf(forms::win32::Narrow(path)) + "\\spare_windows.exe";
    const std::string spare = folder + "\\spare_windows.exe";
    ::CopyFileW(forms::win32::Wide(built).c_str(), forms::win32::Wide(spare).c_str(), FALSE);
    Program shown;
    shown.Start(spare, form);
    Keep(shown.WaitFor(caption), name);
}

TEST_F(GalleryTest, SpareWindows) {
    KeepSpareWindow("frmHelp", "Jotwright Help", "spare-help");
    KeepSpareWindow("dlgInput", "Erase Message", "spare-question");
    KeepSpareWindow("frmKillAlarm", "Jotwright Alarm", "spare-stop-alarm");
    KeepSpareWindow("frmSplash", "Jotwright", "start-splash");
}

}  // namespace driver
