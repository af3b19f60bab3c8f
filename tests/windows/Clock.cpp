#include "tests/windows/Clock.h"

#include <cstdio>

#include "tests/windows/Files.h"
#include "tests/windows/Wait.h"

namespace driver {

namespace {

constexpr long long ticksPerSecond = 10'000'000;

long long Seconds(const SYSTEMTIME& time) {
    FILETIME file{};
    ::SystemTimeToFileTime(&time, &file);
    const auto ticks = (static_cast<long long>(file.dwHighDateTime) << 32) | file.dwLowDateTime;
    return ticks / ticksPerSecond;
}

long long SecondsOf(const std::string& text) {
    unsigned short part[6]{};
    if (std::sscanf(text.c_str(), "%hu-%hu-%hu %hu:%hu:%hu", &part[0], &part[1], &part[2], &part[3],
                    &part[4], &part[5]) != 6) {
        throw Failure("no time: " + text);
    }
    return Seconds({part[0], part[1], 0, part[2], part[3], part[4], part[5], 0});
}

long long NowSeconds() {
    SYSTEMTIME now{};
    ::GetLocalTime(&now);
    return Seconds(now);
}

// The seconds by which the clock is ahead of the real one.
long long offset = 0;

}  // namespace

void Clock::Set(const std::string& text) {
    const std::string file = UnixPath(Variable("JOTWRIGHT_CLOCK_FILE"));
    const auto move = [&file](long long seconds) {
        offset += seconds;
        WriteWholeFile(file + ".new", (offset < 0 ? "" : "+") + std::to_string(offset) + "\n");
        RenameOver(file + ".new", file);
    };
    move(SecondsOf(text) - NowSeconds());
    WaitUntil("the clock is set to " + text, [&] {
        constexpr long long hour = 3600;
        const long long late = NowSeconds() - SecondsOf(text);
        // Daylight saving time may have begun or ended between the two times.
        const long long hours = (late + (late < 0 ? -hour : hour) / 2) / hour;
        if (hours == 1 || hours == -1) {
            move(-hours * hour);
        }
        return late >= 0 && late < 5;
    });
    // The system sends this message when its clock is set.
    ::SendNotifyMessageW(HWND_BROADCAST, WM_TIMECHANGE, 0, 0);
}

std::string Clock::Now() {
    SYSTEMTIME now{};
    ::GetLocalTime(&now);
    char text[32]{};
    std::snprintf(text, sizeof text, "%04u-%02u-%02u %02u:%02u:%02u", unsigned{now.wYear},
                  unsigned{now.wMonth}, unsigned{now.wDay}, unsigned{now.wHour},
                  unsigned{now.wMinute}, unsigned{now.wSecond});
    return text;
}

void Clock::WaitFor(const std::string& text) {
    WaitUntil("it is " + text, [&] { return Now() >= text; });
}

}  // namespace driver
