#pragma once

#include <string>

namespace forms::win32 {

// The full path of the running program's file.
std::wstring ProgramPath();

}  // namespace forms::win32
