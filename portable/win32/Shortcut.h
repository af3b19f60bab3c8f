#pragma once

#include <string>

namespace portable::win32 {

// Makes the prepared shortcut beside the program start this program in its present folder. Writes
// nothing if it does so already, and ignores a disk that refuses.
void RefreshShortcut(const std::wstring& folder);

}  // namespace portable::win32
