#include <windows.h>
#include <gtest/gtest.h>

#include <vector>

#include "forms/win32/Dpi.h"
#include "forms/win32/Drawing.h"
#include "forms/win32/Placing.h"

namespace {

using forms::win32::ReadableOn;
namespace placing = forms::win32::placing;

constexpr COLORREF black = RGB(0, 0, 0);
constexpr COLORREF white = RGB(255, 255, 255);
constexpr COLORREF darkBlue = RGB(0, 0, 128);
constexpr COLORREF red = RGB(255, 0, 0);
constexpr COLORREF dialogGray = RGB(212, 208, 200);
constexpr COLORREF noteBlue = RGB(128, 128, 255);

TEST(LooksReadableColorsTest, AreKept) {
    EXPECT_EQ(ReadableOn(white, darkBlue), darkBlue);
    EXPECT_EQ(ReadableOn(dialogGray, red), red);
    EXPECT_EQ(ReadableOn(black, red), red);
    EXPECT_EQ(ReadableOn(noteBlue, white), white);
}

TEST(LooksReadableColorsTest, ReplaceUnreadableColors) {
    EXPECT_EQ(ReadableOn(black, darkBlue), white);
    EXPECT_EQ(ReadableOn(white, white), black);
    EXPECT_EQ(ReadableOn(RGB(255, 255, 0), white), black);
    EXPECT_EQ(ReadableOn(darkBlue, black), white);
}

RECT WorkArea() {
    RECT work{};
    ::SystemParametersInfoW(SPI_GETWORKAREA, 0, &work, 0);
    return work;
}

bool IsInside(const RECT& place, const RECT& area) {
    RECT common{};
    ::IntersectRect(&common, &place, &area);
    return ::EqualRect(&common, &place) != 0;
}

TEST(LooksScaleTest, OnOlderSystemsIsThatOfTheMonitor) {
    HWND desktop = ::GetDesktopWindow();
    EXPECT_EQ(forms::win32::DpiOfMonitorAt(desktop), forms::win32::DpiOf(desktop));
}

TEST(LooksPlacingTest, ACenteredWindowHasEqualMargins) {
    const RECT work = WorkArea();
    const RECT place = placing::Centered({400, 300});
    EXPECT_EQ(place.right - place.left, 400);
    EXPECT_EQ(place.bottom - place.top, 300);
    EXPECT_NEAR(place.left - work.left, work.right - place.right, 1);
    EXPECT_NEAR(place.top - work.top, work.bottom - place.bottom, 1);
}

TEST(LooksPlacingTest, TheCascadeTakesTheFirstFreePlace) {
    constexpr int step = 26;
    std::vector<POINT> taken;
    const RECT first = placing::Cascaded({400, 300}, step, taken);
    taken.push_back({first.left, first.top});
    const RECT second = placing::Cascaded({400, 300}, step, taken);
    EXPECT_EQ(second.left, first.left + step);
    EXPECT_EQ(second.top, first.top + step);
    taken.push_back({second.left, second.top});
    // The first window has been moved away.
    taken.front() = {first.left + 300, first.top};
    const RECT third = placing::Cascaded({400, 300}, step, taken);
    EXPECT_EQ(third.left, first.left);
    EXPECT_EQ(third.top, first.top);
}

TEST(LooksPlacingTest, AHundredCascadedWindowsAreOnTheScreenAndApart) {
    const RECT work = WorkArea();
    std::vector<POINT> taken;
    for (int i = 0; i < 100; ++i) {
        const RECT place = placing::Cascaded({480, 489}, 26, taken);
        EXPECT_TRUE(IsInside(place, work)) << i;
        for (const POINT& other : taken) {
            EXPECT_FALSE(place.left == other.x && place.top == other.y) << i;
        }
        taken.push_back({place.left, place.top});
    }
}

TEST(LooksPlacingTest, AWindowLargerThanTheScreenShowsItsTitleBar) {
    const RECT work = WorkArea();
    const RECT place = placing::Cascaded({10'000, 10'000}, 26, {});
    EXPECT_EQ(place.left, work.left);
    EXPECT_EQ(place.top, work.top);
}

TEST(LooksPlacingTest, AWindowOnARemovedMonitorComesBack) {
    EXPECT_TRUE(IsInside(placing::OnScreen({-5000, 7000, -4600, 7300}), WorkArea()));
}

}  // namespace
