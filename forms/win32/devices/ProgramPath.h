#pragma once

#include <string>

namespace forms::win32 {

// The full path of the running program's file.
std::wstring ProgramPath();
// Its folder, without a trailing backslash.
std::wstring ProgramFolder();

}  // namespace forms::win32
