#include "forms/Control.h"

#include "forms/Form.h"
#include "forms/Runtime.h"

namespace forms {

Control::Control(Form* parent, ControlKind controlKind, const char* controlName)
    : kind(controlKind), name(controlName), form(*parent) {
    form.controls.push_back(this);
}

void Control::Place(int newLeft, int newTop, int newWidth, int newHeight) {
    left = newLeft;
    top = newTop;
    width = newWidth;
    height = newHeight;
}

void Control::PlaceIn(Control& newContainer, int newLeft, int newTop, int newWidth, int newHeight) {
    container = &newContainer;
    Place(newLeft, newTop, newWidth, newHeight);
}

Rect Control::PlaceOnForm() const {
    Rect place{left, top, width, height};
    for (const Control* outer = container; outer != nullptr; outer = outer->container) {
        place.left += outer->left;
        place.top += outer->top;
    }
    return place;
}

void Control::SetFocus() {
    if (!CanTakeFocus()) {
        return;
    }
    form.focus.Adopt(*this);
    if (!form.IsLoaded()) {
        return;
    }
    Runtime& runtime = Runtime::Current();
    const auto pin = form.shared_from_this();
    if (form.IsUsable()) {
        runtime.FormActivated(form);
        runtime.MarkDirty(form);
    }
    runtime.stage.FocusMoved(*this);
}

bool Control::HasFocus() const {
    return Runtime::Current().ActiveForm() == &form && form.focus.ActiveControl() == this;
}

bool Control::CanTakeFocus() const {
    return CanHaveFocus() && IsEffectivelyVisible() && IsEffectivelyEnabled();
}

bool Control::IsEffectivelyVisible() const {
    return visible && (container == nullptr || container->IsEffectivelyVisible());
}

bool Control::IsEffectivelyEnabled() const {
    return enabled && (container == nullptr || container->IsEffectivelyEnabled());
}

void Control::Changed(Aspect aspect) {
    if (form.IsLoaded()) {
        Runtime::Current().stage.ControlChanged(*this, aspect);
    }
    AfterChange(aspect);
}

void Control::Raise(const ClickHandler& handler) {
    if (handler) {
        handler();
    }
}

}  // namespace forms
