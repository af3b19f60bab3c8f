#include "forms/win32/devices/WinClock.h"

#include <windows.h>

namespace forms::win32 {

namespace {

SYSTEMTIME LocalTime() {
    SYSTEMTIME now{};
    ::GetLocalTime(&now);
    return now;
}

}  // namespace

// Both come from the same clock cut off at the second, never rounded: a millisecond of 999 still
// belongs to the second that Now tells.
base::DateTime WinClock::Now() {
    const SYSTEMTIME now = LocalTime();
    return base::Combine(base::DateTime::FromDate(now.wYear, now.wMonth, now.wDay),
                         base::DateTime::FromTime(now.wHour, now.wMinute, now.wSecond));
}

int WinClock::MillisecondOfSecond() { return LocalTime().wMilliseconds; }

std::int64_t WinClock::MonotonicMilliseconds() {
    static const std::int64_t frequency = [] {
        LARGE_INTEGER value{};
        ::QueryPerformanceFrequency(&value);
        return value.QuadPart;
    }();
    LARGE_INTEGER counter{};
    ::QueryPerformanceCounter(&counter);
    // In two parts: the product of a whole counter would overflow after some months.
    return counter.QuadPart / frequency * 1000 + counter.QuadPart % frequency * 1000 / frequency;
}

}  // namespace forms::win32
