#include "tests/windows/Files.h"

#include <windows.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>

#include "forms/win32/Utf.h"
#include "tests/windows/Needs.h"
#include "tests/windows/Wait.h"

namespace driver {

using forms::win32::Narrow;
using forms::win32::Wide;

namespace {

constexpr const char* settingsKey = "Software\\Jotwright";

std::filesystem::path PathOf(const std::string& path) { return {Wide(path)}; }

void WriteValue(const std::string& key, const std::string& name, const std::string& value) {
    const std::wstring text = Wide(value);
    ::RegSetKeyValueW(HKEY_CURRENT_USER, Wide(key).c_str(), Wide(name).c_str(), REG_SZ,
                      text.c_str(), static_cast<DWORD>((text.size() + 1) * sizeof(wchar_t)));
}

}  // namespace

std::string Variable(const std::string& name) {
    wchar_t value[4096]{};
    if (::GetEnvironmentVariableW(Wide(name).c_str(), value, 4096) == 0) {
        MissingHelper(name);
    }
    return Narrow(value);
}

std::string UnixPath(const std::string& path) {
    const bool isWindowsPath = path.size() > 1 && path[1] == ':';
    std::string windows = isWindowsPath ? path : "Z:" + path;
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

void RemoveFile(const std::string& path) {
    std::error_code error;
    std::filesystem::remove(PathOf(path), error);
}

std::vector<std::string> FileNames(const std::string& folder) {
    std::vector<std::string> names;
    for (const auto& entry : std::filesystem::directory_iterator(PathOf(folder))) {
        // A running program holds a lock in the folder.
        if (entry.path().extension() != L".lock") {
            names.push_back(Narrow(entry.path().filename().wstring()));
        }
    }
    std::sort(names.begin(), names.end());
    return names;
}

void RemoveFolder(const std::string& path) {
    std::error_code error;
    std::filesystem::remove_all(PathOf(path), error);
    if (FolderExists(path)) {
        throw Failure("cannot remove " + path);
    }
}

void EraseSettings() { ::RegDeleteTreeW(HKEY_CURRENT_USER, Wide(settingsKey).c_str()); }

void WriteSetting(const std::string& section, const std::string& key, const std::string& value) {
    WriteValue(std::string(settingsKey) + '\\' + section, key, value);
}

std::string Setting(const std::string& section, const std::string& key) {
    const std::string path = std::string(settingsKey) + '\\' + section;
    wchar_t value[1024]{};
    DWORD size = sizeof value;
    if (::RegGetValueW(HKEY_CURRENT_USER, Wide(path).c_str(), Wide(key).c_str(), RRF_RT_REG_SZ,
                       nullptr, value, &size) != ERROR_SUCCESS) {
        return {};
    }
    return Narrow(value);
}

}  // namespace driver
