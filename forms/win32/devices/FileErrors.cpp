#include "forms/win32/devices/FileErrors.h"

#include <algorithm>
#include <array>

namespace forms::win32 {

namespace {

struct Meaning {
    DWORD code;
    ErrorNumber number;
};

// Not in every compiler's headers.
constexpr DWORD virusInfected = 225;
constexpr DWORD virusDeleted = 226;
constexpr DWORD diskQuotaExceeded = 1295;

constexpr auto meanings = std::to_array<Meaning>({
    {ERROR_FILE_NOT_FOUND, ErrorNumber::FileNotFound},
    {ERROR_INVALID_NAME, ErrorNumber::BadFileName},
    {ERROR_BAD_PATHNAME, ErrorNumber::BadFileName},
    {ERROR_FILENAME_EXCED_RANGE, ErrorNumber::BadFileName},
    {ERROR_DISK_FULL, ErrorNumber::DiskFull},
    {ERROR_HANDLE_DISK_FULL, ErrorNumber::DiskFull},
    {diskQuotaExceeded, ErrorNumber::DiskFull},
    {ERROR_ACCESS_DENIED, ErrorNumber::PermissionDenied},
    {ERROR_SHARING_VIOLATION, ErrorNumber::PermissionDenied},
    {ERROR_LOCK_VIOLATION, ErrorNumber::PermissionDenied},
    {ERROR_WRITE_PROTECT, ErrorNumber::PermissionDenied},
    {ERROR_NETWORK_ACCESS_DENIED, ErrorNumber::PermissionDenied},
    {ERROR_USER_MAPPED_FILE, ErrorNumber::PermissionDenied},
    {ERROR_DELETE_PENDING, ErrorNumber::PermissionDenied},
    {ERROR_PRIVILEGE_NOT_HELD, ErrorNumber::PermissionDenied},
    {ERROR_CANT_ACCESS_FILE, ErrorNumber::PermissionDenied},
    {virusInfected, ErrorNumber::PermissionDenied},
    {virusDeleted, ErrorNumber::PermissionDenied},
    {ERROR_ALREADY_EXISTS, ErrorNumber::PathFileAccessError},
    {ERROR_FILE_EXISTS, ErrorNumber::PathFileAccessError},
    {ERROR_DIR_NOT_EMPTY, ErrorNumber::PathFileAccessError},
    {ERROR_CURRENT_DIRECTORY, ErrorNumber::PathFileAccessError},
    {ERROR_NOT_SAME_DEVICE, ErrorNumber::PathFileAccessError},
    {ERROR_FILE_READ_ONLY, ErrorNumber::PathFileAccessError},
    {ERROR_PATH_NOT_FOUND, ErrorNumber::PathNotFound},
    {ERROR_INVALID_DRIVE, ErrorNumber::PathNotFound},
    {ERROR_BAD_NETPATH, ErrorNumber::PathNotFound},
    {ERROR_BAD_NET_NAME, ErrorNumber::PathNotFound},
    {ERROR_BAD_UNIT, ErrorNumber::PathNotFound},
    {ERROR_DIRECTORY, ErrorNumber::PathNotFound},
    {ERROR_NETWORK_UNREACHABLE, ErrorNumber::PathNotFound},
    {ERROR_HOST_UNREACHABLE, ErrorNumber::PathNotFound},
});

bool IsProtected(const std::wstring& nativePath) {
    const DWORD attributes = ::GetFileAttributesW(nativePath.c_str());
    return attributes != INVALID_FILE_ATTRIBUTES &&
           (attributes & (FILE_ATTRIBUTE_DIRECTORY | FILE_ATTRIBUTE_READONLY)) != 0;
}

}  // namespace

ErrorNumber ErrorOfCode(DWORD code) {
    const auto* found = std::find_if(meanings.begin(), meanings.end(),
                                     [code](const Meaning& entry) { return entry.code == code; });
    return found == meanings.end() ? ErrorNumber::DeviceIoError : found->number;
}

void FailWith(DWORD code, const std::wstring& nativePath) {
    if (code == ERROR_ACCESS_DENIED) {
        RefuseProtected(nativePath);
    }
    throw RuntimeError(ErrorOfCode(code));
}

void RefuseProtected(const std::wstring& nativePath) {
    if (IsProtected(nativePath)) {
        throw RuntimeError(ErrorNumber::PathFileAccessError);
    }
}

}  // namespace forms::win32
