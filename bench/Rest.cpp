#include "bench/Rest.h"

#include <windows.h>

#include "tests/windows/Wait.h"

namespace bench {

namespace {

// In milliseconds.
constexpr UINT limit = 60'000;
constexpr double moment = 25;

// The pause between two checks. Most of an action's time passes inside Answers(), which does not
// poll.
void Pause() { ::Sleep(1); }

BOOL CALLBACK FindUnpainted(HWND child, LPARAM found) {
    if (::IsWindowVisible(child) != 0 && ::GetUpdateRect(child, nullptr, FALSE) != 0) {
        *reinterpret_cast<bool*>(found) = true;
        return FALSE;
    }
    return TRUE;
}

void CheckLimit(const std::string& action, double start) {
    if (Now() - start > limit) {
        throw driver::Failure(action + ": not done after a minute");
    }
}

}  // namespace

double Now() {
    LARGE_INTEGER frequency{};
    LARGE_INTEGER counter{};
    ::QueryPerformanceFrequency(&frequency);
    ::QueryPerformanceCounter(&counter);
    return static_cast<double>(counter.QuadPart) * 1000 / static_cast<double>(frequency.QuadPart);
}

bool Answers(const driver::Window& window) {
    DWORD_PTR result = 0;
    return ::SendMessageTimeoutW(window.handle, WM_NULL, 0, 0, SMTO_NORMAL, limit, &result) != 0;
}

bool IsAtRest(const driver::Window& window) {
    if (!window.IsVisible() || window.IsMinimized() || !Answers(window) ||
        ::GetUpdateRect(window.handle, nullptr, FALSE) != 0) {
        return false;
    }
    bool isUnpainted = false;
    ::EnumChildWindows(window.handle, &FindUnpainted, reinterpret_cast<LPARAM>(&isUnpainted));
    return !isUnpainted;
}

double Measure(const std::string& action, const std::function<void()>& press,
               const std::function<bool()>& done) {
    const double start = Now();
    press();
    double since = 0;
    for (;;) {
        const bool isDone = done();
        const double now = Now();
        if (!isDone) {
            since = 0;
            CheckLimit(action, start);
        } else if (since == 0) {
            since = now;
        } else if (now - since > moment) {
            return since - start;
        }
        Pause();
    }
}

void Await(const std::string& action, const std::function<bool()>& done) {
    for (const double start = Now(); !done(); Pause()) {
        CheckLimit(action, start);
    }
}

}  // namespace bench
