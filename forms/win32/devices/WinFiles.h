#pragma once

#include "forms/Devices.h"

namespace forms::win32 {

// Paths may have any length. Reading a file larger than 64 MiB raises RuntimeError 57. The
// program's own files are far smaller, so a file of that size is not a note.
class WinFiles : public FileSystem {
  public:
    bool FolderExists(const std::string& path) override;
    bool FileExists(const std::string& path) override;
    // RuntimeError 75 if the folder already exists.
    void MakeFolder(const std::string& path) override;
    // Leaves out files whose names the other operations would refuse.
    std::vector<FileEntry> List(const std::string& folder, const std::string& suffix) override;
    std::string NameOnDisk(const std::string& path) override;
    std::string Read(const std::string& path) override;
    using FileSystem::Write;
    void Write(const std::string& path, const std::string& bytes, WriteOptions options) override;
    using FileSystem::Replace;
    void Replace(const std::string& from, const std::string& to, Durability durability) override;
    void Delete(const std::string& path) override;
    // No handler runs meanwhile: posted messages stay in the queue.
    bool Recycle(const std::string& path) override;
    void Copy(const std::string& from, const std::string& to) override;
    std::unique_ptr<FileLock> Lock(const std::string& path) override;
};

}  // namespace forms::win32
