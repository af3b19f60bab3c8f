#pragma once

#include <cstdint>
#include <functional>
#include <optional>

#include "forms/Services.h"

namespace forms::headless {

// A clock that stands still unless a test moves it. It has one alarm, which the stage sets to the
// time of the next tick.
class VirtualClock : public Clock {
  public:
    // Starts at Friday, 14 May 2004, 9:00:00.
    VirtualClock();

    base::DateTime Now() override;
    int MillisecondOfSecond() override;
    std::int64_t MonotonicMilliseconds() override { return monotonic; }

    // These two functions set the wall clock. The program is not notified.
    void SetNow(base::DateTime now, int millisecond = 0);
    void MoveWallClock(std::int64_t seconds, std::int64_t milliseconds = 0);
    // Sets the wall clock forward or back and notifies the program, as the system does.
    void Jump(std::int64_t seconds, std::int64_t milliseconds = 0);

    // Lets time pass on both clocks. An alarm that becomes due on the way goes off at its own time.
    // If a handler moves the clock beyond the end of this period, the clock stays at the later
    // time.
    void Advance(std::int64_t milliseconds);
    // Lets time pass without an alarm, as if a handler were busy. An alarm that becomes due on the
    // way goes off at the next call of Advance.
    void Pass(std::int64_t milliseconds);
    // Lets the machine sleep: time passes without an alarm. Then the program is notified, as by the
    // system, and an alarm that has become due goes off.
    void Suspend(std::int64_t seconds);

    // Makes each alarm late by 0 to maximum milliseconds, by a fixed pseudo-random sequence.
    void SetJitter(int maximum, std::uint32_t seed = 1);

    // Makes the wall clock gain (or lose, if negative) this many milliseconds in each thousand
    // seconds of the monotonic clock.
    void SetDrift(int partsPerMillion) { drift = partsPerMillion; }

    // Sets the alarm, which goes off once. Empty: switches it off.
    void Arm(std::optional<std::int64_t> due);
    std::optional<std::int64_t> Armed() const { return alarm; }
    std::function<void()> onAlarm;
    // Called when the wall clock was set or the machine has slept.
    std::function<void()> onWallClockSet;
    // Called if Advance would not end because the alarm is set again and again to a time that has
    // passed.
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
