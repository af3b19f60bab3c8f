// Starts a program and reports when its windows appear on the X display.
//
// usage: watch_windows <seconds> <watch>... -- <command> [argument...]
//
// A watch is <count>:<regular expression>. The expression is extended and case-insensitive, and is
// matched against "<window class>/<title>". A watch is met when <count> different matching windows
// have been seen, either on the screen or as icons of the window manager. When a watch is met, one
// line is written. It gives the milliseconds since the program was started, and the processor time
// in milliseconds that its process has used so far:
//
//   <number of the watch> <milliseconds> <processor milliseconds>
//
// The first line is "pid <process ID>". watch_windows exits when all watches are met; the started
// program keeps running. The exit status is 1 if not all watches are met within <seconds>, 2 if the
// arguments are wrong and 3 if there is no display.
#include <X11/Xatom.h>
#include <X11/Xlib.h>
#include <X11/Xutil.h>
#include <fcntl.h>
#include <poll.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <regex>
#include <set>
#include <string>
#include <vector>

namespace {

using Clock = std::chrono::steady_clock;

struct Watch {
    std::size_t count = 0;
    std::regex expression;
    std::set<Window> seen;
    bool met = false;
};

int IgnoreError(Display* /*display*/, XErrorEvent* /*error*/) {
    return 0;  // a window may be destroyed while it is examined
}

std::vector<Window> WindowsOf(Display* display, Atom property) {
    Atom type = 0;
    int format = 0;
    unsigned long count = 0;
    unsigned long left = 0;
    unsigned char* data = nullptr;
    std::vector<Window> windows;
    if (XGetWindowProperty(display, DefaultRootWindow(display), property, 0, 4096, False, XA_WINDOW,
                           &type, &format, &count, &left, &data) == Success &&
        data != nullptr) {
        windows.resize(count);
        std::memcpy(windows.data(), data, count * sizeof(Window));
        XFree(data);
    }
    return windows;
}

std::string DescriptionOf(Display* display, Window window) {
    std::string text;
    XClassHint hint{};
    if (XGetClassHint(display, window, &hint) != 0) {
        text = hint.res_class;
        XFree(hint.res_name);
        XFree(hint.res_class);
    }
    text += '/';
    char* title = nullptr;
    if (XFetchName(display, window, &title) != 0) {
        text += title;
        XFree(title);
    }
    return text;
}

// Whether the window is on the screen or is an icon.
bool IsThere(Display* display, Window window, Atom stateProperty) {
    XWindowAttributes attributes{};
    if (XGetWindowAttributes(display, window, &attributes) == 0) {
        return false;
    }
    if (attributes.map_state == IsViewable) {
        return true;
    }
    Atom type = 0;
    int format = 0;
    unsigned long count = 0;
    unsigned long left = 0;
    unsigned char* data = nullptr;
    long state = WithdrawnState;
    if (XGetWindowProperty(display, window, stateProperty, 0, 2, False, stateProperty, &type,
                           &format, &count, &left, &data) == Success &&
        data != nullptr) {
        if (count > 0) {
            std::memcpy(&state, data, sizeof state);
        }
        XFree(data);
    }
    return state == IconicState;
}

// The processor time of all threads of the process, in milliseconds.
double ProcessorTime(pid_t process) {
    double sum = 0;
    std::error_code none;
    for (const auto& task :
         std::filesystem::directory_iterator("/proc/" + std::to_string(process) + "/task", none)) {
        double nanoseconds = 0;
        std::ifstream(task.path() / "schedstat") >> nanoseconds;
        sum += nanoseconds / 1e6;
    }
    return sum;
}

pid_t Start(Display* display, char** command) {
    const pid_t process = fork();
    if (process == 0) {
        setsid();
        close(ConnectionNumber(display));
        const int nothing = open("/dev/null", O_RDWR);
        dup2(nothing, STDIN_FILENO);
        dup2(nothing, STDOUT_FILENO);
        dup2(nothing, STDERR_FILENO);
        execvp(command[0], command);
        _exit(127);
    }
    return process;
}

class Watcher {
  public:
    Watcher(Display* xDisplay, std::vector<Watch> wanted)
        : display(xDisplay),
          watches(std::move(wanted)),
          clientList(XInternAtom(display, "_NET_CLIENT_LIST", False)),
          stateProperty(XInternAtom(display, "WM_STATE", False)) {
        XSelectInput(display, DefaultRootWindow(display),
                     PropertyChangeMask | SubstructureNotifyMask);
        const auto before = WindowsOf(display, clientList);
        others.insert(before.begin(), before.end());
        XSync(display, True);
    }

    // Returns whether all watches were met within the given seconds.
    bool Run(char** command, double seconds) {
        const auto start = Clock::now();
        const pid_t process = Start(display, command);
        std::printf("pid %d\n", static_cast<int>(process));
        for (;;) {
            const double elapsed =
                std::chrono::duration<double, std::milli>(Clock::now() - start).count();
            bool all = true;
            for (std::size_t i = 0; i < watches.size(); ++i) {
                Watch& watch = watches[i];
                if (!watch.met && watch.seen.size() >= watch.count) {
                    watch.met = true;
                    std::printf("%zu %.1f %.1f\n", i + 1, elapsed, ProcessorTime(process));
                }
                all = all && watch.met;
            }
            std::fflush(stdout);
            if (all || elapsed > seconds * 1000) {
                return all;
            }
            LookOn();
        }
    }

  private:
    void LookOn() {
        // Windows in "waiting" are examined again after this pause.
        constexpr int pause = 5;  // milliseconds
        pollfd events{ConnectionNumber(display), POLLIN, 0};
        if (XPending(display) == 0 && poll(&events, 1, pause) == 0 && waiting.empty()) {
            return;
        }
        bool listChanged = false;
        while (XPending(display) > 0) {
            XEvent event{};
            XNextEvent(display, &event);
            if (event.type == PropertyNotify && event.xproperty.atom == clientList) {
                listChanged = true;
            } else if (event.type == MapNotify && event.xmap.override_redirect != 0) {
                Examine(event.xmap.window);
            }
        }
        if (listChanged) {
            for (const Window window : WindowsOf(display, clientList)) {
                if (others.count(window) == 0) {
                    waiting.insert(window);
                }
            }
        }
        std::erase_if(waiting, [this](Window window) { return Examine(window); });
    }

    // Returns true if the window needs no further examination.
    bool Examine(Window window) {
        if (!IsThere(display, window, stateProperty)) {
            return false;
        }
        const std::string description = DescriptionOf(display, window);
        bool matches = false;
        for (Watch& watch : watches) {
            if (std::regex_search(description, watch.expression)) {
                watch.seen.insert(window);
                matches = true;
            }
        }
        // A window that does not match yet may get its title later.
        if (matches) {
            others.insert(window);
        }
        return matches;
    }

    Display* display;
    std::vector<Watch> watches;
    Atom clientList;
    Atom stateProperty;
    std::set<Window> others;   // existed before the start, or already counted
    std::set<Window> waiting;  // managed, but not shown yet or not matching yet
};

}  // namespace

int main(int count, char** arguments) {
    int next = 2;
    std::vector<Watch> watches;
    for (; next < count && std::strcmp(arguments[next], "--") != 0; ++next) {
        char* rest = nullptr;
        Watch watch;
        watch.count = std::strtoul(arguments[next], &rest, 10);
        if (*rest != ':') {
            return 2;
        }
        watch.expression = std::regex(rest + 1, std::regex::extended | std::regex::icase);
        watches.push_back(std::move(watch));
    }
    if (watches.empty() || next + 1 >= count) {
        return 2;
    }
    Display* display = XOpenDisplay(nullptr);
    if (display == nullptr) {
        return 3;
    }
    XSetErrorHandler(IgnoreError);
    Watcher watcher(display, std::move(watches));
    return watcher.Run(arguments + next + 1, std::atof(arguments[1])) ? 0 : 1;
}
