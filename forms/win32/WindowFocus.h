#pragma once

#include <windows.h>

#include <optional>

namespace forms::win32 {

class FormWindow;

// The keyboard focus within a form's window. Translates native keys into calls of forms/Keyboard.h.
class WindowFocus {
  public:
    explicit WindowFocus(FormWindow& formWindow) : window(formWindow) {}
    WindowFocus(const WindowFocus&) = delete;
    WindowFocus& operator=(const WindowFocus&) = delete;

    // Gives the focus to the form's active control.
    void Restore();
    // Draws the button that Enter presses as the default button.
    void MarkDefaultButton();
    // Handles a key for a control of the window. Handlers may run. Returns false if the key must be
    // dispatched to the control.
    bool TakeKey(MSG& message);
    // Handles the menu key. Returns false if the control that has the focus opens its own menu.
    bool OpenMenu();

    std::optional<LRESULT> OnMessage(UINT message, WPARAM wParam, LPARAM lParam);

  private:
    bool TakeShortcut(const MSG& message);
    bool TakeLetter(const MSG& message);
    void TakeTab(bool backward);
    void OnNextControl(WPARAM wParam, LPARAM lParam);
    // Called when a control may have got the focus by keyboard. Selects its text, as the system's
    // dialogs do.
    void SelectText(HWND focusBefore);

    FormWindow& window;
};

}  // namespace forms::win32
