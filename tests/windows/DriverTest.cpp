#include "tests/windows/DriverTest.h"

#include <windows.h>
#include <commctrl.h>

#include <algorithm>
#include <utility>

#include "tests/windows/Gestures.h"
#include "tests/windows/Hands.h"
#include "tests/windows/Needs.h"

namespace driver {

namespace {

Window PickerOf(const Window& editor, LONG_PTR upDown) {
    for (const Window& child : editor.Children()) {
        if (child.ClassName() == DATETIMEPICK_CLASSA && (child.Style() & DTS_UPDOWN) == upDown) {
            return child;
        }
    }
    throw Failure("no such picker in " + editor.Description());
}

}  // namespace

void DriverTest::SetUp() {
    RemoveFolder(folder + "\\Notes");
    RemoveFolder(folder + "\\SpecialAlarms");
    EraseSettings();
    WriteSetting("Startup", "View Tips", "1");
    if (Has("JOTWRIGHT_CLOCK_FILE")) {
        Clock::Set("2031-06-02 09:00:00");
    }
    // If a menu opens below the real pointer, it selects the entry at the pointer, and the keys
    // that follow choose another entry.
    hands::MoveTo(::GetSystemMetrics(SM_CXSCREEN) - 1, 2);
}

void DriverTest::TearDown() {
    if (HasFailure() && program.Runs()) {
        GTEST_LOG_(INFO) << "The program's windows at the end:" << program.Description();
        if (Has("JOTWRIGHT_ASK_HOST")) {
            TakePicture(testing::UnitTest::GetInstance()->current_test_info()->name());
        }
    }
    program.Kill();
}

Window DriverTest::FindMain() const {
    for (const Window& window : program.SettledWindows()) {
        if (window.HasTitleBar() && window.Caption() == mainCaption) {
            return window;
        }
    }
    return {};
}

Window DriverTest::FindSplash() const {
    for (const Window& window : program.SettledWindows()) {
        if (window.IsVisible() && !window.HasTitleBar() && window.Caption() == mainCaption) {
            return window;
        }
    }
    return {};
}

Window DriverTest::MainWindow() const {
    WaitUntil("the main window is shown", [this] {
        const Window main = FindMain();
        return main && main.IsVisible();
    });
    return FindMain();
}

Window DriverTest::StartProgram() {
    program.Start(executable);
    const Window main = MainWindow();
    WaitUntil("the splash has gone", [this] {
        const auto windows = program.SettledWindows();
        return std::none_of(windows.begin(), windows.end(), [](const Window& window) {
            return !window.HasTitleBar() && window.Caption() == mainCaption &&
                   !window.Children().empty();
        });
    });
    return main;
}

void DriverTest::ExitProgram() {
    FindMain().CloseBox();
    EXPECT_EQ(program.WaitForEnd(), 0U);
}

void DriverTest::EndSession() const {
    const auto windows = program.Windows();
    for (const Window& window : windows) {
        EXPECT_NE(window.Send(WM_QUERYENDSESSION), 0) << window.Description();
    }
    for (const Window& window : windows) {
        if (window.Exists()) {
            window.Post(WM_ENDSESSION, TRUE);
        }
    }
}

void DriverTest::LetTimeCome(const std::string& time, const std::string& what,
                             const std::function<bool()>& hasCome) const {
    constexpr unsigned seconds = 6;
    LetTimeCome([&] { Clock::Set(time); }, seconds, what + " at " + time, hasCome);
}

int DriverTest::LetTimeCome(const std::function<void()>& setClock, unsigned seconds,
                            const std::string& what, const std::function<bool()>& hasCome) const {
    constexpr ULONGLONG standstill = 300;  // milliseconds
    int repetitions = 0;
    setClock();
    ULONGLONG set = ::GetTickCount64();
    ULONGLONG lastLook = set;
    bool stoodStill = false;
    WaitUntil(what, [&] {
        if (const Window main = FindMain()) {
            main.Send(WM_NULL);
        }
        const ULONGLONG now = ::GetTickCount64();
        stoodStill = stoodStill || now - lastLook > standstill;
        lastLook = now;
        if (hasCome()) {
            return true;
        }
        if (stoodStill && now - set > ULONGLONG{seconds} * 1000) {
            setClock();
            ++repetitions;
            set = lastLook = ::GetTickCount64();
            stoodStill = false;
        }
        return false;
    });
    return repetitions;
}

void DriverTest::LetAlarmCome(const std::string& time, const std::string& caption) const {
    LetTimeCome(time, "a window \"" + caption + "\" comes",
                [&] { return !program.Visible(caption).empty(); });
}

Window DriverTest::OpenRestored(const std::string& title) const {
    const Window editor = program.WaitFor(title);
    Restore(editor);
    return editor;
}

void DriverTest::Restore(const Window& window) {
    window.Restore();
    WaitUntilFilled(window, "Edit");
}

void DriverTest::WaitUntilFilled(const Window& window, const std::string& className) {
    WaitUntil("the window is filled",
              [&] { return !window.IsMinimized() && !window.ChildrenOfClass(className).empty(); });
    // Returns when the program has handled its earlier messages.
    window.Send(WM_NULL);
}

Window DriverTest::MakeNote(const Window& main, const std::string& title) {
    main.Only("Edit").Type(title);
    main.Button("Make &Note").Click();
    const Window editor = program.WaitFor(title);
    WaitUntilFilled(editor, "Edit");
    return editor;
}

void DriverTest::HideNote(const Window& editor) {
    ClickToolbar(editor.Only(toolbarClass), toolbarHide);
    WaitUntil("the editor has gone", [&] { return !editor.Exists(); });
}

void DriverTest::BringUp(const Window& window) {
    NeedDesktop();
    WaitUntil("the window is in the foreground", [&] {
        if (IsInTestKit()) {
            // Windows lets the process that made the last input choose the foreground.
            INPUT nothing{};
            nothing.type = INPUT_MOUSE;
            ::SendInput(1, &nothing, sizeof nothing);
        }
        ::SetForegroundWindow(window.handle);
        return ::GetForegroundWindow() == window.handle;
    });
    window.Send(WM_NULL);
}

void DriverTest::WaitForKeyboard(const Window& window) {
    NeedDesktop();
    WaitUntil("the window has the keyboard", [&] {
        const Window focus = window.Focus();
        return ::GetForegroundWindow() == window.handle &&
               (focus == window || (focus && focus.Parent() == window));
    });
}

void DriverTest::CloseAndWait(const Window& window) {
    window.CloseBox();
    WaitUntil("the window has gone", [&] { return !window.Exists(); });
}

Window DriverTest::OpenFromMenuBar(const Window& main, const MenuPath& path,
                                   const std::string& caption, const std::string& className) const {
    ChooseFromMenuBar(program, main, path);
    const Window window = program.WaitFor(caption);
    WaitUntilFilled(window, className);
    return window;
}

void DriverTest::ForEachMenuBarWindow(const Window& main,
                                      const std::function<void(const Window&)>& show) const {
    const std::pair<MenuPath, const char*> entries[] = {
        {barChooseAlarmSound, "Choose An Alarm"},
        {barNoteOptions, "Note Options"},
        {barAbout, "About Jotwright"},
        {barShowTips, "Jotwright - Tips and Tricks"},
    };
    for (const auto& [path, caption] : entries) {
        const Window window = OpenFromMenuBar(main, path, caption);
        show(window);
        CloseAndWait(window);
        WaitUntil("the main window can be used", [&] { return main.IsEnabled(); });
    }
}

Window DriverTest::OpenPanel(const Window& main) const {
    main.Button("Notes &Control Panel").Click();
    const Window panel = program.WaitFor(panelCaption);
    WaitUntilFilled(panel, listClass);
    return panel;
}

Window DriverTest::DatePicker(const Window& editor) { return PickerOf(editor, 0); }

Window DriverTest::TimePicker(const Window& editor) { return PickerOf(editor, DTS_UPDOWN); }

void DriverTest::ExpectDate(const Window& picker, int year, int month, int day) {
    const SYSTEMTIME picked = Picked(picker);
    EXPECT_EQ(picked.wYear, year);
    EXPECT_EQ(picked.wMonth, month);
    EXPECT_EQ(picked.wDay, day);
}

void DriverTest::ExpectTime(const Window& picker, int hour, int minute) {
    const SYSTEMTIME picked = Picked(picker);
    EXPECT_EQ(picked.wHour, hour);
    EXPECT_EQ(picked.wMinute, minute);
}

}  // namespace driver
