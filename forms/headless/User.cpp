#include "forms/headless/User.h"

#include <algorithm>
#include <memory>

#include "base/Text.h"
#include "forms/Gestures.h"
#include "forms/Keyboard.h"
#include "forms/Runtime.h"

namespace forms::headless {

namespace {

constexpr Rect wholeScreen{0, 0, 15'360, 11'520};

std::string NameOf(const Control& control) {
    return std::string(control.form.name) + "." + control.name;
}

Rect BoundsOf(const Form& form) { return {form.left, form.top, form.width, form.height}; }

}  // namespace

bool User::Fail(const std::string& what, const std::string& why) {
    stage.Fail("The user cannot " + what + ": " + why + ".");
    return false;
}

bool User::RequireReachable(const std::string& what, Form& form) {
    const std::string blocking = stage.ReasonForBlocking();
    if (!Runtime::Exists() || Runtime::Current().HasEnded()) {
        return Fail(what, "the program has ended");
    }
    if (!form.IsLoaded()) {
        return Fail(what, "the form is not loaded");
    }
    if (!blocking.empty()) {
        return Fail(what, blocking);
    }
    if (!form.IsVisible() || !form.IsShownOnStage() || !HeadlessStage::WindowOf(form).shown) {
        return Fail(what, "the form is not shown");
    }
    if (!form.IsUsable() || !HeadlessStage::WindowOf(form).usable) {
        return Fail(what, "a modal form shuts its form off");
    }
    return true;
}

bool User::RequireReachable(const std::string& what, Control& control) {
    if (!RequireReachable(what, control.form)) {
        return false;
    }
    if (control.form.windowState() == WindowState::Minimized) {
        return Fail(what, "its form is minimised");
    }
    if (!control.IsEffectivelyVisible()) {
        return Fail(what, "it is hidden");
    }
    if (!control.IsEffectivelyEnabled()) {
        return Fail(what, "it is disabled");
    }
    return true;
}

// Does not keep the form alive, so that a test fails if the runtime does not keep it alive.
bool User::BringUp(Form& form) {
    const std::weak_ptr<Form> alive = form.weak_from_this();
    gestures::Activate(form);
    return !alive.expired();
}

bool User::TakeFocus(Control& control) {
    if (!BringUp(control.form)) {
        return false;
    }
    if (control.CanHaveFocus()) {
        gestures::Focus(control);
    }
    return true;
}

void User::Click(Control& control) {
    if (!RequireReachable("click " + NameOf(control), control) || !TakeFocus(control)) {
        return;
    }
    const std::weak_ptr<Form> alive = control.form.weak_from_this();
    if (!control.CanHaveFocus()) {
        gestures::MouseUp(control, leftButton, 0, 0);
    }
    if (!alive.expired()) {
        gestures::Click(control);
    }
}

void User::DoubleClick(Control& control) {
    if (RequireReachable("double-click " + NameOf(control), control) && TakeFocus(control)) {
        gestures::DoubleClick(control);
    }
}

void User::Click(Toolbar& toolbar, const std::string& key) {
    const std::string what = "click button " + key + " of " + NameOf(toolbar);
    if (!RequireReachable(what, toolbar)) {
        return;
    }
    const auto& buttons = toolbar.buttons();
    const auto button = std::find_if(buttons.begin(), buttons.end(), [&key](const auto& candidate) {
        return candidate.key == key;
    });
    if (button == buttons.end()) {
        Fail(what, "there is no such button");
    } else if (!button->enabled) {
        Fail(what, "it is disabled");
    } else if (BringUp(toolbar.form)) {
        gestures::ClickToolbar(toolbar, key);
    }
}

void User::RightClick(Control& control) {
    if (RequireReachable("right-click " + NameOf(control), control) && BringUp(control.form)) {
        gestures::MouseUp(control, rightButton, 0, 0);
    }
}

void User::RightClick(Form& form) {
    if (RequireReachable(std::string("right-click ") + form.name, form) && BringUp(form)) {
        gestures::MouseUp(form, rightButton, 0, 0);
    }
}

void User::MouseMove(Form& form, int x, int y) {
    if (RequireReachable(std::string("move the pointer over ") + form.name, form)) {
        gestures::MouseMove(form, 0, x, y);
    }
}

void User::Type(TextBox& textBox, const std::string& content) {
    const std::string what = "type into " + NameOf(textBox);
    if (!RequireReachable(what, textBox)) {
        return;
    }
    if (textBox.readOnly) {
        Fail(what, "it is read-only");
        return;
    }
    if (TakeFocus(textBox) && textBox.text() != content) {
        stage.KeepTyped(textBox, content);
        gestures::Typed(textBox);
    }
}

void User::Select(ComboBox& comboBox, int index) {
    const std::string what = "select item " + std::to_string(index) + " of " + NameOf(comboBox);
    if (!RequireReachable(what, comboBox)) {
        return;
    }
    if (index < 0 || index >= static_cast<int>(comboBox.items.size())) {
        Fail(what, "there is no such item");
        return;
    }
    if (TakeFocus(comboBox)) {
        gestures::Select(comboBox, index);
    }
}

void User::Select(ComboBox& comboBox, const std::string& item) {
    const auto found = std::find(comboBox.items.begin(), comboBox.items.end(), item);
    if (found == comboBox.items.end()) {
        Fail("select " + item + " of " + NameOf(comboBox), "there is no such item");
        return;
    }
    Select(comboBox, static_cast<int>(found - comboBox.items.begin()));
}

void User::Select(ListView& listView, int row) {
    const std::string what = "select row " + std::to_string(row) + " of " + NameOf(listView);
    if (!RequireReachable(what, listView)) {
        return;
    }
    if (row < 0 || row >= static_cast<int>(listView.Rows().size())) {
        Fail(what, "there is no such row");
        return;
    }
    if (TakeFocus(listView)) {
        gestures::Select(listView, row);
    }
}

void User::Pick(DateTimePicker& picker, base::DateTime value) {
    if (RequireReachable("pick in " + NameOf(picker), picker) && TakeFocus(picker)) {
        gestures::Pick(picker, value);
    }
}

void User::Choose(Menu& entry) {
    const std::string what = std::string("choose ") + entry.form.name + "." + entry.name;
    if (!RequireReachable(what, entry.form)) {
        return;
    }
    const std::string why = ReasonNotChoosable(entry, nullptr);
    if (!why.empty()) {
        Fail(what, "it " + why);
        return;
    }
    if (BringUp(entry.form)) {
        gestures::Choose(entry);
    }
}

void User::Tray(int message) {
    if (!tray.icon || tray.icon->owner == nullptr) {
        Fail("use the tray icon", "there is none");
        return;
    }
    gestures::TrayMessage(*tray.icon->owner, message);
}

void User::CloseBox(Form& form) {
    const std::string what = std::string("close ") + form.name;
    if (!RequireReachable(what, form)) {
        return;
    }
    if (form.borderStyle == BorderStyle::None) {
        Fail(what, "it has no close box");
        return;
    }
    if (BringUp(form)) {
        gestures::Close(form);
    }
}

void User::Minimize(Form& form) {
    const std::string what = std::string("minimise ") + form.name;
    if (!RequireReachable(what, form)) {
        return;
    }
    if (form.borderStyle != BorderStyle::Fixed && form.borderStyle != BorderStyle::Sizable) {
        Fail(what, "it has no button for that");
        return;
    }
    HeadlessStage::WindowOf(form).state = WindowState::Minimized;
    gestures::Resize(form, BoundsOf(form), WindowState::Minimized);
}

void User::Restore(Form& form) {
    const std::string what = std::string("restore ") + form.name;
    if (!RequireReachable(what, form)) {
        return;
    }
    if (form.windowState() == WindowState::Normal) {
        Fail(what, "it is neither minimised nor maximised");
        return;
    }
    HeadlessStage::WindowOf(form).state = WindowState::Normal;
    if (BringUp(form)) {
        gestures::Resize(form, BoundsOf(form), WindowState::Normal);
    }
}

void User::Maximize(Form& form) {
    const std::string what = std::string("maximise ") + form.name;
    if (!RequireReachable(what, form)) {
        return;
    }
    if (form.borderStyle != BorderStyle::Sizable) {
        Fail(what, "it cannot be sized");
        return;
    }
    HeadlessStage::WindowOf(form).state = WindowState::Maximized;
    if (BringUp(form)) {
        gestures::Resize(form, wholeScreen, WindowState::Maximized);
    }
}

void User::Size(Form& form, int width, int height) {
    const std::string what = std::string("size ") + form.name;
    if (!RequireReachable(what, form)) {
        return;
    }
    if (form.borderStyle != BorderStyle::Sizable || form.windowState() != WindowState::Normal) {
        Fail(what, "it cannot be sized");
        return;
    }
    Rect bounds = BoundsOf(form);
    bounds.width = std::max(width, form.minimumWidth);
    bounds.height = std::max(height, form.minimumHeight);
    if (BringUp(form)) {
        gestures::Resize(form, bounds, WindowState::Normal);
    }
}

void User::Drag(Form& form, int left, int top, const Script& during) {
    const std::string what = std::string("drag ") + form.name;
    if (!RequireReachable(what, form)) {
        return;
    }
    if (form.borderStyle == BorderStyle::None || form.windowState() != WindowState::Normal) {
        Fail(what, "it has no title bar to hold");
        return;
    }
    if (!BringUp(form)) {
        return;
    }
    const std::weak_ptr<Form> alive = form.weak_from_this();
    if (during) {
        during();
    }
    if (!alive.expired() && form.IsLoaded() && form.IsVisible()) {
        gestures::Resize(form, {left, top, form.width, form.height}, WindowState::Normal);
    }
}

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
            if (auto* textBox = dynamic_cast<TextBox*>(form->focus.ActiveControl())) {
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

// KeyUse::ByControl needs no action here: the control's own menu has no entries of the program.
void User::PressMenuKey() {
    if (Form* form = FormWithKeyboard("press the menu key")) {
        gestures::PressMenuKey(*form);
    }
}

void User::Press(Shortcut key) {
    Form* form = FormWithKeyboard("press a shortcut");
    if (form != nullptr && gestures::PressShortcut(*form, key) == gestures::KeyUse::Unused) {
        Fail("press a shortcut",
             std::string("nothing of ") + form->name + " that can be used has it");
    }
}

void User::PressTab(bool backward) {
    Form* form = FormWithKeyboard("press Tab");
    if (form != nullptr && gestures::PressTab(*form, backward) == gestures::KeyUse::Unused) {
        Fail("press Tab", std::string("nothing on ") + form->name + " can have the focus");
    }
}

void User::PressAccessKey(Form& form, char letter) {
    const std::string what = std::string("press Alt+") + letter + " on " + form.name;
    if (RequireReachable(what, form) && BringUp(form) &&
        gestures::PressAccessKey(form, letter) == gestures::KeyUse::Unused) {
        Fail(what, "nothing there that can be used has this key");
    }
}

}  // namespace forms::headless
