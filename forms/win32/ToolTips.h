#pragma once

#include <windows.h>

namespace forms::win32 {

class FormWindow;
class Peer;

// The tool tips of a form. One native window serves all controls. It is created when the pointer
// first moves over a form that has tips: windows open faster without it.
class ToolTips {
  public:
    explicit ToolTips(FormWindow& formWindow) : window(formWindow) {}
    ToolTips(const ToolTips&) = delete;
    ToolTips& operator=(const ToolTips&) = delete;

    // Called for each message to the form's window and to its native controls.
    void Relay(HWND target, UINT message, WPARAM wParam, LPARAM lParam);
    // Updates the control's tip after a change of its text, place or visibility.
    void Update(const Peer& peer) const;
    void FollowScale() const;

  private:
    // Whether the pointer has moved on the screen since the last mouse move over any form.
    bool HasPointerMoved(HWND target, LPARAM place) const;
    void Create();

    FormWindow& window;
    HWND tips = nullptr;  // owned by the form's window and destroyed with it
};

}  // namespace forms::win32
