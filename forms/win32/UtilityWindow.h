#pragma once

#include <windows.h>

#include <cstdint>
#include <optional>

#include "forms/win32/StageState.h"

namespace forms::win32 {

// A hidden window for the messages that concern the program as a whole: the one native timer, the
// end of the session, a changed clock, other monitors, a new shell. Top-level, as broadcasts reach
// no other window. It also owns the windows that are to have no button in the task bar.
class UtilityWindow {
  public:
    // lParam: a form's window that can be destroyed now.
    static constexpr UINT destroyMessage = WM_APP + 1;
    static constexpr UINT catchUpMessage = WM_APP + 2;

    explicit UtilityWindow(StageState& stageState);
    ~UtilityWindow();
    UtilityWindow(const UtilityWindow&) = delete;
    UtilityWindow& operator=(const UtilityWindow&) = delete;

    HWND handle() const { return window; }
    void ArmTimer(std::optional<std::int64_t> due);

    // The native timer waits for an empty queue, which may take for ever. Two ways around it:
    // Runs the timers that are due. Only for a place where handlers may run.
    void RunOverdue();
    // If timers are late, posts a message that runs them, so that their turn comes between the
    // other messages. To be called at any message.
    void CatchUp();

  private:
    static LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
    LRESULT OnMessage(UINT message, WPARAM wParam, LPARAM lParam);
    void OnDisplayChange();

    StageState& state;
    bool IsLate(std::int64_t milliseconds) const;

    HWND window = nullptr;
    UINT taskbarCreated = 0;
    std::optional<std::int64_t> armedFor;
    bool catchingUp = false;  // the message is in the queue
};

}  // namespace forms::win32
