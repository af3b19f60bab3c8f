#include "forms/win32/devices/RecycleBin.h"

#include <windows.h>
#include <objbase.h>
#include <shellapi.h>

#include <algorithm>
#include <array>
#include <cstdint>
#include <optional>
#include <string_view>

#include "forms/win32/devices/Handle.h"

namespace forms::win32 {

namespace {

// The shell's function accepts neither the prefix of long paths nor long paths.
std::wstring ShellPath(std::wstring_view nativePath) {
    constexpr std::wstring_view longPrefix = L"\\\\?\\";
    constexpr std::wstring_view longNetworkPrefix = L"\\\\?\\UNC\\";
    if (nativePath.starts_with(longNetworkPrefix)) {
        return L"\\\\" + std::wstring(nativePath.substr(longNetworkPrefix.size()));
    }
    return std::wstring(nativePath.substr(longPrefix.size()));
}

std::optional<DWORD> RegistryNumber(HKEY hive, const std::wstring& key, const wchar_t* value) {
    DWORD number = 0;
    DWORD size = sizeof number;
    return ::RegGetValueW(hive, key.c_str(), value, RRF_RT_REG_DWORD, nullptr, &number, &size) ==
                   ERROR_SUCCESS
               ? std::optional(number)
               : std::nullopt;
}

// The values of a policy: that of the user and that of the machine.
std::array<std::optional<DWORD>, 2> Policies(const wchar_t* value) {
    const std::wstring key = L"Software\\Microsoft\\Windows\\CurrentVersion\\Policies\\Explorer";
    return {RegistryNumber(HKEY_CURRENT_USER, key, value),
            RegistryNumber(HKEY_LOCAL_MACHINE, key, value)};
}

bool IsForbiddenByPolicy() {
    const auto policies = Policies(L"NoRecycleFiles");
    return std::any_of(policies.begin(), policies.end(),
                       [](const auto& policy) { return policy.value_or(0) != 0; });
}

std::uint64_t SizeOf(const std::wstring& nativePath) {
    WIN32_FILE_ATTRIBUTE_DATA data{};
    ::GetFileAttributesExW(nativePath.c_str(), GetFileExInfoStandard, &data);
    return static_cast<std::uint64_t>(data.nFileSizeHigh) << 32U | data.nFileSizeLow;
}

// A lower bound for the bin's capacity, in bytes. chosen is the user's choice for the volume, in
// mebibytes. If the user has chosen none, the system takes at least a twentieth of the volume. A
// policy can limit the capacity, in hundredths of the volume.
std::uint64_t CapacityOf(const wchar_t* root, std::optional<DWORD> chosen) {
    constexpr unsigned leastShare = 20;
    ULARGE_INTEGER total{};
    ::GetDiskFreeSpaceExW(root, nullptr, &total, nullptr);
    std::uint64_t capacity =
        chosen ? static_cast<std::uint64_t>(*chosen) << 20U : total.QuadPart / leastShare;
    for (const auto& policy : Policies(L"RecycleBinSize")) {
        if (policy) {
            capacity = std::min<std::uint64_t>(capacity, total.QuadPart / 100 * *policy);
        }
    }
    return capacity;
}

DWORD WINAPI RecycleOnThread(void* argument) {
    std::wstring names = *static_cast<const std::wstring*>(argument);
    names.push_back(L'\0');  // an empty name ends the list
    const HRESULT initialized =
        ::CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED | COINIT_DISABLE_OLE1DDE);
    SHFILEOPSTRUCTW operation{};
    operation.wFunc = FO_DELETE;
    operation.pFrom = names.c_str();
    operation.fFlags = FOF_ALLOWUNDO | FOF_NOCONFIRMATION | FOF_SILENT | FOF_NOERRORUI;
    ::SHFileOperationW(&operation);
    if (SUCCEEDED(initialized)) {
        ::CoUninitialize();
    }
    return 0;
}

// Waits for the thread and answers messages that other threads send to this thread's windows.
// Posted messages (timers, input) stay in the queue, so no handler of the program runs.
void WaitWithoutPosted(HANDLE thread) {
    while (::MsgWaitForMultipleObjects(1, &thread, FALSE, INFINITE, QS_SENDMESSAGE) ==
           WAIT_OBJECT_0 + 1) {
        MSG message{};
        ::PeekMessageW(&message, nullptr, 0, 0, PM_NOREMOVE | PM_QS_SENDMESSAGE);
    }
}

}  // namespace

bool HasRecycleBin(const std::wstring& nativePath) {
    const std::wstring path = ShellPath(nativePath);
    wchar_t root[MAX_PATH]{};
    if (IsForbiddenByPolicy() || ::GetVolumePathNameW(path.c_str(), root, MAX_PATH) == 0 ||
        ::GetDriveTypeW(root) != DRIVE_FIXED) {
        return false;
    }
    wchar_t volume[MAX_PATH]{};
    if (::GetVolumeNameForVolumeMountPointW(root, volume, MAX_PATH) == 0) {
        return SizeOf(nativePath) <= CapacityOf(root, std::nullopt);
    }
    // The registry key of the user's choice is named after the part of the volume's name in braces.
    const std::wstring name = volume;
    const std::size_t brace = std::min(name.find(L'{'), name.size());
    const std::wstring key =
        L"Software\\Microsoft\\Windows\\CurrentVersion\\Explorer\\BitBucket\\Volume\\" +
        name.substr(brace, name.find(L'}') + 1 - brace);
    return RegistryNumber(HKEY_CURRENT_USER, key, L"NukeOnDelete").value_or(0) == 0 &&
           SizeOf(nativePath) <=
               CapacityOf(root, RegistryNumber(HKEY_CURRENT_USER, key, L"MaxCapacity"));
}

void MoveToRecycleBin(const std::wstring& nativePath) {
    std::wstring path = ShellPath(nativePath);
    if (path.size() >= MAX_PATH) {
        return;
    }
    // The shell pumps messages in the calling thread, and the caller is in the middle of a handler.
    // So make the call in a separate thread.
    const Handle thread(::CreateThread(nullptr, 0, RecycleOnThread, &path, 0, nullptr));
    if (thread) {
        WaitWithoutPosted(thread.get());
    }
}

}  // namespace forms::win32
