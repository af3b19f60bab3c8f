#pragma once

#include <functional>
#include <optional>
#include <string>
#include <variant>

#include "forms/Menu.h"
#include "forms/MsgBox.h"
#include "forms/Stage.h"

// A test expects that the program opens one of these and waits for the user.
namespace forms::headless {

using Script = std::function<void()>;

struct ExpectedBox {
    BoxRequest request;
    bool checkDefault = false;  // whether request.options.secondIsDefault is compared
    BoxResult answer = BoxResult::Ok;
    Script during;
};

struct ExpectedModal {
    std::string formType;  // for messages only
    std::function<bool(const Form&)> matches;
    std::function<void(Form&)> script;
};

struct ExpectedPopup {
    std::string menuName;
    std::string entry;                   // name or caption; empty: the user closes the menu
    std::function<Menu*(Menu&)> script;  // instead of entry
};

struct ExpectedDialog {
    std::optional<std::string> result;  // empty: the user cancels
    Script during;
};

struct ExpectedMainLoop {
    Script script;
};

using Expectation =
    std::variant<ExpectedBox, ExpectedModal, ExpectedPopup, ExpectedDialog, ExpectedMainLoop>;

// Texts for failures, for example: box "Really?" with caption "Erase", Yes/No, icon Question.
std::string Describe(const BoxRequest& request);
std::string Describe(const Expectation& expectation);

// Whether a box has a button for the answer.
bool IsAnswerOf(const BoxRequest& request, BoxResult answer);
// The answer of the button that Enter presses.
BoxResult DefaultAnswerOf(const BoxRequest& request);

// The entry with this name, or else with this caption, in the menu or its sub-menus. Null if there
// is none.
Menu* FindEntry(Menu& menu, const std::string& nameOrCaption);
// The reason why the user cannot choose the entry, or an empty text. top is the open menu, or null
// for the menu bar. Whether top itself is visible does not matter.
std::string ReasonNotChoosable(const Menu& entry, const Menu* top);

}  // namespace forms::headless
