#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "base/RuntimeError.h"
#include "forms/Devices.h"
#include "forms/headless/DiskPath.h"

namespace forms::headless {

// The files and folders of a disk in memory, with their access rights and the free space. Names
// keep their upper and lower case, but are found in any case. The numbers in these comments are
// those of RuntimeErrors.
class DiskTree {
  public:
    DiskTree() { PutFolder("C:"); }

    // Functions for the test, not for the program. They do not count as steps of DiskFaults, cause
    // no faults and are not logged.
    void PutFolder(const std::string& path);  // creates every missing folder above it too
    void PutFile(const std::string& path, const std::string& bytes);
    void Remove(const std::string& path) { Erase(DiskPath(path).key); }
    std::optional<std::string> Peek(const std::string& path) const;
    // The names of all files of a folder, as they are stored on the disk.
    std::vector<std::string> Names(const std::string& folder) const;

    // A read-only file cannot be changed, replaced or deleted (75). In a read-only folder, no file
    // can be created, renamed or deleted (75).
    void SetReadOnly(const std::string& path, bool readOnly);
    // Access to the file fails with 70, as if another program held the file or the user had no
    // right to it. If a folder is denied, its files cannot be listed, read or changed.
    void SetDenied(const std::string& path, bool denied);
    // Empty: no limit. A write that does not fit fails with 61, and writes as many bytes as fit.
    void SetFreeSpace(std::optional<std::uint64_t> bytes) { freeSpace = bytes; }

  protected:
    struct Node {
        std::string name;
        bool isFolder = false;
        bool readOnly = false;
        bool denied = false;
        std::string bytes;
        std::int64_t changed = 0;
    };

    ~DiskTree() = default;

    static void FailIf(bool condition, base::ErrorNumber number);
    // The key of the folder that contains the file or the folder with this key.
    static std::string FolderKey(const std::string& key) { return key.substr(0, key.rfind('\\')); }
    // Null if there is none.
    const Node* Find(const std::string& key) const;
    const Node& FindFile(const DiskPath& place) const;
    // The files of a folder whose names end in suffix, in any case.
    std::vector<FileEntry> Entries(const std::string& folderKey, const std::string& suffix) const;
    void CheckWritable(const DiskPath& place) const;
    void CheckRemovable(const DiskPath& place) const;
    void CheckParent(const DiskPath& place, bool changing) const;

    // Creates the file or replaces its bytes.
    void Store(const DiskPath& place, std::string_view bytes);
    // The second half of the file becomes zeros.
    void Tear(const std::string& key);
    // Moves the file and replaces the target. Allocates nothing after the first change, so that no
    // file is lost if memory runs out.
    void Move(const std::string& from, DiskPath to);

  private:
    // Finds the node or makes it, and marks it as changed.
    Node& Touch(const DiskPath& place);
    void Erase(const std::string& key);

    std::map<std::string, Node> nodes;  // by DiskPath::key
    std::int64_t clock = 0;
    std::optional<std::uint64_t> freeSpace;
};

}  // namespace forms::headless
