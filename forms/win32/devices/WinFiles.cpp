#include "forms/win32/devices/WinFiles.h"

#include <windows.h>

#include <algorithm>
#include <memory>

#include "forms/win32/Utf.h"
#include "forms/win32/devices/FileErrors.h"
#include "forms/win32/devices/FileNames.h"
#include "forms/win32/devices/Handle.h"
#include "forms/win32/devices/RecycleBin.h"

namespace forms::win32 {

namespace {

constexpr std::uint64_t largestFile = 64ULL << 20U;
constexpr DWORD shareAll = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;

struct CloseFind {
    void operator()(HANDLE handle) const { ::FindClose(handle); }
};

std::uint64_t Joined(DWORD high, DWORD low) {
    return (static_cast<std::uint64_t>(high) << 32U) | low;
}

// The name of the file as the folder lists it. Empty if there is no such file. The system also
// finds a file by its short name, for example "My notes of 2024.txt" by "MYNOTE~1.TXT".
std::wstring ListedName(const std::wstring& nativePath) {
    WIN32_FIND_DATAW data{};
    HANDLE first = ::FindFirstFileExW(nativePath.c_str(), FindExInfoBasic, &data,
                                      FindExSearchNameMatch, nullptr, 0);
    if (first == INVALID_HANDLE_VALUE) {
        return {};
    }
    ::FindClose(first);
    return data.cFileName;
}

// Whether the path ends in the short name of a file that has another name.
bool IsShortName(const std::wstring& nativePath) {
    constexpr std::size_t longest = 12;  // eight characters, a dot and three
    const std::wstring name = nativePath.substr(nativePath.find_last_of(L'\\') + 1);
    if (name.size() > longest || name.find(L'~') == std::wstring::npos) {
        return false;
    }
    const std::wstring listed = ListedName(nativePath);
    return !listed.empty() && !IsSameName(listed, name);
}

// The native path of a file. RuntimeError 52 for a short name (8.3), because it would open a file
// with another name.
std::wstring FilePath(const std::string& path) {
    std::wstring native = NativePath(path);
    if (IsShortName(native)) {
        throw base::RuntimeError(base::ErrorNumber::BadFileName);
    }
    return native;
}

// Throws if the file does not exist, is a folder or is read-only.
void CheckRemovable(const std::wstring& nativePath) {
    if (::GetFileAttributesW(nativePath.c_str()) == INVALID_FILE_ATTRIBUTES) {
        FailWith(::GetLastError(), nativePath);
    }
    RefuseProtected(nativePath);
}

void WriteAll(HANDLE file, const std::string& bytes, const std::wstring& nativePath) {
    constexpr std::size_t largestPiece = 16U << 20U;
    for (std::size_t position = 0; position < bytes.size();) {
        const auto piece = static_cast<DWORD>(std::min(bytes.size() - position, largestPiece));
        DWORD written = 0;
        if (::WriteFile(file, bytes.data() + position, piece, &written, nullptr) == 0) {
            FailWith(::GetLastError(), nativePath);
        }
        if (written == 0) {
            throw base::RuntimeError(base::ErrorNumber::DiskFull);
        }
        position += written;
    }
}

void Flush(HANDLE file, const std::wstring& nativePath) {
    if (::FlushFileBuffers(file) == 0) {
        const DWORD code = ::GetLastError();
        // These codes mean that the medium has nothing to flush.
        if (code != ERROR_INVALID_FUNCTION && code != ERROR_NOT_SUPPORTED) {
            FailWith(code, nativePath);
        }
    }
}

class WinFileLock : public FileLock {
  public:
    explicit WinFileLock(Handle lockedFile) : file(std::move(lockedFile)) {}

  private:
    Handle file;
};

}  // namespace

bool WinFiles::FolderExists(const std::string& path) try {
    const DWORD attributes = ::GetFileAttributesW(NativePath(path).c_str());
    return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
} catch (const base::RuntimeError&) {
    return false;
}

bool WinFiles::FileExists(const std::string& path) try {
    const DWORD attributes = ::GetFileAttributesW(FilePath(path).c_str());
    return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY) == 0;
} catch (const base::RuntimeError&) {
    return false;
}

void WinFiles::MakeFolder(const std::string& path) {
    const std::wstring native = NativePath(path);
    if (::CreateDirectoryW(native.c_str(), nullptr) == 0) {
        FailWith(::GetLastError(), native);
    }
}

std::vector<FileEntry> WinFiles::List(const std::string& folder, const std::string& suffix) {
    std::vector<FileEntry> entries;
    std::wstring pattern = NativePath(folder);
    const DWORD attributes = ::GetFileAttributesW(pattern.c_str());
    if (attributes == INVALID_FILE_ATTRIBUTES && ::GetLastError() != ERROR_FILE_NOT_FOUND) {
        // A medium or a network that is out of reach must not look like an empty folder.
        throw base::RuntimeError(ErrorOfCode(::GetLastError()));
    }
    if (attributes == INVALID_FILE_ATTRIBUTES || (attributes & FILE_ATTRIBUTE_DIRECTORY) == 0) {
        return entries;
    }
    pattern += pattern.ends_with(L'\\') ? L"*" : L"\\*";
    // The suffix is not part of the pattern, because Windows would also compare it with short
    // names.
    const std::wstring wideSuffix = Wide(suffix);
    WIN32_FIND_DATAW data{};
    HANDLE first = ::FindFirstFileExW(pattern.c_str(), FindExInfoBasic, &data,
                                      FindExSearchNameMatch, nullptr, FIND_FIRST_EX_LARGE_FETCH);
    if (first == INVALID_HANDLE_VALUE) {
        const DWORD code = ::GetLastError();
        if (code == ERROR_FILE_NOT_FOUND) {
            return entries;
        }
        // ErrorOfCode instead of FailWith: FailWith would report 75 for any denied access to a
        // folder.
        throw base::RuntimeError(ErrorOfCode(code));
    }
    const std::unique_ptr<void, CloseFind> find(first);
    do {
        const std::wstring name = data.cFileName;
        const bool isFolder = (data.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
        if (isFolder || !HasSuffix(name, wideSuffix)) {
            continue;
        }
        const std::string narrow = Narrow(name);
        if (IsPlainName(name) && Wide(narrow) == name) {
            entries.push_back(
                {narrow, Joined(data.nFileSizeHigh, data.nFileSizeLow),
                 static_cast<std::int64_t>(Joined(data.ftLastWriteTime.dwHighDateTime,
                                                  data.ftLastWriteTime.dwLowDateTime))});
        }
    } while (::FindNextFileW(find.get(), &data) != 0);
    if (::GetLastError() != ERROR_NO_MORE_FILES) {
        throw base::RuntimeError(ErrorOfCode(::GetLastError()));
    }
    return entries;
}

std::string WinFiles::NameOnDisk(const std::string& path) {
    const std::wstring listed = ListedName(FilePath(path));
    return listed.empty() ? path.substr(path.find_last_of('\\') + 1) : Narrow(listed);
}

std::string WinFiles::Read(const std::string& path) {
    const std::wstring native = FilePath(path);
    const Handle file(::CreateFileW(native.c_str(), GENERIC_READ, shareAll, nullptr, OPEN_EXISTING,
                                    FILE_ATTRIBUTE_NORMAL | FILE_FLAG_SEQUENTIAL_SCAN, nullptr));
    LARGE_INTEGER size{};
    if (!file || ::GetFileSizeEx(file.get(), &size) == 0) {
        FailWith(::GetLastError(), native);
    }
    if (static_cast<std::uint64_t>(size.QuadPart) > largestFile) {
        throw base::RuntimeError(base::ErrorNumber::DeviceIoError);
    }
    std::string bytes(static_cast<std::size_t>(size.QuadPart), '\0');
    std::size_t filled = 0;
    while (filled < bytes.size()) {
        DWORD got = 0;
        if (::ReadFile(file.get(), bytes.data() + filled, static_cast<DWORD>(bytes.size() - filled),
                       &got, nullptr) == 0) {
            FailWith(::GetLastError(), native);
        }
        if (got == 0) {
            break;  // another program has shortened the file
        }
        filled += got;
    }
    bytes.resize(filled);
    return bytes;
}

void WinFiles::Write(const std::string& path, const std::string& bytes, WriteOptions options) {
    const std::wstring native = FilePath(path);
    if (!options.mustBeNew) {
        RefuseProtected(native);
    }
    const Handle file(::CreateFileW(native.c_str(), GENERIC_WRITE, FILE_SHARE_READ, nullptr,
                                    options.mustBeNew ? CREATE_NEW : CREATE_ALWAYS,
                                    FILE_ATTRIBUTE_NORMAL, nullptr));
    if (!file) {
        const DWORD code = ::GetLastError();
        if (options.mustBeNew && (code == ERROR_FILE_EXISTS || code == ERROR_ALREADY_EXISTS)) {
            throw base::RuntimeError(base::ErrorNumber::FileAlreadyExists);
        }
        FailWith(code, native);
    }
    WriteAll(file.get(), bytes, native);
    if (options.durability == Durability::Flushed) {
        Flush(file.get(), native);
    }
}

void WinFiles::Replace(const std::string& from, const std::string& to, Durability durability) {
    const std::wstring source = FilePath(from);
    const std::wstring target = FilePath(to);
    CheckRemovable(source);
    RefuseProtected(target);
    const DWORD flushing = durability == Durability::Flushed ? MOVEFILE_WRITE_THROUGH : 0;
    if (::MoveFileExW(source.c_str(), target.c_str(), MOVEFILE_REPLACE_EXISTING | flushing) == 0) {
        FailWith(::GetLastError(), target);
    }
}

void WinFiles::Delete(const std::string& path) {
    const std::wstring native = FilePath(path);
    CheckRemovable(native);
    if (::DeleteFileW(native.c_str()) == 0) {
        FailWith(::GetLastError(), native);
    }
}

bool WinFiles::Recycle(const std::string& path) {
    const std::wstring native = FilePath(path);
    CheckRemovable(native);
    if (!HasRecycleBin(native)) {
        return false;
    }
    MoveToRecycleBin(native);
    if (FileExists(path)) {
        // Either another program holds the file, or the shell cannot handle the path.
        const Handle alone(
            ::CreateFileW(native.c_str(), DELETE, shareAll, nullptr, OPEN_EXISTING, 0, nullptr));
        if (!alone) {
            FailWith(::GetLastError(), native);
        }
        return false;
    }
    return true;
}

void WinFiles::Copy(const std::string& from, const std::string& to) {
    const std::wstring source = FilePath(from);
    const std::wstring target = FilePath(to);
    RefuseProtected(target);
    if (::CopyFileW(source.c_str(), target.c_str(), FALSE) == 0) {
        const DWORD code = ::GetLastError();
        const DWORD attributes = ::GetFileAttributesW(source.c_str());
        const bool isFolder =
            attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
        FailWith(code, isFolder ? source : target);
    }
}

std::unique_ptr<FileLock> WinFiles::Lock(const std::string& path) {
    const std::wstring native = NativePath(path);
    Handle file(::CreateFileW(native.c_str(), GENERIC_READ | GENERIC_WRITE | DELETE,
                              FILE_SHARE_READ, nullptr, OPEN_ALWAYS, FILE_ATTRIBUTE_HIDDEN,
                              nullptr));
    if (!file) {
        const DWORD code = ::GetLastError();
        // The program that holds the lock has marked the file for deletion, so access is denied.
        if (code == ERROR_SHARING_VIOLATION || code == ERROR_DELETE_PENDING ||
            (code == ERROR_ACCESS_DENIED && !ListedName(native).empty())) {
            return nullptr;
        }
        FailWith(code, native);
    }
    // Some file servers ignore share modes, but the common ones support locks.
    OVERLAPPED start{};
    if (::LockFileEx(file.get(), LOCKFILE_EXCLUSIVE_LOCK | LOCKFILE_FAIL_IMMEDIATELY, 0, 1, 0,
                     &start) == 0) {
        const DWORD code = ::GetLastError();
        if (code == ERROR_LOCK_VIOLATION || code == ERROR_IO_PENDING) {
            return nullptr;
        }
        FailWith(code, native);
    }
    // Mark the file for deletion only now, when this program holds the lock. The system deletes the
    // file when its handle is closed, even after a crash.
    FILE_DISPOSITION_INFO disposition{TRUE};
    ::SetFileInformationByHandle(file.get(), FileDispositionInfo, &disposition, sizeof disposition);
    return std::make_unique<WinFileLock>(std::move(file));
}

}  // namespace forms::win32
