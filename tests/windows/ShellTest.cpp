#include <windows.h>

#include "tests/windows/DriverTest.h"

namespace driver {

// Broadcasts of Windows: a new shell, a change of monitors, a change of the time.
class ShellTest : public DriverTest {
  protected:
    // The hidden window that receives these broadcasts.
    Window Utility() const;
    static RECT WorkArea();
    static bool IsInWorkArea(const Window& window);
    static void MoveTo(const Window& window, int x, int y);
};

Window ShellTest::Utility() const {
    for (const Window& window : program.Windows()) {
        if (window.ClassName() == "FormsUtility") {
            return window;
        }
    }
    throw Failure("the program has no window for what the system tells it");
}

RECT ShellTest::WorkArea() {
    RECT work{};
    ::SystemParametersInfoW(SPI_GETWORKAREA, 0, &work, 0);
    return work;
}

bool ShellTest::IsInWorkArea(const Window& window) {
    const RECT work = WorkArea();
    WINDOWPLACEMENT placement{};
    placement.length = sizeof placement;
    ::GetWindowPlacement(window.handle, &placement);
    RECT place = placement.rcNormalPosition;
    if (!window.IsMinimized()) {
        place = window.Place();
    }
    RECT common{};
    return ::IntersectRect(&common, &place, &work) != 0 && ::EqualRect(&common, &place) != 0;
}

void ShellTest::MoveTo(const Window& window, int x, int y) {
    ::SetWindowPos(window.handle, nullptr, x, y, 0, 0, SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
    window.Send(WM_NULL);
}

TEST_F(ShellTest, TheIconComesBackWithANewShell) {
    const Window main = StartProgram();
    ASSERT_TRUE(tray::HasIcon(main));
    // The program's icon in the data of the shell. Remove it, as the end of a shell does.
    NOTIFYICONDATAW icon{};
    icon.cbSize = sizeof icon;
    icon.hWnd = main.handle;
    icon.uID = 1;
    ::Shell_NotifyIconW(NIM_DELETE, &icon);
    ASSERT_FALSE(tray::HasIcon(main));
    ::PostMessageW(HWND_BROADCAST, ::RegisterWindowMessageW(L"TaskbarCreated"), 0, 0);
    WaitUntil("the icon is back", [&] { return tray::HasIcon(main); });
    ExitProgram();
    EXPECT_FALSE(tray::HasIcon(main));
}

TEST_F(ShellTest, WindowsComeBackFromARemovedMonitor) {
    WriteNote("Dentist", "\"Dentist\",\"Call\",#2031-06-05#,#09:30:00#,1,12,\"0\",0,\"yes\"\r\n");
    const Window main = StartProgram();
    const Window minimized = program.WaitFor("Dentist");
    const Window editor = MakeNote(main, "Shopping");
    WaitUntil("the main window hides itself", [&] { return !main.IsVisible(); });
    const Window timer = [&] {
        tray::Click(main);
        WaitUntil("the main window is back", [&] { return main.IsVisible(); });
        main.Button("&Timer").Click();
        return program.WaitFor("Novelty Timer");
    }();
    WaitUntilFilled(timer, "Edit");
    timer.Button("&Start Timer").Click();
    const Box box(program, "No Minutes Entered");

    const RECT work = WorkArea();
    MoveTo(editor, work.right + 200, 100);
    MoveTo(timer, 100, -2000);
    MoveTo(box.window, -3000, 300);
    WINDOWPLACEMENT placement{};
    placement.length = sizeof placement;
    ::GetWindowPlacement(minimized.handle, &placement);
    ::OffsetRect(&placement.rcNormalPosition, 5000, 0);
    ::SetWindowPlacement(minimized.handle, &placement);
    // The window is partly off the screen, but the user can reach it, and may have put it there.
    MoveTo(main, work.right - 300, 200);
    const RECT mainPlace = main.Place();
    EXPECT_FALSE(IsInWorkArea(editor));

    Utility().Send(WM_DISPLAYCHANGE, 32, MAKELPARAM(work.right, work.bottom));
    EXPECT_TRUE(IsInWorkArea(editor));
    EXPECT_TRUE(IsInWorkArea(timer));
    EXPECT_TRUE(IsInWorkArea(box.window));
    const RECT after = main.Place();
    EXPECT_TRUE(::EqualRect(&after, &mainPlace));
    box.Click("OK");
    MoveTo(timer, 100, -2000);
    Utility().Send(WM_SETTINGCHANGE, SPI_SETWORKAREA);
    EXPECT_TRUE(IsInWorkArea(timer));

    minimized.Restore();
    WaitUntilFilled(minimized, "Edit");
    EXPECT_TRUE(IsInWorkArea(minimized));
    main.CloseBox();
    EXPECT_EQ(program.WaitForEnd(), 0U);
}

TEST_F(ShellTest, AlarmsFollowTheWallClockAfterEveryChange) {
    WriteNote("Dentist", "\"Dentist\",\"Call\",#2031-06-02#,#11:30:00#,1,12,\"1\",0,\"yes\"\r\n");
    StartProgram();
    const Window editor = program.WaitFor("Dentist");
    ASSERT_TRUE(editor.IsMinimized());
    // Move the clock past the alarm, as after a sleep, and back again. An alarm that was skipped is
    // not due.
    Clock::Set("2031-06-02 12:30:00");
    Utility().Post(WM_POWERBROADCAST, PBT_APMSUSPEND);
    Utility().Post(WM_POWERBROADCAST, PBT_APMRESUMEAUTOMATIC);
    Utility().Post(WM_POWERBROADCAST, PBT_APMRESUMESUSPEND);
    Utility().Post(WM_TIMECHANGE);
    ::Sleep(1500);
    EXPECT_TRUE(editor.IsMinimized());
    // The clock shows the same time again, as at the end of summer time.
    LetTimeCome("2031-06-02 11:29:57", "the note is brought up",
                [&] { return !editor.IsMinimized(); });
    ExitProgram();
}

}  // namespace driver
