#include "forms/win32/devices/FileErrors.h"

#include <algorithm>
#include <array>

namespace forms::win32 {

namespace {

struct Meaning {
    DWORD code;
    base::ErrorNumber number;
};

// Some compilers' headers lack these codes.
constexpr DWORD virusInfected = 225;
constexpr DWORD virusDeleted = 226;
constexpr DWORD diskQuotaExceeded = 1295;
constexpr DWORD cloudProviderNotRunning = 362;
constexpr DWORD cloudNetworkUnavailable = 388;
constexpr DWORD cloudFileInUse = 391;
constexpr DWORD cloudAccessDenied = 395;
constexpr DWORD cloudLockConflict = 397;
constexpr DWORD cloudProviderTerminated = 404;
constexpr DWORD cloudRequestTimeout = 426;

constexpr auto meanings = std::to_array<Meaning>({
    {ERROR_FILE_NOT_FOUND, base::ErrorNumber::FileNotFound},
    {ERROR_INVALID_NAME, base::ErrorNumber::BadFileName},
    {ERROR_BAD_PATHNAME, base::ErrorNumber::BadFileName},
    {ERROR_FILENAME_EXCED_RANGE, base::ErrorNumber::BadFileName},
    {ERROR_DISK_FULL, base::ErrorNumber::DiskFull},
    {ERROR_HANDLE_DISK_FULL, base::ErrorNumber::DiskFull},
    {diskQuotaExceeded, base::ErrorNumber::DiskFull},
    {ERROR_ACCESS_DENIED, base::ErrorNumber::PermissionDenied},
    {ERROR_SHARING_VIOLATION, base::ErrorNumber::PermissionDenied},
    {ERROR_LOCK_VIOLATION, base::ErrorNumber::PermissionDenied},
    {ERROR_WRITE_PROTECT, base::ErrorNumber::PermissionDenied},
    {ERROR_NETWORK_ACCESS_DENIED, base::ErrorNumber::PermissionDenied},
    {ERROR_USER_MAPPED_FILE, base::ErrorNumber::PermissionDenied},
    {ERROR_DELETE_PENDING, base::ErrorNumber::PermissionDenied},
    {ERROR_PRIVILEGE_NOT_HELD, base::ErrorNumber::PermissionDenied},
    {ERROR_CANT_ACCESS_FILE, base::ErrorNumber::PermissionDenied},
    {virusInfected, base::ErrorNumber::PermissionDenied},
    {virusDeleted, base::ErrorNumber::PermissionDenied},
    // These codes report a file that is only in the cloud, while its provider starts or is busy.
    // Trying again helps, as with a file that another program holds.
    {cloudProviderNotRunning, base::ErrorNumber::PermissionDenied},
    {cloudNetworkUnavailable, base::ErrorNumber::PermissionDenied},
    {cloudFileInUse, base::ErrorNumber::PermissionDenied},
    {cloudAccessDenied, base::ErrorNumber::PermissionDenied},
    {cloudLockConflict, base::ErrorNumber::PermissionDenied},
    {cloudProviderTerminated, base::ErrorNumber::PermissionDenied},
    {cloudRequestTimeout, base::ErrorNumber::PermissionDenied},
    {ERROR_ALREADY_EXISTS, base::ErrorNumber::PathFileAccessError},
    {ERROR_FILE_EXISTS, base::ErrorNumber::PathFileAccessError},
    {ERROR_DIR_NOT_EMPTY, base::ErrorNumber::PathFileAccessError},
    {ERROR_CURRENT_DIRECTORY, base::ErrorNumber::PathFileAccessError},
    {ERROR_NOT_SAME_DEVICE, base::ErrorNumber::PathFileAccessError},
    {ERROR_FILE_READ_ONLY, base::ErrorNumber::PathFileAccessError},
    {ERROR_PATH_NOT_FOUND, base::ErrorNumber::PathNotFound},
    {ERROR_INVALID_DRIVE, base::ErrorNumber::PathNotFound},
    {ERROR_BAD_NETPATH, base::ErrorNumber::PathNotFound},
    {ERROR_BAD_NET_NAME, base::ErrorNumber::PathNotFound},
    {ERROR_BAD_UNIT, base::ErrorNumber::PathNotFound},
    {ERROR_DIRECTORY, base::ErrorNumber::PathNotFound},
    {ERROR_NETWORK_UNREACHABLE, base::ErrorNumber::PathNotFound},
    {ERROR_HOST_UNREACHABLE, base::ErrorNumber::PathNotFound},
});

bool IsProtected(const std::wstring& nativePath) {
    const DWORD attributes = ::GetFileAttributesW(nativePath.c_str());
    return attributes != INVALID_FILE_ATTRIBUTES &&
           (attributes & (FILE_ATTRIBUTE_DIRECTORY | FILE_ATTRIBUTE_READONLY)) != 0;
}

}  // namespace

base::ErrorNumber ErrorOfCode(DWORD code) {
    const auto* found = std::find_if(meanings.begin(), meanings.end(),
                                     [code](const Meaning& entry) { return entry.code == code; });
    return found == meanings.end() ? base::ErrorNumber::DeviceIoError : found->number;
}

void FailWith(DWORD code, const std::wstring& nativePath) {
    if (code == ERROR_ACCESS_DENIED) {
        RefuseProtected(nativePath);
    }
    throw base::RuntimeError(ErrorOfCode(code));
}

void RefuseProtected(const std::wstring& nativePath) {
    if (IsProtected(nativePath)) {
        throw base::RuntimeError(base::ErrorNumber::PathFileAccessError);
    }
}

}  // namespace forms::win32
