#include "forms/Runtime.h"
#include "forms/win32/Destroying.h"
#include "forms/win32/FormWindow.h"
#include "forms/win32/UtilityWindow.h"

// How the window of a form goes that is unloaded.

namespace forms::win32 {

void FormWindow::ScheduleDestroy() {
    const Applying applying(state);
    // Only one that is active must choose who follows it at once: hiding a hundred notes one by one
    // would be most of the time that leaving takes.
    if (::GetActiveWindow() == handle && Runtime::Exists() && !Runtime::Current().HasEnded()) {
        Hide();
    }
    ReleaseOwned();
    DetachFromForm();
    destroyScheduled = true;
    // It goes with the next message. When the program is just ending, that never comes: the system
    // takes all windows of a process faster than they could be destroyed one by one.
    if (::PostMessageW(state.utility, UtilityWindow::destroyMessage, 0,
                       reinterpret_cast<LPARAM>(handle)) == 0) {
        DestroyIfScheduled();
    }
}

void FormWindow::DestroyIfScheduled() {
    if (!destroyScheduled) {
        return;
    }
    if (entered == 0) {
        DestroyNative(handle);
    } else if (IsShown()) {
        // One of its handlers waits for a box, say.
        ::ShowWindow(handle, SW_HIDE);
    }
}

// A window takes those with it that it owns, whose forms live on.
void FormWindow::ReleaseOwned() {
    for (FormWindow* other : state.windows) {
        if (other->modalOwner == handle) {
            other->GoBackToBaseOwner();
        }
    }
}

void FormWindow::GoBackToBaseOwner() {
    ::SetWindowLongPtrW(handle, GWLP_HWNDPARENT, reinterpret_cast<LONG_PTR>(BaseOwner()));
    modalOwner = nullptr;
}

}  // namespace forms::win32
