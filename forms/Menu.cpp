#include "forms/Menu.h"

#include "forms/Form.h"
#include "forms/Runtime.h"

namespace forms {

Menu::Menu(Form* parentForm, const char* menuName, const char* menuCaption)
    : name(menuName), form(*parentForm), parent(nullptr), caption(*this, menuCaption) {
    form.menus.push_back(this);
}

Menu::Menu(Form* parentForm, Menu& parentMenu, const char* menuName, const char* menuCaption)
    : name(menuName), form(*parentForm), parent(&parentMenu), caption(*this, menuCaption) {
    parentMenu.entries.push_back(this);
}

void Menu::Changed(Aspect aspect) {
    if (form.IsLoaded()) {
        Runtime::Current().stage.MenuChanged(*this, aspect);
    }
}

}  // namespace forms
