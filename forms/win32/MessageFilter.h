#pragma once

#include <windows.h>

namespace forms::win32 {

class UtilityWindow;

// A hook for every message that the thread takes from its queue, in the loops of the system (boxes,
// menus, dragging) as well as in the program's own. One exists at a time.
//
// Any program of the same user can post any message. Some messages would end the program, lose a
// text or make it use a foreign pointer, and the system never posts them to these windows. The
// filter turns them into WM_NULL.
//
// The system gives WM_TIMER only when the queue holds nothing else. During a flood of messages, the
// filter lets due timers run between them, see UtilityWindow::CatchUp.
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
