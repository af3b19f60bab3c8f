#include "tests/windows/Program.h"

#include <algorithm>

#include "forms/win32/Utf.h"
#include "tests/windows/Wait.h"

namespace driver {

using forms::win32::Wide;

namespace {

constexpr DWORD endTimeout = 20000;  // milliseconds
constexpr const char* menuClass = "#32768";
constexpr const char* boxClass = "#32770";

struct Search {
    DWORD process;
    std::vector<Window> found;
};

BOOL CALLBACK Collect(HWND window, LPARAM data) {
    auto& search = *reinterpret_cast<Search*>(data);
    DWORD process = 0;
    ::GetWindowThreadProcessId(window, &process);
    if (process == search.process) {
        search.found.emplace_back(window);
    }
    return TRUE;
}

}  // namespace

Program::~Program() { Kill(); }

void Program::Forget() {
    ::CloseHandle(process);
    process = nullptr;
    id = 0;
}

void Program::Start(const std::string& path, const std::string& argument) {
    Kill();
    std::wstring command = Wide('"' + path + "\" " + argument);
    STARTUPINFOW startup{};
    startup.cb = sizeof startup;
    PROCESS_INFORMATION information{};
    if (::CreateProcessW(nullptr, command.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr,
                         &startup, &information) == 0) {
        throw Failure("cannot start " + path);
    }
    ::CloseHandle(information.hThread);
    process = information.hProcess;
    id = information.dwProcessId;
}

bool Program::Runs() const {
    return process != nullptr && ::WaitForSingleObject(process, 0) == WAIT_TIMEOUT;
}

DWORD Program::WaitForEnd() {
    if (::WaitForSingleObject(process, endTimeout) != WAIT_OBJECT_0) {
        throw Failure("the program does not end; its windows:" + Description());
    }
    DWORD code = 0;
    ::GetExitCodeProcess(process, &code);
    Forget();
    return code;
}

void Program::Kill() {
    if (process != nullptr) {
        ::TerminateProcess(process, 1);
        ::WaitForSingleObject(process, endTimeout);
        Forget();
    }
}

std::vector<Window> Program::Windows() const {
    Search search{id, {}};
    ::EnumWindows(&Collect, reinterpret_cast<LPARAM>(&search));
    return search.found;
}

std::vector<Window> Program::Visible(const std::string& caption,
                                     const std::string& className) const {
    std::vector<Window> found = Windows();
    std::erase_if(found, [&](const Window& window) {
        return !window.IsVisible() || (!className.empty() && window.ClassName() != className) ||
               window.Text() != caption;
    });
    return found;
}

Window Program::WaitFor(const std::string& caption, const std::string& className) const {
    Window found;
    const bool came = ComesTrue([&] {
        const auto windows = Visible(caption, className);
        found = windows.empty() ? Window() : windows.front();
        return static_cast<bool>(found);
    });
    if (!came) {
        throw Failure("waited in vain for a window \"" + caption +
                      "\"; those of the program:" + Description());
    }
    return found;
}

void Program::WaitUntilGone(const std::string& caption) const {
    if (!ComesTrue([&] { return Visible(caption).empty(); })) {
        throw Failure("the window \"" + caption +
                      "\" stays; those of the program:" + Description());
    }
}

Window Program::OpenMenu() const {
    for (const Window& window : Windows()) {
        if (window.IsVisible() && window.ClassName() == menuClass) {
            return window;
        }
    }
    return {};
}

std::string Program::Description() const {
    std::string text = Runs() ? "" : " (it has ended)";
    const auto windows = Windows();
    if (!windows.empty()) {
        GUITHREADINFO info{};
        info.cbSize = sizeof info;
        ::GetGUIThreadInfo(::GetWindowThreadProcessId(windows.front().handle, nullptr), &info);
        text += " active: " + Window(info.hwndActive).Description() +
                ", focus: " + Window(info.hwndFocus).Description() +
                ", foreground: " + Window(::GetForegroundWindow()).Description();
    }
    for (const Window& window : windows) {
        text += "\n  " + window.Description();
        if (window.ClassName() == boxClass) {
            for (const Window& child : window.Children()) {
                text += "\n    " + child.Description();
            }
        }
    }
    return text;
}

Box::Box(const Program& boxProgram, const std::string& caption)
    : window(boxProgram.WaitFor(caption, boxClass)) {}

std::string Box::Text() const {
    std::string text;
    for (const Window& child : window.ChildrenOfClass("Static")) {
        if ((child.Style() & SS_TYPEMASK) != SS_ICON) {
            text = child.Text();
        }
    }
    return text;
}

void Box::Press(const std::string& button) const {
    for (const Window& child : window.ChildrenOfClass("Button")) {
        std::string caption = child.Text();
        std::erase(caption, '&');
        if (caption == button) {
            child.Click();
            WaitUntil("the box has gone", [this] { return !window.Exists(); });
            return;
        }
    }
    throw Failure("no button " + button + " in " + window.Description());
}

}  // namespace driver
