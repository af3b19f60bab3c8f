// The keyboard of the scripted user.
#include <algorithm>
#include <vector>

#include "forms/Gestures.h"
#include "forms/Runtime.h"
#include "forms/Text.h"
#include "forms/headless/User.h"

namespace forms::headless {

namespace {

const std::string* CaptionOf(const Control& control) {
    switch (control.kind) {
        case ControlKind::Label: {
            const auto& label = static_cast<const Label&>(control);
            return label.useMnemonic ? &label.caption() : nullptr;
        }
        case ControlKind::CommandButton:
            return &static_cast<const CommandButton&>(control).caption();
        case ControlKind::CheckBox:
            return &static_cast<const CheckBox&>(control).caption();
        case ControlKind::OptionButton:
            return &static_cast<const OptionButton&>(control).caption();
        case ControlKind::Frame:
            return &static_cast<const Frame&>(control).caption();
        default:
            return nullptr;
    }
}

char Lower(char letter) {
    return letter >= 'A' && letter <= 'Z' ? static_cast<char>(letter - 'A' + 'a') : letter;
}

bool HasMnemonic(const std::string& caption, char letter) {
    for (std::size_t at = 0; at + 1 < caption.size(); ++at) {
        if (caption[at] == '&') {
            if (caption[at + 1] != '&' && Lower(caption[at + 1]) == Lower(letter)) {
                return true;
            }
            ++at;
        }
    }
    return false;
}

bool CanTakeFocus(const Control& control) {
    return control.CanHaveFocus() && gestures::CanUse(control);
}

// The Tab key stops once in a group of option buttons: at the selected one, else at the first.
bool IsTabStop(const Control& control, const std::vector<Control*>& order) {
    if (!CanTakeFocus(control)) {
        return false;
    }
    if (control.kind != ControlKind::OptionButton) {
        return true;
    }
    const Control* stop = nullptr;
    for (const Control* other : order) {
        if (other->kind != ControlKind::OptionButton || other->container != control.container ||
            !CanTakeFocus(*other)) {
            continue;
        }
        if (static_cast<const OptionButton*>(other)->value()) {
            stop = other;
            break;
        }
        stop = stop == nullptr ? other : stop;
    }
    return stop == &control;
}

}  // namespace

Form* User::FormWithKeyboard(const std::string& what) {
    Form* form = Runtime::Exists() ? Runtime::Current().ActiveForm() : nullptr;
    if (form == nullptr) {
        Fail(what, "no form is active");
        return nullptr;
    }
    return Reach(what, *form) ? form : nullptr;
}

void User::PressEnter() {
    Form* form = FormWithKeyboard("press Enter");
    if (form == nullptr) {
        return;
    }
    Control* focus = form->ActiveControl();
    if (focus != nullptr && focus->kind == ControlKind::CommandButton) {
        Click(*focus);
    } else if (focus != nullptr && focus->kind == ControlKind::TextBox &&
               static_cast<TextBox*>(focus)->multiLine) {
        auto& textBox = static_cast<TextBox&>(*focus);
        Type(textBox, textBox.text() + lineBreak);
    } else {
        PressMarked("press Enter", *form, true);
    }
}

void User::PressEscape() {
    if (Form* form = FormWithKeyboard("press Escape")) {
        PressMarked("press Escape", *form, false);
    }
}

void User::PressMarked(const std::string& what, Form& form, bool enter) {
    for (Control* control : form.Controls()) {
        if (control->kind != ControlKind::CommandButton) {
            continue;
        }
        const auto& button = static_cast<const CommandButton&>(*control);
        if (enter ? button.isDefault() : button.isCancel()) {
            if (Reach(what, *control)) {
                gestures::Click(*control);
            }
            return;
        }
    }
    Fail(what, std::string("no button of ") + form.name + " listens to it");
}

void User::Tab() {
    Form* form = FormWithKeyboard("press Tab");
    if (form == nullptr) {
        return;
    }
    const std::vector<Control*> order = form->TabOrder();
    const auto current = std::find(order.begin(), order.end(), form->ActiveControl());
    const std::size_t start = current == order.end()
                                  ? order.size() - 1
                                  : static_cast<std::size_t>(current - order.begin());
    for (std::size_t step = 1; step <= order.size(); ++step) {
        Control* next = order[(start + step) % order.size()];
        if (IsTabStop(*next, order)) {
            gestures::Focus(*next);
            return;
        }
    }
    Fail("press Tab", std::string("nothing on ") + form->name + " can have the focus");
}

void User::AccessKey(Form& form, char letter) {
    const std::string what = std::string("press Alt+") + letter + " on " + form.name;
    if (!Reach(what, form)) {
        return;
    }
    const std::vector<Control*> order = form.TabOrder();
    std::vector<Control*> targets;
    for (std::size_t at = 0; at < order.size(); ++at) {
        const std::string* caption = CaptionOf(*order[at]);
        if (caption == nullptr || !HasMnemonic(*caption, letter) || !gestures::CanUse(*order[at])) {
            continue;
        }
        // A label or a frame hands the key to what follows it.
        while (at < order.size() && !CanTakeFocus(*order[at])) {
            ++at;
        }
        if (at < order.size()) {
            targets.push_back(order[at]);
        }
    }
    if (targets.empty()) {
        Fail(what, "nothing there that can be used has this key");
        return;
    }
    if (targets.size() > 1) {
        const auto current = std::find(targets.begin(), targets.end(), form.ActiveControl());
        const bool goOn = current != targets.end() && current + 1 != targets.end();
        gestures::Focus(goOn ? **(current + 1) : *targets.front());
        return;
    }
    Click(*targets.front());
}

}  // namespace forms::headless
