// The baseline for bench/compare: a bare Windows program that creates plain top-level windows and
// waits. No program that shows the same number of windows can cost less.
//
// usage: baseline <windows> <minimised|shown> [<child windows of each>]
//
// The window titles are "Baseline 1", "Baseline 2" and so on. Closing any window ends the program.
#include <windows.h>

#include <cstdlib>
#include <cstring>
#include <string>

namespace {

constexpr wchar_t className[] = L"BaselineWindow";
constexpr wchar_t childClassName[] = L"BaselineChild";
constexpr int width = 460;  // pixels; the size of a note window at 96 dpi
constexpr int height = 489;
constexpr int childrenInRow = 4;
constexpr int childWidth = 100;
constexpr int childHeight = 24;

LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_CLOSE) {
        ::PostQuitMessage(0);
        return 0;
    }
    return ::DefWindowProcW(window, message, wParam, lParam);
}

void Register(const wchar_t* name, WNDPROC procedure) {
    WNDCLASSEXW description{};
    description.cbSize = sizeof description;
    description.lpfnWndProc = procedure;
    description.hInstance = ::GetModuleHandleW(nullptr);
    description.hCursor = ::LoadCursorW(nullptr, MAKEINTRESOURCEW(32512));  // IDC_ARROW
    description.hbrBackground = ::GetSysColorBrush(COLOR_BTNFACE);
    description.lpszClassName = name;
    ::RegisterClassExW(&description);
}

void MakeWindow(int number, int showCommand, int children) {
    const std::wstring title = L"Baseline " + std::to_wstring(number);
    HWND window = ::CreateWindowExW(
        0, className, title.c_str(), WS_OVERLAPPEDWINDOW | WS_CLIPCHILDREN, CW_USEDEFAULT,
        CW_USEDEFAULT, width, height, nullptr, nullptr, ::GetModuleHandleW(nullptr), nullptr);
    for (int child = 0; child < children; ++child) {
        ::CreateWindowExW(0, childClassName, L"", WS_CHILD | WS_VISIBLE | WS_CLIPSIBLINGS,
                          child % childrenInRow * childWidth, child / childrenInRow * childHeight,
                          childWidth, childHeight, window, nullptr, ::GetModuleHandleW(nullptr),
                          nullptr);
    }
    ::ShowWindow(window, showCommand);
}

}  // namespace

int main(int count, char** arguments) {
    if (count < 3) {
        return 2;
    }
    const int windows = std::atoi(arguments[1]);
    const bool minimised = std::strcmp(arguments[2], "minimised") == 0;
    const int children = count > 3 ? std::atoi(arguments[3]) : 0;
    Register(className, &Procedure);
    Register(childClassName, &::DefWindowProcW);
    // Windows replaces the command of a process's first ShowWindow by the one in its STARTUPINFO.
    // This call uses up that replacement.
    ::ShowWindow(nullptr, SW_HIDE);
    for (int number = 1; number <= windows; ++number) {
        MakeWindow(number, minimised ? SW_SHOWMINNOACTIVE : SW_SHOW, children);
    }
    MSG message{};
    while (::GetMessageW(&message, nullptr, 0, 0) > 0) {
        ::TranslateMessage(&message);
        ::DispatchMessageW(&message);
    }
    return 0;
}
