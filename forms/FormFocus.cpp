#include "forms/FormFocus.h"

#include <algorithm>

#include "forms/Form.h"
#include "forms/Runtime.h"

namespace forms {

namespace {

template <class Matches>
CommandButton* FindButton(const std::vector<Control*>& controls, Matches matches) {
    for (Control* control : controls) {
        auto* button = dynamic_cast<CommandButton*>(control);
        if (button != nullptr && button->CanTakeFocus() && matches(*button)) {
            return button;
        }
    }
    return nullptr;
}

}  // namespace

Control* FormFocus::ActiveControl() const {
    if (given != nullptr && given->CanTakeFocus()) {
        return given;
    }
    std::vector<Control*> order = TabOrder();
    if (const auto before = std::find(order.begin(), order.end(), given); before != order.end()) {
        std::rotate(order.begin(), before, order.end());
    }
    const auto next = std::find_if(order.begin(), order.end(),
                                   [](const Control* control) { return control->IsTabStop(); });
    return next == order.end() ? nullptr : *next;
}

void FormFocus::MoveOn() {
    if (given == nullptr) {
        return;
    }
    Control* now = ActiveControl();
    if (now != nullptr && now != given) {
        given = now;
        Runtime::Current().stage.FocusMoved(*now);
    }
}

CommandButton* FormFocus::DefaultButton() const {
    return FindButton(form.Controls(),
                      [](const CommandButton& button) { return button.isDefault(); });
}

CommandButton* FormFocus::CancelButton() const {
    return FindButton(form.Controls(),
                      [](const CommandButton& button) { return button.isCancel(); });
}

CommandButton* FormFocus::EnterButton() const {
    auto* focused = dynamic_cast<CommandButton*>(ActiveControl());
    return focused != nullptr ? focused : DefaultButton();
}

std::vector<Control*> FormFocus::TabOrder() const {
    const std::vector<Control*>& controls = form.Controls();
    std::vector<Control*> order = controls;
    const auto place = [&controls](const Control* control) {
        if (control->tabIndex >= 0) {
            return control->tabIndex;
        }
        const auto at = std::find(controls.begin(), controls.end(), control);
        return static_cast<int>(at - controls.begin());
    };
    std::stable_sort(order.begin(), order.end(),
                     [&place](const Control* a, const Control* b) { return place(a) < place(b); });
    return order;
}

}  // namespace forms
