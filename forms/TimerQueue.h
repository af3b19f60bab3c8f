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
    // Call this after the timer was switched on or off or was put to rest, or after its interval
    // was changed.
    void Update(Timer& timer);
    // Like Update. If the timer is on, its next tick is due now.
    void StartAtOnce(Timer& timer);
    void Remove(Timer& timer);

    // The time of the next tick in monotonic milliseconds. Skips timers whose handlers are running.
    // Empty if no other timer waits for a tick.
    std::optional<std::int64_t> NextDue() const;

    // The number of timers that wait for their next tick.
    std::size_t Size() const { return queue.size(); }

    // Runs all ticks that are due, the earliest first. A handler may wait, and RunDue may be called
    // again meanwhile. A handler may also switch any timer on or off, or destroy it.
    void RunDue();

    // Call this after the wall clock was set or the machine woke up. Moves the timers of phase
    // ClockSecond back to the middle of the second, except those that are due.
    void Realign();

    // The time at which the round began, for forms::Now(). Empty unless the handler of a polling
    // timer is running and has not let events in. Call LeaveMoment when the handler lets events in.
    std::optional<base::DateTime> Moment() const { return tickTime; }
    void LeaveMoment() { tickTime.reset(); }

    // Discards the cached time, so that the next call of WallAt reads the wall clock.
    void ForgetClock() { readAt.reset(); }

  private:
    struct Earlier {
        bool operator()(const Timer* a, const Timer* b) const;
    };
    static bool SeesEverySecond(const Timer& timer);
    // Whether the timer has ticked for the second shown. True also if its last tick was for the
    // next second: a program that synchronises the clock may have set it back by up to a second.
    static bool HasSeen(const Timer& timer, std::int64_t shown);
    void Enqueue(Timer& timer, std::int64_t due);
    // The wall clock in milliseconds at the monotonic time now, which must be the present time.
    // During a round of ticks, the clock is read at most once in each millisecond.
    std::int64_t WallAt(std::int64_t now) const;
    // Milliseconds from the middle of the wall clock's second to the monotonic time moment, from
    // -500 to 499.
    std::int64_t OffMiddle(std::int64_t moment, std::int64_t now) const;
    // The first grid point after the monotonic time moment. The grid points are distance
    // milliseconds apart.
    std::int64_t GridPointAfter(std::int64_t moment, std::int64_t distance) const;
    // MoveGrid moves the grid, with all polling timers that are not due, to the middle of the
    // second. KeepGridInPhase calls it if the grid has drifted too far.
    void KeepGridInPhase(std::int64_t now);
    void MoveGrid(std::int64_t now);
    std::int64_t FirstDue(const Timer& timer, std::int64_t now) const;
    // The time of the timer's next tick after the tick that was due at lastDue. shown is the second
    // of the wall clock in which the timer ticks now.
    std::int64_t NextAfter(const Timer& timer, std::int64_t lastDue, std::int64_t now,
                           std::int64_t shown) const;
    // Stores the second that the clock shows now in every polling timer that is due at limit. Skips
    // timers that are running or have a second stored.
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
