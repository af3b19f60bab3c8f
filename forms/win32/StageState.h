#pragma once

#include <windows.h>

#include <optional>
#include <string>
#include <vector>

namespace forms::win32 {

class FormWindow;

// What all windows of a stage share.
struct StageState {
    std::vector<FormWindow*> windows;  // that exist natively; last is the one used last
    HWND utility = nullptr;            // hidden; see UtilityWindow.h
    std::wstring savingText;           // see ApplicationInfo
    // Above 0 while the stage itself shows, moves or activates windows: what the system then
    // reports is no gesture.
    int applying = 0;
    // While the stage itself moves the focus: an option button that gets it is not clicked.
    bool movingFocus = false;
    bool hourglass = false;
    // Where a menu that is asked for by keyboard opens, in screen pixels; else at the pointer.
    std::optional<POINT> menuPlace;
};

// Marks that the stage acts, not the user.
class Applying {
  public:
    explicit Applying(StageState& stageState) : state(stageState) { ++state.applying; }
    ~Applying() { --state.applying; }
    Applying(const Applying&) = delete;
    Applying& operator=(const Applying&) = delete;

  private:
    StageState& state;
};

}  // namespace forms::win32
