#include "portable/win32/ProgramRun.h"

#include <windows.h>

namespace portable::win32 {

namespace {

constexpr const wchar_t* className = L"JotwrightPortable";
// At the end of the session, programs with a higher level end first. The program has the default
// level, 0x280, so it ends before the launcher.
constexpr DWORD shutdownLevel = 0x200;
// Milliseconds. The system gives each program five seconds to end.
constexpr DWORD timeToEnd = 4000;

forms::win32::Handle Start(const std::wstring& folder) {
    std::wstring commandLine = L"\"" + folder + L"\\Jotwright.exe\"";
    STARTUPINFOW startup{};
    startup.cb = sizeof startup;
    PROCESS_INFORMATION made{};
    if (::CreateProcessW(nullptr, commandLine.data(), nullptr, nullptr, FALSE, 0, nullptr,
                         folder.c_str(), &startup, &made) == 0) {
        return forms::win32::Handle(nullptr);
    }
    ::CloseHandle(made.hThread);
    return forms::win32::Handle(made.hProcess);
}

LRESULT CALLBACK WindowProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_ENDSESSION && wParam != 0) {
        const auto* atSessionEnd = reinterpret_cast<const std::function<void()>*>(
            ::GetWindowLongPtrW(window, GWLP_USERDATA));
        (*atSessionEnd)();
        return 0;
    }
    return ::DefWindowProcW(window, message, wParam, lParam);
}

// Makes a hidden window, because the system announces the end of the session only to programs with
// a window. atSessionEnd must live as long as the window.
HWND MakeWindow(const std::function<void()>& atSessionEnd) {
    WNDCLASSW windowClass{};
    windowClass.lpfnWndProc = WindowProcedure;
    windowClass.hInstance = ::GetModuleHandleW(nullptr);
    windowClass.lpszClassName = className;
    ::RegisterClassW(&windowClass);
    HWND window = ::CreateWindowExW(0, className, L"Jotwright", WS_POPUP, 0, 0, 0, 0, nullptr,
                                    nullptr, windowClass.hInstance, nullptr);
    ::SetWindowLongPtrW(window, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(&atSessionEnd));
    return window;
}

}  // namespace

ProgramRun::ProgramRun(const std::wstring& folder) : process(Start(folder)) {}

void ProgramRun::WaitForEnd(const std::function<void()>& atEnd) const {
    if (process == nullptr) {
        atEnd();
        return;
    }
    bool hasEnded = false;
    const std::function<void()> atSessionEnd = [&] {
        ::WaitForSingleObject(process.get(), timeToEnd);
        hasEnded = true;
        atEnd();
    };
    HWND window = MakeWindow(atSessionEnd);
    ::SetProcessShutdownParameters(shutdownLevel, 0);
    HANDLE waited = process.get();
    while (!hasEnded &&
           ::MsgWaitForMultipleObjects(1, &waited, FALSE, INFINITE, QS_ALLINPUT) != WAIT_OBJECT_0) {
        MSG message{};
        while (::PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE) != 0) {
            ::DispatchMessageW(&message);
        }
    }
    ::DestroyWindow(window);
    if (!hasEnded) {
        atEnd();
    }
}

}  // namespace portable::win32
