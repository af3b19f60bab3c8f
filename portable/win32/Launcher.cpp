// JotwrightPortable.exe starts Jotwright.exe beside it and keeps the options in a file beside both.
#include <windows.h>

#include <string>
#include <utility>

#include "app/ProductTexts.h"
#include "base/RuntimeError.h"
#include "forms/win32/LibrarySearch.h"
#include "forms/win32/Utf.h"
#include "forms/win32/devices/Handle.h"
#include "forms/win32/devices/WinFiles.h"
#include "forms/win32/devices/WinSystem.h"
#include "portable/Loan.h"
#include "portable/win32/ProgramRun.h"
#include "portable/win32/Shortcut.h"
#include "portable/win32/WinUserRegistry.h"

namespace {

using forms::win32::Handle;
using forms::win32::Wide;

void Tell(const std::string& message) {
    ::MessageBoxW(nullptr, Wide(message).c_str(), L"Jotwright",
                  MB_OK | MB_ICONEXCLAMATION | MB_SETFOREGROUND);
}

void TellAll(portable::Loan& loan) {
    for (const std::string& message : std::exchange(loan.messages, {})) {
        Tell(message);
    }
}

bool ProgramIsRunning() {
    const Handle mutex(::OpenMutexW(SYNCHRONIZE, FALSE, Wide(StandardCode::mutexName).c_str()));
    return mutex || ::GetLastError() == ERROR_ACCESS_DENIED;
}

void Run(const std::string& folder) {
    portable::win32::WinUserRegistry registry;
    forms::win32::WinFiles files;
    portable::Loan loan(registry, files, folder);
    loan.Begin();
    TellAll(loan);
    const portable::win32::ProgramRun run(Wide(folder));
    if (!run.HasStarted()) {
        Tell(
            "Jotwright.exe could not be started. It must be beside JotwrightPortable.exe: extract "
            "the whole archive.");
    }
    run.WaitForEnd([&] { loan.End(); });
    TellAll(loan);
}

// Waits until no other launcher works with the options, which may take as long as the user reads a
// message of that launcher. Returns false if the program runs.
bool WaitForTurn(const Handle& mutex) {
    constexpr DWORD pause = 100;  // milliseconds
    while (!ProgramIsRunning()) {
        switch (::WaitForSingleObject(mutex.get(), pause)) {
            case WAIT_OBJECT_0:
            case WAIT_ABANDONED:
                return !ProgramIsRunning();
            case WAIT_TIMEOUT:
                break;
            default:
                return false;
        }
    }
    return false;
}

}  // namespace

int main() {
    forms::win32::RestrictLibrarySearch();
    const std::string folder = forms::win32::WinSystem({}).ApplicationFolder();
    const Handle mutex(::CreateMutexW(nullptr, FALSE, L"Local\\Jotwright.Portable"));
    if (!WaitForTurn(mutex)) {
        // The running program, perhaps an installed copy, uses the options in the registry. The
        // program that is started here reports that another copy is running, and ends.
        const portable::win32::ProgramRun run(Wide(folder));
        return 0;
    }
    portable::win32::RefreshShortcut(Wide(folder));
    try {
        Run(folder);
    } catch (const base::RuntimeError&) {
        Tell("Windows refuses to change the options of this user.");
        return 1;
    }
    return 0;
}
