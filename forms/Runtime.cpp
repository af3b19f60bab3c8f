#include "forms/Runtime.h"

#include <algorithm>
#include <new>
#include <utility>

#include "forms/Controls.h"

namespace forms {

namespace {

Runtime* current = nullptr;

// The stage holds what the user has typed until somebody reads it.
void FetchTypedTexts(const Form& form) {
    for (Control* control : form.Controls()) {
        if (const auto* box = dynamic_cast<TextBox*>(control)) {
            box->text();
        }
    }
}

bool SameForm(const std::weak_ptr<Form>& weak, const Form& form) {
    const auto locked = weak.lock();
    return !locked || locked.get() == &form;
}

}  // namespace

Runtime::Runtime(Stage& runtimeStage) : stage(runtimeStage) { current = this; }

Runtime::~Runtime() {
    ended = true;
    for (const auto& form : loaded) {
        form->stageData.reset();
    }
    defaults.clear();
    loaded.clear();
    current = nullptr;
}

Runtime& Runtime::Current() { return *current; }

bool Runtime::Exists() { return current != nullptr; }

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
        // Every pump on the stack is returning; its callers leave their handlers in turn.
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

void Runtime::EndNow() {
    if (ended) {
        return;
    }
    ended = true;
    // Handlers of these forms may be on the stack: the objects stay until the runtime goes.
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
    request.caption = "Jotwright";
    request.options.icon = BoxIcon::Critical;
    Settle();
    stage.ShowMessageBox(request);
    if (onFatalError && !ended) {
        try {
            onFatalError();
        } catch (const base::RuntimeError&) {
            // Nothing more can be done for what failed twice; the rest still ends in order.
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
    if (const auto active = activeForm.lock(); active && active->IsLoaded()) {
        active->MoveFocusOn();
    }
    std::vector<std::weak_ptr<Form>> toShow;
    toShow.swap(dirty);
    for (const auto& weak : toShow) {
        const auto form = weak.lock();
        if (form && form->IsLoaded()) {
            form->shownOnStage = form->visible;
            stage.ShowOrHide(*form);
        }
    }
}

void Runtime::MarkDirty(Form& form) {
    std::erase_if(dirty, [&form](const auto& weak) { return SameForm(weak, form); });
    dirty.push_back(form.weak_from_this());
}

void Runtime::FormActivated(Form& form) {
    if (ActiveForm() == &form || !form.IsLoaded()) {
        return;
    }
    activeForm = form.weak_from_this();
    std::erase_if(activationOrder, [&form](const auto& weak) { return SameForm(weak, form); });
    activationOrder.push_back(activeForm);
    form.Form_Activate();
}

void Runtime::ActivateNext(const Form& leaving) {
    if (ended || ActiveForm() != &leaving) {
        return;
    }
    activeForm.reset();
    for (auto at = activationOrder.rbegin(); at != activationOrder.rend(); ++at) {
        const auto form = at->lock();
        if (form && form.get() != &leaving && form->IsUsable() &&
            form->windowState() != WindowState::Minimized) {
            MarkDirty(*form);
            FormActivated(*form);
            return;
        }
    }
}

void Runtime::RunDueTimers() {
    armedFor.reset();
    if (busyCount == 0) {
        action = {++actions, false};
    }
    ++busyCount;
    timers.RunDue();
    --busyCount;
    Rearm();
}

// A hundred timers may change in one handler or tick in one round; the stage is asked once.
void Runtime::Rearm() {
    if (busyCount == 0) {
        ArmNow();
    }
}

void Runtime::ArmNow() {
    if (ended) {
        return;
    }
    const auto due = timers.NextDue();
    if (due != armedFor) {
        armedFor = due;
        stage.ArmTimer(due);
    }
}

Form* Runtime::FindDefault(std::type_index type) const {
    const auto found = defaults.find(type);
    return found == defaults.end() ? nullptr : found->second.get();
}

void Runtime::Create(const std::shared_ptr<Form>& form) {
    form->Design();
    form->Form_Initialize();
}

void Runtime::AddLoaded(Form& form) { loaded.push_back(form.shared_from_this()); }

void Runtime::RemoveLoaded(Form& form) {
    std::erase_if(loaded, [&form](const auto& other) { return other.get() == &form; });
    std::erase_if(defaults, [&form](const auto& entry) { return entry.second.get() == &form; });
}

}  // namespace forms
