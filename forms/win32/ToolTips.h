#pragma once

#include <windows.h>

namespace forms::win32 {

class FormWindow;
class Peer;

// The tool tips of a form: one native window for all controls, made when there is a tip to show.
class ToolTips {
  public:
    explicit ToolTips(FormWindow& formWindow) : window(formWindow) {}
    ToolTips(const ToolTips&) = delete;
    ToolTips& operator=(const ToolTips&) = delete;

    // Brings the control's tip up to date with its text, place and visibility.
    void Update(const Peer& peer);
    void FollowScale() const;

  private:
    FormWindow& window;
    HWND tips = nullptr;  // owned by the form's window and destroyed with it
};

}  // namespace forms::win32
