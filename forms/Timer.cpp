#include "forms/Timer.h"

#include "forms/Form.h"
#include "forms/Runtime.h"

namespace forms {

Timer::Timer(Form* parentForm, const char* timerName, TimerPhase timerPhase)
    : name(timerName), form(*parentForm), phase(timerPhase) {
    form.timers.push_back(this);
}

Timer::~Timer() {
    if (queued && Runtime::Exists()) {
        Runtime::Current().timers.Remove(*this);
    }
}

void Timer::Rest() {
    resting = true;
    if (queued) {
        Runtime::Current().timers.Update(*this);
    }
}

void Timer::Wake() {
    if (!resting) {
        return;
    }
    resting = false;
    if (form.IsLoaded()) {
        Runtime::Current().timers.StartAtOnce(*this);
    }
}

void Timer::Changed(Aspect /*aspect*/) {
    if (form.IsLoaded()) {
        Runtime::Current().timers.Update(*this);
    }
}

}  // namespace forms
