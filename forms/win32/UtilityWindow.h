#pragma once

#include <windows.h>

#include <cstdint>
#include <optional>

#include "forms/win32/StageState.h"

namespace forms::win32 {

// A hidden window for messages that concern the whole program: the one native timer, the end of the
// session, changes of the clock or the monitors, and a restart of the shell. It is a top-level
// window, because only top-level windows get broadcasts. It also owns the windows that have no
// button in the task bar.
class UtilityWindow {
  public:
    // lParam is the native window of a FormWindow, whose DestroyIfScheduled() is called.
    static constexpr UINT destroyMessage = WM_APP + 1;
    static constexpr UINT catchUpMessage = WM_APP + 2;

    explicit UtilityWindow(StageState& stageState);
    ~UtilityWindow();
    UtilityWindow(const UtilityWindow&) = delete;
    UtilityWindow& operator=(const UtilityWindow&) = delete;

    HWND handle() const { return window; }
    void ArmTimer(std::optional<std::int64_t> due);

    // The native timer waits until the queue is empty, which may never happen. These two functions
    // run late timers. RunOverdue runs them at once. Call it only if handlers may run. CatchUp is
    // called for every message. If timers are late, it posts a message that runs them.
    void RunOverdue();
    void CatchUp();

  private:
    static LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
    LRESULT OnMessage(UINT message, WPARAM wParam, LPARAM lParam);
    static void RunTimers();
    void OnDisplayChange();
    void OnUserSettings();

    StageState& state;
    bool IsLate(std::int64_t milliseconds) const;

    HWND window = nullptr;
    UINT taskbarCreated = 0;
    std::optional<std::int64_t> armedFor;
    bool catchingUp = false;  // catchUpMessage is in the queue
};

}  // namespace forms::win32
