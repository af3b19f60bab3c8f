#include "forms/Keyboard.h"

#include <algorithm>
#include <cstddef>
#include <string>
#include <variant>
#include <vector>

#include "forms/Gestures.h"
#include "forms/Runtime.h"

namespace forms::gestures {

namespace {

char Upper(char letter) {
    return letter >= 'a' && letter <= 'z' ? static_cast<char>(letter - 'a' + 'A') : letter;
}

bool HasMnemonic(const Control& control, char letter) {
    const auto* captioned = dynamic_cast<const Captioned*>(&control);
    return captioned != nullptr && captioned->useMnemonic &&
           AccessKeyOf(captioned->caption) == Upper(letter);
}

// The controls to which Alt and the letter lead, in the order of the Tab key, beginning after the
// control that has the focus.
std::vector<Control*> AccessKeyTargets(const Form& form, char letter) {
    const std::vector<Control*> order = form.focus.TabOrder();
    const Control* focused = form.focus.ActiveControl();
    std::vector<Control*> targets;
    std::size_t behindFocus = 0;
    for (std::size_t at = 0; at < order.size(); ++at) {
        if (HasMnemonic(*order[at], letter) && CanUse(*order[at])) {
            while (at < order.size() && !order[at]->CanTakeFocus()) {
                ++at;
            }
            if (at < order.size()) {
                targets.push_back(order[at]);
            }
        }
        if (at < order.size() && order[at] == focused) {
            behindFocus = targets.size();
        }
    }
    const auto first = targets.begin() + static_cast<std::ptrdiff_t>(behindFocus);
    std::rotate(targets.begin(), first, targets.end());
    return targets;
}

// Moves the focus on the stage too. The gesture Focus reports a move that the stage shows already.
void MoveFocus(Control& control) {
    control.form.focus.Adopt(control);
    Runtime::Current().stage.FocusMoved(control);
}

}  // namespace

char AccessKeyOf(const std::string& caption) {
    for (std::size_t at = 0; at + 1 < caption.size(); ++at) {
        if (caption[at] == '&' && caption[++at] != '&') {
            return Upper(caption[at]);
        }
    }
    return 0;
}

KeyUse PressTab(Form& form, bool backward) {
    std::vector<Control*> order = form.focus.TabOrder();
    if (backward) {
        std::reverse(order.begin(), order.end());
    }
    if (const auto focused = std::find(order.begin(), order.end(), form.focus.ActiveControl());
        focused != order.end()) {
        std::rotate(order.begin(), focused + 1, order.end());
    }
    const auto next = std::find_if(order.begin(), order.end(),
                                   [](const Control* control) { return control->IsTabStop(); });
    if (!form.IsUsable() || next == order.end()) {
        return KeyUse::Unused;
    }
    MoveFocus(**next);
    return KeyUse::Used;
}

KeyUse PressAccessKey(Form& form, char letter) {
    const std::vector<Control*> targets = AccessKeyTargets(form, letter);
    if (letter <= ' ' || targets.empty()) {
        return KeyUse::Unused;
    }
    MoveFocus(*targets.front());
    if (targets.size() == 1) {
        Click(*targets.front());
    }
    return KeyUse::Used;
}

KeyUse PressLetter(Form& form, char letter) {
    const Control* focused = form.focus.ActiveControl();
    return focused != nullptr && focused->TakesLetters() ? KeyUse::ByControl
                                                         : PressAccessKey(form, letter);
}

KeyUse PressEnter(Form& form) {
    Control* focused = form.focus.ActiveControl();
    if (focused != nullptr && focused->TakesEnter()) {
        return KeyUse::ByControl;
    }
    CommandButton* button = form.focus.EnterButton();
    if (button == nullptr) {
        return KeyUse::Unused;
    }
    if (button == focused) {
        // The button may have the focus only because it is the first Tab stop. Store it as the
        // focused control, so that the focus stays on it if an earlier Tab stop appears.
        Focus(*button);
    }
    Click(*button);
    return KeyUse::Used;
}

KeyUse PressEscape(Form& form) {
    if (CommandButton* button = form.focus.CancelButton(); button != nullptr) {
        Click(*button);
        return KeyUse::Used;
    }
    if (form.borderStyle == BorderStyle::Dialog && form.IsUsable()) {
        Close(form);
        return KeyUse::Used;
    }
    return KeyUse::Unused;
}

KeyUse PressMenuKey(Form& form) {
    Control* focused = form.focus.ActiveControl();
    if (focused != nullptr && focused->MouseUp) {
        MouseUp(*focused, rightButton, focused->width / 2, focused->height / 2);
    } else if (focused != nullptr && focused->HasOwnMenu()) {
        return KeyUse::ByControl;
    } else {
        MouseUp(form, rightButton, 0, 0);
    }
    return KeyUse::Used;
}

KeyUse PressShortcut(Form& form, Shortcut key) {
    if (!form.IsUsable()) {
        return KeyUse::Unused;
    }
    const ShortcutTarget target = form.TargetOf(key);
    if (const auto* button = std::get_if<CommandButton*>(&target)) {
        if (!CanUse(**button)) {
            return KeyUse::Unused;
        }
        Click(**button);
    } else if (const auto* entry = std::get_if<Menu*>(&target)) {
        if (!CanChoose(**entry)) {
            return KeyUse::Unused;
        }
        Choose(**entry);
    } else if (const auto* press = std::get_if<ToolbarPress>(&target)) {
        if (!CanUse(*press->toolbar)) {
            return KeyUse::Unused;
        }
        ClickToolbar(*press->toolbar, press->key);
    } else if (Runtime& runtime = Runtime::Current(); key == Shortcut::F1 && runtime.onHelp) {
        runtime.Dispatch(&form, runtime.onHelp);
    } else {
        return KeyUse::Unused;
    }
    return KeyUse::Used;
}

}  // namespace forms::gestures
