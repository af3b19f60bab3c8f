#pragma once

#include <windows.h>

namespace forms::win32 {

// A function of a system library that few runs of the program need: the library is loaded when the
// function is first asked for, and stays. Null where the system does not have it.
//
//   static const auto play = FromLibrary<decltype(&::PlaySoundW)>(L"winmm.dll", "PlaySoundW");
template <class Function>
Function FromLibrary(const wchar_t* library, const char* name) {
    HMODULE module = ::LoadLibraryExW(library, nullptr, LOAD_LIBRARY_SEARCH_SYSTEM32);
    const FARPROC address = module != nullptr ? ::GetProcAddress(module, name) : nullptr;
    return reinterpret_cast<Function>(reinterpret_cast<void*>(address));
}

}  // namespace forms::win32
