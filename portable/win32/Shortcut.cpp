#include "portable/win32/Shortcut.h"

#include <windows.h>
#include <objbase.h>
#include <shlobj.h>

#include <array>
#include <memory>

namespace portable::win32 {

namespace {

struct ReleaseObject {
    void operator()(IUnknown* object) const { object->Release(); }
};
template <class Interface>
using Object = std::unique_ptr<Interface, ReleaseObject>;

std::wstring TargetOf(IShellLinkW& link) {
    std::array<wchar_t, MAX_PATH> path{};
    link.GetPath(path.data(), static_cast<int>(path.size()), nullptr, SLGP_RAWPATH);
    return path.data();
}

}  // namespace

void RefreshShortcut(const std::wstring& folder) {
    const std::wstring program = folder + L"\\JotwrightPortable.exe";
    const std::wstring file = folder + L"\\Shortcut To Jotwright.lnk";
    if (FAILED(::CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED))) {
        return;
    }
    void* made = nullptr;
    if (SUCCEEDED(::CoCreateInstance(CLSID_ShellLink, nullptr, CLSCTX_INPROC_SERVER,
                                     IID_IShellLinkW, &made))) {
        const Object<IShellLinkW> link(static_cast<IShellLinkW*>(made));
        void* asFile = nullptr;
        if (SUCCEEDED(link->QueryInterface(IID_IPersistFile, &asFile))) {
            const Object<IPersistFile> stored(static_cast<IPersistFile*>(asFile));
            stored->Load(file.c_str(), STGM_READ);
            if (TargetOf(*link) != program) {
                link->SetPath(program.c_str());
                link->SetWorkingDirectory(folder.c_str());
                link->SetDescription(L"Jotwright");
                link->SetIconLocation(program.c_str(), 0);
                stored->Save(file.c_str(), TRUE);
            }
        }
    }
    ::CoUninitialize();
}

}  // namespace portable::win32
