#include "forms/win32/WindowShowing.h"

#include <algorithm>

#include "forms/Gestures.h"
#include "forms/Runtime.h"
#include "forms/win32/Foreground.h"
#include "forms/win32/FormWindow.h"

namespace forms::win32 {

namespace {

bool IsPress(UINT message) {
    return message == WM_LBUTTONDOWN || message == WM_RBUTTONDOWN || message == WM_MBUTTONDOWN;
}

void PutOnTop(HWND window) {
    ::SetWindowPos(window, HWND_TOPMOST, 0, 0, 0, 0,
                   SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE | SWP_NOOWNERZORDER);
}

// Makes the window the program's active one. Does not take the foreground from another program.
void MakeActive(HWND window) {
    if (HasForeground()) {
        ::SetForegroundWindow(window);
    }
    if (::GetActiveWindow() != window) {
        ::SetActiveWindow(window);
    }
}

}  // namespace

void WindowShowing::Apply() {
    const Scale before = window.scale;
    ApplyNow();
    if (!(window.scale == before) && window.IsLive()) {
        window.placement.Report(true);
    }
}

void WindowShowing::ApplyNow() {
    const Applying applying(window.state);
    if (!window.Model().IsVisible()) {
        Hide();
        return;
    }
    UpdateEnabled();
    Show();
    if (Runtime::Current().ActiveForm() == &window.Model()) {
        Activate();
    }
    wantsForeground = false;
    if (window.Model().IsTopMost() || window.Model().IsModal()) {
        KeepAnsweringOnTop(window.state);
    }
    // A window that a box disables must not cover the box, because the user could not answer the
    // box.
    if (boxes > 0 && ::IsIconic(window.handle) == 0) {
        if (HWND box = OpenBox(); box != nullptr) {
            ::BringWindowToTop(box);
            MakeActive(box);
        }
    }
}

void WindowShowing::UpdateEnabled() {
    // While a box is open, pumps::OthersShutOff decides which windows are enabled.
    if (boxes == 0) {
        const bool canBeUsed = window.Model().IsUsable() || !window.Model().IsVisible();
        if (canBeUsed != (::IsWindowEnabled(window.handle) != 0)) {
            const Applying applying(window.state);
            ::EnableWindow(window.handle, canBeUsed ? TRUE : FALSE);
        }
    }
}

void WindowShowing::ShutOff() const {
    if (::IsIconic(window.handle) == 0) {
        ::EnableWindow(window.handle, FALSE);
    }
}

bool WindowShowing::IsShutOff() const {
    return ::IsWindowEnabled(window.handle) == 0 || (boxes > 0 && ::IsIconic(window.handle) != 0);
}

void WindowShowing::Show() {
    HWND handle = window.handle;
    const bool becomesActive = Runtime::Current().ActiveForm() == &window.Model();
    const bool wasShown = window.IsShown();
    if (!wasShown && window.Model().IsModal()) {
        TakeModalOwner();
    }
    switch (window.Model().windowState()) {
        case WindowState::Minimized:
            if (!wasShown || ::IsIconic(handle) == 0) {
                ::ShowWindow(handle,
                             ::GetActiveWindow() == handle ? SW_MINIMIZE : SW_SHOWMINNOACTIVE);
            }
            return;
        case WindowState::Maximized:
            window.Fill();
            if (!wasShown || ::IsZoomed(handle) == 0) {
                ::ShowWindow(handle, SW_SHOWMAXIMIZED);
                window.placement.FollowMonitor();
            }
            return;
        case WindowState::Normal:
            break;
    }
    window.Fill();
    if (::IsIconic(handle) != 0 || ::IsZoomed(handle) != 0) {
        ::ShowWindow(handle, becomesActive ? SW_RESTORE : SW_SHOWNOACTIVATE);
        window.placement.FollowMonitor();
    } else if (!wasShown) {
        window.placement.FollowMonitor();
        // Unlike the first ShowWindow, SetWindowPos does not depend on how the program was started.
        ::SetWindowPos(handle, HWND_TOP, 0, 0, 0, 0,
                       SWP_SHOWWINDOW | SWP_NOMOVE | SWP_NOSIZE |
                           (becomesActive ? UINT{0} : UINT{SWP_NOACTIVATE}));
    }
    if (!wasShown && becomesActive) {
        wantsForeground = true;
    }
}

// A modal window stays in front of the window that opened it. If that window is activated, the
// modal window becomes active instead.
void WindowShowing::TakeModalOwner() {
    HWND owner = ::GetActiveWindow();
    const FormWindow* from = owner != nullptr ? FormWindow::From(owner) : nullptr;
    if (from != nullptr && from != &window && from->IsShown() && ::IsIconic(owner) == 0) {
        ::SetWindowLongPtrW(window.handle, GWLP_HWNDPARENT, reinterpret_cast<LONG_PTR>(owner));
        modalOwner = owner;
    }
}

void WindowShowing::Activate() {
    if (::IsIconic(window.handle) != 0) {
        return;
    }
    MarkUsed();
    if (wantsForeground) {
        ::SetForegroundWindow(window.handle);
    }
    if (::GetActiveWindow() != window.handle) {
        MakeActive(window.handle);
    }
    window.focus.Restore();
}

bool WindowShowing::CanBeActive() const {
    return window.IsLive() && window.IsShown() && ::IsIconic(window.handle) == 0 &&
           ::IsWindowEnabled(window.handle) != 0;
}

// The window that becomes active when this one is hidden or destroyed: the window of the form that
// the runtime has chosen, or else the window that was used most recently.
FormWindow* WindowShowing::Successor() const {
    const Form* chosen = Runtime::Exists() ? Runtime::Current().ActiveForm() : nullptr;
    if (chosen != nullptr && chosen != &window.Model()) {
        FormWindow* other = FormWindow::Existing(*chosen);
        return other != nullptr && other->showing.CanBeActive() ? other : nullptr;
    }
    const auto& windows = window.state.windows;
    const auto used =
        std::find_if(windows.rbegin(), windows.rend(), [this](const FormWindow* other) {
            return other != &window && other->showing.CanBeActive();
        });
    return used == windows.rend() ? nullptr : *used;
}

void WindowShowing::MarkUsed() {
    std::erase(window.state.windows, &window);
    window.state.windows.push_back(&window);
}

// First activate another window of the program. Otherwise, the system would choose the next active
// window, which might belong to another program.
void WindowShowing::Hide() {
    if (!window.IsShown()) {
        return;
    }
    if (::GetActiveWindow() == window.handle) {
        if (const FormWindow* next = Successor(); next != nullptr) {
            MakeActive(next->handle);
        }
    }
    ::ShowWindow(window.handle, SW_HIDE);
    GoBackToBaseOwner();
}

void WindowShowing::BringToForeground() {
    const Applying applying(window.state);
    wantsForeground = true;
    ::SetForegroundWindow(WindowToAnswer());
}

bool WindowShowing::IsTopMostShown(const StageState& state) {
    return std::any_of(state.windows.begin(), state.windows.end(), [](const FormWindow* window) {
        return window->IsLive() && window->Model().IsTopMost() && window->IsShown();
    });
}

void WindowShowing::KeepAnsweringOnTop(const StageState& state) {
    if (!IsTopMostShown(state)) {
        return;
    }
    for (const FormWindow* window : state.windows) {
        if (window->IsLive() && window->Model().IsModal() && window->IsShown()) {
            PutOnTop(window->handle);
        }
    }
    if (HWND box = OpenBox(); box != nullptr) {
        PutOnTop(box);
    }
}

// The window itself or, if it is shut off, the box or modal window that the user must close first.
HWND WindowShowing::WindowToAnswer() const {
    if (HWND box = boxes > 0 ? OpenBox() : nullptr; box != nullptr) {
        return box;
    }
    if (::IsWindowEnabled(window.handle) != 0) {
        return window.handle;
    }
    const auto& windows = window.state.windows;
    const auto modal = std::find_if(windows.begin(), windows.end(), [](const FormWindow* other) {
        return other->IsLive() && other->Model().IsModal() && other->IsShown() &&
               ::IsWindowEnabled(other->handle) != 0;
    });
    return modal != windows.end() ? (*modal)->handle : ::GetLastActivePopup(window.handle);
}

// Called when the user has chosen a window that is shut off, for example by its button in the task
// bar. Activates the window that the user must close first.
void WindowShowing::ActivateWindowToAnswer() {
    HWND target = WindowToAnswer();
    if (target == window.handle) {
        return;
    }
    if (::IsIconic(target) != 0) {
        ::ShowWindow(target, SW_RESTORE);
    }
    ::SetForegroundWindow(target);
}

void WindowShowing::ReleaseOwned() {
    for (FormWindow* other : window.state.windows) {
        if (other->showing.modalOwner == window.handle) {
            other->showing.GoBackToBaseOwner();
        }
    }
}

HWND WindowShowing::BaseOwner() const {
    // An owned window has no button in the task bar.
    return !window.IsLive() || window.Model().showInTaskbar ? nullptr : window.state.utility;
}

void WindowShowing::GoBackToBaseOwner() {
    ::SetWindowLongPtrW(window.handle, GWLP_HWNDPARENT, reinterpret_cast<LONG_PTR>(BaseOwner()));
    modalOwner = nullptr;
}

std::optional<LRESULT> WindowShowing::OnMessage(UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
        case WM_SYSCOMMAND:
            return IsShutOff() ? OnCommandWhileShutOff(wParam & 0xFFF0) : std::nullopt;
        case WM_SETCURSOR:
            if (IsPress(HIWORD(lParam)) && IsShutOff()) {
                ActivateWindowToAnswer();
            }
            return std::nullopt;
        case WM_ACTIVATE:
            OnActivate(wParam, reinterpret_cast<HWND>(lParam));
            return 0;
        case WM_SIZE:
            OnSize(wParam);
            return 0;
        default:
            return std::nullopt;
    }
}

// Handles the task bar's commands for a window that is shut off but still enabled, because it is
// minimised. If it were disabled, the system would ignore them.
std::optional<LRESULT> WindowShowing::OnCommandWhileShutOff(WPARAM command) {
    switch (command) {
        case SC_RESTORE:
            ActivateWindowToAnswer();
            return 0;
        case SC_MAXIMIZE:
        case SC_CLOSE:
            return 0;
        default:
            return std::nullopt;
    }
}

void WindowShowing::OnActivate(WPARAM wParam, HWND other) {
    const bool isMinimized = HIWORD(wParam) != 0;
    if (LOWORD(wParam) == WA_INACTIVE) {
        if (other != nullptr && IsBox(other) && IsTopMostShown(window.state)) {
            PutOnTop(other);
        }
        return;
    }
    if (window.state.applying == 0 && IsShutOff()) {
        ActivateWindowToAnswer();
        return;
    }
    if (isMinimized) {
        return;
    }
    window.focus.Restore();
    if (window.state.applying == 0) {
        MarkUsed();
        gestures::Activate(window.Model());
    }
}

void WindowShowing::OnSize(WPARAM kind) {
    if (boxes > 0 && ::IsWindowEnabled(window.handle) != 0) {
        ShutOff();
    }
    if (kind != SIZE_MINIMIZED) {
        ::InvalidateRect(window.handle, nullptr, FALSE);
    }
    if (window.state.applying != 0 || !window.IsShown()) {
        return;
    }
    const bool wasMinimized = window.Model().windowState() == WindowState::Minimized;
    if (kind != SIZE_MINIMIZED) {
        window.Fill();
    }
    window.placement.Report();
    if (wasMinimized && kind != SIZE_MINIMIZED && window.IsLive() &&
        ::GetActiveWindow() == window.handle) {
        window.focus.Restore();
        gestures::Activate(window.Model());
    }
}

}  // namespace forms::win32
