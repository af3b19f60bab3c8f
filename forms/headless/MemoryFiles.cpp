#include "forms/headless/MemoryFiles.h"

#include <string_view>
#include <utility>

namespace forms::headless {

namespace {

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
    FailIf(Find(place.key) != nullptr, base::ErrorNumber::PathFileAccessError);
    Step([&] { PutFolder(path); }, [] {});
}

std::vector<FileEntry> MemoryFiles::List(const std::string& folder, const std::string& suffix) {
    ++listings;
    const std::string folderKey = DiskPath(folder).key;
    if (!FolderExists(folder)) {
        FailIf(!IsDead() && folderKey.size() > 2 && Find(FolderKey(folderKey)) == nullptr,
               base::ErrorNumber::PathNotFound);
        return {};
    }
    FailIf(Find(folderKey)->denied, base::ErrorNumber::PermissionDenied);
    return Entries(folderKey, suffix);
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
    FailIf(options.mustBeNew && Find(place.key) != nullptr, base::ErrorNumber::FileAlreadyExists);
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
    Step([&] { Move(source.key, target); }, [] {});
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
    FailIf(IsDead() || folder == nullptr || !folder->isFolder, base::ErrorNumber::PathNotFound);
    return locks->insert(key).second ? std::make_unique<MemoryLock>(locks, key) : nullptr;
}

void MemoryFiles::SetLocked(const std::string& path, bool locked) {
    if (locked) {
        locks->insert(DiskPath(path).key);
    } else {
        locks->erase(DiskPath(path).key);
    }
}

void MemoryFiles::WriteSteps(const DiskPath& place, const std::string& bytes,
                             Durability durability) {
    if (IsDead()) {
        return;
    }
    CheckWritable(place);
    Step([&] { Store(place, ""); }, [] {});
    const auto write = [&](std::size_t count) {
        Store(place, std::string_view(bytes).substr(0, count));
        unflushed = place.key;
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

// whole does the complete step. part does the portion that is done if the step fails or is killed
// in the middle.
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
        throw base::RuntimeError(stepFault->error);
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
    if (unflushed) {
        Tear(*unflushed);
        unflushed.reset();
    }
    Die();
}

}  // namespace forms::headless
