#include <windows.h>

#include <cstdint>

#include "forms/win32/LateLibrary.h"

// The support code of the compiler's stack protector. The protector stores a secret value between
// the arrays of a function and its return address, and compares it before the function returns.
//
// It protects against bytes from outside (a note, a settings value) that overrun the end of an
// array. An attacker cannot predict the secret of a later start and has only one try, because a
// wrong secret ends the program. It does not protect against an attacker who can read this
// process's memory, nor against a write that skips the secret.
//
// The compiler's own support library loads three cryptography libraries of the system at each
// start. This code loads none. It does not use the random function of advapi32, because that
// function needs a library that could be planted beside the program. It does not use RtlRandomEx,
// which gives the same numbers at each start, or the cookie in the system's shared page, which is
// the same in all processes.

namespace {

// Ends the process at once without calling any handler, because its stack is corrupt.
[[noreturn]] void FailFast() {
    if (::IsProcessorFeaturePresent(PF_FASTFAIL_AVAILABLE) != 0) {
        constexpr unsigned int stackCookieFailure = 2;  // FAST_FAIL_STACK_COOKIE_CHECK_FAILURE
#ifdef __aarch64__
        register unsigned int code asm("w0") = stackCookieFailure;
        asm volatile("brk #0xf003" : : "r"(code));
#else
        asm volatile("int $0x29" : : "c"(stackCookieFailure));
#endif
    }
    // Before Windows 8, that instruction would raise an ordinary exception, and the system would
    // call handlers on the corrupt stack.
    ::TerminateProcess(::GetCurrentProcess(), STATUS_STACK_BUFFER_OVERRUN);
    __builtin_unreachable();
}

// A bijection in which each bit of the value affects all bits of the result.
std::uint64_t Mixed(std::uint64_t value) {
    value ^= value >> 33U;
    value *= 0xff51afd7ed558ccdU;
    value ^= value >> 33U;
    value *= 0xc4ceb9fe1a85ec53U;
    value ^= value >> 33U;
    return value;
}

// A random number of the system. 0 if the process has not loaded the library that gives it. (Since
// Windows 10, ole32 loads it.)
std::uint64_t SystemRandom() {
    const auto generate = forms::win32::FromLoadedLibrary<BOOL(WINAPI*)(std::uint64_t*, SIZE_T)>(
        L"bcryptprimitives.dll", "ProcessPrng");
    std::uint64_t value = 0;
    return generate != nullptr && generate(&value, sizeof value) != 0 ? value : 0;
}

// A random number that the kernel gives to this process only. 0 if there is none, for example under
// Wine.
std::uint32_t ProcessCookie() {
    constexpr ULONG processCookie = 36;
    const auto query =
        forms::win32::FromLoadedLibrary<LONG(WINAPI*)(HANDLE, ULONG, void*, ULONG, ULONG*)>(
            L"ntdll.dll", "NtQueryInformationProcess");
    std::uint32_t cookie = 0;
    const bool isTold = query != nullptr && query(::GetCurrentProcess(), processCookie, &cookie,
                                                  sizeof cookie, nullptr) >= 0;
    return isTold ? cookie : 0;
}

std::uint64_t CycleCounter() {
#ifdef __aarch64__
    std::uint64_t count = 0;
    asm volatile("mrs %0, cntvct_el0" : "=r"(count));
    return count;
#else
    return __builtin_ia32_rdtsc();
#endif
}

std::uint64_t Number(const void* address) { return reinterpret_cast<std::uintptr_t>(address); }

}  // namespace

// NOLINTBEGIN(bugprone-reserved-identifier): the compiler requires these names.
extern "C" {

std::uintptr_t __stack_chk_guard = 0;

[[noreturn]] void __stack_chk_fail() { FailFast(); }

void __chk_fail() { FailFast(); }  // the system's headers say that it does not return

// Runs before all other constructors, so that the secret does not change while a function uses it.
__attribute__((constructor(101), no_stack_protector)) void SetStackGuard() {
    std::uint64_t secret = Mixed(SystemRandom());
    secret = Mixed(secret ^ ProcessCookie());
    // In case both are missing, mix in the time with the processor's cycle counter, the numbers of
    // the process and the thread, and the addresses of the stack, the program, the libraries and
    // the heap.
    LARGE_INTEGER counter{};
    FILETIME now{};
    ::QueryPerformanceCounter(&counter);
    ::GetSystemTimeAsFileTime(&now);
    secret = Mixed(secret ^ static_cast<std::uint64_t>(counter.QuadPart));
    secret = Mixed(secret ^
                   ((static_cast<std::uint64_t>(now.dwHighDateTime) << 32U) | now.dwLowDateTime));
    secret = Mixed(secret ^ CycleCounter());
    secret = Mixed(secret ^ ((static_cast<std::uint64_t>(::GetCurrentProcessId()) << 32U) |
                             ::GetCurrentThreadId()));
    secret = Mixed(secret ^ Number(&counter));
    secret = Mixed(secret ^ Number(&__stack_chk_guard));
    secret = Mixed(secret ^ Number(::GetModuleHandleW(L"kernel32.dll")));
    secret = Mixed(secret ^ Number(::GetProcessHeap()));
    // The lowest byte of the guard is 0. A string function stops at a 0, so it cannot write the
    // correct guard and go on.
    __stack_chk_guard = static_cast<std::uintptr_t>(secret) & ~std::uintptr_t{0xff};
}

}  // extern "C"
// NOLINTEND(bugprone-reserved-identifier)
