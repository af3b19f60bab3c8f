#include "forms/headless/VirtualClock.h"

#include <algorithm>

namespace forms::headless {

namespace {

constexpr std::int64_t thousand = 1000;
constexpr std::int64_t million = 1'000'000;
constexpr int mostAlarmsInOneMoment = 10'000;

std::int64_t WholeSeconds(std::int64_t milliseconds) {
    const std::int64_t seconds = milliseconds / thousand;
    return milliseconds % thousand < 0 ? seconds - 1 : seconds;
}

}  // namespace

VirtualClock::VirtualClock() {
    SetNow(base::Combine(base::DateTime::FromDate(2004, 5, 14), base::DateTime::FromTime(9, 0, 0)));
}

base::DateTime VirtualClock::Now() { return base::DateTime{WholeSeconds(wall)}; }

int VirtualClock::MillisecondOfSecond() {
    return static_cast<int>(wall - WholeSeconds(wall) * thousand);
}

void VirtualClock::SetNow(base::DateTime now, int millisecond) {
    wall = now.seconds * thousand + millisecond;
}

void VirtualClock::MoveWallClock(std::int64_t seconds, std::int64_t milliseconds) {
    wall += seconds * thousand + milliseconds;
}

void VirtualClock::Jump(std::int64_t seconds, std::int64_t milliseconds) {
    MoveWallClock(seconds, milliseconds);
    onWallClockSet();
}

void VirtualClock::Advance(std::int64_t milliseconds) {
    const std::int64_t end = monotonic + milliseconds;
    std::int64_t lastMoment = monotonic;
    int alarmsInMoment = 0;
    while (alarm) {
        const std::int64_t moment = std::max(*alarm, monotonic);
        if (moment > end) {
            break;
        }
        if (moment > lastMoment) {
            lastMoment = moment;
            alarmsInMoment = 0;
        } else if (++alarmsInMoment > mostAlarmsInOneMoment) {
            alarm.reset();
            if (onStuck) {
                onStuck();
            }
            break;
        }
        alarm.reset();
        if (moment > monotonic) {
            Pass(moment - monotonic);
        }
        if (onAlarm) {
            onAlarm();
        }
    }
    if (end > monotonic) {
        Pass(end - monotonic);
    }
}

void VirtualClock::Pass(std::int64_t milliseconds) {
    monotonic += milliseconds;
    driftPending += milliseconds * drift;
    wall += milliseconds + driftPending / million;
    driftPending %= million;
}

void VirtualClock::Suspend(std::int64_t seconds) {
    Pass(seconds * thousand);
    onWallClockSet();
    Advance(0);
}

void VirtualClock::SetJitter(int maximum, std::uint32_t seed) {
    maximumDelay = maximum;
    random = seed;
}

void VirtualClock::Arm(std::optional<std::int64_t> due) {
    alarm = due;
    if (alarm && maximumDelay > 0) {
        alarm = std::max(*alarm, monotonic) + NextDelay();
    }
}

int VirtualClock::NextDelay() {
    if (maximumDelay == 0) {
        return 0;
    }
    random = random * 1'664'525U + 1'013'904'223U;
    return static_cast<int>((random >> 8U) % (static_cast<std::uint32_t>(maximumDelay) + 1U));
}

}  // namespace forms::headless
