#pragma once

#include <windows.h>

namespace forms::win32 {

class UtilityWindow;

// Sees every message that the thread takes from its queue, in the loops of the system (boxes,
// menus, dragging) as well as in the program's own. One exists at a time.
//
// Any program of the same user can post any message. Messages that the system never posts to these
// windows, and that would end the program, cost a text or make it use a foreign pointer, become
// WM_NULL here, before a window gets them.
//
// The system gives WM_TIMER only when the queue holds nothing else. While messages pour in, the
// filter has the due timers run in their turn, see UtilityWindow::CatchUp.
class MessageFilter {
  public:
    explicit MessageFilter(UtilityWindow& utilityWindow);
    ~MessageFilter();
    MessageFilter(const MessageFilter&) = delete;
    MessageFilter& operator=(const MessageFilter&) = delete;

  private:
    static LRESULT CALLBACK Procedure(int code, WPARAM wParam, LPARAM lParam);

    HHOOK hook;
};

}  // namespace forms::win32
