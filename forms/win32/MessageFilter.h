#pragma once

#include <windows.h>

namespace forms::win32 {

class UtilityWindow;

// A hook for every message that the thread takes from its queue, in the system's loops (boxes,
// menus, dragging) and in the program's own. Only one hook exists at a time.
//
// Any program of the same user can post any message. Some messages would end the program, lose a
// text or make the program use an invalid pointer. The system never posts these messages to the
// program's windows. The filter turns them into WM_NULL.
//
// The system delivers WM_TIMER only if the queue is empty. If many messages arrive, the filter lets
// due timers run between them; see UtilityWindow::CatchUp.
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
