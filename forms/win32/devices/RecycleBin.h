#pragma once

#include <string>

namespace forms::win32 {

// Asks the shell to put a file into the Recycle Bin, without any question or message. Whether it
// did shows in whether the file is still there.
void MoveToRecycleBin(const std::wstring& nativePath);

}  // namespace forms::win32
