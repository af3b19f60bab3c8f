#include "forms/win32/devices/WinSystem.h"

#include <objbase.h>

#include <algorithm>
#include <cstdint>

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
        // If the other copy runs with higher rights, its mutex exists but cannot be opened.
        previous = code == ERROR_ALREADY_EXISTS || (!mutex && code == ERROR_ACCESS_DENIED);
    }
    return *previous;
}

std::uint32_t WinSystem::Version() { return ::GetVersion() & 0xffffU; }

std::string WinSystem::InstanceId() {
    if (instanceId.empty()) {
        GUID random{};
        if (FAILED(::CoCreateGuid(&random))) {
            random.Data1 = ::GetCurrentProcessId();
            random.Data2 = static_cast<unsigned short>(::GetTickCount());
        }
        const std::uint64_t number =
            std::uint64_t{random.Data1} << 32U | std::uint64_t{random.Data2} << 16U | random.Data3;
        for (int shift = 60; shift >= 0; shift -= 4) {
            instanceId += "0123456789abcdef"[number >> shift & 0xfU];
        }
    }
    return instanceId;
}

void WinSystem::Pause(int milliseconds) { ::Sleep(static_cast<DWORD>(milliseconds)); }

}  // namespace forms::win32
