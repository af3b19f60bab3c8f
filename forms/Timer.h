#pragma once

#include <cstdint>
#include <functional>
#include <optional>

#include "forms/Property.h"

namespace forms {

class Form;

// Where a timer's ticks lie. FromStart: the first tick one interval after it is switched on (or
// given another interval). ClockSecond: for timers that only poll; all share one phase in the
// middle of the wall clock's second, so that a tick of 1000 ms sees every second of the day once
// and many timers wake the machine together.
enum class TimerPhase { FromStart, ClockSecond };

// Polling timers that are due together see one second: forms::Now() in their handlers is the time
// at which the tick could be given, however long the handlers before it took, until the handler
// lets events in. In each second they tick in the order in which they were first switched on,
// whatever held one of them up before.
//
// Ticks keep their phase: the next is due one interval after the last was due, settled before the
// handler runs. Ticks that could not be given in time are dropped. A timer whose handler is still
// running (it may be showing a box) is not entered again; other timers go on.
class Timer final : public Observed {
  public:
    Timer(Form* parentForm, const char* timerName, TimerPhase timerPhase = TimerPhase::FromStart);
    ~Timer();

    const char* const name;
    Form& form;
    const TimerPhase phase;
    // Milliseconds; 0 stands still whatever enabled says.
    Property<int> interval{*this, Aspect::Interval, 0};
    Property<bool> enabled{*this, Aspect::Enabled, false};
    std::function<void()> Tick;

    // For a timer whose handler has nothing to do for now: it does not tick while it rests, though
    // it is enabled. When it is woken its first tick comes at once and the others follow it at its
    // interval. Awake at first.
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
