#include <algorithm>
#include <cwchar>
#include <iterator>

#include "forms/Runtime.h"
#include "forms/win32/Dpi.h"
#include "forms/win32/FormWindow.h"
#include "forms/win32/Placing.h"

// How a form's window appears, disappears, moves and becomes the active one.
namespace forms::win32 {

namespace {

// Whether the user works with this program just now.
bool HasForeground() {
    DWORD process = 0;
    HWND foreground = ::GetForegroundWindow();
    return foreground != nullptr && ::GetWindowThreadProcessId(foreground, &process) != 0 &&
           process == ::GetCurrentProcessId();
}

// Stops at the box or dialog that waits for its answer and leaves it in *data.
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

// In front of all others; null where none is open.
HWND OpenBox() {
    HWND box = nullptr;
    ::EnumThreadWindows(::GetCurrentThreadId(), &FindOpenBox, reinterpret_cast<LPARAM>(&box));
    return box;
}

// Within the program, without taking the foreground from another one.
void MakeActive(HWND window) {
    if (HasForeground()) {
        ::SetForegroundWindow(window);
    }
    if (::GetActiveWindow() != window) {
        ::SetActiveWindow(window);
    }
}

}  // namespace

// Upper left corners of the windows that the user sees, or will see.
std::vector<POINT> FormWindow::TakenPlaces() const {
    std::vector<POINT> taken;
    for (const FormWindow* other : state.windows) {
        if (other != this && other->IsLive() && other->form->IsVisible()) {
            taken.push_back({other->Pixels(other->form->left), other->Pixels(other->form->top)});
        }
    }
    return taken;
}

RECT FormWindow::WantedPlace() const {
    const SIZE size = OuterSize();
    const bool wasPlaced = form->left() != 0 || form->top() != 0;
    if (form->centerOnScreen || form->borderStyle == BorderStyle::None) {
        return placing::Centered(size);
    }
    if (!wasPlaced) {
        const int step = SystemMetric(SM_CYCAPTION, dpi) + SystemMetric(SM_CYSIZEFRAME, dpi);
        return placing::Cascaded(size, step, TakenPlaces());
    }
    const int left = Pixels(form->left);
    const int top = Pixels(form->top);
    return placing::OnScreen({left, top, left + size.cx, top + size.cy});
}

void FormWindow::AdaptToMonitor() {
    const int resolution = DpiOf(handle);
    if (resolution == dpi) {
        return;
    }
    POINT corner{Pixels(form->left), Pixels(form->top)};
    dpi = resolution;
    if (form->centerOnScreen || form->borderStyle == BorderStyle::None) {
        const RECT place = WantedPlace();
        corner = {place.left, place.top};
    }
    form->left.Adopt(Twips(corner.x));
    form->top.Adopt(Twips(corner.y));
    ApplyIcon();
    ApplyBounds();
}

void FormWindow::ApplyBounds() {
    const int left = Pixels(form->left);
    const int top = Pixels(form->top);
    const auto [width, height] = OuterSize();
    if (::IsIconic(handle) == 0 && ::IsZoomed(handle) == 0) {
        ::SetWindowPos(handle, nullptr, left, top, width, height, SWP_NOZORDER | SWP_NOACTIVATE);
        return;
    }
    WINDOWPLACEMENT placement{};
    placement.length = sizeof placement;
    ::GetWindowPlacement(handle, &placement);
    const POINT origin = PlacementOrigin();
    placement.rcNormalPosition = RECT{left, top, left + width, top + height};
    ::OffsetRect(&placement.rcNormalPosition, -origin.x, -origin.y);
    if (!IsShown()) {
        placement.showCmd = SW_HIDE;
    } else if (::IsIconic(handle) != 0) {
        placement.showCmd = SW_SHOWMINNOACTIVE;
    }
    ::SetWindowPlacement(handle, &placement);
}

// Where the window will be when it is restored.
RECT FormWindow::RestoredPlace() const {
    WINDOWPLACEMENT placement{};
    placement.length = sizeof placement;
    ::GetWindowPlacement(handle, &placement);
    const POINT origin = PlacementOrigin();
    ::OffsetRect(&placement.rcNormalPosition, origin.x, origin.y);
    return placement.rcNormalPosition;
}

// A restored place is counted from the work area.
POINT FormWindow::PlacementOrigin() const {
    MONITORINFO monitor{};
    monitor.cbSize = sizeof monitor;
    ::GetMonitorInfoW(::MonitorFromWindow(handle, MONITOR_DEFAULTTONEAREST), &monitor);
    return {monitor.rcWork.left - monitor.rcMonitor.left,
            monitor.rcWork.top - monitor.rcMonitor.top};
}

void FormWindow::ComeIntoReach() {
    if (!IsLive()) {
        return;
    }
    RECT place{};
    ::GetWindowRect(handle, &place);
    if (::IsIconic(handle) != 0 || ::IsZoomed(handle) != 0) {
        place = RestoredPlace();
    }
    if (placing::IsReachable(place, SystemMetric(SM_CYCAPTION, dpi))) {
        return;
    }
    const RECT back = placing::OnScreen(place);
    const Applying applying(state);
    form->left.Adopt(Twips(back.left));
    form->top.Adopt(Twips(back.top));
    ApplyBounds();
}

void FormWindow::ShowOrHide() {
    const Applying applying(state);
    if (!form->IsVisible()) {
        Hide();
        return;
    }
    UpdateEnabled();
    Show();
    if (Runtime::Current().ActiveForm() == form) {
        Activate();
    }
    wantsForeground = false;
    // A window that a box shuts off must not cover it: nobody could answer any more.
    if (boxes > 0 && ::IsIconic(handle) == 0) {
        if (HWND box = OpenBox(); box != nullptr) {
            ::BringWindowToTop(box);
            MakeActive(box);
        }
    }
}

void FormWindow::Show() {
    const bool becomesActive = Runtime::Current().ActiveForm() == form;
    const bool wasShown = IsShown();
    if (!wasShown && form->IsModal()) {
        // It stays before the window that it was opened from, and is activated in its place.
        HWND owner = ::GetActiveWindow();
        const FormWindow* from = owner != nullptr ? From(owner) : nullptr;
        if (from != nullptr && from != this && from->IsShown() && ::IsIconic(owner) == 0) {
            ::SetWindowLongPtrW(handle, GWLP_HWNDPARENT, reinterpret_cast<LONG_PTR>(owner));
            modalOwner = owner;
        }
    }
    switch (form->windowState()) {
        case WindowState::Minimized:
            if (!wasShown || ::IsIconic(handle) == 0) {
                ::ShowWindow(handle,
                             ::GetActiveWindow() == handle ? SW_MINIMIZE : SW_SHOWMINNOACTIVE);
            }
            return;
        case WindowState::Maximized:
            Fill();
            if (!wasShown || ::IsZoomed(handle) == 0) {
                ::ShowWindow(handle, SW_SHOWMAXIMIZED);
            }
            return;
        case WindowState::Normal:
            break;
    }
    Fill();
    if (::IsIconic(handle) != 0 || ::IsZoomed(handle) != 0) {
        ::ShowWindow(handle, becomesActive ? SW_RESTORE : SW_SHOWNOACTIVATE);
    } else if (!wasShown) {
        // Unlike the first ShowWindow, this is not overruled by how the program was started.
        ::SetWindowPos(handle, HWND_TOP, 0, 0, 0, 0,
                       SWP_SHOWWINDOW | SWP_NOMOVE | SWP_NOSIZE |
                           (becomesActive ? UINT{0} : UINT{SWP_NOACTIVATE}));
    }
    if (!wasShown && becomesActive) {
        wantsForeground = true;
    }
}

void FormWindow::Activate() {
    if (::IsIconic(handle) != 0) {
        return;
    }
    MarkUsed();
    if (wantsForeground) {
        ::SetForegroundWindow(handle);
    }
    if (::GetActiveWindow() != handle) {
        MakeActive(handle);
    }
    RestoreFocus();
}

bool FormWindow::CanBeActive() const {
    return IsLive() && IsShown() && ::IsIconic(handle) == 0 && ::IsWindowEnabled(handle) != 0;
}

// The window that becomes active when this one goes: the one that the runtime has chosen, else the
// one that was used before.
FormWindow* FormWindow::Successor() const {
    const Form* chosen = Runtime::Exists() ? Runtime::Current().ActiveForm() : nullptr;
    if (chosen != nullptr && chosen != form) {
        FormWindow* window = Existing(*chosen);
        return window != nullptr && window->CanBeActive() ? window : nullptr;
    }
    const auto used = std::find_if(
        state.windows.rbegin(), state.windows.rend(),
        [this](const FormWindow* window) { return window != this && window->CanBeActive(); });
    return used == state.windows.rend() ? nullptr : *used;
}

void FormWindow::MarkUsed() {
    std::erase(state.windows, this);
    state.windows.push_back(this);
}

// The successor takes over before the window goes: the system would hand the keyboard to whatever
// it finds, which may be another program.
void FormWindow::Hide() {
    if (!IsShown()) {
        return;
    }
    if (::GetActiveWindow() == handle) {
        if (const FormWindow* next = Successor(); next != nullptr) {
            MakeActive(next->handle);
        }
    }
    ::ShowWindow(handle, SW_HIDE);
    GoBackToBaseOwner();
}

void FormWindow::BringToForeground() {
    const Applying applying(state);
    wantsForeground = true;
    HWND target = handle;
    if (HWND box = boxes > 0 ? OpenBox() : nullptr; box != nullptr) {
        target = box;
    } else if (::IsWindowEnabled(handle) == 0) {
        // A modal window or a box stands before it.
        const Form* active = Runtime::Current().ActiveForm();
        const FormWindow* other = active != nullptr ? Existing(*active) : nullptr;
        target = other != nullptr && other != this && other->IsShown()
                     ? other->handle
                     : ::GetLastActivePopup(handle);
    }
    ::SetForegroundWindow(target);
}

void FormWindow::RestoreFocus() {
    Control* control = form->ActiveControl();
    const Peer* peer = control != nullptr ? PeerOf(*control) : nullptr;
    HWND target = peer != nullptr && peer->handle != nullptr ? peer->handle : handle;
    if (::GetFocus() != target) {
        const bool before = state.movingFocus;
        state.movingFocus = true;
        ::SetFocus(target);
        state.movingFocus = before;
    }
}

}  // namespace forms::win32
