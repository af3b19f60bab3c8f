#include "forms/AccessKeys.h"

#include <algorithm>
#include <cstddef>
#include <string>

#include "forms/Gestures.h"

namespace forms {

namespace {

char Lower(char letter) {
    return letter >= 'A' && letter <= 'Z' ? static_cast<char>(letter - 'A' + 'a') : letter;
}

bool HasMnemonic(const Control& control, char letter) {
    const auto* captioned = dynamic_cast<const Captioned*>(&control);
    if (captioned == nullptr || !captioned->useMnemonic) {
        return false;
    }
    const std::string& caption = captioned->caption;
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

}  // namespace

std::vector<Control*> AccessKeyTargets(const Form& form, char letter) {
    const std::vector<Control*> order = form.TabOrder();
    const Control* focused = form.ActiveControl();
    std::vector<Control*> targets;
    std::size_t behindFocus = 0;
    for (std::size_t at = 0; at < order.size(); ++at) {
        if (HasMnemonic(*order[at], letter) && gestures::CanUse(*order[at])) {
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

}  // namespace forms
