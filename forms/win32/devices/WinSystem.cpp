#include "forms/win32/devices/WinSystem.h"

#include <objbase.h>
#include <shlobj.h>

#include <cstdint>

#include "forms/win32/Utf.h"
#include "forms/win32/devices/ProgramPath.h"

namespace forms::win32 {

std::string WinSystem::ApplicationFolder() {
    if (folder.empty()) {
        folder = Narrow(ProgramFolder());
    }
    return folder;
}

std::string WinSystem::StartupFolder() {
    wchar_t path[MAX_PATH]{};
    const HRESULT result = ::SHGetFolderPathW(nullptr, CSIDL_STARTUP | CSIDL_FLAG_CREATE, nullptr,
                                              SHGFP_TYPE_CURRENT, path);
    return result == S_OK ? Narrow(path) : std::string();
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
