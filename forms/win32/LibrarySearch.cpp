#include "forms/win32/LibrarySearch.h"

#include <windows.h>

namespace forms::win32 {

void RestrictLibrarySearch() {
    // Not on every system that the program runs on.
    using SetDirectories = BOOL(WINAPI*)(DWORD);
    const auto setDirectories = reinterpret_cast<SetDirectories>(reinterpret_cast<void*>(
        ::GetProcAddress(::GetModuleHandleW(L"kernel32.dll"), "SetDefaultDllDirectories")));
    if (setDirectories != nullptr) {
        setDirectories(LOAD_LIBRARY_SEARCH_SYSTEM32);
    }
    // Takes at least the current folder away where the call above is missing.
    ::SetDllDirectoryW(L"");
}

}  // namespace forms::win32
