#include "forms/win32/LateLibrary.h"

#include <string>

namespace forms::win32 {

HMODULE LoadSystemLibrary(const wchar_t* library, LibraryLoader load) {
    HMODULE loaded = load(library, nullptr, LOAD_LIBRARY_SEARCH_SYSTEM32);
    if (loaded != nullptr || ::GetLastError() != ERROR_INVALID_PARAMETER) {
        return loaded;
    }
    // Windows 7 without its update KB2533623 rejects the flag. If the path is a full path, the flag
    // below makes it search the library's own folder first for the libraries that this one needs.
    std::wstring path(::GetSystemDirectoryW(nullptr, 0), L'\0');
    path.resize(::GetSystemDirectoryW(path.data(), static_cast<UINT>(path.size())));
    path += L'\\';
    path += library;
    return load(path.c_str(), nullptr, LOAD_WITH_ALTERED_SEARCH_PATH);
}

}  // namespace forms::win32
