#include <windows.h>

#include "tests/windows/DriverTest.h"
#include "tests/windows/Picture.h"
#include "tests/windows/RemoteMemory.h"

namespace driver {

// Where windows open and what their title bars offer; how they look is seen in the gallery.
class Looks : public DriverTest {};

namespace {

bool IsOnScreen(const Window& window) {
    const RECT place = window.Place();
    return place.left >= 0 && place.top >= 0 && place.right <= ::GetSystemMetrics(SM_CXSCREEN) &&
           place.bottom <= ::GetSystemMetrics(SM_CYSCREEN);
}

// How much of the small icon in the title bar is the same in both windows, 0 to 1. The icon itself
// cannot be asked for: another program's is not told.
double SameIcon(const Picture& a, const Picture& b) {
    constexpr int left = 4;
    constexpr int top = 4;
    constexpr int size = 15;
    int same = 0;
    for (int y = top; y < top + size; ++y) {
        for (int x = left; x < left + size; ++x) {
            same += a.At(x, y) == b.At(x, y) ? 1 : 0;
        }
    }
    return static_cast<double>(same) / (size * size);
}

Picture PictureOf(const Window& window) {
    WaitUntil("the window is the active one",
              [&] { return ::GetForegroundWindow() == window.handle; });
    window.Send(WM_NULL);
    ::Sleep(200);  // until its title bar is drawn
    return Picture(window);
}

}  // namespace

TEST_F(Looks, NotesOpenInACascade) {
    const Window main = StartProgram();
    const Window first = MakeNote(main, "First");
    tray::LeftClick(main);
    WaitUntil("the main window is back", [&] { return main.IsVisible(); });
    const Window second = MakeNote(main, "Second");
    EXPECT_TRUE(IsOnScreen(first)) << first.Description();
    EXPECT_TRUE(IsOnScreen(second)) << second.Description();
    EXPECT_GT(first.Place().left, 0);
    EXPECT_GT(first.Place().top, 0);
    EXPECT_GE(second.Place().left, first.Place().left + 10);
    EXPECT_GE(second.Place().top, first.Place().top + 10);
    ExitProgram();
}

TEST_F(Looks, EveryWindowHasAnIconAndNoneOfFixedSizeCanBeMaximised) {
    const Window main = StartProgram();
    const Picture mainPicture = PictureOf(main);
    const auto check = [&](const Window& window) {
        EXPECT_GT(SameIcon(PictureOf(window), mainPicture), 0.9) << window.Description();
        EXPECT_TRUE(IsOnScreen(window)) << window.Description();
        EXPECT_EQ(window.Style() & (WS_MAXIMIZEBOX | WS_THICKFRAME), 0) << window.Description();
    };
    EXPECT_EQ(main.Style() & (WS_MAXIMIZEBOX | WS_THICKFRAME), 0);
    main.Button("Make &Note").Click();
    const Window rejection = program.WaitFor("  Note Title Error");
    check(rejection);
    rejection.Close();
    program.WaitUntilGone("  Note Title Error");
    for (const auto& [button, caption] :
         {std::pair("S&pecial Alarms", "Special Alarms"),
          std::pair("Notes &Control Panel", "Notes Control Panel"),
          std::pair("&Timer", "Novelty Timer"), std::pair("&Stop Watch", "Novelty Stop Watch")}) {
        main.Button(button).Click();
        const Window window = program.WaitFor(caption);
        check(window);
        window.Close();
        program.WaitUntilGone(caption);
    }
    ExitProgram();
}

// What the system says when a window has come to a monitor of another scale.
TEST_F(Looks, AWindowTakesTheScaleOfItsMonitor) {
    const Window main = StartProgram();
    const auto extent = [](const Window& window) {
        const RECT place = window.Place();
        return SIZE{place.right - place.left, place.bottom - place.top};
    };
    const auto inside = [](const Window& window) {
        RECT area{};
        ::GetClientRect(window.handle, &area);
        return SIZE{area.right, area.bottom};
    };
    const Window button = main.Button("Make &Note");
    const SIZE before = inside(main);
    const SIZE buttonBefore = extent(button);
    const auto changeTo = [&](int dpi, const RECT& place) {
        const Remote<RECT> suggested(main, place);
        main.Send(0x02E0, MAKEWPARAM(dpi, dpi), suggested.Parameter());  // WM_DPICHANGED
    };
    const RECT first = main.Place();
    changeTo(144, {20, 30, 20 + extent(main).cx * 3 / 2, 30 + extent(main).cy * 3 / 2});
    EXPECT_EQ(main.Place().left, 20);
    EXPECT_EQ(main.Place().top, 30);
    EXPECT_EQ(inside(main).cx, before.cx * 3 / 2);
    EXPECT_EQ(inside(main).cy, before.cy * 3 / 2);
    EXPECT_NEAR(extent(button).cx, buttonBefore.cx * 3 / 2, 1);
    EXPECT_NEAR(extent(button).cy, buttonBefore.cy * 3 / 2, 1);
    changeTo(96, first);
    EXPECT_EQ(main.Place().left, first.left);
    EXPECT_EQ(extent(button).cx, buttonBefore.cx);
    ExitProgram();
}

}  // namespace driver
