#include <windows.h>
#include <gtest/gtest.h>

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <set>
#include <string>

#include "forms/win32/Utf.h"
#include "tests/conformance/win32/TempFolder.h"

extern "C" std::uintptr_t
    __stack_chk_guard;  // NOLINT(bugprone-reserved-identifier): the compiler's name

namespace forms::win32 {

namespace {

constexpr const wchar_t* taskName = L"JOTWRIGHT_STACK_GUARD_TASK";
constexpr DWORD cameBack = 7;

// Bytes to write beyond the array. Volatile, so that the compiler does not know the number.
volatile std::size_t beyond = 0;

[[gnu::noinline]] char OverrunByOne() {
    volatile char line[16];
    for (std::size_t i = 0; i < sizeof line + beyond; ++i) {
        line[i] = 'x';
    }
    return line[0];
}

[[gnu::noinline]] char OverrunByLibrary() {
    char line[16];
    std::memset(line, 'x', sizeof line + beyond);
    return line[beyond / 1024];
}

// Runs a task instead of the tests if a test started this program with one.
bool DoTask() {
    wchar_t task[2 * MAX_PATH]{};
    if (::GetEnvironmentVariableW(taskName, task, 2 * MAX_PATH) == 0) {
        return false;
    }
    ::SetErrorMode(SEM_NOGPFAULTERRORBOX);
    const std::wstring what = task;
    if (what == L"stay inside" || what == L"overrun") {
        beyond = what == L"overrun" ? 64 : 0;
        ::ExitProcess(OverrunByOne() == 'x' ? cameBack : 0);
    }
    if (what == L"library, stay inside" || what == L"library, overrun") {
        beyond = what == L"library, overrun" ? 64 : 0;
        ::ExitProcess(OverrunByLibrary() == 'x' ? cameBack : 0);
    }
    HANDLE file = ::CreateFileW(task, GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, 0, nullptr);
    DWORD written = 0;
    ::WriteFile(file, &__stack_chk_guard, sizeof __stack_chk_guard, &written, nullptr);
    ::CloseHandle(file);
    ::ExitProcess(written);
}

const bool isTask = DoTask();

// Starts this program with a task and returns its exit status.
DWORD StatusOf(const std::wstring& task) {
    wchar_t self[MAX_PATH]{};
    ::GetModuleFileNameW(nullptr, self, MAX_PATH);
    STARTUPINFOW startup{};
    startup.cb = sizeof startup;
    PROCESS_INFORMATION process{};
    ::SetEnvironmentVariableW(taskName, task.c_str());
    const BOOL isStarted = ::CreateProcessW(self, nullptr, nullptr, nullptr, FALSE, 0, nullptr,
                                            nullptr, &startup, &process);
    ::SetEnvironmentVariableW(taskName, nullptr);
    if (isStarted == 0) {
        ADD_FAILURE() << "no start";
        return 0;
    }
    ::WaitForSingleObject(process.hProcess, INFINITE);
    DWORD status = 0;
    ::GetExitCodeProcess(process.hProcess, &status);
    ::CloseHandle(process.hThread);
    ::CloseHandle(process.hProcess);
    return status;
}

}  // namespace

TEST(StackGuardTest, EachStartHasItsOwnSecret) {
    ASSERT_FALSE(isTask);
    const TempFolder folder;
    const std::wstring path = Wide(folder / "secret");
    constexpr unsigned int half = 32;
    std::set<std::uint64_t> secrets{__stack_chk_guard};
    std::set<std::uint64_t> upperHalves{std::uint64_t{__stack_chk_guard} >> half};
    constexpr std::size_t starts = 4;
    for (std::size_t i = 0; i < starts; ++i) {
        ASSERT_EQ(StatusOf(path), sizeof __stack_chk_guard);
        std::uintptr_t secret = 0;
        DWORD length = 0;
        HANDLE file =
            ::CreateFileW(path.c_str(), GENERIC_READ, 0, nullptr, OPEN_EXISTING, 0, nullptr);
        ::ReadFile(file, &secret, sizeof secret, &length, nullptr);
        ::CloseHandle(file);
        ASSERT_EQ(length, sizeof secret);
        EXPECT_NE(secret, 0U);
        EXPECT_EQ(secret & 0xffU, 0U) << "a copied string would run over it";
        secrets.insert(secret);
        upperHalves.insert(std::uint64_t{secret} >> half);
    }
    EXPECT_EQ(secrets.size(), starts + 1);
    if (sizeof __stack_chk_guard > sizeof(std::uint32_t)) {
        EXPECT_EQ(upperHalves.size(), starts + 1);
    }
}

TEST(StackGuardTest, AWriteBeyondAnArrayEndsTheProgramAtOnce) {
    EXPECT_EQ(StatusOf(L"stay inside"), cameBack) << "what follows would prove nothing";
    EXPECT_EQ(StatusOf(L"overrun"), STATUS_STACK_BUFFER_OVERRUN);
    EXPECT_EQ(StatusOf(L"library, stay inside"), cameBack) << "what follows would prove nothing";
    EXPECT_EQ(StatusOf(L"library, overrun"), STATUS_STACK_BUFFER_OVERRUN);
}

}  // namespace forms::win32
