#include "forms/win32/devices/WinShell.h"

#include <windows.h>
#include <shellapi.h>

#include "forms/win32/Utf.h"

namespace forms::win32 {

int WinShell::Open(const std::string& document, const std::string& workingFolder) {
    const HINSTANCE result = ::ShellExecuteW(::GetDesktopWindow(), L"Open", Wide(document).c_str(),
                                             L"", Wide(workingFolder).c_str(), SW_SHOWNORMAL);
    return static_cast<int>(reinterpret_cast<INT_PTR>(result));
}

void WinShell::ShowHelp(const std::string& helpFile, int command) {
    const std::wstring path = Wide(helpFile);
    if (::GetFileAttributesW(path.c_str()) != INVALID_FILE_ATTRIBUTES) {
        ::WinHelpW(::GetActiveWindow(), path.c_str(), static_cast<UINT>(command), 0);
    }
}

}  // namespace forms::win32
