#include <windows.h>
#include <gtest/gtest.h>

#include <cstdint>

#include "forms/win32/devices/WinClock.h"

namespace forms::win32 {

TEST(WinClockTest, ReturnsTheLocalTimeToTheSecond) {
    WinClock clock;
    SYSTEMTIME before{};
    SYSTEMTIME after{};
    ::GetLocalTime(&before);
    const base::DateTime now = clock.Now();
    ::GetLocalTime(&after);
    const auto moment = [](const SYSTEMTIME& time) {
        return base::Combine(base::DateTime::FromDate(time.wYear, time.wMonth, time.wDay),
                             base::DateTime::FromTime(time.wHour, time.wMinute, time.wSecond));
    };
    EXPECT_LE(moment(before), now);
    EXPECT_LE(now, moment(after));
}

TEST(WinClockTest, TheSecondChangesWhenItsMillisecondsWrap) {
    WinClock clock;
    constexpr std::int64_t standstill = 100;  // milliseconds
    int changes = 0;
    base::DateTime last = clock.Now();
    int lastMillisecond = clock.MillisecondOfSecond();
    std::int64_t lastLook = clock.MonotonicMilliseconds();
    while (changes < 2) {
        const base::DateTime now = clock.Now();
        const int millisecond = clock.MillisecondOfSecond();
        const std::int64_t look = clock.MonotonicMilliseconds();
        ASSERT_GE(millisecond, 0);
        ASSERT_LE(millisecond, 999);
        if (look - lastLook > standstill) {
            // The machine was stopped, so the two readings cannot be compared.
        } else if (now != last) {
            ++changes;
            EXPECT_LT(millisecond, 500);
            EXPECT_EQ(now.seconds, last.seconds + 1);
        } else {
            // The second may have changed between the two readings.
            EXPECT_TRUE(millisecond >= lastMillisecond || millisecond < 2 * standstill);
        }
        last = now;
        lastMillisecond = millisecond;
        lastLook = look;
        ::Sleep(5);
    }
}

TEST(WinClockTest, MonotonicTimeAdvances) {
    WinClock clock;
    const auto before = static_cast<std::int64_t>(::GetTickCount64());
    const std::int64_t start = clock.MonotonicMilliseconds();
    ::Sleep(100);
    const std::int64_t passed = clock.MonotonicMilliseconds() - start;
    EXPECT_GE(passed, 90);
    EXPECT_LE(passed, static_cast<std::int64_t>(::GetTickCount64()) - before + 20);
}

}  // namespace forms::win32
