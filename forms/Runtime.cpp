#include "forms/Runtime.h"

#include <algorithm>
#include <new>
#include <utility>

#include "forms/Controls.h"

namespace forms {

namespace {

// If a handler opens many windows, only the first one is shown immediately. The others follow a few
// at a time, in rounds of windows (not rounds of ticks), together with the work of RunLater. Events
// are handled between these rounds. Minimised windows are not delayed.

// If more open windows (visible and not minimised) than this are to be shown, all but the first
// wait.
constexpr std::ptrdiff_t openAtOnce = 10;
// A round shows no further window after this time, in milliseconds.
constexpr std::int64_t longestRound = 50;
// The time between the end of a round and the start of the next one, in milliseconds.
constexpr std::int64_t pauseBetweenRounds = 10;
// The time before the first round, in milliseconds. It is long enough to paint the first window.
constexpr std::int64_t pauseBeforeRounds = 100;
// How long LetWindowsComeUp handles events, in milliseconds. It is long enough for a window manager
// of X11 to give a new window the focus.
constexpr int pauseForNewWindows = 250;

// Reads every text box of the form, because Stage::FormUnloaded discards typed text that was not
// read.
void FetchTypedTexts(const Form& form) {
    for (Control* control : form.Controls()) {
        if (const auto* box = dynamic_cast<TextBox*>(control)) {
            box->text();
        }
    }
}

}  // namespace

Runtime::Runtime(Stage& runtimeStage, std::string name)
    : stage(runtimeStage), programName(std::move(name)) {}

Runtime::~Runtime() {
    ended = true;
    for (const auto& form : loaded) {
        form->stageData.reset();
    }
    defaults.clear();
    loaded.clear();
}

Runtime& Runtime::Current() { return static_cast<Runtime&>(Application::Current()); }

void Runtime::Run(const std::function<void()>& startUp) {
    Dispatch(nullptr, startUp);
    if (!ended && !loaded.empty()) {
        stage.RunMainLoop();
    }
}

void Runtime::Dispatch(Form* form, const std::function<void()>& handler) {
    if (ended || failing) {
        return;
    }
    const std::shared_ptr<Form> pin = form != nullptr ? form->shared_from_this() : nullptr;
    if (busyCount == 0) {
        BeginUsersAction();
    }
    ++depth;
    ++busyCount;
    try {
        try {
            handler();
        } catch (const base::RuntimeError& error) {
            ReportAndEnd(error);
        } catch (const std::bad_alloc&) {
            ReportAndEnd(base::RuntimeError(base::ErrorNumber::OutOfMemory));
        }
    } catch (const ProgramEnded&) {
        // The program has ended. Every pump on the stack returns, and the Wait that called it
        // throws ProgramEnded again, so that each handler is left, the innermost first.
    }
    --depth;
    --busyCount;
    if (!ended && depth == 0) {
        Settle();
        Rearm();
    }
}

void Runtime::End() {
    EndNow();
    throw ProgramEnded{};
}

void Runtime::LetWindowsComeUp() {
    Wait([this] { stage.RunFor(pauseForNewWindows); });
}

void Runtime::EndNow() {
    if (ended) {
        return;
    }
    ended = true;
    // Handlers of these forms may be on the stack, so the forms live until the runtime is
    // destroyed.
    for (const auto& form : loaded) {
        for (Timer* timer : form->timers) {
            timers.Remove(*timer);
        }
        form->visible = false;
        FetchTypedTexts(*form);
        stage.FormUnloaded(*form);
    }
    stage.ArmTimer(std::nullopt);
    stage.Quit();
}

void Runtime::ReportAndEnd(const base::RuntimeError& error) {
    failing = true;
    BoxRequest request;
    request.text =
        "Run-time error '" + std::to_string(error.number()) + "':\r\n\r\n" + error.description();
    request.caption = programName;
    request.options.icon = BoxIcon::Critical;
    Settle();
    stage.ShowMessageBox(request);
    if (onFatalError && !ended) {
        try {
            onFatalError();
        } catch (const base::RuntimeError&) {
            // This is a second error. The rest of the program still ends in order.
        } catch (const std::bad_alloc&) {
            // As above.
        }
    }
    EndNow();
}

void Runtime::Wait(const std::function<void()>& pump) {
    if (ended) {
        throw ProgramEnded{};
    }
    Settle();
    timers.ForgetClock();
    timers.LeaveMoment();
    ArmNow();
    const int outer = std::exchange(depth, 0);
    const int outerBusy = std::exchange(busyCount, 0);
    const Action outerAction = action;
    pump();
    action = outerAction;
    depth = outer;
    busyCount = outerBusy;
    timers.ForgetClock();
    if (ended) {
        throw ProgramEnded{};
    }
}

void Runtime::Settle() {
    if (Form* active = ActiveForm(); active != nullptr && active->IsLoaded()) {
        active->focus.MoveOn();
    }
    std::vector<std::weak_ptr<Form>> toShow;
    toShow.swap(dirty);
    const auto isOpenForm = [](const std::weak_ptr<Form>& weak) {
        const auto form = weak.lock();
        return form && IsOpen(*form);
    };
    const bool hasManyOpen = std::ranges::count_if(toShow, isOpenForm) > openAtOnce;
    bool hasShownOpen = false;
    for (const auto& weak : toShow) {
        const auto form = weak.lock();
        if (!form) {
            continue;
        }
        form->isMarkedDirty = false;
        if (hasManyOpen && IsOpen(*form) && std::exchange(hasShownOpen, true)) {
            AddToRounds([this, weak] {
                if (const auto waitingForm = weak.lock()) {
                    ShowOrHide(*waitingForm);
                }
            });
        } else {
            ShowOrHide(*form);
        }
    }
}

void Runtime::RunLater(const std::function<void()>& work) {
    AddToRounds([this, work] { Dispatch(nullptr, work); });
    Rearm();
}

void Runtime::AddToRounds(std::function<void()> work) {
    if (!HasWaitingWindows()) {
        nextRound = Machine().clock->MonotonicMilliseconds() + pauseBeforeRounds;
    }
    waiting.push_back(std::move(work));
}

bool Runtime::IsOpen(const Form& form) {
    return form.visible && form.windowState() != WindowState::Minimized;
}

void Runtime::ShowOrHide(Form& form) {
    if (form.IsLoaded()) {
        form.shownOnStage = form.visible;
        stage.ShowOrHide(form);
    }
}

void Runtime::ShowWaiting() {
    const auto now = [] { return Machine().clock->MonotonicMilliseconds(); };
    const std::int64_t begin = now();
    if (begin < nextRound) {
        return;
    }
    while (!ended && !waiting.empty() && now() < begin + longestRound) {
        const std::function<void()> work = std::move(waiting.front());
        waiting.pop_front();
        work();
    }
    nextRound = now() + pauseBetweenRounds;
}

void Runtime::RunDueTimers() {
    armedFor.reset();
    if (busyCount == 0) {
        action = {++actions, false};
    }
    ++busyCount;
    timers.RunDue();
    ShowWaiting();
    --busyCount;
    Rearm();
}

// If a hundred timers change in one handler or tick in one round, the stage's timer is armed only
// once.
void Runtime::Rearm() {
    if (busyCount == 0) {
        ArmNow();
    }
}

void Runtime::ArmNow() {
    if (ended) {
        return;
    }
    auto due = timers.NextDue();
    if (!waiting.empty()) {
        due = std::min(due.value_or(nextRound), nextRound);
    }
    if (due != armedFor) {
        armedFor = due;
        stage.ArmTimer(due);
    }
}

}  // namespace forms
