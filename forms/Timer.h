#pragma once

#include <cstdint>
#include <functional>
#include <optional>

#include "forms/Property.h"

namespace forms {

class Form;

// The phase of a timer's ticks. FromStart: the first tick comes one interval after the timer is
// switched on or given another interval. ClockSecond, for timers that only poll: all of them share
// one phase in the middle of the wall clock's second, so that a timer of 1000 ms sees every second
// of the day once, and many timers wake the machine together.
enum class TimerPhase { FromStart, ClockSecond };

// Polling timers that tick in the same round share one time: in their handlers, forms::Now()
// returns the start of the round, until the handler lets events in. In each second they tick in the
// order in which they were first switched on, even if one of them was held up before.
//
// Ticks keep their phase: the next tick is due one interval after the last one was due, and is
// computed before the handler runs. Missed ticks are dropped. A timer whose handler is still
// running (it may be showing a box) is not entered again; other timers go on.
class Timer final : public Observed {
  public:
    Timer(Form* parentForm, const char* timerName, TimerPhase timerPhase = TimerPhase::FromStart);
    ~Timer();

    const char* const name;
    Form& form;
    const TimerPhase phase;
    // Milliseconds. With 0 the timer does not tick, even if it is enabled.
    Property<int> interval{*this, Aspect::Interval, 0};
    Property<bool> enabled{*this, Aspect::Enabled, false};
    std::function<void()> Tick;

    // A timer that rests is enabled and does not tick, because its handler has nothing to do. When
    // it is woken, its first tick comes at once and the others follow at its interval. A new timer
    // is awake.
    void Rest();
    void Wake();

    void Changed(Aspect aspect) override;

  private:
    friend class TimerQueue;
    bool resting = false;
    std::int64_t due = 0;  // monotonic milliseconds
    // Of timers due together the one with the lowest number ticks first. A polling timer keeps the
    // number of its first start; others get a new one for each tick. 0: never queued.
    std::uint64_t sequence = 0;
    std::optional<std::int64_t> dueSecond;   // that the clock showed when the tick's turn came
    std::optional<std::int64_t> seenSecond;  // the same of the last tick
    bool queued = false;
    bool running = false;  // its handler is on the stack
};

}  // namespace forms
