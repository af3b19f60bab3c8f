#include <windows.h>

#include <algorithm>
#include <array>
#include <map>
#include <optional>
#include <string>

#include "forms/win32/Drawing.h"
#include "forms/win32/LateLibrary.h"
#include "tests/windows/DriverTest.h"
#include "tests/windows/Picture.h"

namespace driver {

namespace {

constexpr COLORREF black = RGB(0, 0, 0);
constexpr COLORREF white = RGB(255, 255, 255);

// Gives the colours of a contrast theme, white on black, to programs that start while the object
// exists. The visual styles stay on, as in Windows 8 and later.
class ContrastColors {
  public:
    ContrastColors() {
        std::transform(indices.begin(), indices.end(), before.begin(),
                       [](int index) { return ::GetSysColor(index); });
        std::array<COLORREF, 5> colors{black, black, white, white, white};
        Set(colors);
    }
    ~ContrastColors() { Set(before); }
    ContrastColors(const ContrastColors&) = delete;
    ContrastColors& operator=(const ContrastColors&) = delete;

  private:
    static void Set(const std::array<COLORREF, 5>& colors) {
        ::SetSysColors(static_cast<int>(indices.size()), indices.data(), colors.data());
    }

    static constexpr std::array<int, 5> indices{COLOR_WINDOW, COLOR_BTNFACE, COLOR_WINDOWTEXT,
                                                COLOR_BTNTEXT, COLOR_GRAYTEXT};
    std::array<COLORREF, 5> before{};
};

// The most frequent colour in column left and the columns to its right.
COLORREF BackgroundOf(const Picture& picture, int left) {
    std::map<COLORREF, int> counts;
    for (int y = 0; y < picture.Height(); ++y) {
        for (int x = left; x < picture.Width(); ++x) {
            ++counts[picture.At(x, y)];
        }
    }
    const auto most =
        std::max_element(counts.begin(), counts.end(),
                         [](const auto& a, const auto& b) { return a.second < b.second; });
    return most == counts.end() ? CLR_INVALID : most->first;
}

// The number of pixels, in column left and the columns to its right, whose colour is readable on
// the background.
int ReadablePixels(const Picture& picture, int left, COLORREF background) {
    int count = 0;
    for (int y = 0; y < picture.Height(); ++y) {
        for (int x = left; x < picture.Width(); ++x) {
            const COLORREF color = picture.At(x, y);
            count += forms::win32::ReadableOn(background, color) == color ? 1 : 0;
        }
    }
    return count;
}

// Waits until the caption of a check box or an option button can be read on this background.
void ExpectReadableCaption(const Window& button, COLORREF background) {
    constexpr int markAndGap = 20;  // pixels
    constexpr int fewestPixels = 20;
    std::optional<Picture> picture;
    const bool isReadable = ComesTrue([&] {
        picture.emplace(button, 2);
        return BackgroundOf(*picture, markAndGap) == background &&
               ReadablePixels(*picture, markAndGap, background) >= fewestPixels;
    });
    EXPECT_TRUE(isReadable) << button.Text() << ": "
                            << ReadablePixels(*picture, markAndGap, background)
                            << " readable pixels, background " << std::hex
                            << BackgroundOf(*picture, markAndGap);
}

}  // namespace

class ContrastTest : public DriverTest {
  protected:
    const ContrastColors colors;
};

TEST_F(ContrastTest, CaptionsOnTheirOwnColorsAreReadable) {
    const Window main = StartProgram();
    const Window options = OpenFromMenuBar(main, barNoteOptions, "Note Options");
    BringUp(options);
    for (const auto& [caption, color] :
         {std::pair("White", white), std::pair("Red", RGB(255, 128, 128)),
          std::pair("Green", RGB(0, 192, 0)), std::pair("Blue", RGB(128, 128, 255)),
          std::pair("Yellow", RGB(255, 255, 0)), std::pair("Gray", RGB(192, 192, 192))}) {
        ExpectReadableCaption(options.Button(caption), color);
    }
    ExpectReadableCaption(options.Button("12 point"), black);
    // Without visual styles, the system uses the colours of the program.
    const auto themeOf =
        forms::win32::FromLibrary<HANDLE(WINAPI*)(HWND)>(L"uxtheme.dll", "GetWindowTheme");
    EXPECT_EQ(themeOf(options.Button("White").handle), nullptr);
    EXPECT_NE(themeOf(options.Button("12 point").handle), nullptr);
    CloseAndWait(options);
    ExitProgram();
}

TEST_F(ContrastTest, TipsHaveTheColorsOfTheTheme) {
    const Window main = StartProgram();
    const Window tips = OpenFromMenuBar(main, barShowTips, "Jotwright - Tips and Tricks");
    BringUp(tips);
    ExpectReadableCaption(tips.Button("&Don't Show Tips at Startup"), black);
    CloseAndWait(tips);
    ExitProgram();
}

}  // namespace driver
