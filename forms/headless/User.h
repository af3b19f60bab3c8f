#pragma once

#include <string>

#include "forms/Controls.h"
#include "forms/Form.h"
#include "forms/Menu.h"
#include "forms/headless/HeadlessDevices.h"
#include "forms/headless/HeadlessStage.h"

namespace forms::headless {

class Attempt;

// A scripted user of the headless stage, who can do only what a real user can. If the target of an
// action is hidden, disabled, minimised, behind a box or a menu, or in a window that a modal form
// disables, the test fails and the action is not done.
class User {
  public:
    User(HeadlessStage& userStage, RecordedTray& userTray) : stage(userStage), tray(userTray) {}

    // Presses a button, label or image. Gives a button, a text box or a list the focus.
    void Click(Control& control);
    void DoubleClick(Control& control);
    void Click(Toolbar& toolbar, const std::string& key);
    void RightClick(Control& control);
    void RightClick(Form& form);  // on its background
    // Moves the pointer over the form's background. x and y are in twips.
    void MouseMove(Form& form, int x, int y = 0);

    // Replaces the whole content.
    void Type(TextBox& textBox, const std::string& content);
    void Select(ComboBox& comboBox, int index);
    void Select(ComboBox& comboBox, const std::string& item);
    void Select(ListView& listView, int row);
    void Pick(DateTimePicker& picker, base::DateTime value);

    // Chooses the entry from the menu bar.
    void Choose(Menu& entry);

    // Sends a message of the tray icon. message is the number of a mouse message of Windows. Works
    // while a box or a modal form is open too.
    void Tray(int message);

    void CloseBox(Form& form);
    void Minimize(Form& form);
    void Restore(Form& form);
    void Maximize(Form& form);
    // Width and height are in twips.
    void Size(Form& form, int width, int height);
    // Holds the title bar while the script runs, then moves the window to left and top (twips).
    void Drag(Form& form, int left, int top, const Script& during = nullptr);

    // These functions press a key in the active form.
    void PressEnter();
    void PressEscape();
    void PressMenuKey();
    void Press(Shortcut key);
    void PressTab(bool backward = false);
    // Presses Alt and a letter.
    void PressAccessKey(Form& form, char letter);

  private:
    // Makes the form active. Returns false if a handler has destroyed the form meanwhile.
    bool BringUp(Form& form);
    // Makes the control's form active, and gives the control the focus if it can have it. Returns
    // false if a handler has destroyed the form meanwhile.
    bool TakeFocus(Control& control);
    // The active form. If a user could not press a key in it, returns null, and the test fails.
    static Form* FormWithKeyboard(const Attempt& attempt);

    HeadlessStage& stage;
    RecordedTray& tray;
};

}  // namespace forms::headless
