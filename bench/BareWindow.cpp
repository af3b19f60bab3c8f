#include "bench/BareWindow.h"

namespace {

constexpr wchar_t className[] = L"BaselineWindow";
constexpr wchar_t childClassName[] = L"BaselineChild";
constexpr int width = 460;  // pixels; the size of a note window at 96 dpi
constexpr int height = 489;
constexpr int childrenInRow = 4;
constexpr int childWidth = 100;
constexpr int childHeight = 24;

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

}  // namespace

void RegisterBareClasses(WNDPROC procedure) {
    Register(className, procedure);
    Register(childClassName, &::DefWindowProcW);
    // Windows replaces the command of a process's first ShowWindow by the one in its STARTUPINFO.
    // This call uses up that replacement.
    ::ShowWindow(nullptr, SW_HIDE);
}

HWND MakeBareWindow(const std::wstring& title) {
    return ::CreateWindowExW(0, className, title.c_str(), WS_OVERLAPPEDWINDOW | WS_CLIPCHILDREN,
                             CW_USEDEFAULT, CW_USEDEFAULT, width, height, nullptr, nullptr,
                             ::GetModuleHandleW(nullptr), nullptr);
}

void MakeBareChildren(HWND parent, int count) {
    for (int child = 0; child < count; ++child) {
        ::CreateWindowExW(0, childClassName, L"", WS_CHILD | WS_VISIBLE | WS_CLIPSIBLINGS,
                          child % childrenInRow * childWidth, child / childrenInRow * childHeight,
                          childWidth, childHeight, parent, nullptr, ::GetModuleHandleW(nullptr),
                          nullptr);
    }
}

int RunMessageLoop() {
    MSG message{};
    while (::GetMessageW(&message, nullptr, 0, 0) > 0) {
        ::TranslateMessage(&message);
        ::DispatchMessageW(&message);
    }
    return 0;
}
