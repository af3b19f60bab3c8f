#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <set>

#include "base/DateTime.h"

namespace forms {

class Timer;

// All timers of the program in the order of their next ticks. The stage keeps one native timer
// armed for NextDue() and calls Runtime::RunDueTimers() when it fires, which calls RunDue(). Ticks
// run only for loaded forms.
class TimerQueue {
  public:
    // A timer was switched on or off, went to rest, or its interval changed.
    void Update(Timer& timer);
    // As Update; if the timer is on, its next tick is due now.
    void StartAtOnce(Timer& timer);
    void Remove(Timer& timer);

    // Monotonic milliseconds of the next tick, of the timers whose handlers are not running; empty
    // if there is none.
    std::optional<std::int64_t> NextDue() const;

    // Timers that wait for their next tick.
    std::size_t Size() const { return queue.size(); }

    // Gives each tick that is due, earliest first. Handlers may wait, which calls this again, and
    // may switch any timer on or off or destroy it.
    void RunDue();

    // The wall clock was set or the machine woke up: puts the timers of phase ClockSecond back into
    // the middle of the second, except those that are due.
    void Realign();

    // The time of the round, while the handler of a polling timer runs and has not let events in.
    // LeaveMoment is called when it lets events in.
    std::optional<base::DateTime> Moment() const { return tickTime; }
    void LeaveMoment() { tickTime.reset(); }

    // The wall clock is to be read again, see WallAt.
    void ForgetClock() { readAt.reset(); }

  private:
    struct Earlier {
        bool operator()(const Timer* a, const Timer* b) const;
    };
    static bool SeesEverySecond(const Timer& timer);
    // The timer has ticked in the second that the clock shows, or would have if the clock had not
    // been put back by up to a second, as programs do that keep it right.
    static bool HasSeen(const Timer& timer, std::int64_t shown);
    void Enqueue(Timer& timer, std::int64_t due);
    // The wall clock in milliseconds at this monotonic time, which is the present one. In a round
    // of ticks the clock is read once each millisecond.
    std::int64_t WallAt(std::int64_t now) const;
    // Milliseconds from the middle of the wall clock's second to the moment, -500 to 499.
    std::int64_t OffMiddle(std::int64_t moment, std::int64_t now) const;
    // The first moment after this one that lies a multiple of the distance from the grid's anchor.
    std::int64_t GridPointAfter(std::int64_t moment, std::int64_t distance) const;
    // Moves the grid, and all polling timers that are not due with it, to the middle of the second;
    // the first function only if it has come too far off.
    void KeepGridInPhase(std::int64_t now);
    void MoveGrid(std::int64_t now);
    std::int64_t FirstDue(const Timer& timer, std::int64_t now) const;
    // For a tick that was due then and sees the shown second of the wall clock.
    std::int64_t NextAfter(const Timer& timer, std::int64_t lastDue, std::int64_t now,
                           std::int64_t shown) const;
    // The ticks of polling timers that are due are for the second that the clock shows now.
    void MarkDue(std::int64_t limit);

    std::set<Timer*, Earlier> queue;
    std::uint64_t lastSequence = 0;
    std::optional<base::DateTime> tickTime;
    // Monotonic time of some middle of a second. The ticks of all polling timers lie on a grid
    // through it, so that those for one second are due together. Not known before the first of them
    // starts.
    std::optional<std::int64_t> gridAnchor;
    // The last reading of the wall clock, while it can be used again.
    mutable std::optional<std::int64_t> readAt;
    mutable std::int64_t readWall = 0;
};

}  // namespace forms
