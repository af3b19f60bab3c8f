#include "forms/win32/LibrarySearch.h"

#include <windows.h>

#include "forms/win32/LateLibrary.h"

namespace forms::win32 {

void RestrictLibrarySearch() {
    // Not on every system that the program runs on.
    const auto setDirectories =
        FromLoadedLibrary<BOOL(WINAPI*)(DWORD)>(L"kernel32.dll", "SetDefaultDllDirectories");
    if (setDirectories != nullptr) {
        setDirectories(LOAD_LIBRARY_SEARCH_SYSTEM32);
    }
    // Takes at least the current folder away where the call above is missing.
    ::SetDllDirectoryW(L"");
}

}  // namespace forms::win32
