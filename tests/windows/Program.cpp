#include "tests/windows/Program.h"

#include <windows.h>
#include <psapi.h>

#include <algorithm>

#include "forms/win32/Utf.h"
#include "tests/windows/Wait.h"

namespace driver {

using forms::win32::Wide;

namespace {

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

BOOL CALLBACK CountOne(HWND /*window*/, LPARAM data) {
    ++*reinterpret_cast<std::size_t*>(data);
    return TRUE;
}

// The structures of the system's list of all handles.
struct HandleEntry {
    void* object;
    ULONG_PTR process;
    ULONG_PTR handle;
    ULONG access;
    USHORT creator;
    USHORT type;
    ULONG attributes;
    ULONG reserved;
};
struct HandleList {
    ULONG_PTR count;
    ULONG_PTR reserved;
    HandleEntry entries[1];
};
constexpr ULONG listOfHandles = 64;
constexpr auto tooSmall = static_cast<LONG>(0xC0000004);  // STATUS_INFO_LENGTH_MISMATCH
constexpr std::size_t mostMemory = 1U << 26U;             // elements
using QuerySystem = LONG(WINAPI*)(ULONG information, void* memory, ULONG size, ULONG* needed);

// The handles of a process. Empty if the system does not report them. GetProcessHandleCount would
// be simpler, but some systems lack it.
std::vector<HANDLE> HandlesOf(DWORD process) {
    const auto query = reinterpret_cast<QuerySystem>(reinterpret_cast<void*>(
        ::GetProcAddress(::GetModuleHandleW(L"ntdll.dll"), "NtQuerySystemInformation")));
    if (query == nullptr) {
        return {};
    }
    std::vector<ULONG_PTR> memory(1 << 17);
    const auto ask = [&] {
        const auto size = static_cast<ULONG>(memory.size() * sizeof(ULONG_PTR));
        return query(listOfHandles, memory.data(), size, nullptr);
    };
    LONG status = ask();
    while (status == tooSmall && memory.size() < mostMemory) {
        memory.resize(memory.size() * 2);
        status = ask();
    }
    if (status != 0) {
        return {};
    }
    const auto& list = *reinterpret_cast<const HandleList*>(memory.data());
    std::vector<HANDLE> handles;
    for (const HandleEntry* entry = list.entries; entry != list.entries + list.count; ++entry) {
        if (entry->process == process) {
            handles.push_back(reinterpret_cast<HANDLE>(entry->handle));
        }
    }
    return handles;
}

// CompareObjectHandles, which tells whether two handles refer to the same object. Null before
// Windows 10.
using Compare = BOOL(WINAPI*)(HANDLE, HANDLE);
Compare CompareHandles() {
    return reinterpret_cast<Compare>(reinterpret_cast<void*>(
        ::GetProcAddress(::GetModuleHandleW(L"kernelbase.dll"), "CompareObjectHandles")));
}

// A job that ends its processes when this program ends, even if this program crashes. The next run
// of the tests would take a program that is left behind for the user's own.
HANDLE JobOfThisProgram() {
    static const HANDLE job = [] {
        HANDLE made = ::CreateJobObjectW(nullptr, nullptr);
        JOBOBJECT_EXTENDED_LIMIT_INFORMATION limits{};
        limits.BasicLimitInformation.LimitFlags =
            JOB_OBJECT_LIMIT_KILL_ON_JOB_CLOSE | JOB_OBJECT_LIMIT_SILENT_BREAKAWAY_OK;
        ::SetInformationJobObject(made, JobObjectExtendedLimitInformation, &limits, sizeof limits);
        return made;
    }();
    return job;
}

}  // namespace

bool Objects::AreNoMoreThan(const Objects& before) const {
    return windows == before.windows && children == before.children && handles <= before.handles &&
           gdi <= before.gdi && user <= before.user;
}

std::string Objects::Text() const {
    return std::to_string(windows) + " windows, " + std::to_string(children) + " children, " +
           std::to_string(handles) + " handles, " + std::to_string(gdi) + " GDI objects, " +
           std::to_string(user) + " USER objects";
}

Program::~Program() { Kill(); }

void Program::Forget() {
    ::CloseHandle(process);
    process = nullptr;
    id = 0;
}

void Program::Start(const std::string& path, const std::string& arguments) {
    Kill();
    std::wstring command = L'"' + Wide(path) + L"\" " + Wide(arguments);
    STARTUPINFOW startup{};
    startup.cb = sizeof startup;
    PROCESS_INFORMATION information{};
    if (::CreateProcessW(nullptr, command.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr,
                         &startup, &information) == 0) {
        throw Failure("cannot start " + path);
    }
    ::CloseHandle(information.hThread);
    // Windows 7 refuses this if this program is in a job itself.
    ::AssignProcessToJobObject(JobOfThisProgram(), information.hProcess);
    process = information.hProcess;
    id = information.dwProcessId;
}

bool Program::Runs() const {
    return process != nullptr && ::WaitForSingleObject(process, 0) == WAIT_TIMEOUT;
}

DWORD Program::WaitForEnd() {
    if (!ComesTrue([this] { return !Runs(); })) {
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
        ComesTrue([this] { return !Runs(); });
        Forget();
    }
}

bool Program::CanCloseMutexes() { return CompareHandles() != nullptr; }

void Program::CloseMutex(const std::string& name) const {
    HANDLE mutex = ::OpenMutexW(SYNCHRONIZE, FALSE, Wide(name).c_str());
    if (mutex == nullptr) {
        throw Failure("there is no mutex " + name);
    }
    const Compare areOfOneObject = CompareHandles();
    bool isClosed = false;
    for (HANDLE handle : HandlesOf(id)) {
        HANDLE copy = nullptr;
        if (::DuplicateHandle(process, handle, ::GetCurrentProcess(), &copy, 0, FALSE,
                              DUPLICATE_SAME_ACCESS) == 0) {
            continue;
        }
        const bool isWanted = areOfOneObject(mutex, copy) != 0;
        ::CloseHandle(copy);
        if (isWanted && ::DuplicateHandle(process, handle, ::GetCurrentProcess(), &copy, 0, FALSE,
                                          DUPLICATE_SAME_ACCESS | DUPLICATE_CLOSE_SOURCE) != 0) {
            ::CloseHandle(copy);
            isClosed = true;
        }
    }
    ::CloseHandle(mutex);
    if (!isClosed) {
        throw Failure("the program has no mutex " + name);
    }
}

std::vector<Window> Program::Windows() const {
    Search search{id, {}};
    ::EnumWindows(&Collect, reinterpret_cast<LPARAM>(&search));
    return search.found;
}

std::vector<Window> Program::SettledWindows() const {
    const auto windows = Windows();
    const auto shown = std::find_if(windows.begin(), windows.end(),
                                    [](const Window& window) { return window.IsVisible(); });
    if (shown == windows.end()) {
        return windows;
    }
    if (!shown->Answers()) {
        throw Failure("the program does not answer");
    }
    return Windows();
}

std::vector<Window> Program::Visible(const std::string& caption,
                                     const std::string& className) const {
    std::vector<Window> found = SettledWindows();
    std::erase_if(found, [&](const Window& window) {
        return !window.IsVisible() || (!className.empty() && window.ClassName() != className) ||
               window.Caption() != caption;
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

Objects Program::CountObjects() const {
    Objects objects;
    for (const Window& window : Windows()) {
        ++objects.windows;
        ::EnumChildWindows(window.handle, &CountOne, reinterpret_cast<LPARAM>(&objects.children));
    }
    objects.handles = HandlesOf(id).size();
    objects.gdi = ::GetGuiResources(process, GR_GDIOBJECTS);
    objects.user = ::GetGuiResources(process, GR_USEROBJECTS);
    return objects;
}

std::size_t Program::PrivateKilobytes() const {
    PROCESS_MEMORY_COUNTERS counters{};
    counters.cb = sizeof counters;
    ::GetProcessMemoryInfo(process, &counters, sizeof counters);
    return counters.PagefileUsage / 1024;
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

void Box::Click(const std::string& button) const {
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
