#pragma once

#include <string>

namespace portable::win32 {

// Points the shortcut in this folder to JotwrightPortable.exe in the same folder. Writes nothing if
// it points there already. Ignores errors.
void RefreshShortcut(const std::wstring& folder);

}  // namespace portable::win32
