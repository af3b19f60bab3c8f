#pragma once

#include <string>

#include "forms/Controls.h"
#include "forms/Form.h"
#include "forms/Menu.h"
#include "forms/headless/HeadlessDevices.h"
#include "forms/headless/HeadlessStage.h"

namespace forms::headless {

// A scripted user of the headless stage, who can do no more than a person. An action on a target
// that is hidden, disabled, minimised, shut off by a modal form, or behind a box or a menu is not
// done and fails the test.
class User {
  public:
    User(HeadlessStage& userStage, RecordedTray& userTray) : stage(userStage), tray(userTray) {}

    // Buttons, labels and images react to a click; a text box or a list takes the focus.
    void Click(Control& control);
    void DoubleClick(Control& control);
    void Click(Toolbar& toolbar, const std::string& key);
    void RightClick(Control& control);
    void RightClick(Form& form);  // its background
    // The pointer moves over the background; x in twips.
    void MouseMove(Form& form, int x, int y = 0);

    // Replaces the whole content.
    void Type(TextBox& textBox, const std::string& content);
    void Select(ComboBox& comboBox, int index);
    void Select(ComboBox& comboBox, const std::string& item);
    void Select(ListView& listView, int row);
    void Pick(DateTimePicker& picker, base::DateTime value);

    // From the menu bar.
    void Choose(Menu& entry);

    // A message of the tray icon: 514 left button up, 515 left double click, 517 right button up.
    // Works behind boxes and modal forms too.
    void Tray(int message);

    void CloseBox(Form& form);
    void Minimize(Form& form);
    void Restore(Form& form);
    void Maximize(Form& form);
    // Twips.
    void Size(Form& form, int width, int height);
    // Holds the title bar while the script runs, then releases it at the new place.
    void Drag(Form& form, int left, int top, const Script& during = nullptr);

    // Keys go to the active form.
    void PressEnter();
    void PressEscape();
    void PressMenuKey();
    void Tab(bool backward = false);
    // Alt and a letter.
    void AccessKey(Form& form, char letter);

  private:
    bool Fail(const std::string& what, const std::string& why);
    // False if a person could not act on the target now; the test fails.
    bool RequireReachable(const std::string& what, Form& form);
    bool RequireReachable(const std::string& what, Control& control);
    // False when the form's own handler has unloaded it.
    bool BringUp(Form& form);
    bool TakeFocus(Control& control);
    Form* FormWithKeyboard(const std::string& what);

    HeadlessStage& stage;
    RecordedTray& tray;
};

}  // namespace forms::headless
