#include "forms/Form.h"

#include <algorithm>

#include "forms/Runtime.h"

namespace forms {

Form::Form(const char* className) : name(className) {}

Form::~Form() = default;

bool Form::IsLoaded() const { return state != State::Created && state != State::Unloaded; }

void Form::Load() {
    if (state != State::Created) {
        return;
    }
    Runtime& runtime = Runtime::Current();
    const auto pin = shared_from_this();
    state = State::Loading;
    if (innerWidth > 0 && innerHeight > 0) {
        const Size frame = runtime.stage.FrameSize(*this);
        width.Adopt(innerWidth + frame.width);
        height.Adopt(innerHeight + frame.height);
    }
    runtime.AddLoaded(*this);
    runtime.stage.FormLoaded(*this);
    for (Timer* timer : timers) {
        runtime.timers.Update(*timer);
    }
    try {
        Form_Load();
    } catch (const base::RuntimeError&) {
        Discard();
        throw;
    }
    if (state == State::Loading) {
        state = State::Loaded;
    }
}

void Form::Show() {
    const auto pin = shared_from_this();
    Load();
    if (!IsLoaded()) {
        return;
    }
    BecomeVisible();
    if (disableCount == 0) {
        Runtime::Current().FormActivated(*this);
    }
}

void Form::BecomeVisible() {
    Runtime& runtime = Runtime::Current();
    runtime.MarkDirty(*this);
    if (!visible) {
        visible = true;
        Form_Resize();
    }
}

void Form::ShowModal() {
    const auto pin = shared_from_this();
    Load();
    if (!IsLoaded()) {
        return;
    }
    Runtime& runtime = Runtime::Current();
    if (IsModal()) {
        BringToForeground();
        return;
    }
    isModal = true;
    for (const auto& other : runtime.LoadedForms()) {
        if (other.get() != this && other->visible) {
            ++other->disableCount;
            shutOff.push_back(other);
            runtime.stage.UsableChanged(*other);
        }
    }
    BecomeVisible();
    runtime.FormActivated(*this);
    runtime.Wait([&] { runtime.stage.RunModal(*this); });
}

void Form::EndModal() {
    if (!isModal) {
        return;
    }
    isModal = false;
    for (const auto& weak : shutOff) {
        if (const auto other = weak.lock(); other && other->disableCount > 0) {
            --other->disableCount;
            if (other->IsLoaded()) {
                Runtime::Current().stage.UsableChanged(*other);
            }
        }
    }
    shutOff.clear();
}

void Form::Hide() {
    if (!visible) {
        return;
    }
    Runtime& runtime = Runtime::Current();
    visible = false;
    EndModal();
    runtime.MarkDirty(*this);
    runtime.ActivateNext(*this);
}

bool Form::Unload(UnloadMode mode) {
    if (state == State::Asking) {
        return false;
    }
    if (state != State::Loaded && state != State::Loading) {
        return true;
    }
    const auto pin = shared_from_this();
    const State before = state;
    state = State::Asking;
    bool cancel = false;
    try {
        Form_QueryUnload(cancel, mode);
        if (!cancel) {
            Form_Unload(cancel);
        }
    } catch (...) {
        state = before;
        throw;
    }
    if (cancel) {
        state = before;
        return false;
    }
    Discard();
    return true;
}

void Form::Discard() {
    Runtime& runtime = Runtime::Current();
    const auto pin = shared_from_this();
    state = State::Unloading;
    for (Timer* timer : timers) {
        timer->enabled = false;
    }
    EndModal();
    visible = false;
    shownOnStage = false;
    runtime.stage.FormUnloaded(*this);
    state = State::Unloaded;
    runtime.RemoveLoaded(*this);
    runtime.ActivateNext(*this);
}

void Form::BringToForeground() {
    if (!IsLoaded()) {
        return;
    }
    Runtime::Current().stage.BringToForeground(*this);
}

void Form::MakeTopMost() {
    const auto pin = shared_from_this();
    Load();
    if (!IsLoaded()) {
        return;
    }
    topMost = true;
    Runtime::Current().stage.FormChanged(*this, Aspect::TopMost);
    BecomeVisible();
}

void Form::PopupMenu(Menu& menu) {
    Runtime& runtime = Runtime::Current();
    const auto pin = shared_from_this();
    Menu* chosen = nullptr;
    runtime.Wait([&] { chosen = runtime.stage.ShowPopupMenu(*this, menu); });
    if (chosen != nullptr && chosen->Click) {
        chosen->Click();
    }
}

bool Form::HasMenuBar() const {
    return std::any_of(menus.begin(), menus.end(),
                       [](const Menu* menu) { return menu->inMenuBar && menu->visible; });
}

Control* Form::ControlAt(int x, int y) const {
    Control* found = nullptr;
    int rank = 0;
    for (Control* control : controls) {
        const Rect place = control->PlaceOnForm();
        const bool isUnder = x >= place.left && x < place.left + place.width && y >= place.top &&
                             y < place.top + place.height;
        if (!isUnder || !control->IsEffectivelyVisible() || control->PointerRank() == 0) {
            continue;
        }
        // An inner frame is above its outer frame, no matter which is declared first.
        const bool isOuter = found != nullptr && found->container == control;
        if (control->PointerRank() > rank || (control->PointerRank() == rank && !isOuter)) {
            found = control;
            rank = control->PointerRank();
        }
    }
    return found;
}

int Form::ScaleWidth() const { return Runtime::Current().stage.InnerSize(*this).width; }

int Form::ScaleHeight() const { return Runtime::Current().stage.InnerSize(*this).height; }

void Form::Changed(Aspect aspect) {
    if (!IsLoaded()) {
        return;
    }
    Runtime& runtime = Runtime::Current();
    if (aspect == Aspect::WindowState) {
        runtime.MarkDirty(*this);
        if (windowState == WindowState::Minimized) {
            runtime.ActivateNext(*this);
        }
        return;
    }
    runtime.stage.FormChanged(*this, aspect);
    if (aspect == Aspect::Bounds && visible) {
        Form_Resize();
    }
}

void Form::RaiseMouseMove(int button, int x, int y, bool fromTray) {
    isTrayCallback = fromTray;
    Form_MouseMove(button, x, y);
    isTrayCallback = false;
}

}  // namespace forms
