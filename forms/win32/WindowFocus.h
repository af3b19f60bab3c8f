#pragma once

#include <windows.h>

#include <optional>

namespace forms::win32 {

class FormWindow;

// The keyboard focus within a form's window. Native keys become those of forms/Keyboard.h here.
class WindowFocus {
  public:
    explicit WindowFocus(FormWindow& formWindow) : window(formWindow) {}
    WindowFocus(const WindowFocus&) = delete;
    WindowFocus& operator=(const WindowFocus&) = delete;

    // Gives the focus to the form's active control.
    void Restore();
    // Draws the push button that has the focus as the default button, or else the default button.
    void MarkDefaultButton();
    // Handles a key for a control of the window; handlers may run. False if the key must be
    // dispatched to the control.
    bool TakeKey(MSG& message);
    // The menu key was pressed. False if the control that has the focus opens its own menu.
    bool OpenMenu();

    std::optional<LRESULT> OnMessage(UINT message, WPARAM wParam, LPARAM lParam);

  private:
    bool TakeAccessKey(WPARAM letter);
    void TakeTab(bool backward);
    void OnNextControl(WPARAM wParam, LPARAM lParam);
    // The focus has come to a control by keyboard: selects its text, as the system's dialogs do.
    void SelectText(HWND focusBefore);

    FormWindow& window;
};

}  // namespace forms::win32
