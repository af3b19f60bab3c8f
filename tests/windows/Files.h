#pragma once

#include <optional>
#include <string>
#include <vector>

// Files on the disk, and settings. Paths are Windows paths, in UTF-8.
namespace driver {

// The value of an environment variable. If it is not set, calls MissingHelper().
std::string Variable(const std::string& name);
// The Windows path of a path on the host. Returns a Windows path unchanged, because on Windows the
// environment variables contain Windows paths.
std::string UnixPath(const std::string& path);
std::string FolderOf(const std::string& path);

bool FileExists(const std::string& path);
bool FolderExists(const std::string& path);
void MakeFolder(const std::string& path);
// The bytes of the file, or nothing if it does not exist.
std::optional<std::string> WholeFile(const std::string& path);
void WriteWholeFile(const std::string& path, const std::string& bytes);
void RenameOver(const std::string& from, const std::string& to);
// Does nothing if the file does not exist.
void RemoveFile(const std::string& path);
// The names of all files except the lock of a running program.
std::vector<std::string> FileNames(const std::string& folder);
// Removes the folder with its contents. Does nothing if it does not exist.
void RemoveFolder(const std::string& path);

// Erases the program's settings of this user.
void EraseSettings();
void WriteSetting(const std::string& section, const std::string& key, const std::string& value);
// The value of a setting. Empty if there is none.
std::string Setting(const std::string& section, const std::string& key);

}  // namespace driver
