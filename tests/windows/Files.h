#pragma once

#include <optional>
#include <string>
#include <vector>

// Files and settings as they stand on the disk. Paths are Windows paths, in UTF-8.
namespace driver {

// An environment variable. Failure where it is not set.
std::string Variable(const std::string& name);
// The Windows path of a path of the host.
std::string UnixPath(const std::string& path);
std::string FolderOf(const std::string& path);

bool FileExists(const std::string& path);
bool FolderExists(const std::string& path);
void MakeFolder(const std::string& path);
// Nothing where there is no such file.
std::optional<std::string> WholeFile(const std::string& path);
void WriteWholeFile(const std::string& path, const std::string& bytes);
void RenameOver(const std::string& from, const std::string& to);
// A missing one is no error.
void RemoveFile(const std::string& path);
// In the order of their bytes, without the lock of a program that runs.
std::vector<std::string> FileNames(const std::string& folder);
// With all that is in it; a missing one is no error.
void RemoveFolder(const std::string& path);

// The user's settings of the program.
void EraseSettings();
void WriteSetting(const std::string& section, const std::string& key, const std::string& value);
// Empty where there is none.
std::string Setting(const std::string& section, const std::string& key);

}  // namespace driver
