#include "forms/win32/UtilityWindow.h"

#include <algorithm>
#include <array>

#include "forms/Devices.h"
#include "forms/Gestures.h"
#include "forms/Runtime.h"
#include "forms/win32/Decoder.h"
#include "forms/win32/Fonts.h"
#include "forms/win32/ForeignPointer.h"
#include "forms/win32/FormWindow.h"
#include "forms/win32/Internal.h"
#include "forms/win32/Placing.h"

namespace forms::win32 {

namespace {

// The installer finds a running copy by this class name, and ends it with WM_ENDSESSION.
constexpr wchar_t className[] = L"FormsUtility";
constexpr UINT_PTR timerId = 1;
constexpr std::int64_t longestWait = 60 * 60 * 1000;

bool RuntimeRuns() { return Runtime::Exists() && !Runtime::Current().HasEnded(); }

void FollowWallClock() {
    if (RuntimeRuns()) {
        Runtime::Current().timers.Realign();
    }
}

// Whether the setting that has changed is a format of dates, times or numbers.
bool IsAboutFormats(LPARAM setting) {
    constexpr std::array<wchar_t, 5> international{L'i', L'n', L't', L'l', L'\0'};
    return setting != 0 && ReadAt<std::array<wchar_t, 5>>(setting) == international;
}

// Moves only message boxes and dialogs. The windows of forms move themselves.
BOOL CALLBACK MoveBoxOntoScreen(HWND window, LPARAM /*data*/) {
    RECT place{};
    ::GetWindowRect(window, &place);
    const bool isBox = FormWindow::From(window) == nullptr && ::IsWindowVisible(window) != 0 &&
                       (::GetWindowLongPtrW(window, GWL_STYLE) & WS_CAPTION) == WS_CAPTION;
    if (isBox && !placing::IsReachable(place, ::GetSystemMetrics(SM_CYCAPTION))) {
        const RECT back = placing::OnScreen(place);
        ::SetWindowPos(window, nullptr, back.left, back.top, 0, 0,
                       SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
    }
    return TRUE;
}

}  // namespace

UtilityWindow::UtilityWindow(StageState& stageState) : state(stageState) {
    static const ATOM registered = [] {
        WNDCLASSEXW description{};
        description.cbSize = sizeof description;
        description.lpfnWndProc = &UtilityWindow::Procedure;
        description.hInstance = ::GetModuleHandleW(nullptr);
        description.lpszClassName = className;
        return ::RegisterClassExW(&description);
    }();
    (void)registered;
    taskbarCreated = ::RegisterWindowMessageW(L"TaskbarCreated");
    window = ::CreateWindowExW(WS_EX_TOOLWINDOW, className, L"", WS_POPUP, 0, 0, 0, 0, nullptr,
                               nullptr, ::GetModuleHandleW(nullptr), nullptr);
    ::SetWindowLongPtrW(window, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
    // Without this, the system would block the message if the program runs as administrator,
    // because the shell has fewer rights.
    ::ChangeWindowMessageFilterEx(window, taskbarCreated, MSGFLT_ALLOW, nullptr);
}

UtilityWindow::~UtilityWindow() {
    ::SetWindowLongPtrW(window, GWLP_USERDATA, 0);
    ::DestroyWindow(window);
}

bool UtilityWindow::IsLate(std::int64_t milliseconds) const {
    return armedFor && RuntimeRuns() &&
           Machine().clock->MonotonicMilliseconds() >= *armedFor + milliseconds;
}

void UtilityWindow::RunOverdue() {
    if (IsLate(0)) {
        RunTimers();
    }
}

void UtilityWindow::RunTimers() {
    if (RuntimeRuns()) {
        Runtime::Current().RunDueTimers();
    }
    decoder::ReleaseIfUnused();
    if (onTimer) {
        onTimer();
    }
}

void UtilityWindow::CatchUp() {
    // Gives the native timer a chance to fire first.
    constexpr std::int64_t late = 50;
    if (!catchingUp && IsLate(late)) {
        catchingUp = ::PostMessageW(window, catchUpMessage, 0, 0) != 0;
    }
}

void UtilityWindow::ArmTimer(std::optional<std::int64_t> due) {
    armedFor = due;
    if (!due) {
        ::KillTimer(window, timerId);
        return;
    }
    const std::int64_t wait = *due - Machine().clock->MonotonicMilliseconds();
    const std::int64_t least = USER_TIMER_MINIMUM;
    ::SetTimer(window, timerId, static_cast<UINT>(std::clamp(wait, least, longestWait)), nullptr);
}

LRESULT CALLBACK UtilityWindow::Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    auto* target = reinterpret_cast<UtilityWindow*>(::GetWindowLongPtrW(window, GWLP_USERDATA));
    return target != nullptr ? target->OnMessage(message, wParam, lParam)
                             : ::DefWindowProcW(window, message, wParam, lParam);
}

LRESULT UtilityWindow::OnMessage(UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
        case WM_TIMER:
            RunTimers();
            return 0;
        case catchUpMessage:
            catchingUp = false;
            RunOverdue();
            return 0;
        case WM_DESTROY:
        case WM_NCDESTROY:
            return 0;  // sent by another program: this object destroys the window
        case destroyMessage:
            // The window may no longer exist.
            if (auto* closing = FormWindow::From(reinterpret_cast<HWND>(lParam));
                closing != nullptr) {
                closing->DestroyIfScheduled();
            }
            return 0;
        case WM_QUERYENDSESSION:
            return TRUE;
        case WM_ENDSESSION:
            if (wParam != FALSE && RuntimeRuns()) {
                // If saving takes long, the system shows this text to the user.
                ::ShutdownBlockReasonCreate(window, state.savingText.c_str());
                gestures::EndSession();
                ::ShutdownBlockReasonDestroy(window);
            }
            return 0;
        case WM_TIMECHANGE:
            FollowWallClock();
            return 0;
        case WM_POWERBROADCAST:
            if (wParam == PBT_APMRESUMEAUTOMATIC || wParam == PBT_APMRESUMESUSPEND) {
                FollowWallClock();
            }
            return TRUE;
        case WM_DISPLAYCHANGE:
            OnDisplayChange();
            return 0;
        case WM_SETTINGCHANGE:
            if (wParam == SPI_SETWORKAREA) {
                OnDisplayChange();
            }
            if (wParam == SPI_SETNONCLIENTMETRICS || IsAboutFormats(lParam)) {
                OnUserSettings();
            }
            return 0;
        case WM_CLOSE:
            return 0;  // Ignore tools that close every window of a program.
        default:
            if (message == taskbarCreated && onTaskbarCreated) {
                onTaskbarCreated();
            }
            return ::DefWindowProcW(window, message, wParam, lParam);
    }
}

void UtilityWindow::OnUserSettings() {
    const std::vector<HFONT> oldFonts = fonts::Forget();
    state.textPercent = TextPercent();
    const std::vector<FormWindow*> windows = state.windows;
    for (FormWindow* form : windows) {
        form->placement.FollowUserSettings();
    }
    for (HFONT font : oldFonts) {
        ::DeleteObject(font);
    }
}

void UtilityWindow::OnDisplayChange() {
    const std::vector<FormWindow*> windows = state.windows;
    for (FormWindow* form : windows) {
        form->placement.MoveOntoScreen();
    }
    ::EnumThreadWindows(::GetCurrentThreadId(), &MoveBoxOntoScreen, 0);
    if (onDisplayChange) {
        onDisplayChange();
    }
}

}  // namespace forms::win32
