#include "app/SafeFile.h"

#include <algorithm>
#include <string_view>
#include <utility>
#include <vector>

#include "app/Patience.h"
#include "app/StandardCode.h"
#include "base/RuntimeError.h"
#include "base/Text.h"

namespace SafeFile {

namespace {

// Temporary files are named like "~Jotwright-0123456789abcdef-7.tmp". The name does not contain
// that of the file to be replaced, because it might then be too long for the file system.
constexpr std::string_view temporaryPrefix = "~Jotwright-";
constexpr std::string_view temporarySuffix = ".tmp";
constexpr std::string_view lockSuffix = ".lock";

forms::FileSystem& Files() { return *forms::Machine().files; }

bool HoldsAlready(const std::string& path, const std::string& bytes) {
    try {
        return Files().FileExists(path) && Files().Read(path) == bytes;
    } catch (const base::RuntimeError&) {
        return false;  // the write reports the error
    }
}

std::string LockPath(const std::string& folder, const std::string& instanceId) {
    return folder + '\\' + std::string(temporaryPrefix) + instanceId + std::string(lockSuffix);
}

std::string NextTemporaryPath(const std::string& folder) {
    return folder + '\\' + std::string(temporaryPrefix) + forms::Machine().system->InstanceId() +
           '-' + std::to_string(++StandardCode::Shared().TemporaryFiles) +
           std::string(temporarySuffix);
}

// Writes the bytes to a new temporary file, and returns its path.
std::string WriteTemporary(const std::string& folder, const std::string& bytes,
                           forms::Durability durability) {
    constexpr int mostNames = 100;
    for (int tries = 1;; ++tries) {
        std::string path = NextTemporaryPath(folder);
        try {
            Files().Write(path, bytes, {.mustBeNew = true, .durability = durability});
            return path;
        } catch (const base::RuntimeError& error) {
            const bool isTaken = error == base::ErrorNumber::FileAlreadyExists;
            if (!isTaken) {
                DeleteIfPossible(path);
            }
            if (!isTaken || tries == mostNames) {
                throw;
            }
        }
    }
}

// The path with the ending added to the file's name.
std::string PathAside(const std::string& path, const std::string& ending) {
    const std::size_t nameStart = path.find_last_of('\\') + 1;
    const std::string name = path.substr(nameStart);
    const std::string folder = path.substr(0, nameStart - 1);
    // If the name is already longer than LongestName(), the new name is as long as the old one.
    const std::size_t most = std::max(LongestName(folder), base::Utf16Length(name));
    return folder + '\\' + Shortened(name, most - std::min(most, base::Utf16Length(ending))) +
           ending;
}

bool IsAll(const std::string& text, bool (*isRight)(char)) {
    return !text.empty() && std::all_of(text.begin(), text.end(), isRight);
}

bool IsDigit(char c) { return c >= '0' && c <= '9'; }

bool IsHexDigit(char c) { return IsDigit(c) || (c >= 'a' && c <= 'f'); }

// The instance id in the name of a temporary file. Empty if the file is not a temporary file.
std::string InstanceOf(const std::string& name) {
    if (!name.starts_with(temporaryPrefix) || !name.ends_with(temporarySuffix)) {
        return {};
    }
    const std::string middle = name.substr(
        temporaryPrefix.size(), name.size() - temporaryPrefix.size() - temporarySuffix.size());
    const std::size_t dash = middle.find('-');
    if (dash == std::string::npos || !IsAll(middle.substr(dash + 1), IsDigit)) {
        return {};
    }
    const std::string instanceId = middle.substr(0, dash);
    return IsAll(instanceId, IsHexDigit) ? instanceId : std::string();
}

// The paths of the temporary files whose programs no longer run.
std::vector<std::string> FindLeftovers(const std::string& folder) {
    std::vector<std::string> paths;
    try {
        for (const forms::FileEntry& entry : Files().List(folder, std::string(temporarySuffix))) {
            const std::string instanceId = InstanceOf(entry.name);
            if (!instanceId.empty() && !IsInUseBy(folder, instanceId)) {
                paths.push_back(folder + '\\' + entry.name);
            }
        }
    } catch (const base::RuntimeError&) {
        // The windows that read the folder report this error.
    }
    return paths;
}

}  // namespace

bool ReplaceFile(const std::string& path, const std::string& bytes, const ReplaceOptions& options) {
    if (!options.isKnownToDiffer && HoldsAlready(path, bytes)) {
        return false;
    }
    const std::string folder = path.substr(0, path.find_last_of('\\'));
    MarkInUse(folder);
    // Use the name on the disk: a rename over a file would change the letter case of its name.
    const std::string target = folder + '\\' + Files().NameOnDisk(path);
    const auto write = [&] { return WriteTemporary(folder, bytes, options.durability); };
    const std::string temporary = options.isPatient ? Patience::Try(write) : write();
    const bool existed = Files().FileExists(target);
    try {
        if (options.isForeign) {
            PutAside(path, ".replaced");
        }
        const auto rename = [&] { Files().Replace(temporary, target, options.durability); };
        options.isPatient ? Patience::Try(rename) : rename();
    } catch (const base::RuntimeError&) {
        // If the old file is gone, only the temporary file holds any contents, so keep it.
        if (!existed || Files().FileExists(target)) {
            DeleteIfPossible(temporary);
        }
        throw;
    }
    return true;
}

void PutAside(const std::string& path, const std::string& ending) {
    if (Patience::Try([&] { return Files().Recycle(path); })) {
        return;
    }
    std::string target = PathAside(path, ending);
    for (int i = 2; Files().FileExists(target); ++i) {
        target = PathAside(path, " (" + std::to_string(i) + ')' + ending);
    }
    Patience::Try([&] { Files().Replace(path, target); });
}

std::size_t LongestName(const std::string& folder) {
    constexpr std::size_t ofName = 255;
    constexpr std::size_t ofPath = 259;
    // If the folder's path is so long that less is left, other programs cannot use the file anyway.
    constexpr std::size_t least = 100;
    const std::size_t used = base::Utf16Length(folder) + 1;
    return std::clamp(ofPath - std::min(ofPath, used), least, ofName);
}

std::string Shortened(const std::string& text, std::size_t units) {
    std::size_t end = 0;
    for (std::size_t next = 0, used = 0; next < text.size(); end = next) {
        used += base::NextCharacter(text, next) > 0xffff ? 2 : 1;
        if (used > units) {
            break;
        }
    }
    return text.substr(0, end);
}

std::string NameKey(const std::string& name) {
    const std::size_t end = name.find_last_not_of(" .");
    return forms::Machine().locale->ToUpper(name.substr(0, end == std::string::npos ? 0 : end + 1));
}

void MarkInUse(const std::string& folder) {
    auto& locks = StandardCode::Shared().FolderLocks;
    if (locks.contains(folder)) {
        return;
    }
    try {
        if (auto lock = Files().Lock(LockPath(folder, forms::Machine().system->InstanceId()))) {
            locks[folder] = std::move(lock);
        }
    } catch (const base::RuntimeError&) {
        // Without the lock, another program may assume that this one has ended. The next call tries
        // again.
    }
}

bool IsInUseBy(const std::string& folder, const std::string& instanceId) {
    if (instanceId == forms::Machine().system->InstanceId() || !IsAll(instanceId, IsHexDigit)) {
        return false;
    }
    try {
        return Files().FolderExists(folder) &&
               Files().Lock(LockPath(folder, instanceId)) == nullptr;
    } catch (const base::RuntimeError&) {
        return false;
    }
}

void SettleLeftovers(const std::string& folder,
                     const std::function<std::string(const std::string& bytes)>& missingFileOf) {
    for (const std::string& path : FindLeftovers(folder)) {
        try {
            const std::string missing = missingFileOf(Files().Read(path));
            if (missing.empty()) {
                Files().Delete(path);
            } else {
                Files().Replace(path, missing);
            }
        } catch (const base::RuntimeError&) {
            // The file stays until the next start.
        }
    }
}

void DeleteIfPossible(const std::string& path) {
    try {
        if (Files().FileExists(path)) {
            Files().Delete(path);
        }
    } catch (const base::RuntimeError&) {
        // The next start tries again.
    }
}

}  // namespace SafeFile
