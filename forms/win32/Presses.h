#pragma once

#include <array>
#include <utility>

#include "forms/Control.h"

namespace forms::win32 {

// The form or control that was under the pointer when each mouse button was pressed. A release
// counts only over the same form or control. A double click acts when the button goes down, so the
// release may reach a window that has opened meanwhile.
class Presses {
  public:
    // target is a Form or a Control. It is only compared, never dereferenced.
    void Press(int button, const void* target) { At(button) = target; }
    bool IsPressed(int button, const void* target) { return At(button) == target; }
    // Whether the button was pressed on this target. False if target is null. Forgets the press.
    bool Release(int button, const void* target) {
        return std::exchange(At(button), nullptr) == target && target != nullptr;
    }

  private:
    const void*& At(int button) {
        return targets[button == leftButton ? 0U : button == rightButton ? 1U : 2U];
    }

    std::array<const void*, 3> targets{};
};

}  // namespace forms::win32
