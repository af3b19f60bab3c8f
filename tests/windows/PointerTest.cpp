#include <windows.h>

#include <string>

#include "tests/windows/DriverTest.h"
#include "tests/windows/Hands.h"

namespace driver {

namespace {

// The scale of the display, in dots per inch.
int Dpi() {
    HDC screen = ::GetDC(nullptr);
    const int dpi = ::GetDeviceCaps(screen, LOGPIXELSX);
    ::ReleaseDC(nullptr, screen);
    return dpi;
}

// The screen pixel of a column at 96 dpi.
int PixelOfColumn(int column) { return (column * Dpi() + 95) / 96; }

}  // namespace

// Moves the real pointer over windows whose mouse-move handlers also take messages of the
// notification area. Runs at every scale; see cmake/Checks.cmake.
class PointerTest : public DriverTest {
  protected:
    // Without this call, the system would give this program coordinates at 96 dpi.
    PointerTest() { ::SetProcessDPIAware(); }

    // x and y are in pixels, from the corner of the client area.
    static void MoveTo(const Window& window, int x, int y) {
        const POINT origin = window.ClientOrigin();
        const POINT place{origin.x + x, origin.y + y};
        hands::MoveTo(place.x, place.y);
        WaitUntil("the pointer is there", [&] {
            POINT now{};
            return ::GetCursorPos(&now) != 0 && now.x == place.x && now.y == place.y;
        });
    }

    // Opens the timer's window in the corner of the screen and gives it the keyboard.
    Window OpenTimer(const Window& main) {
        main.Button("&Timer").Click();
        const Window timer = program.WaitFor("Novelty Timer");
        WaitUntilFilled(timer, "Edit");
        ::SetWindowPos(timer.handle, nullptr, 0, 0, 0, 0, SWP_NOSIZE | SWP_NOZORDER);
        BringUp(timer);
        return timer;
    }

    // The program gets a real key after all earlier moves of the pointer. The timer window gets the
    // key only if it has kept the keyboard focus and no menu is open.
    static void ExpectTimerHasKeyboard(const Window& timer, const std::string& typed) {
        hands::TypeDigit(typed.back());
        EXPECT_TRUE(ComesTrue([&] { return timer.Only("Edit").Text() == typed; }))
            << timer.Only("Edit").Text() << " instead of " << typed;
    }

    static int InnerWidth(const Window& window) {
        RECT inside{};
        ::GetClientRect(window.handle, &inside);
        return inside.right;
    }
};

TEST_F(PointerTest, MovesOverTheMainWindowAreNotTrayMessages) {
    const Window main = StartProgram();
    const Window timer = OpenTimer(main);
    // The topmost rows of the window have no controls.
    constexpr int row = 5;
    MoveTo(main, 400, row);
    for (const int column : {480, 481, 483, 512, 513, 514, 515, 516, 517, 518, 519}) {
        for (const int x : {column, PixelOfColumn(column)}) {
            if (x < InnerWidth(main)) {
                MoveTo(main, x, row);
            }
        }
    }
    ExpectTimerHasKeyboard(timer, "7");
    EXPECT_FALSE(program.OpenMenu());
    EXPECT_FALSE(main.Only("Edit").HasFocus());
    ExitProgram();
}

TEST_F(PointerTest, MovesAlongTheTopWithTheButtonDownAreNotTrayMessages) {
    const Window main = StartProgram();
    const Window timer = OpenTimer(main);
    MoveTo(main, 400, 0);
    hands::Press();
    for (int x = 512; x <= 519; ++x) {
        if (x < InnerWidth(main)) {
            MoveTo(main, x, 0);
        }
    }
    MoveTo(main, 300, 0);
    hands::Release();
    BringUp(timer);
    ExpectTimerHasKeyboard(timer, "7");
    EXPECT_FALSE(program.OpenMenu());
    // In the main window, the button that opened the timer still has the focus.
    BringUp(main);
    WaitUntil("the main window has its focus back", [&] { return main.Focus() != main; });
    EXPECT_EQ(main.Focus(), main.Button("&Timer")) << main.Focus().Description();
    ExitProgram();
}

TEST_F(PointerTest, TheEditorAnswersAtTheColumnsOf96Dpi) {
    const Window main = StartProgram();
    const Window note = MakeNote(main, "Dentist");
    tray::Click(main);
    WaitUntil("the main window is back", [&] { return main.IsVisible(); });
    const Window timer = OpenTimer(main);
    const RECT beside = timer.Place();
    ::SetWindowPos(note.handle, nullptr, beside.right, 0, 600 * Dpi() / 96, 600 * Dpi() / 96,
                   SWP_NOZORDER | SWP_NOACTIVATE);
    // A row above the toolbar.
    constexpr int row = 1;
    const auto moveTo = [&](int column) { MoveTo(note, PixelOfColumn(column), row); };

    std::string typed;
    for (const int column : {480, 483, 513, 516, 518}) {
        moveTo(column);
        typed += '7';
        ExpectTimerHasKeyboard(timer, typed);
        EXPECT_FALSE(program.OpenMenu()) << column;
    }
    for (const int column : {WM_LBUTTONUP, WM_LBUTTONDBLCLK}) {
        moveTo(510);
        BringUp(timer);
        moveTo(column);
        EXPECT_TRUE(ComesTrue([&] { return ::GetForegroundWindow() == note.handle; })) << column;
    }
    moveTo(510);
    BringUp(timer);
    moveTo(WM_RBUTTONUP);
    ASSERT_TRUE(ComesTrue([&] { return static_cast<bool>(program.OpenMenu()); }));
    EXPECT_EQ(::GetForegroundWindow(), note.handle);
    CloseMenu(program, note);
    ExitProgram();
}

}  // namespace driver
