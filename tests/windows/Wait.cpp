#include "tests/windows/Wait.h"

#include <windows.h>

#include <algorithm>
#include <cstdlib>

namespace driver {

namespace {

constexpr DWORD betweenLooks = 30;  // milliseconds
constexpr int looksOfAMoment = 50;
constexpr unsigned long long longest = 3'600'000;  // milliseconds
// Asking for the idle time takes as long as a look.
constexpr unsigned long long betweenQuestions = 100;  // milliseconds
// The most idle time that one question adds. If the driver itself was stopped, the idle time since
// its last question proves nothing about the program.
constexpr unsigned long long mostAtOnce = 200;  // milliseconds

unsigned long long EnoughIdle() {
    const char* seconds = std::getenv("JOTWRIGHT_PATIENCE");
    return (seconds != nullptr ? std::strtoull(seconds, nullptr, 10) : 60) * 1000;
}

unsigned long long IdleMilliseconds() {
    FILETIME idle{};
    FILETIME kernel{};
    FILETIME user{};
    ::GetSystemTimes(&idle, &kernel, &user);
    SYSTEM_INFO system{};
    ::GetSystemInfo(&system);
    const auto ticks =
        (static_cast<unsigned long long>(idle.dwHighDateTime) << 32U) | idle.dwLowDateTime;
    return ticks / 10'000 / std::max<DWORD>(1, system.dwNumberOfProcessors);
}

}  // namespace

Patience::Patience() : start(::GetTickCount64()), asked(start), lastIdle(IdleMilliseconds()) {}

bool Patience::HasEnded() {
    const ULONGLONG now = ::GetTickCount64();
    if (now - asked < betweenQuestions) {
        return false;
    }
    asked = now;
    const unsigned long long idleNow = IdleMilliseconds();
    idle += idleNow > lastIdle ? std::min(idleNow - lastIdle, mostAtOnce) : 0;
    lastIdle = idleNow;
    return idle >= EnoughIdle() || now - start >= longest;
}

bool ComesTrue(const std::function<bool()>& condition) {
    Patience patience;
    while (!condition()) {
        if (patience.HasEnded()) {
            return false;
        }
        ::Sleep(betweenLooks);
    }
    return true;
}

void WaitUntil(const std::string& what, const std::function<bool()>& condition) {
    if (!ComesTrue(condition)) {
        throw Failure("waited in vain until " + what);
    }
}

bool ComesTrueSoon(const std::function<bool()>& condition) {
    for (int look = 0; look < looksOfAMoment; ++look) {
        if (condition()) {
            return true;
        }
        ::Sleep(betweenLooks);
    }
    return condition();
}

}  // namespace driver
