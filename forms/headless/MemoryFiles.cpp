#include "forms/headless/MemoryFiles.h"

#include <algorithm>
#include <string_view>
#include <utility>

#include "forms/headless/HeadlessLocale.h"

namespace forms::headless {

namespace {

[[noreturn]] void Fail(base::ErrorNumber number) { throw base::RuntimeError(number); }

std::string FolderKey(const std::string& key) { return key.substr(0, key.rfind('\\')); }

class MemoryLock : public FileLock {
  public:
    MemoryLock(std::weak_ptr<std::set<std::string>> allLocks, std::string lockKey)
        : locks(std::move(allLocks)), key(std::move(lockKey)) {}
    ~MemoryLock() override {
        if (const auto all = locks.lock()) {
            all->erase(key);
        }
    }
    MemoryLock(const MemoryLock&) = delete;
    MemoryLock& operator=(const MemoryLock&) = delete;

  private:
    std::weak_ptr<std::set<std::string>> locks;
    std::string key;
};

}  // namespace

MemoryFiles::MemoryFiles() { PutFolder("C:"); }

bool MemoryFiles::FolderExists(const std::string& path) try {
    ++looks;
    const Node* node = IsDead() ? nullptr : Find(DiskPath(path).key);
    return node != nullptr && node->isFolder;
} catch (const base::RuntimeError&) {
    return false;
}

bool MemoryFiles::FileExists(const std::string& path) try {
    ++looks;
    const Node* node = IsDead() ? nullptr : Find(DiskPath(path).key);
    return node != nullptr && !node->isFolder;
} catch (const base::RuntimeError&) {
    return false;
}

void MemoryFiles::MakeFolder(const std::string& path) {
    log.push_back("folder " + path);
    const DiskPath place(path);
    CheckParent(place, true);
    if (Find(place.key) != nullptr) {
        Fail(base::ErrorNumber::PathFileAccessError);
    }
    Step([&] { PutFolder(path); }, [] {});
}

std::vector<FileEntry> MemoryFiles::List(const std::string& folder, const std::string& suffix) {
    std::vector<FileEntry> entries;
    ++listings;
    const std::string folderKey = DiskPath(folder).key;
    if (!FolderExists(folder)) {
        if (!IsDead() && folderKey.size() > 2 && Find(FolderKey(folderKey)) == nullptr) {
            Fail(base::ErrorNumber::PathNotFound);
        }
        return entries;
    }
    if (Find(folderKey)->denied) {
        Fail(base::ErrorNumber::PermissionDenied);
    }
    const std::string prefix = folderKey + '\\';
    const std::string upperSuffix = UpperCase(suffix);
    for (auto at = nodes.lower_bound(prefix); at != nodes.end() && at->first.starts_with(prefix);
         ++at) {
        const auto& [key, node] = *at;
        if (!node.isFolder && key.find('\\', prefix.size()) == std::string::npos &&
            std::string_view(key).substr(prefix.size()).ends_with(upperSuffix)) {
            entries.push_back({node.name, node.bytes.size(), node.changed});
        }
    }
    return entries;
}

std::string MemoryFiles::NameOnDisk(const std::string& path) {
    const Node* node = FileExists(path) ? Find(DiskPath(path).key) : nullptr;
    return node != nullptr ? node->name : path.substr(path.find_last_of('\\') + 1);
}

std::string MemoryFiles::Read(const std::string& path) {
    log.push_back("read " + path);
    const DiskPath place(path);
    if (IsDead()) {
        throw Killed{};
    }
    std::string bytes;
    Step([&] { bytes = FindFile(place).bytes; }, [] {});
    return bytes;
}

void MemoryFiles::Write(const std::string& path, const std::string& bytes, WriteOptions options) {
    log.push_back("write " + path);
    const DiskPath place(path);
    if (options.mustBeNew && Find(place.key) != nullptr) {
        Fail(base::ErrorNumber::FileAlreadyExists);
    }
    WriteSteps(place, bytes, options.durability);
}

void MemoryFiles::Replace(const std::string& from, const std::string& to, Durability durability) {
    flushes += durability == Durability::Flushed ? 1 : 0;
    log.push_back("replace " + from + " " + to);
    const DiskPath source(from);
    const DiskPath target(to);
    if (IsDead()) {
        return;
    }
    FindFile(source);
    CheckRemovable(source);
    CheckWritable(target);
    if (replacesInTwoSteps && Find(target.key) != nullptr) {
        Step([&] { Remove(to); }, [] {});
    }
    Step(
        // Allocates nothing after the first change, so that memory that runs out loses no file.
        [&, key = target.key, name = target.name]() mutable {
            RemoveNode(key);
            auto moved = nodes.extract(source.key);
            moved.key() = std::move(key);
            moved.mapped().name = std::move(name);
            nodes.insert(std::move(moved));
        },
        [] {});
}

void MemoryFiles::Delete(const std::string& path) {
    log.push_back("delete " + path);
    const DiskPath place(path);
    if (IsDead()) {
        return;
    }
    CheckRemovable(place);
    Step([&] { Remove(path); }, [] {});
}

bool MemoryFiles::Recycle(const std::string& path) {
    log.push_back("recycle " + path);
    const DiskPath place(path);
    if (IsDead()) {
        return true;
    }
    CheckRemovable(place);
    if (!hasRecycleBin) {
        return false;
    }
    Step(
        [&] {
            recycled.push_back(path);
            recycledBytes.push_back(FindFile(place).bytes);
            Remove(path);
        },
        [] {});
    return true;
}

void MemoryFiles::Copy(const std::string& from, const std::string& to) {
    log.push_back("copy " + from + " " + to);
    const DiskPath source(from);
    const DiskPath target(to);
    std::string bytes;
    Step([&] { bytes = FindFile(source).bytes; }, [] {});
    WriteSteps(target, bytes, Durability::Flushed);
}

std::unique_ptr<FileLock> MemoryFiles::Lock(const std::string& path) {
    const std::string key = DiskPath(path).key;
    const Node* folder = Find(FolderKey(key));
    if (IsDead() || folder == nullptr || !folder->isFolder) {
        Fail(base::ErrorNumber::PathNotFound);
    }
    return locks->insert(key).second ? std::make_unique<MemoryLock>(locks, key) : nullptr;
}

void MemoryFiles::PutFolder(const std::string& path) {
    const DiskPath place(path);
    if (Find(place.key) != nullptr) {
        return;
    }
    if (place.key.size() > 2) {
        PutFolder(path.substr(0, path.find_last_of("\\/")));
    }
    Node& node = nodes[place.key];
    node.name = place.name;
    node.isFolder = true;
    node.changed = ++clock;
}

void MemoryFiles::PutFile(const std::string& path, const std::string& bytes) {
    const DiskPath place(path);
    PutFolder(path.substr(0, path.find_last_of("\\/")));
    Node& node = nodes[place.key];
    if (node.name.empty()) {
        node.name = place.name;
    }
    node.bytes = bytes;
    node.changed = ++clock;
}

void MemoryFiles::Remove(const std::string& path) { RemoveNode(DiskPath(path).key); }

void MemoryFiles::RemoveNode(const std::string& key) {
    const auto found = nodes.find(key);
    if (found != nodes.end()) {
        Resize(found->second, {});
        nodes.erase(found);
    }
}

std::optional<std::string> MemoryFiles::Peek(const std::string& path) const {
    const Node* node = Find(DiskPath(path).key);
    return node == nullptr || node->isFolder ? std::nullopt : std::optional(node->bytes);
}

std::vector<std::string> MemoryFiles::Names(const std::string& folder) const {
    std::vector<std::string> names;
    const std::string key = DiskPath(folder).key;
    for (const auto& [nodeKey, node] : nodes) {
        if (!node.isFolder && FolderKey(nodeKey) == key) {
            names.push_back(node.name);
        }
    }
    return names;
}

void MemoryFiles::SetReadOnly(const std::string& path, bool readOnly) {
    nodes.at(DiskPath(path).key).readOnly = readOnly;
}

void MemoryFiles::SetDenied(const std::string& path, bool denied) {
    nodes.at(DiskPath(path).key).denied = denied;
}

void MemoryFiles::SetLocked(const std::string& path, bool locked) {
    if (locked) {
        locks->insert(DiskPath(path).key);
    } else {
        locks->erase(DiskPath(path).key);
    }
}

MemoryFiles::Node* MemoryFiles::Find(const std::string& key) {
    const auto found = nodes.find(key);
    return found == nodes.end() ? nullptr : &found->second;
}

const MemoryFiles::Node* MemoryFiles::Find(const std::string& key) const {
    const auto found = nodes.find(key);
    return found == nodes.end() ? nullptr : &found->second;
}

MemoryFiles::Node& MemoryFiles::FindFile(const DiskPath& place) {
    CheckParent(place, false);
    Node* node = Find(place.key);
    if (node == nullptr) {
        Fail(base::ErrorNumber::FileNotFound);
    }
    if (node->isFolder) {
        Fail(base::ErrorNumber::PathFileAccessError);
    }
    if (node->denied) {
        Fail(base::ErrorNumber::PermissionDenied);
    }
    return *node;
}

void MemoryFiles::CheckParent(const DiskPath& place, bool changing) const {
    const Node* folder = Find(FolderKey(place.key));
    if (folder == nullptr || !folder->isFolder) {
        Fail(base::ErrorNumber::PathNotFound);
    }
    if (folder->denied) {
        Fail(base::ErrorNumber::PermissionDenied);
    }
    if (changing && folder->readOnly) {
        Fail(base::ErrorNumber::PathFileAccessError);
    }
}

void MemoryFiles::CheckWritable(const DiskPath& place) const {
    const Node* node = Find(place.key);
    CheckParent(place, node == nullptr);
    if (node != nullptr && (node->isFolder || node->readOnly)) {
        Fail(base::ErrorNumber::PathFileAccessError);
    }
    if (node != nullptr && node->denied) {
        Fail(base::ErrorNumber::PermissionDenied);
    }
}

void MemoryFiles::CheckRemovable(const DiskPath& place) {
    const Node& node = FindFile(place);
    CheckParent(place, true);
    if (node.readOnly) {
        Fail(base::ErrorNumber::PathFileAccessError);
    }
}

void MemoryFiles::Resize(Node& file, const std::string& bytes) {
    std::string fitting = bytes;
    if (freeSpace) {
        const std::uint64_t available = *freeSpace + file.bytes.size();
        fitting.resize(static_cast<std::size_t>(std::min<std::uint64_t>(available, bytes.size())));
        freeSpace = available - fitting.size();
    }
    const bool fits = fitting.size() == bytes.size();
    file.bytes = std::move(fitting);
    file.changed = ++clock;
    if (!fits) {
        unflushed.reset();
        Fail(base::ErrorNumber::DiskFull);
    }
}

void MemoryFiles::WriteSteps(const DiskPath& place, const std::string& bytes,
                             Durability durability) {
    if (IsDead()) {
        return;
    }
    CheckWritable(place);
    Step(
        [&] {
            Node& file = nodes[place.key];
            if (file.name.empty()) {
                file.name = place.name;
            }
            Resize(file, {});
        },
        [] {});
    const auto write = [&](std::size_t count) {
        unflushed = place.key;
        Resize(nodes.at(place.key), bytes.substr(0, count));
    };
    Step([&] { write(bytes.size()); }, [&] { write(bytes.size() / 2); });
    if (durability == Durability::Flushed) {
        ++flushes;
        Step([&] { unflushed.reset(); }, [] {});
    } else {
        // The system keeps data that a killed program has written.
        unflushed.reset();
    }
}

// whole does the complete step. part does the half that remains if the step is interrupted.
template <class Whole, class Part>
void MemoryFiles::Step(Whole whole, Part part) {
    if (IsDead()) {
        return;
    }
    const auto stepFault = NextStep();
    if (!stepFault) {
        whole();
        return;
    }
    if (!stepFault->isKill) {
        part();
        unflushed.reset();
        Fail(stepFault->error);
    }
    if (stepFault->moment == Moment::Middle) {
        part();
    } else if (stepFault->moment == Moment::After) {
        try {
            whole();
        } catch (const base::RuntimeError&) {
            // The program was killed and does not get the error.
        }
    }
    TearUnflushed();
    Die();
}

void MemoryFiles::TearUnflushed() {
    if (unflushed) {
        std::string& bytes = nodes.at(*unflushed).bytes;
        std::fill(bytes.begin() + static_cast<std::ptrdiff_t>(bytes.size() / 2), bytes.end(), '\0');
        unflushed.reset();
    }
}

}  // namespace forms::headless
