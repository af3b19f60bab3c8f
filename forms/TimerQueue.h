#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <set>

#include "base/DateTime.h"

namespace forms {

class Timer;

// All timers of the program, in the order of their next ticks. The stage keeps one native timer
// armed for NextDue(). When it fires, the stage calls Runtime::RunDueTimers(), which calls
// RunDue(). Only timers of loaded forms tick.
class TimerQueue {
  public:
    // Call it when a timer was switched on or off, when it was put to rest, or when its interval
    // changed.
    void Update(Timer& timer);
    // Like Update. If the timer is on, its next tick is due now.
    void StartAtOnce(Timer& timer);
    void Remove(Timer& timer);

    // The time of the next tick in monotonic milliseconds. Skips timers whose handlers are running.
    // Empty if no other timer waits for a tick.
    std::optional<std::int64_t> NextDue() const;

    // The number of timers that wait for their next tick.
    std::size_t Size() const { return queue.size(); }

    // Runs all ticks that are due, the earliest first. Handlers may wait, which calls RunDue again.
    // They may also switch any timer on or off, or destroy it.
    void RunDue();

    // Call it when the wall clock was set or the machine woke up. Moves the timers of phase
    // ClockSecond back to the middle of the second, except those that are due.
    void Realign();

    // The time of the round. Empty unless the handler of a polling timer is running and has not let
    // events in. LeaveMoment is called when the handler lets events in.
    std::optional<base::DateTime> Moment() const { return tickTime; }
    void LeaveMoment() { tickTime.reset(); }

    // Discards the cached time, so that the next call of WallAt reads the wall clock.
    void ForgetClock() { readAt.reset(); }

  private:
    struct Earlier {
        bool operator()(const Timer* a, const Timer* b) const;
    };
    static bool SeesEverySecond(const Timer& timer);
    // Whether the timer has already ticked in the second that the clock shows. If the clock was put
    // back by up to a second, the timer does not tick for that second again: programs that
    // synchronise the clock make such small corrections.
    static bool HasSeen(const Timer& timer, std::int64_t shown);
    void Enqueue(Timer& timer, std::int64_t due);
    // The wall clock in milliseconds at the monotonic time now, which must be the present time.
    // During a round of ticks, the clock is read at most once in each millisecond.
    std::int64_t WallAt(std::int64_t now) const;
    // Milliseconds from the middle of the wall clock's second to the moment, from -500 to 499.
    std::int64_t OffMiddle(std::int64_t moment, std::int64_t now) const;
    // The first grid point after the moment, if the grid has points at this distance.
    std::int64_t GridPointAfter(std::int64_t moment, std::int64_t distance) const;
    // Both functions move the grid to the middle of the second, together with all polling timers
    // that are not due. KeepGridInPhase moves it only if it has drifted too far.
    void KeepGridInPhase(std::int64_t now);
    void MoveGrid(std::int64_t now);
    std::int64_t FirstDue(const Timer& timer, std::int64_t now) const;
    // The time of the next tick, for a tick that was due at lastDue. shown is the second of the
    // wall clock that this tick sees.
    std::int64_t NextAfter(const Timer& timer, std::int64_t lastDue, std::int64_t now,
                           std::int64_t shown) const;
    // Marks the due ticks of polling timers with the second that the clock shows now.
    void MarkDue(std::int64_t limit);

    std::set<Timer*, Earlier> queue;
    std::uint64_t lastSequence = 0;
    std::optional<base::DateTime> tickTime;
    // The monotonic time of the middle of a second. The ticks of all polling timers are on a grid
    // through this time, so that all ticks for one second are due together. Empty until the first
    // timer starts.
    std::optional<std::int64_t> gridAnchor;
    // The last reading of the wall clock. Empty if the clock must be read again.
    mutable std::optional<std::int64_t> readAt;
    mutable std::int64_t readWall = 0;
};

}  // namespace forms
