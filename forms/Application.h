#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <typeindex>
#include <unordered_map>
#include <vector>

#include "forms/Form.h"

namespace forms {

// Thrown to leave every handler on the stack when the program ends. Runtime::Dispatch catches it. A
// handler that catches it to clean up must rethrow it.
struct ProgramEnded {};

// The parts of the running program that its windows use: the loaded forms, the default instance of
// each class, the active form, and the end of the program. Runtime implements it. At most one
// Application exists at a time.
class Application {
  public:
    Application(const Application&) = delete;
    Application& operator=(const Application&) = delete;

    static Application& Current();
    static bool Exists();

    // The loaded forms, in the order in which they were loaded.
    const std::vector<std::shared_ptr<Form>>& LoadedForms() const { return loaded; }
    Form* ActiveForm() const { return activeForm.lock().get(); }

    // Ends the program at once by throwing ProgramEnded, which leaves every handler. Every pump
    // returns, and no further event is raised.
    [[noreturn]] virtual void End() = 0;
    bool HasEnded() const { return ended; }
    // Whether the user is logging off. Forms then save without asking.
    bool IsSessionEnding() const { return sessionEnding; }
    void MarkSessionEnding() { sessionEnding = true; }

    // One gesture or one round of ticks, with everything that its handlers do. Numbers are unique.
    struct Action {
        std::uint64_t number = 0;
        bool isUsers = false;  // a gesture, not a round of ticks
    };
    Action CurrentAction() const { return action; }
    // Makes the rest of the running handler count as a new action of the user.
    void BeginUsersAction() { action = {++actions, true}; }

    // Called when an error that no handler trapped is about to end the program, while the forms are
    // still loaded. RuntimeErrors that this function throws are ignored.
    std::function<void()> onFatalError;

    // Called when the user presses F1 in a form that has no control and no menu entry for this key.
    std::function<void()> onHelp;

    // Shows the windows that the handler has opened so far, and handles events for a short time, so
    // that the active window can get the focus. Other handlers may run meanwhile. Throws
    // ProgramEnded if the program has ended.
    virtual void LetWindowsComeUp() = 0;

    // Runs a piece of work soon after the running handler, as a handler of its own, between rounds
    // of events. So work that is cut into many pieces does not hold up the program. The pieces run
    // in the order of the calls. Does nothing if the program has ended.
    virtual void RunLater(const std::function<void()>& work) = 0;

    // Makes the form the active one and runs Form_Activate. Does nothing if the form is active or
    // is not loaded.
    void FormActivated(Form& form);

  protected:
    Application();
    virtual ~Application();

    std::vector<std::shared_ptr<Form>> loaded;
    std::vector<std::weak_ptr<Form>> dirty;  // forms whose visibility or state the stage must show
    std::unordered_map<std::type_index, std::shared_ptr<Form>> defaults;
    Action action;
    std::uint64_t actions = 0;  // number of actions so far
    bool ended = false;

  private:
    friend class Form;
    friend class Control;
    template <class T>
    friend T& Default();
    template <class T>
    friend T* LoadedDefault();
    template <class T>
    friend std::shared_ptr<T> New();

    static void Create(Form& form);
    Form* FindDefault(std::type_index type) const;
    void AddLoaded(Form& form);
    void RemoveLoaded(Form& form);
    void MarkDirty(Form& form);
    // If leaving is the active form, makes another form active: the most recently active of those
    // that are usable and not minimised. Call this when leaving was hidden, minimised or unloaded.
    void ActivateNext(const Form& leaving);

    std::vector<std::weak_ptr<Form>> activationOrder;  // the most recently active form last
    std::weak_ptr<Form> activeForm;
    bool sessionEnding = false;
};

// The default instance of a class. It is created, but not loaded, at the first call.
template <class T>
T& Default() {
    Application& application = Application::Current();
    auto& slot = application.defaults[std::type_index(typeid(T))];
    if (!slot) {
        auto form = std::make_shared<T>();
        slot = form;
        Application::Create(*form);
    }
    return static_cast<T&>(*application.defaults[std::type_index(typeid(T))]);
}

// The default instance if it is loaded, else null.
template <class T>
T* LoadedDefault() {
    Form* form = Application::Current().FindDefault(std::type_index(typeid(T)));
    return form != nullptr && form->IsLoaded() ? static_cast<T*>(form) : nullptr;
}

// Creates a further instance. The caller's pointer keeps it alive until it is loaded. Then the
// runtime keeps it alive.
template <class T>
std::shared_ptr<T> New() {
    auto form = std::make_shared<T>();
    Application::Create(*form);
    return form;
}

}  // namespace forms
