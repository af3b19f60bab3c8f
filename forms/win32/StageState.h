#pragma once

#include <windows.h>

#include <optional>
#include <string>
#include <vector>

namespace forms::win32 {

class FormWindow;

// The state that all windows of a stage share.
struct StageState {
    std::vector<FormWindow*> windows;  // that exist natively, in the order of their last use
    HWND utility = nullptr;            // hidden; see UtilityWindow.h
    std::wstring savingText;           // see ApplicationInfo
    // Above 0 while the stage itself shows, moves or activates windows: the messages that the
    // system sends then are no gestures.
    int applying = 0;
    // While the stage itself moves the focus: an option button that gets it is not clicked.
    bool movingFocus = false;
    bool hourglass = false;
    // Where a menu opens that the user opens by keyboard, in screen pixels. Empty: at the pointer.
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
