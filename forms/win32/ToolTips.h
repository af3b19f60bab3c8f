#pragma once

#include <windows.h>

namespace forms::win32 {

class FormWindow;
class Peer;

// The tool tips of a form. One native window serves all controls. It is created when there is a tip
// to show.
class ToolTips {
  public:
    explicit ToolTips(FormWindow& formWindow) : window(formWindow) {}
    ToolTips(const ToolTips&) = delete;
    ToolTips& operator=(const ToolTips&) = delete;

    // Updates the control's tip after a change of its text, place or visibility.
    void Update(const Peer& peer);
    void FollowScale() const;

  private:
    FormWindow& window;
    HWND tips = nullptr;  // owned by the form's window and destroyed with it
};

}  // namespace forms::win32
