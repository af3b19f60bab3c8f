#include <windows.h>

#include <algorithm>
#include <cstdlib>
#include <cwchar>
#include <functional>
#include <optional>
#include <set>

#include "forms/win32/Dpi.h"
#include "tests/windows/DriverTest.h"
#include "tests/windows/Picture.h"
#include "tests/windows/RemoteMemory.h"

namespace driver {

// Tests the places and title bars of windows. The gallery shows the rest of their appearance.
class LooksTest : public DriverTest {};

namespace {

bool IsOnScreen(const Window& window) {
    const RECT place = window.Place();
    return place.left >= 0 && place.top >= 0 && place.right <= ::GetSystemMetrics(SM_CXSCREEN) &&
           place.bottom <= ::GetSystemMetrics(SM_CYSCREEN);
}

// The rows of pixels that a text takes up.
struct Extent {
    int Height() const { return bottom - top; }

    int top = 0;
    int bottom = 0;
};

// The rows of the text in a window, in screen coordinates. Nothing if no text is drawn. edge is the
// width of the border, in pixels, that is left out. The text begins at the column left or later.
std::optional<Extent> RowsOfText(const Window& window, int edge = 0, int left = 0) {
    const Picture picture(window, edge);
    const int first = window.Place().top + edge;
    std::optional<Extent> rows;
    for (int y = 0; y < picture.Height(); ++y) {
        for (int x = left; x < picture.Width(); ++x) {
            if (GetGValue(picture.At(x, y)) < 128) {
                rows = Extent{rows ? rows->top : first + y, first + y + 1};
            }
        }
    }
    return rows;
}

// The share of the small icon in the title bar that is equal in both windows, 0 to 1. Compares
// pixels, because the icon of another program's window cannot be read.
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
    return Picture(window);
}

// Waits until the title bar is drawn, that is, until its icon has several colours.
Picture PictureWithIcon(const Window& window) {
    std::optional<Picture> picture;
    WaitUntil("the icon is drawn", [&] {
        picture.emplace(PictureOf(window));
        std::set<COLORREF> colors;
        for (int i = 4; i < 19; ++i) {
            colors.insert(picture->At(i, i));
            colors.insert(picture->At(i, 22 - i));
        }
        return colors.size() > 4;
    });
    return *picture;
}

}  // namespace

TEST_F(LooksTest, NotesOpenInACascade) {
    const Window main = StartProgram();
    const Window first = MakeNote(main, "First");
    tray::Click(main);
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

TEST_F(LooksTest, EveryWindowHasAnIconAndFixedWindowsCannotBeMaximized) {
    const Window main = StartProgram();
    const Picture mainPicture = PictureWithIcon(main);
    const auto check = [&](const Window& window) {
        EXPECT_TRUE(ComesTrue([&] { return SameIcon(PictureOf(window), mainPicture) > 0.9; }))
            << window.Description();
        EXPECT_TRUE(IsOnScreen(window)) << window.Description();
        EXPECT_EQ(window.Style() & (WS_MAXIMIZEBOX | WS_THICKFRAME), 0) << window.Description();
    };
    EXPECT_EQ(main.Style() & (WS_MAXIMIZEBOX | WS_THICKFRAME), 0);
    main.Button("Make &Note").Click();
    const Window rejection = program.WaitFor("  Note Title Error");
    check(rejection);
    rejection.CloseBox();
    program.WaitUntilGone("  Note Title Error");
    for (const auto& [button, caption] :
         {std::pair("S&pecial Alarms", "Special Alarms"),
          std::pair("Notes &Control Panel", "Notes Control Panel"),
          std::pair("&Timer", "Novelty Timer"), std::pair("&Stop Watch", "Novelty Stop Watch")}) {
        main.Button(button).Click();
        const Window window = program.WaitFor(caption);
        check(window);
        window.CloseBox();
        program.WaitUntilGone(caption);
    }
    ExitProgram();
}

namespace {

// Sends the message that reports a move to a monitor with another scale. place is the new place of
// the window.
void ChangeScale(const Window& window, int dpi, const RECT& place) {
    const Remote<RECT> suggested(window, place);
    window.Send(0x02E0, MAKEWPARAM(dpi, dpi), suggested.Parameter());  // WM_DPICHANGED
}

}  // namespace

TEST_F(LooksTest, AWindowTakesTheScaleOfItsMonitor) {
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
    const RECT first = main.Place();
    ChangeScale(main, 144, {20, 30, 20 + extent(main).cx * 3 / 2, 30 + extent(main).cy * 3 / 2});
    EXPECT_EQ(main.Place().left, 20);
    EXPECT_EQ(main.Place().top, 30);
    EXPECT_EQ(inside(main).cx, before.cx * 3 / 2);
    EXPECT_EQ(inside(main).cy, before.cy * 3 / 2);
    EXPECT_NEAR(extent(button).cx, buttonBefore.cx * 3 / 2, 1);
    EXPECT_NEAR(extent(button).cy, buttonBefore.cy * 3 / 2, 1);
    ChangeScale(main, 96, first);
    EXPECT_EQ(main.Place().left, first.left);
    EXPECT_EQ(extent(button).cx, buttonBefore.cx);
    ExitProgram();
}

TEST_F(LooksTest, ShortAndLongTipsBeginAtTheSamePlace) {
    const Window main = StartProgram();
    const Window tips = OpenFromMenuBar(main, barShowTips, "Jotwright - Tips and Tricks");
    BringUp(tips);
    const Window text = tips.Child("Static", "Create up to 100 personalized notes.");
    std::optional<Extent> first;
    WaitUntil("the first tip is drawn", [&] {
        first = RowsOfText(text);
        return first.has_value();
    });
    tips.Button("&Next Tip").Click();
    std::optional<Extent> second;
    WaitUntil("the second tip, which has several lines, is drawn", [&] {
        second = RowsOfText(text);
        return second && second->Height() > 2 * first->Height();
    });
    // The first letters may differ in their height.
    EXPECT_NEAR(second->top, first->top, 3);
    CloseAndWait(tips);
    ExitProgram();
}

TEST_F(LooksTest, FieldTextsAlignWithTheirLabelsAtAnyScale) {
    const Window main = StartProgram();
    main.Button("S&pecial Alarms").Click();
    const Window window = program.WaitFor("Special Alarms");
    // The check box of the first row has the focus, and a rectangle above its caption.
    const Window label = window.Child("Static", "#2");
    const auto inRowOfLabel = [&label](const Window& other) {
        return other.Place().top < label.Place().bottom && label.Place().top < other.Place().bottom;
    };
    const auto boxes = window.ChildrenOfClass("Button");
    const Window box = *std::find_if(boxes.begin(), boxes.end(), inRowOfLabel);
    const RECT first = window.Place();
    for (const Window& field : window.ChildrenOfClass("Edit")) {
        field.Type("#2");
    }
    for (const int dpi : {96, 192}) {
        ChangeScale(window, dpi,
                    {0, 20, (first.right - first.left) * dpi / 96,
                     20 + (first.bottom - first.top) * dpi / 96});
        // Wait until both texts are drawn.
        EXPECT_TRUE(ComesTrue([&] {
            const auto wanted = RowsOfText(label);
            if (!wanted) {
                return false;
            }
            const auto fields = window.ChildrenOfClass("Edit");
            const auto inRow = std::find_if(fields.begin(), fields.end(), inRowOfLabel);
            const auto found = inRow != fields.end() ? RowsOfText(*inRow, 3) : std::nullopt;
            constexpr int widthOfBox = 20;  // pixels at 96 dpi
            const auto caption = RowsOfText(box, 3, widthOfBox * dpi / 96);
            return found && std::abs(found->top - wanted->top) <= 1 && caption &&
                   std::abs(caption->top - wanted->top) <= 1;
        })) << dpi
            << " dots per inch";
    }
    window.CloseBox();
    program.WaitUntilGone("Special Alarms");
    ExitProgram();
}

namespace {

// Makes the user's message font italic while the object exists, for the programs that start in this
// time.
class SlantedMessageFont {
  public:
    SlantedMessageFont() {
        before.cbSize = sizeof before;
        ::SystemParametersInfoW(SPI_GETNONCLIENTMETRICS, sizeof before, &before, 0);
        NONCLIENTMETRICSW metrics = before;
        metrics.lfMessageFont.lfItalic = TRUE;
        Set(metrics);
    }
    ~SlantedMessageFont() { Set(before); }
    SlantedMessageFont(const SlantedMessageFont&) = delete;
    SlantedMessageFont& operator=(const SlantedMessageFont&) = delete;

  private:
    static void Set(NONCLIENTMETRICSW& metrics) {
        ::SystemParametersInfoW(SPI_SETNONCLIENTMETRICS, sizeof metrics, &metrics,
                                SPIF_UPDATEINIFILE);
    }

    NONCLIENTMETRICSW before{};
};

// The number of columns from the first to the last column that has a dark pixel.
int DarkWidth(const std::function<COLORREF(int, int)>& at, const RECT& area) {
    int first = area.right;
    int last = area.right - 1;
    for (int x = area.left; x < area.right; ++x) {
        for (int y = area.top; y < area.bottom; ++y) {
            if (GetGValue(at(x, y)) < 100) {
                first = std::min(first, x);
                last = x;
            }
        }
    }
    return last - first + 1;
}

// The width of a text in the message font, drawn with enough room.
int WholeWidth(const wchar_t* text, int dpi, COLORREF background) {
    constexpr int width = 1000;
    constexpr int height = 200;
    HDC screen = ::GetDC(nullptr);
    HDC memory = ::CreateCompatibleDC(screen);
    HBITMAP bitmap = ::CreateCompatibleBitmap(screen, width, height);
    const LOGFONTW wanted = forms::win32::MessageFont(dpi);
    HFONT font = ::CreateFontIndirectW(&wanted);
    ::SelectObject(memory, bitmap);
    ::SelectObject(memory, font);
    const RECT whole{0, 0, width, height};
    ::SetBkColor(memory, background);
    ::ExtTextOutW(memory, 0, 0, ETO_OPAQUE, &whole, L"", 0, nullptr);
    ::TextOutW(memory, 50, 50, text, static_cast<int>(std::wcslen(text)));
    const int found = DarkWidth([&](int x, int y) { return ::GetPixel(memory, x, y); }, whole);
    ::DeleteDC(memory);
    ::DeleteObject(bitmap);
    ::DeleteObject(font);
    ::ReleaseDC(nullptr, screen);
    return found;
}

}  // namespace

// Letters may extend beyond the width that the font reports, especially slanted letters.
TEST_F(LooksTest, CaptionsOfFramesAreWhole) {
    const SlantedMessageFont slanted;
    const Window main = StartProgram();
    for (const int dpi : {96, 120, 144, 192}) {
        const RECT place = main.Place();
        ChangeScale(main, dpi, {0, 0, place.right - place.left, place.bottom - place.top});
        EXPECT_TRUE(ComesTrue([&] {
            const Picture picture = PictureOf(main);
            const RECT frame = main.Button("Note Center").Place();
            const int lineHeight = -forms::win32::MessageFont(dpi).lfHeight;
            // Leave out the columns of the border.
            const RECT caption{frame.left + 4, frame.top, frame.right - 4, frame.top + lineHeight};
            return DarkWidth([&](int x, int y) { return picture.At(x, y); }, caption) ==
                   WholeWidth(L"Note Center", dpi, picture.At(caption.right, caption.bottom));
        })) << dpi
            << " dots per inch";
    }
    ExitProgram();
}

// Measures the two lines above the text of an alarm display.
TEST_F(LooksTest, LinesHaveTheThicknessOfTheirScale) {
    WriteNote("Due",
              "\"Due\",\"Take the cake out\",#2031-06-02#,#09:01:00#,1,12,\"1\",0,\"yes\"\r\n");
    const Window main = StartProgram();
    const Window restored = program.WaitFor("Due");
    restored.CloseBox();
    WaitUntil("the editor has gone", [&] { return !restored.Exists(); });
    LetAlarmCome("2031-06-02 09:00:58", "Due");
    const Window display = program.WaitFor("Due");
    const auto rowsOfLines = [&] {
        const Picture picture = PictureOf(display);
        int rows = 0;
        for (int y = 0; y < picture.Height(); ++y) {
            int black = 0;
            for (int x = 0; x < picture.Width(); ++x) {
                black += picture.At(x, y) == RGB(0, 0, 0) ? 1 : 0;
            }
            rows += black > picture.Width() / 2 ? 1 : 0;
        }
        return rows;
    };
    const RECT place = display.Place();
    EXPECT_TRUE(ComesTrue([&] { return rowsOfLines() == 2; }));
    ChangeScale(display, 192,
                {20, 20, 20 + (place.right - place.left) * 2, 20 + (place.bottom - place.top) * 2});
    EXPECT_TRUE(ComesTrue([&] { return rowsOfLines() == 4; }));
    display.CloseBox();
    const Box box(program, " Erase Note?");
    box.Click("No");
    main.Post(WM_CLOSE);
}

}  // namespace driver
