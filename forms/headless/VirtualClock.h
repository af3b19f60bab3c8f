#pragma once

#include <cstdint>
#include <functional>
#include <optional>

#include "forms/Services.h"

namespace forms::headless {

// A clock that stands still unless a test moves it. The stage arms its one alarm for the next tick.
class VirtualClock : public Clock {
  public:
    // Friday, 14 May 2004, 9:00:00.
    VirtualClock();

    base::DateTime Now() override;
    int MillisecondOfSecond() override;
    std::int64_t MonotonicMilliseconds() override { return monotonic; }

    // These two set the wall clock, and the program is not told.
    void SetNow(base::DateTime now, int millisecond = 0);
    void MoveWallClock(std::int64_t seconds, std::int64_t milliseconds = 0);
    // The wall clock is set forward or back, and the system tells the program.
    void Jump(std::int64_t seconds, std::int64_t milliseconds = 0);

    // Lets time pass: both clocks go on, and every alarm that falls due on the way is given at its
    // own time (with jitter, up to that much later). Handlers may advance the clock themselves; it
    // ends at the later of the two times.
    void Advance(std::int64_t milliseconds);
    // Time passes without an alarm: a handler is busy or the machine sleeps. An alarm that falls
    // due is given when the clock is next advanced.
    void Pass(std::int64_t milliseconds);
    // The machine sleeps: time passes without an alarm, then the system tells the program.
    void Suspend(std::int64_t seconds);

    // Each alarm comes up to maximum milliseconds late, by a fixed pseudo-random sequence.
    void SetJitter(int maximum, std::uint32_t seed = 1);

    // The wall clock gains (or loses) this many milliseconds in a thousand seconds of the other.
    void SetDrift(int partsPerMillion) { drift = partsPerMillion; }

    // Arms the alarm, which is given once. Empty disarms it.
    void Arm(std::optional<std::int64_t> due);
    std::optional<std::int64_t> Armed() const { return alarm; }
    std::function<void()> onAlarm;
    // Called when the wall clock was set or the machine has slept.
    std::function<void()> onWallClockSet;
    // Called if the alarm is armed again and again for a time that has passed.
    std::function<void()> onStuck;

  private:
    int NextDelay();

    std::int64_t monotonic = 5'000'000;
    std::int64_t wall = 0;  // milliseconds since the zero date
    std::optional<std::int64_t> alarm;
    int maximumDelay = 0;
    std::uint32_t random = 1;
    int drift = 0;                  // parts per million
    std::int64_t driftPending = 0;  // millionths of a millisecond
};

}  // namespace forms::headless
