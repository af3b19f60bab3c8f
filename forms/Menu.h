#pragma once

#include <functional>
#include <string>
#include <vector>

#include "forms/Property.h"

namespace forms {

class Form;

// An entry of a menu: a command, a sub-menu, or a separator (caption "-"). Entries are members of
// their form. An entry without a parent is a top-level menu. It appears in the menu bar unless
// Design clears inMenuBar.
class Menu final : public Observed {
  public:
    Menu(Form* parentForm, const char* menuName, const char* menuCaption = "");
    Menu(Form* parentForm, Menu& parentMenu, const char* menuName, const char* menuCaption = "");

    const char* const name;
    Form& form;
    Menu* const parent;
    std::vector<Menu*> entries;
    bool inMenuBar = true;  // for top-level menus; false: opened with PopupMenu only

    Property<std::string, Aspect::Caption> caption;
    Property<bool, Aspect::Enabled> enabled{*this, true};
    Property<bool, Aspect::Visible> visible{*this, true};
    Property<bool, Aspect::Checked> checked{*this, false};
    std::function<void()> Click;

    bool IsSeparator() const { return caption() == "-"; }
    void Changed(Aspect aspect) override;
};

}  // namespace forms
