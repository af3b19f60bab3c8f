// The keyboard of the scripted user.
#include <algorithm>
#include <vector>

#include "base/Text.h"
#include "forms/AccessKeys.h"
#include "forms/Gestures.h"
#include "forms/Runtime.h"
#include "forms/headless/User.h"

namespace forms::headless {

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
        Type(textBox, textBox.text() + base::lineBreak);
    } else {
        if (form->DefaultButton() == nullptr) {
            Fail("press Enter", std::string("no button of ") + form->name + " listens to it");
        }
        gestures::PressEnter(*form);
    }
}

void User::PressEscape() {
    Form* form = FormWithKeyboard("press Escape");
    if (form == nullptr) {
        return;
    }
    if (form->CancelButton() == nullptr && form->borderStyle != BorderStyle::Dialog) {
        Fail("press Escape", std::string("nothing of ") + form->name + " listens to it");
    }
    gestures::PressEscape(*form);
}

void User::PressMenuKey() {
    if (Form* form = FormWithKeyboard("press the menu key")) {
        gestures::PressMenuKey(*form);
    }
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
        if (form->IsTabStop(*next)) {
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
    const std::vector<Control*> targets = AccessKeyTargets(form, letter);
    if (targets.empty()) {
        Fail(what, "nothing there that can be used has this key");
    } else if (targets.size() > 1) {
        gestures::Focus(*targets.front());
    } else {
        Click(*targets.front());
    }
}

}  // namespace forms::headless
