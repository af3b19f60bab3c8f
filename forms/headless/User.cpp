#include "forms/headless/User.h"

#include <algorithm>
#include <memory>

#include "base/Text.h"
#include "forms/Gestures.h"
#include "forms/Keyboard.h"
#include "forms/Runtime.h"
#include "forms/headless/Attempt.h"

namespace forms::headless {

using gestures::KeyUse;

namespace {

constexpr Rect wholeScreen{0, 0, 15'360, 11'520};

std::string NameOf(const Control& control) {
    return std::string(control.form.name) + "." + control.name;
}

std::string NameOf(const Form& form) { return form.name; }

Rect BoundsOf(const Form& form) { return {form.left, form.top, form.width, form.height}; }

}  // namespace

void User::Click(Control& control) {
    const Attempt attempt(stage, "click " + NameOf(control));
    if (!attempt.Reaches(control) || !TakeFocus(control)) {
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
    const Attempt attempt(stage, "double-click " + NameOf(control));
    if (attempt.Reaches(control) && TakeFocus(control)) {
        gestures::DoubleClick(control);
    }
}

void User::Click(Toolbar& toolbar, const std::string& key) {
    const Attempt attempt(stage, "click button " + key + " of " + NameOf(toolbar));
    const auto& buttons = toolbar.buttons();
    const auto button = std::find_if(buttons.begin(), buttons.end(), [&key](const auto& candidate) {
        return candidate.key == key;
    });
    if (attempt.Reaches(toolbar) &&
        attempt.Needs(button != buttons.end(), "there is no such button") &&
        attempt.Needs(button->enabled, "it is disabled") && BringUp(toolbar.form)) {
        gestures::ClickToolbar(toolbar, key);
    }
}

void User::RightClick(Control& control) {
    const Attempt attempt(stage, "right-click " + NameOf(control));
    if (attempt.Reaches(control) && BringUp(control.form)) {
        gestures::MouseUp(control, rightButton, 0, 0);
    }
}

void User::RightClick(Form& form) {
    const Attempt attempt(stage, "right-click " + NameOf(form));
    if (attempt.Reaches(form) && BringUp(form)) {
        gestures::MouseUp(form, rightButton, 0, 0);
    }
}

void User::MouseMove(Form& form, int x, int y) {
    if (Attempt(stage, "move the pointer over " + NameOf(form)).Reaches(form)) {
        gestures::MouseMove(form, 0, x, y);
    }
}

void User::Type(TextBox& textBox, const std::string& content) {
    const Attempt attempt(stage, "type into " + NameOf(textBox));
    if (attempt.Reaches(textBox) && attempt.Needs(!textBox.readOnly, "it is read-only") &&
        TakeFocus(textBox) && textBox.text() != content) {
        stage.KeepTyped(textBox, content);
        gestures::Typed(textBox);
    }
}

void User::Select(ComboBox& comboBox, int index) {
    const Attempt attempt(stage,
                          "select item " + std::to_string(index) + " of " + NameOf(comboBox));
    const bool exists = index >= 0 && index < static_cast<int>(comboBox.items.size());
    if (attempt.Reaches(comboBox) && attempt.Needs(exists, "there is no such item") &&
        TakeFocus(comboBox)) {
        gestures::Select(comboBox, index);
    }
}

void User::Select(ComboBox& comboBox, const std::string& item) {
    const Attempt attempt(stage, "select " + item + " of " + NameOf(comboBox));
    const auto found = std::find(comboBox.items.begin(), comboBox.items.end(), item);
    if (attempt.Needs(found != comboBox.items.end(), "there is no such item")) {
        Select(comboBox, static_cast<int>(found - comboBox.items.begin()));
    }
}

void User::Select(ListView& listView, int row) {
    const Attempt attempt(stage, "select row " + std::to_string(row) + " of " + NameOf(listView));
    const bool exists = row >= 0 && row < static_cast<int>(listView.Rows().size());
    if (attempt.Reaches(listView) && attempt.Needs(exists, "there is no such row") &&
        TakeFocus(listView)) {
        gestures::Select(listView, row);
    }
}

void User::Pick(DateTimePicker& picker, base::DateTime value) {
    const Attempt attempt(stage, "pick in " + NameOf(picker));
    if (attempt.Reaches(picker) && TakeFocus(picker)) {
        gestures::Pick(picker, value);
    }
}

void User::Choose(Menu& entry) {
    const Attempt attempt(stage, "choose " + NameOf(entry.form) + "." + entry.name);
    const std::string why = ReasonNotChoosable(entry, nullptr);
    if (attempt.Reaches(entry.form) && attempt.Needs(why.empty(), "it " + why) &&
        BringUp(entry.form)) {
        gestures::Choose(entry);
    }
}

void User::Tray(int message) {
    const bool hasIcon = tray.icon && tray.icon->owner != nullptr;
    if (Attempt(stage, "use the tray icon").Needs(hasIcon, "there is none")) {
        gestures::TrayMessage(*tray.icon->owner, message);
    }
}

void User::CloseBox(Form& form) {
    const Attempt attempt(stage, "close " + NameOf(form));
    if (attempt.Reaches(form) &&
        attempt.Needs(form.borderStyle != BorderStyle::None, "it has no close box") &&
        BringUp(form)) {
        gestures::Close(form);
    }
}

void User::Minimize(Form& form) {
    const Attempt attempt(stage, "minimise " + NameOf(form));
    const bool hasButton =
        form.borderStyle == BorderStyle::Fixed || form.borderStyle == BorderStyle::Sizable;
    if (attempt.Reaches(form) && attempt.Needs(hasButton, "it has no button for that")) {
        HeadlessStage::WindowOf(form).state = WindowState::Minimized;
        gestures::Resize(form, BoundsOf(form), WindowState::Minimized);
    }
}

void User::Restore(Form& form) {
    const Attempt attempt(stage, "restore " + NameOf(form));
    if (!attempt.Reaches(form) || !attempt.Needs(form.windowState() != WindowState::Normal,
                                                 "it is neither minimised nor maximised")) {
        return;
    }
    HeadlessStage::WindowOf(form).state = WindowState::Normal;
    if (BringUp(form)) {
        gestures::Resize(form, BoundsOf(form), WindowState::Normal);
    }
}

void User::Maximize(Form& form) {
    const Attempt attempt(stage, "maximise " + NameOf(form));
    if (!attempt.Reaches(form) ||
        !attempt.Needs(form.borderStyle == BorderStyle::Sizable, "it cannot be sized")) {
        return;
    }
    HeadlessStage::WindowOf(form).state = WindowState::Maximized;
    if (BringUp(form)) {
        gestures::Resize(form, wholeScreen, WindowState::Maximized);
    }
}

void User::Size(Form& form, int width, int height) {
    const Attempt attempt(stage, "size " + NameOf(form));
    const bool hasBorder =
        form.borderStyle == BorderStyle::Sizable && form.windowState() == WindowState::Normal;
    if (!attempt.Reaches(form) || !attempt.Needs(hasBorder, "it cannot be sized")) {
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
    const Attempt attempt(stage, "drag " + NameOf(form));
    const bool hasTitleBar =
        form.borderStyle != BorderStyle::None && form.windowState() == WindowState::Normal;
    if (!attempt.Reaches(form) || !attempt.Needs(hasTitleBar, "it has no title bar to hold") ||
        !BringUp(form)) {
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

void User::PressEnter() {
    const Attempt attempt(stage, "press Enter");
    Form* form = FormWithKeyboard(attempt);
    const KeyUse use = form != nullptr ? gestures::PressEnter(*form) : KeyUse::Used;
    if (use == KeyUse::ByControl) {
        auto* textBox = dynamic_cast<TextBox*>(form->focus.ActiveControl());
        if (attempt.Needs(textBox != nullptr,
                          "a tool bar has no button that the arrow keys have reached")) {
            Type(*textBox, textBox->text() + base::lineBreak);
        }
    }
    attempt.Needs(use != KeyUse::Unused, "no button listens to it");
}

void User::PressEscape() {
    const Attempt attempt(stage, "press Escape");
    if (Form* form = FormWithKeyboard(attempt)) {
        attempt.Needs(gestures::PressEscape(*form) != KeyUse::Unused, "nothing listens to it");
    }
}

// KeyUse::ByControl needs no action here: the entries of a control's own menu call no handlers.
void User::PressMenuKey() {
    if (Form* form = FormWithKeyboard(Attempt(stage, "press the menu key"))) {
        gestures::PressMenuKey(*form);
    }
}

void User::Press(Shortcut key) {
    const Attempt attempt(stage, "press a shortcut");
    if (Form* form = FormWithKeyboard(attempt)) {
        attempt.Needs(gestures::PressShortcut(*form, key) != KeyUse::Unused,
                      "nothing that can be used has it");
    }
}

void User::PressTab(bool backward) {
    const Attempt attempt(stage, "press Tab");
    if (Form* form = FormWithKeyboard(attempt)) {
        attempt.Needs(gestures::PressTab(*form, backward) != KeyUse::Unused,
                      "nothing can have the focus");
    }
}

void User::PressAccessKey(Form& form, char letter) {
    const Attempt attempt(stage, std::string("press Alt+") + letter + " on " + form.name);
    if (attempt.Reaches(form) && BringUp(form)) {
        attempt.Needs(gestures::PressAccessKey(form, letter) != KeyUse::Unused,
                      "nothing there that can be used has this key");
    }
}

// Does not keep the form alive: the runtime must do that, and a test fails if it does not.
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

Form* User::FormWithKeyboard(const Attempt& attempt) {
    Form* form = Runtime::Exists() ? Runtime::Current().ActiveForm() : nullptr;
    attempt.Needs(form != nullptr, "no form is active");
    return form != nullptr && attempt.Reaches(*form) ? form : nullptr;
}

}  // namespace forms::headless
