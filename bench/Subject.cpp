#include "bench/Subject.h"

#include <windows.h>
#include <commctrl.h>

#include "bench/Rest.h"
#include "forms/win32/Utf.h"
#include "tests/windows/Wait.h"

namespace bench {

using driver::Window;
using forms::win32::Wide;

namespace {

constexpr WPARAM trayIconId = 1;
constexpr DWORD limit = 60'000;  // milliseconds

struct Count {
    const wchar_t* className;
    int minimised;
};

BOOL CALLBACK CountMinimisedOne(HWND window, LPARAM data) {
    auto& count = *reinterpret_cast<Count*>(data);
    wchar_t name[32]{};
    if (::IsIconic(window) != 0 && ::GetClassNameW(window, name, 32) != 0 &&
        std::wstring(name) == count.className) {
        ++count.minimised;
    }
    return TRUE;
}

const wchar_t* ClassOf(bool isBaseline) { return isBaseline ? L"BaselineWindow" : L"FormWindow"; }

}  // namespace

Subject::Subject(const std::string& path, int noteCount, const std::string& children)
    : executable(path), notes(noteCount), isBaseline(!children.empty()) {
    program.Start(executable, isBaseline ? std::to_string(notes) + ' ' + children : "");
}

std::string Subject::Folder() const { return executable.substr(0, executable.rfind('\\')); }

Window Subject::Find(const std::string& caption, bool hasTitleBar) const {
    Window found;
    do {
        found = Window(
            ::FindWindowExW(nullptr, found.handle, ClassOf(isBaseline), Wide(caption).c_str()));
    } while (found && found.HasTitleBar() != hasTitleBar);
    return found;
}

Window Subject::FindBox(const std::string& caption) {
    return Window(::FindWindowW(L"#32770", Wide(caption).c_str()));
}

Window Subject::List() const {
    return Window(::FindWindowExW(Panel().handle, nullptr, L"SysListView32", nullptr));
}

bool Subject::PanelLists(int rows) const {
    const Window list = List();
    return list && ::SendMessageW(list.handle, LVM_GETITEMCOUNT, 0, 0) == rows && IsAtRest(Panel());
}

int Subject::CountMinimised() const {
    Count count{ClassOf(isBaseline), 0};
    ::EnumWindows(&CountMinimisedOne, reinterpret_cast<LPARAM>(&count));
    return count.minimised;
}

void Subject::AwaitStart() const {
    try {
        Await("start",
              [this] { return IsAtRest(Main()) && CountMinimised() == notes && !HasSplash(); });
    } catch (const driver::Failure& failure) {
        throw driver::Failure(failure.what() + program.Description());
    }
}

void Subject::ShowMain() const {
    const Window main = Main();
    main.Post(WM_MOUSEMOVE, trayIconId, WM_LBUTTONUP);
    Await("show the main window", [&] { return IsAtRest(main); });
}

double Subject::Click(const Window& window, const std::string& button,
                      const std::function<bool()>& done) {
    const Window pressed = window.Button(button);
    return Measure(
        button, [&] { pressed.Click(); }, done);
}

double Subject::MeasureWithBox(const std::string& action, const std::function<void()>& press,
                               const std::string& caption, int button,
                               const std::function<bool()>& done) {
    Window box;
    const double until = Measure(action, press, [&] {
        box = FindBox(caption);
        return box && IsAtRest(box);
    });
    const Window answer(::GetDlgItem(box.handle, button));
    return until + Measure(
                       action + ", answered", [&] { answer.Click(); },
                       [&] { return !box.Exists() && done(); });
}

void Subject::AnswerIfOpen(const std::string& caption) {
    if (const Window box = FindBox(caption); box && IsAtRest(box)) {
        const Window button(::FindWindowExW(box.handle, nullptr, L"Button", nullptr));
        ::SendMessageW(button.handle, BM_CLICK, 0, 0);
    }
}

double Subject::MeasureExit() {
    const Window button = Main().Button("E&xit");
    DWORD id = 0;
    ::GetWindowThreadProcessId(button.handle, &id);
    HANDLE process = ::OpenProcess(SYNCHRONIZE, FALSE, id);
    const double start = Now();
    button.Click();
    const bool hasEnded = ::WaitForSingleObject(process, limit) == WAIT_OBJECT_0;
    const double end = Now();
    ::CloseHandle(process);
    if (!hasEnded) {
        throw driver::Failure("exit: the program does not end");
    }
    return end - start;
}

}  // namespace bench
