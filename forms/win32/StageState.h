#pragma once

#include <windows.h>

#include <optional>
#include <string>
#include <vector>

#include "forms/win32/Dpi.h"
#include "forms/win32/Presses.h"

namespace forms::win32 {

class FormWindow;

// The state that all windows of a stage share.
struct StageState {
    std::vector<FormWindow*> windows;  // all existing windows, in the order of their last use
    HWND utility = nullptr;            // hidden; see UtilityWindow.h
    std::wstring savingText;           // see ApplicationInfo
    int textPercent = TextPercent();   // see Scale; follows the user's settings
    // Above 0 while the stage itself shows, moves or activates windows. Messages that the system
    // sends meanwhile are not gestures.
    int applying = 0;
    // True while the stage itself moves the focus. An option button that gets the focus is then not
    // clicked.
    bool movingFocus = false;
    bool hourglass = false;
    Presses presses;
    std::optional<POINT> pointer;  // where it last moved over a form, in screen pixels
    // The place for the next menu, which the user opens by keyboard, in screen pixels. Empty: at
    // the pointer.
    std::optional<POINT> menuPlace;
};

// While it exists, changes come from the stage and not from the user.
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
