#include "forms/win32/FormWindow.h"

#include <algorithm>
#include <utility>

#include "forms/Gestures.h"
#include "forms/Keyboard.h"
#include "forms/Runtime.h"
#include "forms/win32/Cursors.h"
#include "forms/win32/Destroying.h"
#include "forms/win32/Images.h"
#include "forms/win32/QuietWait.h"
#include "forms/win32/Utf.h"
#include "forms/win32/UtilityWindow.h"
#include "forms/win32/WindowStyle.h"

namespace forms::win32 {

namespace {

constexpr wchar_t className[] = L"FormWindow";

// No title bar shows more characters, and the system cannot create a window with a very long title.
constexpr std::size_t longestCaption = 1024;

std::wstring CaptionOf(const Form& form) { return Wide(form.caption()).substr(0, longestCaption); }

// Whether the message may run a handler of the form. (The messages at the end of the session go to
// the utility window.)
bool MayRunHandlers(UINT message) {
    switch (message) {
        case WM_ACTIVATE:
        case WM_MOVE:
        case WM_SIZE:
        case WM_CLOSE:
        case WM_COMMAND:
        case WM_CONTEXTMENU:
        case WM_MOUSEMOVE:
        case WM_LBUTTONUP:
        case WM_RBUTTONUP:
        case WM_MBUTTONUP:
            return true;
        default:
            return false;
    }
}

// Suspends the painting of a window that is on the screen. Otherwise each new control would be
// painted at once, and parts of the window several times.
class NoRedraw {
  public:
    explicit NoRedraw(HWND handle)
        : window(::IsWindowVisible(handle) != 0 && ::IsIconic(handle) == 0 ? handle : nullptr) {
        if (window != nullptr) {
            ::SendMessageW(window, WM_SETREDRAW, FALSE, 0);
        }
    }
    ~NoRedraw() {
        if (window != nullptr) {
            ::SendMessageW(window, WM_SETREDRAW, TRUE, 0);
            ::RedrawWindow(window, nullptr, nullptr,
                           RDW_INVALIDATE | RDW_ERASE | RDW_FRAME | RDW_ALLCHILDREN);
        }
    }
    NoRedraw(const NoRedraw&) = delete;
    NoRedraw& operator=(const NoRedraw&) = delete;

  private:
    HWND window;  // null if it is not on the screen
};

// Links a form to its window. Destroyed when the form is unloaded.
struct Link : Form::StageData {
    FormWindow* window = nullptr;
    ~Link() override {
        if (window != nullptr) {
            window->ScheduleDestroy();
        }
    }
};

}  // namespace

FormWindow::Entry::~Entry() {
    if (--window.entered == 0 && std::exchange(window.destroyMissed, false)) {
        ::PostMessageW(window.state.utility, UtilityWindow::destroyMessage, 0,
                       reinterpret_cast<LPARAM>(window.handle));
    }
}

FormWindow* FormWindow::Existing(const Form& form) {
    const auto* link = static_cast<const Link*>(form.stageData.get());
    return link != nullptr ? link->window : nullptr;
}

FormWindow* FormWindow::Of(Form& form, StageState& state) {
    if (!form.IsLoaded()) {
        return nullptr;
    }
    if (FormWindow* window = Existing(form); window != nullptr) {
        return window;
    }
    std::unique_ptr<FormWindow> made(new FormWindow(form, state));
    if (!made->CreateBare()) {
        return nullptr;
    }
    // From now on the native window owns this object, and deletes it when it gets WM_NCDESTROY.
    FormWindow* window = made.release();
    auto link = std::make_unique<Link>();
    link->window = window;
    form.stageData = std::move(link);
    return window;
}

FormWindow* FormWindow::From(HWND window) {
    DWORD process = 0;
    ::GetWindowThreadProcessId(window, &process);
    if (process != ::GetCurrentProcessId() ||
        ::GetClassLongPtrW(window, GCLP_WNDPROC) !=
            reinterpret_cast<ULONG_PTR>(&FormWindow::Procedure)) {
        return nullptr;
    }
    return reinterpret_cast<FormWindow*>(::GetWindowLongPtrW(window, GWLP_USERDATA));
}

FormWindow::~FormWindow() { std::erase(state.windows, this); }

bool FormWindow::CreateBare() {
    static const ATOM registered = [] {
        WNDCLASSEXW description{};
        description.cbSize = sizeof description;
        description.lpfnWndProc = &FormWindow::Procedure;
        description.hInstance = ::GetModuleHandleW(nullptr);
        description.hCursor = ArrowCursor();
        description.lpszClassName = className;
        return ::RegisterClassExW(&description);
    }();
    (void)registered;
    const Applying applying(state);
    scale = placement.ScaleAt(SystemDpi());
    const RECT place = placement.Wanted();
    beingMade = this;
    handle = ::CreateWindowExW(ExtendedStyleOf(*form), className, CaptionOf(*form).c_str(),
                               StyleOf(*form), place.left, place.top, place.right - place.left,
                               place.bottom - place.top, showing.BaseOwner(), nullptr,
                               ::GetModuleHandleW(nullptr), nullptr);
    beingMade = nullptr;
    if (handle == nullptr) {
        return false;
    }
    state.windows.push_back(this);
    placement.Adopt({place.left, place.top});
    ApplyIcon();
    showing.UpdateEnabled();
    return true;
}

void FormWindow::Fill() {
    if (isFilled) {
        return;
    }
    const Applying applying(state);
    if (::IsIconic(handle) == 0) {
        placement.FollowMonitor();
    }
    isFilled = true;
    {
        const NoRedraw noRedraw(handle);
        menus.MakeBar(handle, *form);
        controls.Create();
        focus.MarkDefaultButton();
    }
    ::SendMessageW(handle, WM_CHANGEUISTATE, MAKEWPARAM(UIS_INITIALIZE, 0), 0);
    placement.RestoreInnerSize();
}

void FormWindow::Apply(Aspect aspect) {
    const Applying applying(state);
    switch (aspect) {
        case Aspect::Caption:
            ::SetWindowTextW(handle, CaptionOf(*form).c_str());
            break;
        case Aspect::Bounds:
            placement.Apply();
            break;
        case Aspect::Picture:
            ApplyIcon();
            break;
        case Aspect::BackColor:
            surface.InvalidateAll();
            break;
        case Aspect::TopMost:
            ::SetWindowPos(handle, form->IsTopMost() ? HWND_TOPMOST : HWND_NOTOPMOST, 0, 0, 0, 0,
                           SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE);
            WindowShowing::KeepAnsweringOnTop(state);
            break;
        default:
            break;
    }
}

void FormWindow::ApplyIcon() {
    for (const auto& [kind, metric] : {std::pair<WPARAM, int>(ICON_SMALL, SM_CXSMICON),
                                       std::pair<WPARAM, int>(ICON_BIG, SM_CXICON)}) {
        const int pixels = SystemMetric(metric, scale.dpi);
        HICON icon =
            form->icon().path.empty() ? nullptr : images::FileIcon(form->icon().path, pixels);
        if (icon == nullptr) {
            icon = images::ProgramIcon(pixels);
        }
        ::SendMessageW(handle, WM_SETICON, kind, reinterpret_cast<LPARAM>(icon));
    }
}

void FormWindow::ScheduleDestroy() {
    const Applying applying(state);
    // If this window is active, another window must become active at once. Skip this at the end of
    // the program: hiding a hundred notes one by one would take most of the time.
    if (::GetActiveWindow() == handle && Runtime::Exists() && !Runtime::Current().HasEnded()) {
        showing.Hide();
    }
    showing.ReleaseOwned();
    DetachFromForm();
    destroyScheduled = true;
    // The posted message destroys the window. If the program is ending, the message is never
    // handled, on purpose: the system destroys all windows of a process faster than the process
    // could.
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
        return;
    }
    // A handler of the window is waiting, for example for a box.
    destroyMissed = true;
    if (IsShown()) {
        ::ShowWindow(handle, SW_HIDE);
    }
}

// Cuts the link between the form and the window, in both directions.
void FormWindow::DetachFromForm() {
    if (auto* link = static_cast<Link*>(form->stageData.get()); link != nullptr) {
        link->window = nullptr;
    }
    form = nullptr;
}

LRESULT CALLBACK FormWindow::Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_NCCREATE && beingMade != nullptr) {
        FormWindow* made = std::exchange(beingMade, nullptr);
        made->handle = window;
        ::SetWindowLongPtrW(window, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(made));
    }
    auto* target = reinterpret_cast<FormWindow*>(::GetWindowLongPtrW(window, GWLP_USERDATA));
    if (target == nullptr) {
        return ::DefWindowProcW(window, message, wParam, lParam);
    }
    if ((message == WM_DESTROY || message == WM_NCDESTROY) && !IsBeingDestroyed(window)) {
        return 0;
    }
    if (message == WM_NCDESTROY) {
        ::SetWindowLongPtrW(window, GWLP_USERDATA, 0);
        if (target->IsLive()) {
            target->DetachFromForm();  // the window that owns this one is being destroyed
        }
        const auto& windows = target->state.windows;
        const bool wasCreated = std::find(windows.begin(), windows.end(), target) != windows.end();
        if (wasCreated) {
            delete target;
        }
        return ::DefWindowProcW(window, message, wParam, lParam);
    }
    const Entry entry(*target);
    const std::optional<LRESULT> result =
        target->IsLive() ? target->OnMessage(message, wParam, lParam) : std::nullopt;
    return result ? *result : ::DefWindowProcW(window, message, wParam, lParam);
}

std::optional<LRESULT> FormWindow::OnMessage(UINT message, WPARAM wParam, LPARAM lParam) {
    if (IsWaitingQuietly() && MayRunHandlers(message)) {
        ::PostMessageW(handle, message, wParam, lParam);
        return 0;
    }
    const bool isOfTray = message == WM_MOUSEMOVE && pointer.IsTrayMessage(wParam, lParam);
    if (!isOfTray) {
        controls.tips.Relay(handle, message, wParam, lParam);
    }
    switch (message) {
        case WM_COMMAND:
            OnCommand(wParam, lParam);
            return 0;
        case WM_NOTIFY: {
            auto& header = *reinterpret_cast<NMHDR*>(lParam);
            Peer* peer = controls.Find(header.hwndFrom);
            return peer != nullptr ? peer->OnNotify(header) : std::nullopt;
        }
        case WM_INITMENUPOPUP:
            menus.Refresh(reinterpret_cast<HMENU>(wParam));
            return std::nullopt;
        case WM_CLOSE:
            gestures::Close(*form);
            return 0;
        default:
            break;
    }
    std::optional<LRESULT> result = surface.OnMessage(message, wParam, lParam);
    if (!result) {
        result = pointer.OnMessage(message, wParam, lParam);
    }
    if (!result) {
        result = focus.OnMessage(message, wParam, lParam);
    }
    if (!result) {
        result = showing.OnMessage(message, wParam, lParam);
    }
    // placement must be the last part that gets the message, because its handlers may unload the
    // form and still leave the message to the system.
    if (!result) {
        result = placement.OnMessage(message, wParam, lParam);
    }
    return result;
}

void FormWindow::OnCommand(WPARAM wParam, LPARAM lParam) {
    const int id = LOWORD(wParam);
    const auto& peers = controls.Peers();
    if (std::any_of(peers.begin(), peers.end(),
                    [id](const auto& peer) { return peer->PressButton(id); })) {
        return;
    }
    if (Peer* peer = controls.Find(reinterpret_cast<HWND>(lParam)); peer != nullptr) {
        peer->OnCommand(HIWORD(wParam));
    } else if (id == IDOK) {
        gestures::PressEnter(*form);
    } else if (id == IDCANCEL) {
        gestures::PressEscape(*form);
    } else if (Menu* menu = menus.Find(id); menu != nullptr) {
        gestures::Choose(*menu);
    }
}

}  // namespace forms::win32
