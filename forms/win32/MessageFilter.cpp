#include "forms/win32/MessageFilter.h"

#include "forms/Runtime.h"
#include "forms/win32/FormWindow.h"
#include "forms/win32/Messages.h"
#include "forms/win32/UtilityWindow.h"

namespace forms::win32 {

namespace {

UtilityWindow* utility = nullptr;

// The range of the messages to the system's controls. Many of them contain pointers, and the system
// never posts them.
constexpr UINT firstControlMessage = 0x1000;
constexpr UINT lastControlMessage = 0x1FFF;

bool IsFormOrUtility(HWND window) {
    return window == utility->handle() || FormWindow::From(window) != nullptr;
}

bool IsOnForm(HWND window) {
    return window != nullptr && FormWindow::From(::GetAncestor(window, GA_ROOT)) != nullptr;
}

bool IsForged(const MSG& message) {
    switch (message.message) {
        case WM_QUIT:
            // Only the program itself may end its loops, after it has saved the notes.
            return Runtime::Exists() && !Runtime::Current().HasEnded();
        case WM_NCCREATE:
        case WM_CREATE:
        case WM_DESTROY:
        case WM_NCDESTROY:
        case WM_NCCALCSIZE:
        case WM_GETMINMAXINFO:
        case WM_WINDOWPOSCHANGING:
        case WM_WINDOWPOSCHANGED:
        case WM_STYLECHANGING:
        case WM_STYLECHANGED:
        case WM_DRAWITEM:
        case WM_MEASUREITEM:
        case WM_DELETEITEM:
        case WM_COMPAREITEM:
        case WM_NOTIFY:
        case WM_GETDLGCODE:
        case WM_SETTEXT:
        case WM_GETTEXT:
        case EM_SETHANDLE:
        case EM_SETWORDBREAKPROC:
        case scaleChangedMessage:
        case scaledSizeMessage:
            return true;
        case WM_TIMER:
            // lParam is the address of a callback, which DispatchMessage would call. No timer of
            // these windows has a callback.
            return message.lParam != 0 && IsFormOrUtility(message.hwnd);
        default:
            return message.message >= firstControlMessage &&
                   message.message <= lastControlMessage && IsOnForm(message.hwnd);
    }
}

}  // namespace

MessageFilter::MessageFilter(UtilityWindow& utilityWindow) {
    utility = &utilityWindow;
    hook = ::SetWindowsHookExW(WH_GETMESSAGE, &MessageFilter::Procedure, nullptr,
                               ::GetCurrentThreadId());
}

MessageFilter::~MessageFilter() {
    ::UnhookWindowsHookEx(hook);
    utility = nullptr;
}

LRESULT CALLBACK MessageFilter::Procedure(int code, WPARAM wParam, LPARAM lParam) {
    if (code == HC_ACTION && utility != nullptr) {
        auto& message = *reinterpret_cast<MSG*>(lParam);
        if (IsForged(message)) {
            message.message = WM_NULL;
            message.wParam = 0;
            message.lParam = 0;
        }
        const bool isTimer = message.message == WM_TIMER && message.hwnd == utility->handle();
        if (wParam == PM_REMOVE && !isTimer) {
            utility->CatchUp();
        }
    }
    return ::CallNextHookEx(nullptr, code, wParam, lParam);
}

}  // namespace forms::win32
