#include "forms/win32/devices/WinShell.h"

#include <windows.h>
#include <shellapi.h>

#include "forms/win32/Utf.h"

namespace forms::win32 {

namespace {

// Bytes. A stand-in has about ten thousand bytes, a viewer several hundred thousand.
constexpr std::uint64_t smallestViewer = 64 * 1024;

std::wstring FolderFrom(UINT(WINAPI* getFolder)(LPWSTR, UINT)) {
    std::wstring folder(getFolder(nullptr, 0), L'\0');
    folder.resize(getFolder(folder.data(), static_cast<UINT>(folder.size())));
    return folder;
}

bool SystemHasHelpViewer() {
    const std::wstring name = L"\\winhlp32.exe";
    // The viewer's folder depends on the version of the system.
    return WinShell::IsHelpViewer(FolderFrom(&::GetSystemWindowsDirectoryW) + name) ||
           WinShell::IsHelpViewer(FolderFrom(&::GetSystemDirectoryW) + name);
}

bool IsFile(const std::wstring& path) {
    const DWORD attributes = ::GetFileAttributesW(path.c_str());
    return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY) == 0;
}

}  // namespace

WinShell::WinShell() : WinShell(SystemHasHelpViewer()) {}

int WinShell::Open(const std::string& document, const std::string& workingFolder) {
    const HINSTANCE result = ::ShellExecuteW(::GetDesktopWindow(), L"Open", Wide(document).c_str(),
                                             L"", Wide(workingFolder).c_str(), SW_SHOWNORMAL);
    return static_cast<int>(reinterpret_cast<INT_PTR>(result));
}

void WinShell::ShowHelp(const std::string& helpFile, int command) {
    const auto ask = [path = Wide(helpFile)](UINT wanted) {
        return ::WinHelpW(::GetActiveWindow(), path.c_str(), wanted, 0) != 0;
    };
    const auto showInViewer = [path = Wide(helpFile), command, ask] {
        if (!IsFile(path) || !ask(static_cast<UINT>(command))) {
            return false;
        }
        // If the viewer already shows the file, HELP_FORCEFILE leaves it behind other windows, and
        // some viewers ignore the command. HELP_CONTENTS shows the file's first page in front.
        return command != HELP_FORCEFILE || ask(HELP_CONTENTS);
    };
    if (hasHelpViewer && showInViewer()) {
        return;
    }
    const std::string page = helpFile.substr(0, helpFile.find_last_of('.')) + ".html";
    const std::string folder = helpFile.substr(0, helpFile.find_last_of('\\'));
    if (!IsFile(Wide(page)) || Open(page, folder) <= 32) {
        // Last resort: a stand-in at least tells the user that it cannot show help files.
        showInViewer();
    }
}

bool WinShell::IsHelpViewer(const std::wstring& program) {
    WIN32_FILE_ATTRIBUTE_DATA data{};
    return ::GetFileAttributesExW(program.c_str(), GetFileExInfoStandard, &data) != 0 &&
           (std::uint64_t{data.nFileSizeHigh} << 32 | data.nFileSizeLow) >= smallestViewer;
}

}  // namespace forms::win32
