#pragma once

#include <string>

namespace forms::win32 {

// Whether the shell would move this file to a Recycle Bin. It would not for network drives,
// removable drives, files larger than the Recycle Bin, and drives for which the user or a policy
// has switched it off. The shell deletes such a file without a question.
bool HasRecycleBin(const std::wstring& nativePath);

// Asks the shell to move the file to the Recycle Bin, without any question or message. Reports no
// error: check whether the file still exists.
void MoveToRecycleBin(const std::wstring& nativePath);

}  // namespace forms::win32
