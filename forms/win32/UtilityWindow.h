#pragma once

#include <windows.h>

#include <cstdint>
#include <optional>

#include "forms/win32/StageState.h"

namespace forms::win32 {

// A hidden window that hears what concerns the program as a whole: the one native timer, the end of
// the session, a changed clock, other monitors, a new shell. Top-level, as broadcasts reach no
// other window. It also owns the windows that are to have no button in the task bar.
class UtilityWindow {
  public:
    // lParam: a form's window that can be destroyed now.
    static constexpr UINT destroyMessage = WM_APP + 1;

    explicit UtilityWindow(StageState& stageState);
    ~UtilityWindow();
    UtilityWindow(const UtilityWindow&) = delete;
    UtilityWindow& operator=(const UtilityWindow&) = delete;

    HWND handle() const { return window; }
    void ArmTimer(std::optional<std::int64_t> due);

  private:
    static LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
    LRESULT OnMessage(UINT message, WPARAM wParam, LPARAM lParam);
    void OnDisplayChange();

    StageState& state;
    HWND window = nullptr;
    UINT taskbarCreated = 0;
};

}  // namespace forms::win32
