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
    std::vector<FormWindow*> windows;  // in the order of their last use, latest at the end
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
    std::optional<POINT> pointer;  // its last place over a form, in screen pixels
    // The place for the next menu, in screen pixels, if the user opens it by keyboard. If empty,
    // the menu opens at the pointer.
    std::optional<POINT> menuPlace;
};

// While an object of this class exists, changes come from the stage and not from the user.
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
