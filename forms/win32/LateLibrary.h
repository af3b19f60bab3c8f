#pragma once

#include <windows.h>

namespace forms::win32 {

// A function of a loaded library. Null if library is null or has no such function.
template <class Function>
Function FunctionOf(HMODULE library, const char* name) {
    const FARPROC address = library != nullptr ? ::GetProcAddress(library, name) : nullptr;
    return reinterpret_cast<Function>(reinterpret_cast<void*>(address));
}

// A function that some systems lack, in a library that the process may have loaded. Loads nothing.
// Null if the library or the function is missing.
template <class Function>
Function FromLoadedLibrary(const wchar_t* library, const char* name) {
    return FunctionOf<Function>(::GetModuleHandleW(library), name);
}

// The function of the system that loads a library. Tests replace it.
using LibraryLoader = decltype(&::LoadLibraryExW);

// Loads a library from the system's folder only. Null on failure. The caller frees it.
HMODULE LoadSystemLibrary(const wchar_t* library, LibraryLoader load = &::LoadLibraryExW);

// A function of a system library that is not linked. Loads the library from the system's folder,
// and keeps it loaded. Null if the system does not have the function.
//
//   static const auto play = FromLibrary<decltype(&::PlaySoundW)>(L"winmm.dll", "PlaySoundW");
template <class Function>
Function FromLibrary(const wchar_t* library, const char* name) {
    return FunctionOf<Function>(LoadSystemLibrary(library), name);
}

}  // namespace forms::win32
