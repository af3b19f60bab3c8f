// The keyboard of the scripted user.
#include "base/Text.h"
#include "forms/Keyboard.h"
#include "forms/Runtime.h"
#include "forms/headless/User.h"

namespace forms::headless {

Form* User::FormWithKeyboard(const std::string& what) {
    Form* form = Runtime::Exists() ? Runtime::Current().ActiveForm() : nullptr;
    if (form == nullptr) {
        Fail(what, "no form is active");
        return nullptr;
    }
    return RequireReachable(what, *form) ? form : nullptr;
}

void User::PressEnter() {
    Form* form = FormWithKeyboard("press Enter");
    if (form == nullptr) {
        return;
    }
    switch (gestures::PressEnter(*form)) {
        case gestures::KeyUse::Used:
            break;
        case gestures::KeyUse::Unused:
            Fail("press Enter", std::string("no button of ") + form->name + " listens to it");
            break;
        case gestures::KeyUse::ByControl:
            if (auto* textBox = dynamic_cast<TextBox*>(form->ActiveControl())) {
                Type(*textBox, textBox->text() + base::lineBreak);
            } else {
                Fail("press Enter", "a tool bar has no button that the arrow keys have reached");
            }
            break;
    }
}

void User::PressEscape() {
    Form* form = FormWithKeyboard("press Escape");
    if (form != nullptr && gestures::PressEscape(*form) == gestures::KeyUse::Unused) {
        Fail("press Escape", std::string("nothing of ") + form->name + " listens to it");
    }
}

// A menu of the control's own has nothing of the program's.
void User::PressMenuKey() {
    if (Form* form = FormWithKeyboard("press the menu key")) {
        gestures::PressMenuKey(*form);
    }
}

void User::Tab(bool backward) {
    Form* form = FormWithKeyboard("press Tab");
    if (form != nullptr && gestures::PressTab(*form, backward) == gestures::KeyUse::Unused) {
        Fail("press Tab", std::string("nothing on ") + form->name + " can have the focus");
    }
}

void User::AccessKey(Form& form, char letter) {
    const std::string what = std::string("press Alt+") + letter + " on " + form.name;
    if (RequireReachable(what, form) && BringUp(form) &&
        gestures::PressAccessKey(form, letter) == gestures::KeyUse::Unused) {
        Fail(what, "nothing there that can be used has this key");
    }
}

}  // namespace forms::headless
