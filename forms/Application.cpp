#include "forms/Application.h"

namespace forms {

namespace {

Application* current = nullptr;

bool SameForm(const std::weak_ptr<Form>& weak, const Form& form) {
    const auto locked = weak.lock();
    return !locked || locked.get() == &form;
}

}  // namespace

Application::Application() { current = this; }

Application::~Application() { current = nullptr; }

Application& Application::Current() { return *current; }

bool Application::Exists() { return current != nullptr; }

void Application::FormActivated(Form& form) {
    if (ActiveForm() == &form || !form.IsLoaded()) {
        return;
    }
    activeForm = form.weak_from_this();
    std::erase_if(activationOrder, [&form](const auto& weak) { return SameForm(weak, form); });
    activationOrder.push_back(activeForm);
    form.Form_Activate();
}

void Application::Create(Form& form) {
    form.Design();
    form.Form_Initialize();
}

Form* Application::FindDefault(std::type_index type) const {
    const auto found = defaults.find(type);
    return found == defaults.end() ? nullptr : found->second.get();
}

void Application::AddLoaded(Form& form) { loaded.push_back(form.shared_from_this()); }

void Application::RemoveLoaded(Form& form) {
    std::erase_if(loaded, [&form](const auto& other) { return other.get() == &form; });
    std::erase_if(defaults, [&form](const auto& entry) { return entry.second.get() == &form; });
}

void Application::MarkDirty(Form& form) {
    if (form.isMarkedDirty) {
        std::erase_if(dirty, [&form](const auto& weak) { return SameForm(weak, form); });
    }
    form.isMarkedDirty = true;
    dirty.push_back(form.weak_from_this());
}

void Application::ActivateNext(const Form& leaving) {
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

}  // namespace forms
