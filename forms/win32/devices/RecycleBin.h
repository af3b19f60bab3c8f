#pragma once

#include <string>

namespace forms::win32 {

// Whether the file goes to a Recycle Bin if the shell deletes it: files of network drives, sticks
// and cards do not, nor do any for which the user or a policy has switched it off, nor those that
// are larger than it. The shell destroys these without a question.
bool HasRecycleBin(const std::wstring& nativePath);

// Asks the shell to put a file into the Recycle Bin, without any question or message. Whether it
// did shows in whether the file is still there.
void MoveToRecycleBin(const std::wstring& nativePath);

}  // namespace forms::win32
