#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <typeindex>
#include <unordered_map>
#include <vector>

#include "base/RuntimeError.h"
#include "forms/Form.h"
#include "forms/Stage.h"
#include "forms/TimerQueue.h"

namespace forms {

// Thrown to leave every handler on the stack when the program ends. Dispatch catches it. A handler
// that catches it on the way, to leave something in order, throws it on.
struct ProgramEnded {};

// Holds the loaded forms and the timers and lets events in. One exists at a time.
class Runtime {
  public:
    explicit Runtime(Stage& runtimeStage);
    ~Runtime();
    Runtime(const Runtime&) = delete;

    static Runtime& Current();
    static bool Exists();

    // Runs the start-up routine, then events until no form is loaded or the program ends.
    void Run(const std::function<void()>& startUp);

    // The door for everything from outside. Keeps the form (may be null) alive, runs the handler,
    // reports an error that it did not trap and ends the program in order, and afterwards brings
    // the stage up to date. Does nothing once the program has ended.
    void Dispatch(Form* form, const std::function<void()>& handler);

    // Ends the program at once: no further event, all pumps return, every handler is left.
    [[noreturn]] void End();
    bool HasEnded() const { return ended; }
    // The session of the system's user is ending: forms save and ask nothing.
    bool IsSessionEnding() const { return sessionEnding; }
    void MarkSessionEnding() { sessionEnding = true; }

    // A gesture or a round of ticks, with all that its handlers do. Numbers are never used again.
    struct Action {
        std::uint64_t number = 0;
        bool isUsers = false;  // a gesture, not a round of ticks
    };
    Action CurrentAction() const { return action; }
    // What the handler that runs does from here on is a new action of the user, who started the
    // program.
    void BeginUsersAction() { action = {++actions, true}; }

    // Called when the program ends because of an error that nobody trapped, before the forms go.
    // What it throws is ignored.
    std::function<void()> onFatalError;

    Stage& stage;
    TimerQueue timers;

    // Loaded forms in the order in which they were loaded.
    const std::vector<std::shared_ptr<Form>>& LoadedForms() const { return loaded; }
    Form* ActiveForm() const { return activeForm.lock().get(); }

    // Stage entries (see also Gestures.h).
    void FormActivated(Form& form);
    void RunDueTimers();

    // Brings the stage up to date.
    void Settle();
    // The only way to let events in during a handler: brings the stage up to date, calls pump, and
    // leaves the handler when the program ended meanwhile.
    void Wait(const std::function<void()>& pump);

  private:
    friend class Form;
    friend class Control;
    friend class Timer;
    friend class TimerQueue;
    template <class T>
    friend T& Default();
    template <class T>
    friend T* LoadedDefault();
    template <class T>
    friend std::shared_ptr<T> New();

    Form* FindDefault(std::type_index type) const;
    void Create(const std::shared_ptr<Form>& form);
    void AddLoaded(Form& form);
    void RemoveLoaded(Form& form);
    void MarkDirty(Form& form);
    void ReportAndEnd(const base::RuntimeError& error);
    void EndNow();
    // leaving is hidden, minimised or unloaded: another form becomes active.
    void ActivateNext(const Form& leaving);
    // Tells the stage when the next tick is due; at the end of the outermost handler, if any runs.
    void Rearm();
    void ArmNow();

    std::vector<std::shared_ptr<Form>> loaded;
    std::vector<std::weak_ptr<Form>> activationOrder;  // last is the most recent
    std::vector<std::weak_ptr<Form>> dirty;            // visibility or state to be shown
    std::unordered_map<std::type_index, std::shared_ptr<Form>> defaults;
    std::weak_ptr<Form> activeForm;
    std::optional<std::int64_t> armedFor;
    Action action;
    std::uint64_t actions = 0;  // so far
    int depth = 0;              // handlers on the stack since the last wait
    int busyCount = 0;          // handlers and rounds of ticks on the stack since the last wait
    bool ended = false;
    bool failing = false;  // reporting an error that nobody trapped
    bool sessionEnding = false;
};

// The default instance of a class; made when first mentioned, not loaded by that.
template <class T>
T& Default() {
    Runtime& runtime = Runtime::Current();
    auto& slot = runtime.defaults[std::type_index(typeid(T))];
    if (!slot) {
        auto form = std::make_shared<T>();
        slot = form;
        runtime.Create(form);
    }
    return static_cast<T&>(*runtime.defaults[std::type_index(typeid(T))]);
}

// The default instance where it is loaded, else null.
template <class T>
T* LoadedDefault() {
    Form* form = Runtime::Current().FindDefault(std::type_index(typeid(T)));
    return form != nullptr && form->IsLoaded() ? static_cast<T*>(form) : nullptr;
}

// A further instance. The caller's pointer keeps it until it is loaded; then the runtime does.
template <class T>
std::shared_ptr<T> New() {
    auto form = std::make_shared<T>();
    Runtime::Current().Create(form);
    return form;
}

}  // namespace forms
