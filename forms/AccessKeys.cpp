#include "forms/AccessKeys.h"

#include <algorithm>
#include <cstddef>
#include <string>

#include "forms/Gestures.h"

namespace forms {

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

}  // namespace

std::vector<Control*> AccessKeyTargets(const Form& form, char letter) {
    const std::vector<Control*> order = form.TabOrder();
    const Control* focused = form.ActiveControl();
    std::vector<Control*> targets;
    std::size_t behindFocus = 0;
    for (std::size_t at = 0; at < order.size(); ++at) {
        const std::string* caption = CaptionOf(*order[at]);
        if (caption != nullptr && HasMnemonic(*caption, letter) && gestures::CanUse(*order[at])) {
            while (at < order.size() && !CanTakeFocus(*order[at])) {
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

}  // namespace forms
