#pragma once

#include <cstdint>
#include <functional>
#include <optional>

#include "forms/Property.h"

namespace forms {

class Form;

// The phase of a timer's ticks.
//
// FromStart: the first tick comes one interval after the timer is switched on or its interval is
// changed.
//
// ClockSecond is for timers that only poll. All of them share one phase in the middle of the wall
// clock's second. So a timer of 1000 ms ticks once in every second of the day, and many timers wake
// the machine together.
enum class TimerPhase { FromStart, ClockSecond };

// Polling timers that tick in the same round share one time: in their handlers, forms::Now()
// returns the start of the round, until the handler lets events in. In each second, polling timers
// tick in the order in which they were first switched on, even if one of them was delayed before.
//
// Ticks keep their phase: the next tick is due one interval after the last tick was due, however
// long the handler takes. Missed ticks are dropped. A timer does not tick while its handler is
// still running (the handler may be showing a box). Other timers go on.
class Timer final : public Observed {
  public:
    Timer(Form* parentForm, const char* timerName, TimerPhase timerPhase = TimerPhase::FromStart);
    ~Timer();

    const char* const name;
    Form& form;
    const TimerPhase phase;
    // In milliseconds. If it is 0, the timer does not tick, even if it is enabled.
    Property<int, Aspect::Interval> interval{*this, 0};
    Property<bool, Aspect::Enabled> enabled{*this, false};
    std::function<void()> Tick;

    // A resting timer is enabled but does not tick, because its handler has nothing to do. When the
    // timer is woken, it ticks at once and then at its interval. A new timer is awake.
    void Rest();
    void Wake();

    void Changed(Aspect aspect) override;

  private:
    friend class TimerQueue;
    bool resting = false;
    std::int64_t due = 0;  // monotonic milliseconds
    // If several timers are due together, the timer with the lowest number ticks first. A polling
    // timer keeps the number of its first start. Other timers get a new number for each tick. 0:
    // never queued.
    std::uint64_t sequence = 0;
    std::optional<std::int64_t> dueSecond;  // second that the clock showed when the tick became due
    std::optional<std::int64_t> seenSecond;  // dueSecond of the last tick
    bool queued = false;
    bool running = false;  // its handler is on the stack
};

}  // namespace forms
