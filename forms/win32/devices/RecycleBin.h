#pragma once

#include <string>

namespace forms::win32 {

// Whether the shell would move this file to a Recycle Bin. Without asking, the shell deletes a file
// on a network drive or a removable drive, a file larger than the Recycle Bin, and a file on a
// drive for which the user or a policy has switched the Recycle Bin off.
bool HasRecycleBin(const std::wstring& nativePath);

// Asks the shell to move the file to the Recycle Bin, without any question or message. Reports no
// error: check whether the file still exists.
void MoveToRecycleBin(const std::wstring& nativePath);

}  // namespace forms::win32
