#include "portable/win32/WinUserRegistry.h"

#include <windows.h>

#include "app/ProductTexts.h"
#include "forms/win32/Utf.h"
#include "forms/win32/devices/RegistryKey.h"
#include "forms/win32/devices/WinSettings.h"

namespace portable::win32 {

namespace {

using forms::win32::WinSettings;
using forms::win32::registry::Check;
using forms::win32::registry::Key;

constexpr const wchar_t* ownKey = L"Software\\Jotwright.Portable";
constexpr const wchar_t* savedKey = L"Software\\Jotwright.Portable\\Saved";
// Values of ownKey, which WinSettings reads as the section "Jotwright.Portable" of "Software".
constexpr const char* section = "Jotwright.Portable";
constexpr const char* stageName = "Stage";
constexpr const char* folderName = "Folder";

std::wstring ProgramKey() { return forms::win32::Wide(StandardCode::registryKey); }

void DeleteKey(const std::wstring& path) {
    const LSTATUS status = ::RegDeleteTreeW(HKEY_CURRENT_USER, path.c_str());
    if (status != ERROR_FILE_NOT_FOUND) {
        Check(status);
    }
}

// Makes the target a copy of the source, or removes it if there is no source.
void CopyKey(const std::wstring& source, const std::wstring& target) {
    DeleteKey(target);
    HKEY from = nullptr;
    const LSTATUS status = ::RegOpenKeyExW(HKEY_CURRENT_USER, source.c_str(), 0, KEY_READ, &from);
    if (status == ERROR_FILE_NOT_FOUND) {
        return;
    }
    Check(status);
    const Key fromGuard(from);
    HKEY to = nullptr;
    Check(::RegCreateKeyExW(HKEY_CURRENT_USER, target.c_str(), 0, nullptr, 0, KEY_ALL_ACCESS,
                            nullptr, &to, nullptr));
    const Key toGuard(to);
    Check(::RegCopyTreeW(from, nullptr, to));
}

}  // namespace

State WinUserRegistry::ReadState() {
    WinSettings settings(L"Software");
    const std::string stage = settings.Read(section, stageName).value_or("");
    return {stage == "lent"    ? Stage::Lent
            : stage == "saved" ? Stage::Saved
                               : Stage::Own,
            settings.Read(section, folderName).value_or("")};
}

void WinUserRegistry::WriteState(const State& state) {
    WinSettings settings(L"Software");
    // Write the folder first: after a kill between the two writes, the new stage with the old
    // folder would mean another portable copy.
    settings.Write(section, folderName, state.folder);
    settings.Write(section, stageName,
                   state.stage == Stage::Lent    ? "lent"
                   : state.stage == Stage::Saved ? "saved"
                                                 : "own");
}

Options WinUserRegistry::ReadOptions() {
    WinSettings settings(ProgramKey());
    Options options;
    for (const auto& name : OptionNames()) {
        if (auto value = settings.Read(name.first, name.second)) {
            options.emplace(name, *std::move(value));
        }
    }
    return options;
}

void WinUserRegistry::WriteOptions(const Options& options) {
    DeleteKey(ProgramKey());
    WinSettings settings(ProgramKey());
    for (const auto& [name, value] : options) {
        settings.Write(name.first, name.second, value);
    }
}

void WinUserRegistry::SaveOwn() { CopyKey(ProgramKey(), savedKey); }

void WinUserRegistry::RestoreOwn() { CopyKey(savedKey, ProgramKey()); }

void WinUserRegistry::Forget() {
    WriteState({});
    DeleteKey(ownKey);
}

}  // namespace portable::win32
