#pragma once

#include <windows.h>

#include <optional>

namespace forms::win32 {

class FormWindow;
struct StageState;

// Shows and hides a form's window, makes it active, and disables it.
class WindowShowing {
  public:
    explicit WindowShowing(FormWindow& formWindow) : window(formWindow) {}
    WindowShowing(const WindowShowing&) = delete;
    WindowShowing& operator=(const WindowShowing&) = delete;

    // The number of message boxes and dialogs that shut off the window.
    int boxes = 0;

    // Shows or hides the window, and sets its state, as the form says.
    void Apply();
    void UpdateEnabled();
    // Disables the window because of a box. A minimised window stays enabled until it is restored,
    // but ignores commands. Disabling and enabling a hundred minimised notes would take longer than
    // showing the box.
    void ShutOff() const;
    void BringToForeground();
    // Puts open boxes and modal windows in front of the windows that are always on top. Does
    // nothing if no window that is always on top is shown.
    static void KeepAnsweringOnTop(const StageState& state);
    // Whether a window that is always on top is shown.
    static bool IsTopMostShown(const StageState& state);
    // Hides the window. If it is active, makes another window of the program active first.
    void Hide();
    // Gives the windows that this window owns another owner. Called before this window is
    // destroyed, because the system would destroy them with it.
    void ReleaseOwned();
    // The owner of the window when it is not modal. May be null.
    HWND BaseOwner() const;

    std::optional<LRESULT> OnMessage(UINT message, WPARAM wParam, LPARAM lParam);

  private:
    void ApplyNow();
    void Show();
    void TakeModalOwner();
    void Activate();
    bool CanBeActive() const;
    bool IsShutOff() const;
    HWND WindowToAnswer() const;
    void ActivateWindowToAnswer();
    FormWindow* Successor() const;
    void MarkUsed();
    void GoBackToBaseOwner();
    void OnActivate(WPARAM wParam, HWND other);
    std::optional<LRESULT> OnCommandWhileShutOff(WPARAM command);
    void OnSize(WPARAM kind);

    FormWindow& window;
    HWND modalOwner = nullptr;     // the window that this modal window stays in front of
    bool wantsForeground = false;  // the window takes the foreground when it appears
};

}  // namespace forms::win32
