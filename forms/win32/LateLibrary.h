#pragma once

#include <windows.h>

namespace forms::win32 {

// A function of a library that is loaded; null where there is no library or no such function in it.
template <class Function>
Function FunctionOf(HMODULE library, const char* name) {
    const FARPROC address = library != nullptr ? ::GetProcAddress(library, name) : nullptr;
    return reinterpret_cast<Function>(reinterpret_cast<void*>(address));
}

// A function that not every system has, of a library that the process may have already: nothing is
// loaded. Null where one of them is missing.
template <class Function>
Function FromLoadedLibrary(const wchar_t* library, const char* name) {
    return FunctionOf<Function>(::GetModuleHandleW(library), name);
}

// A function of a system library that is not linked: the library is loaded, from the system's
// folder only, when the function is first asked for, and stays. Null where the system does not have
// it.
//
//   static const auto play = FromLibrary<decltype(&::PlaySoundW)>(L"winmm.dll", "PlaySoundW");
template <class Function>
Function FromLibrary(const wchar_t* library, const char* name) {
    return FunctionOf<Function>(::LoadLibraryExW(library, nullptr, LOAD_LIBRARY_SEARCH_SYSTEM32),
                                name);
}

}  // namespace forms::win32
