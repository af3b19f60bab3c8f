#pragma once

#include <memory>
#include <optional>
#include <set>
#include <string>
#include <vector>

#include "forms/Devices.h"
#include "forms/headless/DiskFaults.h"
#include "forms/headless/DiskTree.h"

namespace forms::headless {

// A disk in memory that behaves like a disk of Windows. Listings are alphabetical. Trailing dots
// and blanks of a file's name are dropped, and names that Windows refuses are refused. A copy of
// the object is a snapshot of the files, but shares the locks.
//
// DiskFaults counts these steps: Read, MakeFolder, Replace, Delete and Recycle have one step each.
// A flushed Write has three steps (create or truncate, write, flush), and a cached Write has two.
// Copy has four steps: read, and the three steps of Write.
class MemoryFiles : public FileSystem, public DiskTree, public DiskFaults {
  public:
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
    // Locks only the name. Does not create the file, so that listings do not contain it.
    std::unique_ptr<FileLock> Lock(const std::string& path) override;

    // Functions for the test, like those of DiskTree.

    // The number of times that the program has listed a folder.
    int Listings() const { return listings; }
    // The number of times that the program has asked whether a file or a folder exists, or how its
    // name is spelled on the disk. Each listing counts too.
    int Looks() const { return looks; }
    // The number of times that the program has waited for the medium.
    int Flushes() const { return flushes; }
    // While the file is locked, Lock returns null, as if another running program held the lock.
    void SetLocked(const std::string& path, bool locked);
    void SetRecycleBin(bool present) { hasRecycleBin = present; }
    // If true, a Replace of an existing file has two steps, as on FAT: the removal of that file,
    // and the renaming.
    void SetReplacesInTwoSteps(bool inTwoSteps) { replacesInTwoSteps = inTwoSteps; }

    // Paths of the files in the Recycle Bin, in the order of their deletion.
    const std::vector<std::string>& RecycleBin() const { return recycled; }
    // The bytes of these files, in the same order.
    const std::vector<std::string>& RecycledBytes() const { return recycledBytes; }
    // Every call that changes the disk or reads a file, even if the call fails, with its paths:
    // "write C:\\a.txt", "replace C:\\a.tmp C:\\a.txt"; also "read", "delete", "recycle", "copy",
    // "folder".
    const std::vector<std::string>& Log() const { return log; }
    void ClearLog() { log.clear(); }

  private:
    void WriteSteps(const DiskPath& place, const std::string& bytes, Durability durability);
    template <class Whole, class Part>
    void Step(Whole whole, Part part);

    int listings = 0;
    int looks = 0;
    int flushes = 0;
    std::shared_ptr<std::set<std::string>> locks = std::make_shared<std::set<std::string>>();
    bool hasRecycleBin = true;
    bool replacesInTwoSteps = false;
    std::vector<std::string> recycled;
    std::vector<std::string> recycledBytes;
    std::vector<std::string> log;
    std::optional<std::string> unflushed;
};

}  // namespace forms::headless
