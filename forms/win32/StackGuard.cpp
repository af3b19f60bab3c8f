#include <windows.h>

#include <cstdint>

#include "forms/win32/LateLibrary.h"

// What functions that guard their stack frames need: a secret that lies between their arrays and
// their return address and is compared before they return.
//
// It stands against bytes from outside (a note, a settings value) that run over the end
// of an array: whoever made them must not be able to know the secret of a later start, and has one
// try, as a wrong one ends the program. It does not stand against who can read this process's
// memory, nor against a write that leaps over the secret.
//
// The compiler's own support library opens the system's cryptography for this, three libraries at
// each start. Nothing is loaded here. Not used: the random function of advapi32, which leads to a
// library that could be planted beside the program; RtlRandomEx, which gives at each start what it
// gave at the last one; the cookie in the system's shared page, which is one for all processes.

namespace {

// Ends the process at once, without any handler: its stack cannot be trusted any more.
[[noreturn]] void FailFast() {
    if (::IsProcessorFeaturePresent(PF_FASTFAIL_AVAILABLE) != 0) {
        constexpr unsigned int stackCookieFailure = 2;  // FAST_FAIL_STACK_COOKIE_CHECK_FAILURE
        asm volatile("int $0x29" : : "c"(stackCookieFailure));
    }
    // Before Windows 8 that is a fault like others, which handlers on this stack are asked about.
    ::TerminateProcess(::GetCurrentProcess(), STATUS_STACK_BUFFER_OVERRUN);
    __builtin_unreachable();
}

// Each value gives another one, and each bit of it touches all of them.
std::uint64_t Mixed(std::uint64_t value) {
    value ^= value >> 33U;
    value *= 0xff51afd7ed558ccdU;
    value ^= value >> 33U;
    value *= 0xc4ceb9fe1a85ec53U;
    value ^= value >> 33U;
    return value;
}

// The system's random numbers, where their source is in the process already: the base of ole32
// brings it from Windows 10 on. 0 where it is not.
std::uint64_t SystemRandom() {
    const auto generate = forms::win32::FromLoadedLibrary<BOOL(WINAPI*)(std::uint64_t*, SIZE_T)>(
        L"bcryptprimitives.dll", "ProcessPrng");
    std::uint64_t value = 0;
    return generate != nullptr && generate(&value, sizeof value) != 0 ? value : 0;
}

// A number that the kernel draws for each process and tells no other one. 0 where there is none, as
// under Wine.
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

std::uint64_t Number(const void* address) { return reinterpret_cast<std::uintptr_t>(address); }

}  // namespace

// NOLINTBEGIN(bugprone-reserved-identifier): the compiler asks for these names.
extern "C" {

std::uintptr_t __stack_chk_guard = 0;

[[noreturn]] void __stack_chk_fail() { FailFast(); }

void __chk_fail() { FailFast(); }  // the system's headers say that it does not return

// Before any other constructor: whoever is called from here on sees one value only.
__attribute__((constructor(101), no_stack_protector)) void SetStackGuard() {
    std::uint64_t secret = Mixed(SystemRandom());
    secret = Mixed(secret ^ ProcessCookie());
    // Where both are missing: the moment, to the processor's cycle, and where the system has put
    // the stack, the program, the libraries and the heap.
    LARGE_INTEGER counter{};
    FILETIME now{};
    ::QueryPerformanceCounter(&counter);
    ::GetSystemTimeAsFileTime(&now);
    secret = Mixed(secret ^ static_cast<std::uint64_t>(counter.QuadPart));
    secret = Mixed(secret ^
                   ((static_cast<std::uint64_t>(now.dwHighDateTime) << 32U) | now.dwLowDateTime));
    secret = Mixed(secret ^ __builtin_ia32_rdtsc());
    secret = Mixed(secret ^ ((static_cast<std::uint64_t>(::GetCurrentProcessId()) << 32U) |
                             ::GetCurrentThreadId()));
    secret = Mixed(secret ^ Number(&counter));
    secret = Mixed(secret ^ Number(&__stack_chk_guard));
    secret = Mixed(secret ^ Number(::GetModuleHandleW(L"kernel32.dll")));
    secret = Mixed(secret ^ Number(::GetProcessHeap()));
    // The zero byte stops a string that is copied over the guard.
    __stack_chk_guard = static_cast<std::uintptr_t>(secret) & ~std::uintptr_t{0xff};
}

}  // extern "C"
// NOLINTEND(bugprone-reserved-identifier)
