#pragma once

#include <vector>

namespace forms {

class CommandButton;
class Control;
class Form;

// Which control of a form has the focus, and where the keyboard moves it.
class FormFocus {
  public:
    explicit FormFocus(const Form& owner) : form(owner) {}

    // The control that has the focus while the form is active: the last control that was given the
    // focus. If that control cannot take the focus, the next Tab stop after it, or else the first
    // Tab stop. Null if there is none.
    Control* ActiveControl() const;
    // All controls in the order of the Tab key, including frames and labels.
    std::vector<Control*> TabOrder() const;
    // The usable default button, and the button that Escape presses. Null if there is none.
    CommandButton* DefaultButton() const;
    CommandButton* CancelButton() const;
    // The button that Enter presses: the button that has the focus, else the default button.
    CommandButton* EnterButton() const;

    // Gives the focus to the control in the model only. If the stage does not show the focus there
    // yet, the caller must also call Stage::FocusMoved.
    void Adopt(Control& control) { given = &control; }
    // Moves the focus to another control if the control that has it was hidden or disabled.
    void MoveOn();

  private:
    const Form& form;
    Control* given = nullptr;
};

}  // namespace forms
