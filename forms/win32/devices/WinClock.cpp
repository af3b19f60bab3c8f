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

// Now and MillisecondOfSecond drop the smaller units and never round: millisecond 999 still belongs
// to the second that Now returns.
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
    // Convert in two parts: multiplying the whole counter would overflow after some months.
    return counter.QuadPart / frequency * 1000 + counter.QuadPart % frequency * 1000 / frequency;
}

}  // namespace forms::win32
