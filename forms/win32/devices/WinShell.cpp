#include "forms/win32/devices/WinShell.h"

#include <windows.h>
#include <objbase.h>
#include <shellapi.h>
#include <shlobj.h>

#include <memory>

#include "forms/win32/Utf.h"
#include "forms/win32/devices/ProgramPath.h"

namespace forms::win32 {

namespace {

// In bytes. A viewer of help files has several hundred thousand bytes. Its stand-in on newer
// systems, which only says that it cannot show help files, has about ten thousand.
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

// The shell's functions and objects need COM in their thread. Further calls in the same thread are
// harmless.
void StartCom() { ::CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED | COINIT_DISABLE_OLE1DDE); }

struct Release {
    void operator()(IUnknown* object) const { object->Release(); }
};
template <class Interface>
using Owned = std::unique_ptr<Interface, Release>;

Owned<IShellLinkW> NewLink() {
    void* made = nullptr;
    ::CoCreateInstance(CLSID_ShellLink, nullptr, CLSCTX_INPROC_SERVER, IID_IShellLinkW, &made);
    return Owned<IShellLinkW>(static_cast<IShellLinkW*>(made));
}

Owned<IPersistFile> FileOf(IShellLinkW& link) {
    void* file = nullptr;
    link.QueryInterface(IID_IPersistFile, &file);
    return Owned<IPersistFile>(static_cast<IPersistFile*>(file));
}

bool IsFile(const std::wstring& path) {
    const DWORD attributes = ::GetFileAttributesW(path.c_str());
    return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY) == 0;
}

// The file beside this program that has the target's name, for example the launcher of the portable
// copy. If there is none, this program.
std::wstring ProgramInThisFolder(const std::wstring& target) {
    const std::wstring sameName =
        ProgramFolder() + L'\\' + target.substr(target.find_last_of(L'\\') + 1);
    return IsFile(sameName) ? sameName : ProgramPath();
}

}  // namespace

WinShell::WinShell() : WinShell(SystemHasHelpViewer()) {}

int WinShell::Open(const std::string& document, const std::string& workingFolder) {
    StartCom();
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
    if (hasHelpViewer && !IsRefusedByViewer(Wide(helpFile)) && showInViewer()) {
        return;
    }
    const std::string page = helpFile.substr(0, helpFile.find_last_of('.')) + ".html";
    const std::string folder = helpFile.substr(0, helpFile.find_last_of('\\'));
    if (!IsFile(Wide(page)) || Open(page, folder) <= 32) {
        // Last resort: a stand-in at least tells the user that it cannot show help files.
        showInViewer();
    }
}

void WinShell::PointToThisProgram(const std::string& shortcut) {
    StartCom();
    const std::wstring path = Wide(shortcut);
    const auto before = NewLink();
    const auto link = NewLink();
    if (!before || !link || FAILED(FileOf(*before)->Load(path.c_str(), STGM_READ))) {
        return;
    }
    wchar_t target[MAX_PATH]{};
    wchar_t description[INFOTIPSIZE]{};
    before->GetPath(target, MAX_PATH, nullptr, SLGP_RAWPATH);
    before->GetDescription(description, INFOTIPSIZE);
    const std::wstring program = ProgramInThisFolder(target);
    // Write a new shortcut: the old one may hold its target in other forms too.
    if (target != program && SUCCEEDED(link->SetPath(program.c_str())) &&
        SUCCEEDED(link->SetWorkingDirectory(ProgramFolder().c_str()))) {
        link->SetDescription(description);
        FileOf(*link)->Save(path.c_str(), TRUE);
    }
}

bool WinShell::IsHelpViewer(const std::wstring& program) {
    WIN32_FILE_ATTRIBUTE_DATA data{};
    return ::GetFileAttributesExW(program.c_str(), GetFileExInfoStandard, &data) != 0 &&
           (std::uint64_t{data.nFileSizeHigh} << 32 | data.nFileSizeLow) >= smallestViewer;
}

bool WinShell::IsRefusedByViewer(const std::wstring& helpFile) {
    BOOL isLossy = FALSE;
    ::WideCharToMultiByte(CP_ACP, WC_NO_BEST_FIT_CHARS, helpFile.c_str(), -1, nullptr, 0, nullptr,
                          &isLossy);
    const std::wstring root = helpFile.substr(0, helpFile.find(L'\\') + 1);
    return isLossy != 0 || helpFile.starts_with(L"\\\\") ||
           ::GetDriveTypeW(root.c_str()) == DRIVE_REMOTE || IsFile(helpFile + L":Zone.Identifier");
}

}  // namespace forms::win32
