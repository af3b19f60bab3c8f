#include "forms/win32/LibrarySearch.h"

#include <windows.h>

#include "forms/win32/LateLibrary.h"

namespace forms::win32 {

void RestrictLibrarySearch() {
    // Some systems do not have this function.
    const auto setDirectories =
        FromLoadedLibrary<BOOL(WINAPI*)(DWORD)>(L"kernel32.dll", "SetDefaultDllDirectories");
    if (setDirectories != nullptr) {
        setDirectories(LOAD_LIBRARY_SEARCH_SYSTEM32);
    }
    // If the function is missing, at least remove the current folder.
    ::SetDllDirectoryW(L"");
}

}  // namespace forms::win32
