#include "forms/win32/Pumps.h"

#include <commdlg.h>

#include <algorithm>
#include <optional>
#include <utility>
#include <vector>

#include "forms/Runtime.h"
#include "forms/win32/BoxText.h"
#include "forms/win32/Foreground.h"
#include "forms/win32/Internal.h"
#include "forms/win32/LateLibrary.h"
#include "forms/win32/Utf.h"

namespace forms::win32::pumps {

namespace {

// If the message is a key that moves the focus, presses a button or is an access key, handles it
// and returns true.
bool IsForForm(MSG& message) {
    if (message.message < WM_KEYFIRST || message.message > WM_KEYLAST) {
        return false;
    }
    HWND root = message.hwnd != nullptr ? ::GetAncestor(message.hwnd, GA_ROOT) : nullptr;
    FormWindow* window = root != nullptr ? FormWindow::From(root) : nullptr;
    return window != nullptr && window->focus.TakeKey(message);
}

// A hook in the loop of a box or dialog. Passes keys to the forms that can be used while the box is
// open. IsDialogMessage calls the hook again with the same message, and the hook ignores that call.
LRESULT CALLBACK KeysOfForms(int code, WPARAM wParam, LPARAM lParam) {
    static const MSG* beingTreated = nullptr;
    auto* message = reinterpret_cast<MSG*>(lParam);
    if (code == MSGF_DIALOGBOX && message != beingTreated) {
        const MSG* outer = beingTreated;
        beingTreated = message;
        const bool wasForForm = IsForForm(*message);
        beingTreated = outer;
        if (wasForForm) {
            return 1;
        }
    }
    return ::CallNextHookEx(nullptr, code, wParam, lParam);
}

class FormsHaveKeys {
  public:
    FormsHaveKeys()
        : hook(::SetWindowsHookExW(WH_MSGFILTER, &KeysOfForms, nullptr, ::GetCurrentThreadId())) {}
    ~FormsHaveKeys() { ::UnhookWindowsHookEx(hook); }
    FormsHaveKeys(const FormsHaveKeys&) = delete;
    FormsHaveKeys& operator=(const FormsHaveKeys&) = delete;

  private:
    HHOOK hook;
};

bool CanOwn(HWND window) {
    return window != nullptr && ::IsWindowVisible(window) != 0 && ::IsIconic(window) == 0 &&
           ::IsWindowEnabled(window) != 0;
}

// The form's window or box that this window belongs to. For example, the calendar of a date picker
// belongs to a form. The calendar closes when a box opens. If the calendar owned the box, the box
// would close too.
HWND FormOrBox(HWND window) {
    while (window != nullptr && FormWindow::From(window) == nullptr && !IsBox(window)) {
        window = ::GetWindow(window, GW_OWNER);
    }
    return window;
}

// The owner for a box or dialog: the window that the user is using, if any.
HWND OwnerForBox() {
    HWND owner = FormOrBox(::GetActiveWindow());
    if (!CanOwn(owner)) {
        const Form* form = Runtime::Current().ActiveForm();
        const FormWindow* window = form != nullptr ? FormWindow::Existing(*form) : nullptr;
        owner = window != nullptr && CanOwn(window->handle) ? window->handle : nullptr;
    }
    // While the user works in another program, only a flashing button in the task bar announces the
    // box. A box without an owner has its own button.
    return owner != nullptr && (HasForeground() || HasTaskbarButton(owner)) ? owner : nullptr;
}

// Shuts off the existing windows while a box is open. The system itself disables the owner of a
// box. If a message box has no owner, the system disables all windows (MB_TASKMODAL). Windows that
// appear later can be used.
class OthersShutOff {
  public:
    OthersShutOff(StageState& stageState, HWND owner) : state(stageState) {
        const Applying applying(state);
        const std::vector<FormWindow*> windows = state.windows;
        for (FormWindow* window : windows) {
            ++window->showing.boxes;
            counted.push_back(window);
            if (owner != nullptr && window->handle != owner) {
                window->showing.ShutOff();
            }
        }
    }
    ~OthersShutOff() {
        for (FormWindow* window : counted) {
            const bool exists = std::find(state.windows.begin(), state.windows.end(), window) !=
                                state.windows.end();
            if (exists && window->showing.boxes > 0 && --window->showing.boxes == 0 &&
                window->IsLive()) {
                window->showing.UpdateEnabled();
            }
        }
    }
    OthersShutOff(const OthersShutOff&) = delete;
    OthersShutOff& operator=(const OthersShutOff&) = delete;

  private:
    StageState& state;
    std::vector<FormWindow*> counted;
};

UINT BoxFlags(const MsgBoxOptions& options) {
    UINT flags = MB_SETFOREGROUND;
    flags |= options.buttons == BoxButtons::YesNo ? UINT{MB_YESNO} : UINT{MB_OK};
    if (options.secondIsDefault) {
        flags |= MB_DEFBUTTON2;
    }
    switch (options.icon) {
        case BoxIcon::None:
            break;
        case BoxIcon::Information:
            flags |= MB_ICONINFORMATION;
            break;
        case BoxIcon::Question:
            flags |= MB_ICONQUESTION;
            break;
        case BoxIcon::Exclamation:
            flags |= MB_ICONEXCLAMATION;
            break;
        case BoxIcon::Critical:
            flags |= MB_ICONERROR;
            break;
    }
    return flags;
}

BOOL CALLBACK EndBox(HWND window, LPARAM /*data*/) {
    if (!IsBox(window)) {
        return TRUE;
    }
    if (::GetDlgItem(window, IDCANCEL) != nullptr) {
        // Cancel a file dialog: EndDialog would bypass the object that runs it.
        ::PostMessageW(window, WM_COMMAND, IDCANCEL, 0);
    } else {
        ::EndDialog(window, IDCANCEL);
    }
    return TRUE;
}

}  // namespace

void Run(const std::function<bool()>& goesOn) {
    const Runtime& runtime = Runtime::Current();
    while (!runtime.HasEnded() && goesOn()) {
        MSG message{};
        // A WM_QUIT (result 0) ends this loop only if the runtime has ended, too.
        if (::GetMessageW(&message, nullptr, 0, 0) > 0 && !IsForForm(message)) {
            ::TranslateMessage(&message);
            ::DispatchMessageW(&message);
        }
        // Run due timers here, because the native timer waits until the queue is empty.
        if (runOverdueTimers) {
            runOverdueTimers();
        }
    }
}

void RunFor(int milliseconds) {
    const std::int64_t end = Machine().clock->MonotonicMilliseconds() + milliseconds;
    // The timer ends the wait for the next message.
    const UINT_PTR timer = ::SetTimer(nullptr, 0, static_cast<UINT>(milliseconds), nullptr);
    Run([end] { return Machine().clock->MonotonicMilliseconds() < end; });
    ::KillTimer(nullptr, timer);
}

BoxResult ShowMessageBox(StageState& state, const BoxRequest& request) {
    HWND owner = OwnerForBox();
    UINT flags = BoxFlags(request.options) | (owner == nullptr ? UINT{MB_TASKMODAL} : UINT{0});
    if (WindowShowing::IsTopMostShown(state)) {
        flags |= MB_TOPMOST;
    }
    const std::wstring text = TextThatFits(Wide(request.text));
    const std::wstring caption = Wide(request.caption);
    int answer = 0;
    {
        const OthersShutOff others(state, owner);
        const FormsHaveKeys keys;
        answer = ::MessageBoxW(owner, text.c_str(), caption.c_str(), flags);
    }
    if (request.options.buttons == BoxButtons::Ok) {
        return BoxResult::Ok;
    }
    return answer == IDYES ? BoxResult::Yes : BoxResult::No;
}

std::optional<std::string> ShowOpenDialog(StageState& state, const FormWindow* window,
                                          const FileDialogRequest& request) {
    std::wstring filter = Wide(request.filter);
    std::replace(filter.begin(), filter.end(), L'|', L'\0');
    filter.push_back(L'\0');
    const std::wstring folder = Wide(request.initialFolder);
    std::wstring path(32768, L'\0');
    OPENFILENAMEW dialog{};
    dialog.lStructSize = sizeof dialog;
    dialog.hwndOwner = window != nullptr && CanOwn(window->handle) ? window->handle : OwnerForBox();
    dialog.lpstrFilter = filter.c_str();
    dialog.lpstrFile = path.data();
    dialog.nMaxFile = static_cast<DWORD>(path.size());
    dialog.lpstrInitialDir = folder.empty() ? nullptr : folder.c_str();
    dialog.Flags =
        OFN_NOCHANGEDIR | OFN_FILEMUSTEXIST | OFN_PATHMUSTEXIST | OFN_HIDEREADONLY | OFN_EXPLORER;
    static const auto getName =
        FromLibrary<decltype(&::GetOpenFileNameW)>(L"comdlg32.dll", "GetOpenFileNameW");
    const OthersShutOff others(state, dialog.hwndOwner);
    const FormsHaveKeys keys;
    if (getName == nullptr || getName(&dialog) == FALSE) {
        return std::nullopt;
    }
    return Narrow(path.c_str());
}

Menu* ShowPopupMenu(StageState& state, FormWindow& window, Menu& menu) {
    const FormWindow::Entry entry(window);
    POINT pointer{};
    ::GetCursorPos(&pointer);
    // The place is for this menu only, not for menus that its commands open.
    const POINT place = std::exchange(state.menuPlace, std::nullopt).value_or(pointer);
    HMENU popup = window.menus.MakePopup(menu);
    HWND before = ::GetActiveWindow();
    // A menu closes when the user clicks elsewhere only if its window is in the foreground. It
    // takes keys only if its window can be used.
    const bool canUse =
        window.IsShown() && ::IsWindowEnabled(window.handle) != 0 && ::IsIconic(window.handle) == 0;
    HWND owner = canUse ? window.handle : state.utility;
    if (::GetForegroundWindow() != owner) {
        ::SetForegroundWindow(owner);
    }
    const UINT align =
        ::GetSystemMetrics(SM_MENUDROPALIGNMENT) != 0 ? UINT{TPM_RIGHTALIGN} : UINT{TPM_LEFTALIGN};
    const int id = ::TrackPopupMenuEx(popup, TPM_RETURNCMD | TPM_RIGHTBUTTON | align, place.x,
                                      place.y, owner, nullptr);
    ::PostMessageW(owner, WM_NULL, 0, 0);
    ::DestroyMenu(popup);
    if (owner == state.utility && before != nullptr && ::GetActiveWindow() == owner) {
        ::SetActiveWindow(before);
    }
    return id != 0 && window.IsLive() ? window.menus.Find(id) : nullptr;
}

void EndAll() {
    ::EndMenu();
    ::EnumThreadWindows(::GetCurrentThreadId(), &EndBox, 0);
    ::PostQuitMessage(0);
}

}  // namespace forms::win32::pumps
