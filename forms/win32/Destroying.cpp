#include "forms/win32/Destroying.h"

#include <algorithm>
#include <vector>

namespace forms::win32 {

namespace {

// The windows that are being destroyed. Destroying one window may destroy others, and the innermost
// call comes last.
std::vector<HWND>& Running() {
    static std::vector<HWND> windows;
    return windows;
}

}  // namespace

bool DestroyNative(HWND window) {
    Running().push_back(window);
    const bool destroyed = ::DestroyWindow(window) != 0;
    Running().pop_back();
    return destroyed;
}

bool IsBeingDestroyed(HWND window) {
    return std::any_of(Running().begin(), Running().end(), [window](HWND running) {
        return running == window || ::IsChild(running, window) != 0 ||
               ::GetWindow(window, GW_OWNER) == running;
    });
}

}  // namespace forms::win32
