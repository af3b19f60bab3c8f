#pragma once

#include <windows.h>

#include <string>

#include "base/RuntimeError.h"

namespace forms::win32 {

// The error number that stands for a code of GetLastError.
base::ErrorNumber ErrorOfCode(DWORD code);

// Throws what code means for the file at this native path. A denied access is 75 where the path
// leads to a folder or a read-only file, else 70.
[[noreturn]] void FailWith(DWORD code, const std::wstring& nativePath);

// Throws 75 where the path leads to a folder or a read-only file. Some systems would let a
// privileged user write to it all the same.
void RefuseProtected(const std::wstring& nativePath);

}  // namespace forms::win32
