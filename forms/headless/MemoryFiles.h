#pragma once

#include <cstdint>
#include <map>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <vector>

#include "forms/Devices.h"
#include "forms/headless/DiskFaults.h"
#include "forms/headless/DiskPath.h"

namespace forms::headless {

// A disk in memory that behaves like a disk of Windows: names keep their case and are found in any
// case, listings are alphabetical, trailing dots and blanks of a name are dropped, and names that
// Windows refuses are refused. A copy of the object is a snapshot.
//
// Read, MakeFolder, Replace, Delete and Recycle are one step each, a flushed Write three (create or
// truncate, write, flush), a cached one two, Copy four (read and the three of writing).
class MemoryFiles : public FileSystem, public DiskFaults {
  public:
    MemoryFiles();

    bool FolderExists(const std::string& path) override;
    bool FileExists(const std::string& path) override;
    void MakeFolder(const std::string& path) override;
    std::vector<FileEntry> List(const std::string& folder, const std::string& suffix) override;
    std::string NameOnDisk(const std::string& path) override;
    std::string Read(const std::string& path) override;
    using FileSystem::Write;
    void Write(const std::string& path, const std::string& bytes, WriteOptions options) override;
    using FileSystem::Replace;
    void Replace(const std::string& from, const std::string& to, Durability durability) override;
    void Delete(const std::string& path) override;
    bool Recycle(const std::string& path) override;
    void Copy(const std::string& from, const std::string& to) override;
    // Listings do not contain a locked file.
    std::unique_ptr<FileLock> Lock(const std::string& path) override;

    // Access for the test, not for the program: no steps, no faults, no log.
    void PutFolder(const std::string& path);  // with every folder above it
    void PutFile(const std::string& path, const std::string& bytes);
    void Remove(const std::string& path);
    std::optional<std::string> Peek(const std::string& path) const;
    // How often the program has listed a folder.
    int Listings() const { return listings; }
    // How often the program has waited for the medium.
    int Flushes() const { return flushes; }
    // Names of all files of a folder, as they are written on the disk.
    std::vector<std::string> Names(const std::string& folder) const;

    // A read-only file cannot be changed, replaced or deleted (75). In a read-only folder, no file
    // can be made, renamed or deleted (75).
    void SetReadOnly(const std::string& path, bool readOnly);
    // As if another program held the file, or as if the user had no right to it (70). The files of
    // a denied folder cannot be listed, read or changed.
    void SetDenied(const std::string& path, bool denied);
    // As if another running program held the lock.
    void SetLocked(const std::string& path, bool locked);
    // Without a number there is no limit. A write that does not fit fails with 61, and leaves as
    // many bytes as fit.
    void SetFreeSpace(std::optional<std::uint64_t> bytes) { freeSpace = bytes; }
    void SetRecycleBin(bool present) { hasRecycleBin = present; }

    // Paths of the files in the Recycle Bin, in the order of their deletion.
    const std::vector<std::string>& RecycleBin() const { return recycled; }
    // Their bytes.
    const std::vector<std::string>& RecycledBytes() const { return recycledBytes; }
    // Every call that changes the disk or reads a file, also if it fails: "write C:\\a.txt",
    // "replace C:\\a.tmp C:\\a.txt", "read", "delete", "recycle", "copy", "folder".
    const std::vector<std::string>& Log() const { return log; }
    void ClearLog() { log.clear(); }

  private:
    struct Node {
        std::string name;
        bool isFolder = false;
        bool readOnly = false;
        bool denied = false;
        std::string bytes;
        std::int64_t changed = 0;
    };

    Node* Find(const std::string& key);
    const Node* Find(const std::string& key) const;
    Node& FindFile(const DiskPath& place);
    void CheckParent(const DiskPath& place, bool changing) const;
    void CheckWritable(const DiskPath& place) const;
    void CheckRemovable(const DiskPath& place);
    void Resize(Node& file, const std::string& bytes);
    void WriteSteps(const DiskPath& place, const std::string& bytes, Durability durability);
    template <class Whole, class Part>
    void Step(Whole whole, Part part);
    void TearUnflushed();

    std::map<std::string, Node> nodes;  // by upper-case path
    std::int64_t clock = 0;
    int listings = 0;
    int flushes = 0;
    std::shared_ptr<std::set<std::string>> locks = std::make_shared<std::set<std::string>>();
    std::optional<std::uint64_t> freeSpace;
    bool hasRecycleBin = true;
    std::vector<std::string> recycled;
    std::vector<std::string> recycledBytes;
    std::vector<std::string> log;
    std::optional<std::string> unflushed;
};

}  // namespace forms::headless
