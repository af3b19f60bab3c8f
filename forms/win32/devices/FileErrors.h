#pragma once

#include <windows.h>

#include <string>

#include "base/RuntimeError.h"

namespace forms::win32 {

// The error number for a code of GetLastError.
base::ErrorNumber ErrorOfCode(DWORD code);

// Throws the error for this code and the file at this native path. A denied access is error 75 if
// the path leads to a folder or a read-only file, else 70.
[[noreturn]] void FailWith(DWORD code, const std::wstring& nativePath);

// Throws error 75 if the path leads to a folder or a read-only file. Without this check, some
// systems would let a privileged user write to it.
void RefuseProtected(const std::wstring& nativePath);

}  // namespace forms::win32
