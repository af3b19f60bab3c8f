#pragma once

#include <windows.h>

#include <optional>

namespace forms::win32 {

class FormWindow;

// Handles the pointer over a form, and the callback of the form's icon in the notification area.
// Labels, group boxes and pictures pass the pointer's messages to the form, which finds the control
// here.
class WindowPointer {
  public:
    explicit WindowPointer(FormWindow& formWindow) : window(formWindow) {}
    WindowPointer(const WindowPointer&) = delete;
    WindowPointer& operator=(const WindowPointer&) = delete;

    // The number of the window's icon; see TrayWindowOf. 0 if there is none.
    UINT trayIconId = 0;

    std::optional<LRESULT> OnMessage(UINT message, WPARAM wParam, LPARAM lParam);
    // Whether WM_MOUSEMOVE with these parameters comes from the icon.
    bool IsTrayMessage(WPARAM wParam, LPARAM lParam) const;

  private:
    void OnMove(WPARAM wParam, LPARAM lParam);
    void OnButtonDown(int button, POINT point);
    void OnButtonUp(int button, POINT point);

    FormWindow& window;
    LPARAM lastPlace = -1;
};

}  // namespace forms::win32
