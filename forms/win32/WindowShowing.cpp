#include "forms/win32/WindowShowing.h"

#include <algorithm>
#include <cwchar>
#include <iterator>

#include "forms/Gestures.h"
#include "forms/Runtime.h"
#include "forms/win32/FormWindow.h"

namespace forms::win32 {

namespace {

// Whether the user is using this program now.
bool HasForeground() {
    DWORD process = 0;
    HWND foreground = ::GetForegroundWindow();
    return foreground != nullptr && ::GetWindowThreadProcessId(foreground, &process) != 0 &&
           process == ::GetCurrentProcessId();
}

// Stores the first open box or dialog in *data.
BOOL CALLBACK FindOpenBox(HWND window, LPARAM data) {
    wchar_t name[16] = L"";
    ::GetClassNameW(window, name, static_cast<int>(std::size(name)));
    const bool waits = std::wcscmp(name, L"#32770") == 0 && ::IsWindowVisible(window) != 0 &&
                       ::IsWindowEnabled(window) != 0;
    if (waits) {
        *reinterpret_cast<HWND*>(data) = window;
    }
    return waits ? FALSE : TRUE;
}

// The foremost open box or dialog. Null if none is open.
HWND OpenBox() {
    HWND box = nullptr;
    ::EnumThreadWindows(::GetCurrentThreadId(), &FindOpenBox, reinterpret_cast<LPARAM>(&box));
    return box;
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
    // A window that a box disables must not cover the box, because the user could not answer it.
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
// the runtime has chosen, or else the window that was used before.
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
    HWND target = window.handle;
    if (HWND box = boxes > 0 ? OpenBox() : nullptr; box != nullptr) {
        target = box;
    } else if (::IsWindowEnabled(window.handle) == 0) {
        // A modal window or a box is in front of it.
        const Form* active = Runtime::Current().ActiveForm();
        const FormWindow* other = active != nullptr ? FormWindow::Existing(*active) : nullptr;
        target = other != nullptr && other != &window && other->IsShown()
                     ? other->handle
                     : ::GetLastActivePopup(window.handle);
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

std::optional<LRESULT> WindowShowing::OnMessage(UINT message, WPARAM wParam) {
    switch (message) {
        case WM_ACTIVATE:
            OnActivate(wParam);
            return 0;
        case WM_SIZE:
            OnSize(wParam);
            return 0;
        default:
            return std::nullopt;
    }
}

void WindowShowing::OnActivate(WPARAM wParam) {
    const bool isMinimized = HIWORD(wParam) != 0;
    if (LOWORD(wParam) == WA_INACTIVE || isMinimized) {
        return;
    }
    window.focus.Restore();
    if (window.state.applying == 0) {
        MarkUsed();
        gestures::Activate(window.Model());
    }
}

void WindowShowing::OnSize(WPARAM kind) {
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
