#pragma once

#include <windows.h>

#include <cstdint>
#include <optional>

#include "forms/win32/StageState.h"

namespace forms::win32 {

// A hidden window for the messages that concern the whole program: the one native timer, the end of
// the session, a changed clock, other monitors, a restarted shell. It is a top-level window,
// because broadcasts reach no others. It also owns the windows that have no button in the task bar.
class UtilityWindow {
  public:
    // lParam: the window of a form, to be destroyed if its destruction is scheduled.
    static constexpr UINT destroyMessage = WM_APP + 1;
    static constexpr UINT catchUpMessage = WM_APP + 2;

    explicit UtilityWindow(StageState& stageState);
    ~UtilityWindow();
    UtilityWindow(const UtilityWindow&) = delete;
    UtilityWindow& operator=(const UtilityWindow&) = delete;

    HWND handle() const { return window; }
    void ArmTimer(std::optional<std::int64_t> due);

    // The native timer waits for an empty queue, which may take for ever. These two run late
    // timers: RunOverdue at once, and only where handlers may run; CatchUp, called at every
    // message, by a message that takes its turn in the queue.
    void RunOverdue();
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
