#include "forms/TimerQueue.h"

#include <algorithm>
#include <vector>

#include "forms/Devices.h"
#include "forms/Form.h"
#include "forms/Runtime.h"
#include "forms/Timer.h"

namespace forms {

namespace {

constexpr std::int64_t second = 1000;
constexpr std::int64_t middle = 500;
// In milliseconds. The grid is moved only if the wall clock has drifted from the monotonic clock by
// more than this.
constexpr std::int64_t tolerance = 50;

std::int64_t MonotonicNow() { return Machine().clock->MonotonicMilliseconds(); }

// The wall clock in milliseconds. Reads again if a new second begins between reading the seconds
// and the milliseconds.
std::int64_t WallNow() {
    Clock& clock = *Machine().clock;
    for (;;) {
        const base::DateTime before = clock.Now();
        const int millisecond = clock.MillisecondOfSecond();
        if (clock.Now() == before) {
            return before.seconds * second + millisecond;
        }
    }
}

std::int64_t SecondNow() { return Machine().clock->Now().seconds; }

}  // namespace

bool TimerQueue::SeesEverySecond(const Timer& timer) {
    return timer.phase == TimerPhase::ClockSecond && timer.interval() % second == 0;
}

bool TimerQueue::HasSeen(const Timer& timer, std::int64_t shown) {
    constexpr std::int64_t longestCorrection = 1;
    return timer.seenSecond && shown <= *timer.seenSecond &&
           shown >= *timer.seenSecond - longestCorrection;
}

bool TimerQueue::Earlier::operator()(const Timer* a, const Timer* b) const {
    return a->due != b->due ? a->due < b->due : a->sequence < b->sequence;
}

std::int64_t TimerQueue::WallAt(std::int64_t now) const {
    if (readAt != now) {
        readAt = now;
        readWall = WallNow();
    }
    return readWall;
}

std::int64_t TimerQueue::OffMiddle(std::int64_t moment, std::int64_t now) const {
    std::int64_t inSecond = (WallAt(now) + (moment - now)) % second;
    if (inSecond < 0) {
        inSecond += second;
    }
    return inSecond - middle;
}

void TimerQueue::Enqueue(Timer& timer, std::int64_t due) {
    timer.due = due;
    if (timer.phase == TimerPhase::FromStart || timer.sequence == 0) {
        timer.sequence = ++lastSequence;
    }
    timer.queued = true;
    queue.insert(&timer);
}

void TimerQueue::Update(Timer& timer) {
    Remove(timer);
    ForgetClock();
    // A timer without a handler must not wake the machine.
    if (timer.enabled && !timer.resting && timer.interval() > 0 && timer.Tick &&
        timer.form.IsLoaded()) {
        const std::int64_t now = MonotonicNow();
        if (!gridAnchor) {
            gridAnchor = now - OffMiddle(now, now);
        }
        Enqueue(timer, FirstDue(timer, now));
    }
    Runtime::Current().Rearm();
}

void TimerQueue::Remove(Timer& timer) {
    if (timer.queued) {
        queue.erase(&timer);
        timer.queued = false;
        timer.dueSecond.reset();
    }
}

void TimerQueue::StartAtOnce(Timer& timer) {
    Update(timer);
    if (timer.queued) {
        Remove(timer);
        Enqueue(timer, MonotonicNow());
        Runtime::Current().Rearm();
    }
}

std::int64_t TimerQueue::GridPointAfter(std::int64_t moment, std::int64_t distance) const {
    std::int64_t sincePoint = (moment - gridAnchor.value_or(moment)) % distance;
    if (sincePoint < 0) {
        sincePoint += distance;
    }
    return moment - sincePoint + distance;
}

std::int64_t TimerQueue::FirstDue(const Timer& timer, std::int64_t now) const {
    if (timer.phase == TimerPhase::FromStart) {
        return now + timer.interval;
    }
    return GridPointAfter(now, SeesEverySecond(timer) ? second : timer.interval());
}

std::int64_t TimerQueue::NextAfter(const Timer& timer, std::int64_t lastDue, std::int64_t now,
                                   std::int64_t shown) const {
    const std::int64_t sinceSecond = WallAt(now) % second;
    if (SeesEverySecond(timer) && WallAt(now) >= (shown + 1) * second) {
        // The earlier ticks took so long that another second has begun.
        return std::max(now, GridPointAfter(now - sinceSecond - 1, second));
    }
    const std::int64_t interval = timer.interval;
    std::int64_t next = lastDue + interval;
    if (next <= now) {
        next += ((now - next) / interval + 1) * interval;
    }
    if (!SeesEverySecond(timer)) {
        return next;
    }
    // The handler is about to run for the current second, and must not run for it again.
    const std::int64_t nextSecond = now - sinceSecond + second;
    return GridPointAfter(std::max(next - middle, nextSecond) - 1, second);
}

std::optional<std::int64_t> TimerQueue::NextDue() const {
    for (const Timer* timer : queue) {
        if (!timer->running) {
            return timer->due;
        }
    }
    return std::nullopt;
}

void TimerQueue::MarkDue(std::int64_t limit) {
    const std::int64_t shown = SecondNow();
    for (Timer* timer : queue) {
        if (timer->due > limit) {
            return;
        }
        // A running timer does not tick now. A tick that became due earlier keeps its second.
        if (timer->phase == TimerPhase::ClockSecond && !timer->running && !timer->dueSecond) {
            timer->dueSecond = shown;
        }
    }
}

void TimerQueue::RunDue() {
    Runtime& runtime = Runtime::Current();
    ForgetClock();
    const std::int64_t limit = MonotonicNow();
    MarkDue(limit);
    KeepGridInPhase(limit);
    for (;;) {
        Timer* timer = nullptr;
        for (Timer* candidate : queue) {
            if (candidate->due > limit) {
                break;
            }
            if (!candidate->running) {
                timer = candidate;
                break;
            }
        }
        if (timer == nullptr || runtime.HasEnded()) {
            ForgetClock();
            return;
        }
        const auto pin = timer->form.shared_from_this();
        const std::int64_t lastDue = timer->due;
        const std::int64_t shown = timer->dueSecond ? *timer->dueSecond : SecondNow();
        Remove(*timer);
        const std::int64_t now = MonotonicNow();
        Enqueue(*timer, NextAfter(*timer, lastDue, now, shown));
        if (SeesEverySecond(*timer) && HasSeen(*timer, shown)) {
            continue;
        }
        timer->seenSecond = shown;
        timer->running = true;
        if (timer->phase == TimerPhase::ClockSecond) {
            tickTime = base::DateTime{shown};
        }
        runtime.Dispatch(&timer->form, [timer] {
            if (timer->Tick) {
                timer->Tick();
            }
        });
        timer->running = false;
        LeaveMoment();
    }
}

void TimerQueue::KeepGridInPhase(std::int64_t now) {
    if (!gridAnchor) {
        return;
    }
    const std::int64_t off = OffMiddle(*gridAnchor, now);
    if (off > tolerance || off < -tolerance) {
        MoveGrid(now);
    }
}

void TimerQueue::Realign() {
    ForgetClock();
    MoveGrid(MonotonicNow());
    Runtime::Current().Rearm();
}

void TimerQueue::MoveGrid(std::int64_t now) {
    gridAnchor = now - OffMiddle(now, now);
    const std::vector<Timer*> all(queue.begin(), queue.end());
    for (Timer* timer : all) {
        // Do not move a tick that is due: the timer would miss its second. The timer's next tick is
        // computed in the new phase.
        const bool isDue = timer->dueSecond || (SeesEverySecond(*timer) && timer->due <= now);
        if (timer->phase == TimerPhase::ClockSecond && !isDue) {
            Remove(*timer);
            // If the clock was set to a time after the middle of a second, the tick for that second
            // is due now.
            const bool isLate = SeesEverySecond(*timer) && timer->seenSecond &&
                                !HasSeen(*timer, SecondNow()) && OffMiddle(now, now) >= 0;
            Enqueue(*timer, isLate ? now : FirstDue(*timer, now));
        }
    }
}

}  // namespace forms
