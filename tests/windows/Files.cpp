#include "tests/windows/Files.h"

#include <windows.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>

#include "forms/win32/Utf.h"
#include "tests/windows/Wait.h"

namespace driver {

using forms::win32::Narrow;
using forms::win32::Wide;

namespace {

constexpr wchar_t settingsKey[] = L"Software\\Jotwright";

std::filesystem::path PathOf(const std::string& path) { return {Wide(path)}; }

}  // namespace

std::string Variable(const std::string& name) {
    wchar_t value[4096]{};
    if (::GetEnvironmentVariableW(Wide(name).c_str(), value, 4096) == 0) {
        throw Failure(name + " is not set: start the driver with scripts/run-windows-tests --app");
    }
    return Narrow(value);
}

std::string UnixPath(const std::string& path) {
    std::string windows = "Z:" + path;
    std::replace(windows.begin(), windows.end(), '/', '\\');
    return windows;
}

std::string FolderOf(const std::string& path) { return path.substr(0, path.rfind('\\')); }

bool FileExists(const std::string& path) { return std::filesystem::is_regular_file(PathOf(path)); }

bool FolderExists(const std::string& path) { return std::filesystem::is_directory(PathOf(path)); }

void MakeFolder(const std::string& path) { std::filesystem::create_directories(PathOf(path)); }

std::optional<std::string> WholeFile(const std::string& path) {
    std::ifstream file(PathOf(path), std::ios::binary);
    if (!file) {
        return std::nullopt;
    }
    return std::string(std::istreambuf_iterator<char>(file), {});
}

void WriteWholeFile(const std::string& path, const std::string& bytes) {
    std::ofstream file(PathOf(path), std::ios::binary | std::ios::trunc);
    file << bytes;
    if (!file.flush()) {
        throw Failure("cannot write " + path);
    }
}

void RenameOver(const std::string& from, const std::string& to) {
    if (::MoveFileExW(Wide(from).c_str(), Wide(to).c_str(), MOVEFILE_REPLACE_EXISTING) == 0) {
        throw Failure("cannot rename " + from);
    }
}

void RemoveFolder(const std::string& path) {
    std::error_code error;
    std::filesystem::remove_all(PathOf(path), error);
    if (FolderExists(path)) {
        throw Failure("cannot remove " + path);
    }
}

void EraseSettings() { ::RegDeleteTreeW(HKEY_CURRENT_USER, settingsKey); }

void WriteSetting(const std::string& section, const std::string& key, const std::string& value) {
    const std::wstring path = std::wstring(settingsKey) + L'\\' + Wide(section);
    const std::wstring text = Wide(value);
    ::RegSetKeyValueW(HKEY_CURRENT_USER, path.c_str(), Wide(key).c_str(), REG_SZ, text.c_str(),
                      static_cast<DWORD>((text.size() + 1) * sizeof(wchar_t)));
}

std::string Setting(const std::string& section, const std::string& key) {
    const std::wstring path = std::wstring(settingsKey) + L'\\' + Wide(section);
    wchar_t value[1024]{};
    DWORD size = sizeof value;
    if (::RegGetValueW(HKEY_CURRENT_USER, path.c_str(), Wide(key).c_str(), RRF_RT_REG_SZ, nullptr,
                       value, &size) != ERROR_SUCCESS) {
        return {};
    }
    return Narrow(value);
}

}  // namespace driver
