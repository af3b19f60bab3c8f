// Operates a program for bench/compare as a user would, and writes the results to standard output.
//
// usage: operate <command> [argument...]
//
//   answer <caption>       waits for a message box and presses its button
//   open-all               opens all notes through the control panel and waits until they are shown
//   hide                   hides the main window with its button
//   children <title>       writes the number of child windows of a window
//   close <title>          closes a window whose closing ends the program, and writes the
//                          milliseconds until the process has ended
//   type <title> <keys>    opens a minimised note, types <keys> letters into the middle of its
//                          text, and writes the median and the maximum milliseconds of one key,
//                          painting included
#include <windows.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <functional>
#include <string>
#include <vector>

#include "tests/windows/Wait.h"
#include "tests/windows/Window.h"

namespace {

using driver::Failure;
using driver::WaitUntil;
using driver::Window;

constexpr int patience = 60;  // seconds

BOOL CALLBACK Collect(HWND window, LPARAM data) {
    if (::IsWindowVisible(window) != 0) {
        reinterpret_cast<std::vector<Window>*>(data)->emplace_back(window);
    }
    return TRUE;
}

std::vector<Window> VisibleWindows() {
    std::vector<Window> windows;
    ::EnumWindows(&Collect, reinterpret_cast<LPARAM>(&windows));
    return windows;
}

Window WaitFor(const std::string& title) {
    Window found;
    WaitUntil("there is a window " + title, [&] {
        for (const Window& window : VisibleWindows()) {
            if (window.HasTitleBar() && window.Text() == title) {
                found = window;
                return true;
            }
        }
        return false;
    });
    return found;
}

double Milliseconds(const std::function<void()>& action) {
    LARGE_INTEGER frequency{};
    LARGE_INTEGER start{};
    LARGE_INTEGER end{};
    ::QueryPerformanceFrequency(&frequency);
    ::QueryPerformanceCounter(&start);
    action();
    ::QueryPerformanceCounter(&end);
    return static_cast<double>(end.QuadPart - start.QuadPart) * 1000 /
           static_cast<double>(frequency.QuadPart);
}

void Answer(const std::string& caption) {
    const Window box = WaitFor(caption);
    box.ChildrenOfClass("Button").front().Click();
    WaitUntil("the box has gone", [&] { return !box.Exists(); });
}

void OpenAll() {
    const Window main = WaitFor("Jotwright");
    WaitUntil("the main window can be used", [&] { return main.IsEnabled(); });
    main.Button("Notes &Control Panel").Click();
    const Window panel = WaitFor("Notes Control Panel");
    panel.Button("&Open All Notes").Click();
    WaitUntil("all notes are open", [] {
        const auto windows = VisibleWindows();
        return std::none_of(windows.begin(), windows.end(), [](const Window& window) {
            return window.ClassName() == driver::formClass && window.IsMinimized();
        });
    });
    main.Send(WM_NULL);
}

void Hide() {
    const Window main = WaitFor("Jotwright");
    WaitUntil("the main window can be used", [&] { return main.IsEnabled(); });
    main.Button("&Hide Me").Click();
    WaitUntil("it is hidden", [&] { return !main.IsVisible(); });
}

void Close(const std::string& title) {
    const Window window = WaitFor(title);
    DWORD id = 0;
    ::GetWindowThreadProcessId(window.handle, &id);
    HANDLE process = ::OpenProcess(SYNCHRONIZE, FALSE, id);
    const double taken = Milliseconds([&] {
        window.CloseBox();
        if (::WaitForSingleObject(process, patience * 1000) != WAIT_OBJECT_0) {
            throw Failure("the program does not end");
        }
    });
    ::CloseHandle(process);
    std::printf("%.1f\n", taken);
}

void Type(const std::string& title, int keys) {
    const Window note = WaitFor(title);
    note.Restore();
    WaitUntil("the note is open", [&] { return !note.IsMinimized(); });
    WaitUntil("it has its text", [&] { return !note.ChildrenOfClass("Edit").empty(); });
    const Window text = note.Only("Edit");
    const LRESULT middle = text.Send(WM_GETTEXTLENGTH) / 2;
    text.Send(EM_SETSEL, static_cast<WPARAM>(middle), middle);
    text.Send(EM_SCROLLCARET);
    std::vector<double> times;
    for (int key = 0; key < keys; ++key) {
        const auto letter = static_cast<WPARAM>('a' + key % 26);
        times.push_back(Milliseconds([&] {
            text.Send(WM_CHAR, letter, 1);
            text.Send(WM_PAINT);
        }));
    }
    if (text.Send(WM_GETTEXTLENGTH) / 2 < middle + keys / 2) {
        throw Failure("the keys did not arrive");
    }
    std::sort(times.begin(), times.end());
    std::printf("%.2f %.2f\n", times[times.size() / 2], times.back());
}

int Run(const std::vector<std::string>& arguments) {
    const std::string command = arguments.empty() ? std::string() : arguments[0];
    if (command == "answer" && arguments.size() == 2) {
        Answer(arguments[1]);
    } else if (command == "open-all" && arguments.size() == 1) {
        OpenAll();
    } else if (command == "hide" && arguments.size() == 1) {
        Hide();
    } else if (command == "children" && arguments.size() == 2) {
        std::printf("%zu\n", WaitFor(arguments[1]).Children().size());
    } else if (command == "close" && arguments.size() == 2) {
        Close(arguments[1]);
    } else if (command == "type" && arguments.size() == 3 && std::atoi(arguments[2].c_str()) > 0) {
        Type(arguments[1], std::atoi(arguments[2].c_str()));
    } else {
        return 2;
    }
    return 0;
}

}  // namespace

int main(int count, char** arguments) {
    try {
        return Run({arguments + 1, arguments + count});
    } catch (const Failure& failure) {
        std::fprintf(stderr, "operate: %s\n", failure.what());
        return 1;
    }
}
