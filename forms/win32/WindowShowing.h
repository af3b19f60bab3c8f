#pragma once

#include <windows.h>

#include <optional>

namespace forms::win32 {

class FormWindow;

// Whether a form's window is on the screen, which window is active, and which ones can be used.
class WindowShowing {
  public:
    explicit WindowShowing(FormWindow& formWindow) : window(formWindow) {}
    WindowShowing(const WindowShowing&) = delete;
    WindowShowing& operator=(const WindowShowing&) = delete;

    // The number of message boxes and dialogs that shut the window off.
    int boxes = 0;

    // Shows or hides the window as the form says, in its state.
    void Apply();
    void UpdateEnabled();
    void BringToForeground();
    // Lets another window of the program become the active one first.
    void Hide();
    // Before the window is destroyed: the system would destroy the windows that it owns with it.
    void ReleaseOwned();
    // The owner of a window that is not modal; may be null.
    HWND BaseOwner() const;

    std::optional<LRESULT> OnMessage(UINT message, WPARAM wParam);

  private:
    void Show();
    void TakeModalOwner();
    void Activate();
    bool CanBeActive() const;
    FormWindow* Successor() const;
    void MarkUsed();
    void GoBackToBaseOwner();
    void OnActivate(WPARAM wParam);
    void OnSize(WPARAM kind);

    FormWindow& window;
    HWND modalOwner = nullptr;  // the form's window before which this one stays while it is modal
    bool wantsForeground = false;  // when it appears
};

}  // namespace forms::win32
