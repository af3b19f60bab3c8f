#include "forms/headless/Expectation.h"

namespace forms::headless {

namespace {

const char* NameOf(BoxIcon icon) {
    switch (icon) {
        case BoxIcon::None:
            return "None";
        case BoxIcon::Information:
            return "Information";
        case BoxIcon::Question:
            return "Question";
        case BoxIcon::Exclamation:
            return "Exclamation";
        case BoxIcon::Critical:
            return "Critical";
    }
    return "?";
}

template <class... Cases>
struct Overloaded : Cases... {
    using Cases::operator()...;
};
template <class... Cases>
Overloaded(Cases...) -> Overloaded<Cases...>;

}  // namespace

std::string Describe(const BoxRequest& request) {
    std::string text = "box \"" + request.text + "\" with caption \"" + request.caption + "\", ";
    text += request.options.buttons == BoxButtons::YesNo ? "Yes/No" : "OK";
    text += request.options.secondIsDefault ? " (second is default)" : "";
    return text + ", icon " + NameOf(request.options.icon);
}

std::string Describe(const Expectation& expectation) {
    return std::visit(
        Overloaded{
            [](const ExpectedBox& box) { return Describe(box.request); },
            [](const ExpectedModal& modal) { return "modal form of class " + modal.formType; },
            [](const ExpectedPopup& popup) { return "pop-up menu " + popup.menuName; },
            [](const ExpectedDialog&) { return std::string("dialog for opening a file"); },
            [](const ExpectedMainLoop&) { return std::string("main loop"); },
        },
        expectation);
}

bool IsAnswerOf(const BoxRequest& request, BoxResult answer) {
    return (request.options.buttons == BoxButtons::Ok) == (answer == BoxResult::Ok);
}

BoxResult DefaultAnswerOf(const BoxRequest& request) {
    if (request.options.buttons == BoxButtons::Ok) {
        return BoxResult::Ok;
    }
    return request.options.secondIsDefault ? BoxResult::No : BoxResult::Yes;
}

Menu* FindEntry(Menu& menu, const std::string& nameOrCaption) {
    const auto find = [&](const auto& self, Menu& parent, bool byName) -> Menu* {
        for (Menu* entry : parent.entries) {
            if (nameOrCaption == (byName ? entry->name : entry->caption())) {
                return entry;
            }
            if (Menu* below = self(self, *entry, byName)) {
                return below;
            }
        }
        return nullptr;
    };
    Menu* named = find(find, menu, true);
    return named != nullptr ? named : find(find, menu, false);
}

std::string ReasonNotChoosable(const Menu& entry, const Menu* top) {
    if (entry.IsSeparator()) {
        return "is a separator";
    }
    if (!entry.entries.empty()) {
        return "opens a sub-menu";
    }
    for (const Menu* at = &entry; at != nullptr && at != top; at = at->parent) {
        if (!at->visible) {
            return std::string("is not there: ") + at->name + " is invisible";
        }
        if (!at->enabled) {
            return std::string("is greyed: ") + at->name + " is disabled";
        }
        if (top == nullptr && at->parent == nullptr && !at->inMenuBar) {
            return std::string("is not in the menu bar: ") + at->name + " is a pop-up menu";
        }
    }
    return "";
}

}  // namespace forms::headless
