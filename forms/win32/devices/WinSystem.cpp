#include "forms/win32/devices/WinSystem.h"

#include <algorithm>

#include "forms/win32/Utf.h"

namespace forms::win32 {

std::string WinSystem::ApplicationFolder() {
    if (!folder.empty()) {
        return folder;
    }
    std::wstring path(MAX_PATH, L'\0');
    for (;;) {
        const DWORD length =
            ::GetModuleFileNameW(nullptr, path.data(), static_cast<DWORD>(path.size()));
        if (length < path.size()) {
            path.resize(length);
            break;
        }
        path.resize(path.size() * 2);
    }
    path.resize(std::min(path.size(), path.find_last_of(L'\\')));
    folder = Narrow(path);
    return folder;
}

bool WinSystem::PreviousInstance() {
    if (!previous) {
        mutex = Handle(::CreateMutexW(nullptr, FALSE, name.c_str()));
        const DWORD code = ::GetLastError();
        // The mutex of a copy that runs with higher rights is there but cannot be opened.
        previous = code == ERROR_ALREADY_EXISTS || (!mutex && code == ERROR_ACCESS_DENIED);
    }
    return *previous;
}

std::uint32_t WinSystem::Version() { return ::GetVersion() & 0xffffU; }

}  // namespace forms::win32
