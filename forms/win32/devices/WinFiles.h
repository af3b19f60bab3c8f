#pragma once

#include "forms/Devices.h"

namespace forms::win32 {

// Paths of any length. A file larger than 64 MiB is not read (57): nothing of the program's own
// comes near to that, and what does is no note.
class WinFiles : public FileSystem {
  public:
    bool FolderExists(const std::string& path) override;
    bool FileExists(const std::string& path) override;
    // RuntimeError 75 where the folder is there already.
    void MakeFolder(const std::string& path) override;
    // Files whose names no other operation would take are left out.
    std::vector<FileEntry> List(const std::string& folder, const std::string& suffix) override;
    std::string NameOnDisk(const std::string& path) override;
    std::string Read(const std::string& path) override;
    using FileSystem::Write;
    void Write(const std::string& path, const std::string& bytes, WriteOptions options) override;
    using FileSystem::Replace;
    void Replace(const std::string& from, const std::string& to, Durability durability) override;
    void Delete(const std::string& path) override;
    // No message is handled meanwhile.
    bool Recycle(const std::string& path) override;
    void Copy(const std::string& from, const std::string& to) override;
    std::unique_ptr<FileLock> Lock(const std::string& path) override;
};

}  // namespace forms::win32
