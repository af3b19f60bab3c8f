#include <windows.h>

#include <cstdint>

// What functions that guard their stack frames need. The compiler's own support library takes its
// secret from the system's cryptography, which costs every start three libraries and their set-up.
// This one mixes what differs from start to start and from process to process, as the start-up code
// of other compilers does: it must not be known beforehand, more is not asked of it.

namespace {

// Ends the process at once, without any handler: its stack cannot be trusted any more.
[[noreturn]] void FailFast() {
    constexpr unsigned int stackCookieFailure = 2;  // FAST_FAIL_STACK_COOKIE_CHECK_FAILURE
    asm volatile("int $0x29" : : "c"(stackCookieFailure));
    __builtin_unreachable();
}

std::uint64_t Mixed(std::uint64_t value) {
    value ^= value >> 31U;
    value *= 0x9e3779b97f4a7c15U;
    value ^= value >> 29U;
    return value;
}

}  // namespace

// NOLINTBEGIN(bugprone-reserved-identifier): the compiler asks for these names.
extern "C" {

std::uintptr_t __stack_chk_guard = 0;

[[noreturn]] void __stack_chk_fail() { FailFast(); }

[[noreturn]] void __chk_fail() { FailFast(); }

// Before any other constructor: whoever is called from here on sees one value only.
[[gnu::constructor(101), gnu::optimize("no-stack-protector")]] void SetStackGuard() {
    LARGE_INTEGER counter{};
    FILETIME now{};
    ::QueryPerformanceCounter(&counter);
    ::GetSystemTimeAsFileTime(&now);
    std::uint64_t secret = Mixed(static_cast<std::uint64_t>(counter.QuadPart));
    secret = Mixed(secret ^
                   ((static_cast<std::uint64_t>(now.dwHighDateTime) << 32U) | now.dwLowDateTime));
    secret = Mixed(secret ^ ((static_cast<std::uint64_t>(::GetCurrentProcessId()) << 32U) |
                             ::GetCurrentThreadId()));
    // Where the system has put the stack and the program.
    secret = Mixed(secret ^ reinterpret_cast<std::uintptr_t>(&counter));
    secret = Mixed(secret ^ reinterpret_cast<std::uintptr_t>(&__stack_chk_guard));
    // The zero byte stops a string that is copied over the guard.
    __stack_chk_guard = static_cast<std::uintptr_t>(secret) & ~std::uintptr_t{0xff};
}

}  // extern "C"
// NOLINTEND(bugprone-reserved-identifier)
