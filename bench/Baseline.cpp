// The baseline for bench/compare: a bare Windows program that creates plain top-level windows and
// waits. No program that shows the same number of windows can cost less.
//
// usage: baseline <windows> <minimised|shown> [<child windows of each>]
//
// The window titles are "Baseline 1", "Baseline 2" and so on. Closing any window ends the program.
#include <cstdlib>
#include <cstring>
#include <string>

#include "bench/BareWindow.h"

namespace {

LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_CLOSE) {
        ::PostQuitMessage(0);
        return 0;
    }
    return ::DefWindowProcW(window, message, wParam, lParam);
}

}  // namespace

int main(int count, char** arguments) {
    if (count < 3) {
        return 2;
    }
    const int windows = std::atoi(arguments[1]);
    const bool minimised = std::strcmp(arguments[2], "minimised") == 0;
    const int children = count > 3 ? std::atoi(arguments[3]) : 0;
    RegisterBareClasses(&Procedure);
    for (int number = 1; number <= windows; ++number) {
        HWND window = MakeBareWindow(L"Baseline " + std::to_wstring(number));
        MakeBareChildren(window, children);
        ::ShowWindow(window, minimised ? SW_SHOWMINNOACTIVE : SW_SHOW);
    }
    return RunMessageLoop();
}
