#pragma once

#include <cstdint>
#include <functional>
#include <optional>

#include "forms/Services.h"

namespace forms::headless {

// A clock that stands still unless a test moves it. The stage sets its only alarm to the time of
// the next tick.
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

    // Lets time pass on both clocks. An alarm that becomes due goes off at its own time (with
    // jitter, up to that much later). If a handler advances the clock beyond the end of this
    // period, the clock stays at the later time.
    void Advance(std::int64_t milliseconds);
    // Lets time pass without an alarm, as if a handler were busy. An alarm that becomes due goes
    // off when the clock is next advanced.
    void Pass(std::int64_t milliseconds);
    // Lets the machine sleep: time passes without an alarm, then the program is notified, as by the
    // system.
    void Suspend(std::int64_t seconds);

    // Makes each alarm up to maximum milliseconds late, by a fixed pseudo-random sequence.
    void SetJitter(int maximum, std::uint32_t seed = 1);

    // The wall clock gains (or loses) this many milliseconds in each thousand seconds of the
    // monotonic clock.
    void SetDrift(int partsPerMillion) { drift = partsPerMillion; }

    // Sets the alarm, which goes off once. Empty: switches it off.
    void Arm(std::optional<std::int64_t> due);
    std::optional<std::int64_t> Armed() const { return alarm; }
    std::function<void()> onAlarm;
    // Called when the wall clock was set or the machine has slept.
    std::function<void()> onWallClockSet;
    // Called if the alarm is set again and again to a time that has passed.
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
