#pragma once

#include <string>

namespace forms::win32 {

// Whether files of this volume go to a Recycle Bin: those of network drives, sticks and cards do
// not, nor do any for which the user has switched it off.
bool HasRecycleBin(const std::wstring& nativePath);

// Asks the shell to put a file into the Recycle Bin, without any question or message. Whether it
// did shows in whether the file is still there.
void MoveToRecycleBin(const std::wstring& nativePath);

}  // namespace forms::win32
