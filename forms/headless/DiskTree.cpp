#include "forms/headless/DiskTree.h"

#include <algorithm>
#include <cstddef>
#include <utility>

#include "forms/headless/HeadlessLocale.h"

namespace forms::headless {

void DiskTree::PutFolder(const std::string& path) {
    const DiskPath place(path);
    if (Find(place.key) != nullptr) {
        return;
    }
    if (place.key.size() > 2) {
        PutFolder(path.substr(0, path.find_last_of("\\/")));
    }
    Touch(place).isFolder = true;
}

void DiskTree::PutFile(const std::string& path, const std::string& bytes) {
    const DiskPath place(path);
    PutFolder(path.substr(0, path.find_last_of("\\/")));
    Touch(place).bytes = bytes;
}

std::optional<std::string> DiskTree::Peek(const std::string& path) const {
    const Node* node = Find(DiskPath(path).key);
    return node == nullptr || node->isFolder ? std::nullopt : std::optional(node->bytes);
}

std::vector<std::string> DiskTree::Names(const std::string& folder) const {
    std::vector<std::string> names;
    for (const FileEntry& entry : Entries(DiskPath(folder).key, "")) {
        names.push_back(entry.name);
    }
    return names;
}

void DiskTree::SetReadOnly(const std::string& path, bool readOnly) {
    nodes.at(DiskPath(path).key).readOnly = readOnly;
}

void DiskTree::SetDenied(const std::string& path, bool denied) {
    nodes.at(DiskPath(path).key).denied = denied;
}

void DiskTree::FailIf(bool condition, base::ErrorNumber number) {
    if (condition) {
        throw base::RuntimeError(number);
    }
}

const DiskTree::Node* DiskTree::Find(const std::string& key) const {
    const auto found = nodes.find(key);
    return found == nodes.end() ? nullptr : &found->second;
}

const DiskTree::Node& DiskTree::FindFile(const DiskPath& place) const {
    CheckParent(place, false);
    const Node* node = Find(place.key);
    FailIf(node == nullptr, base::ErrorNumber::FileNotFound);
    FailIf(node->isFolder, base::ErrorNumber::PathFileAccessError);
    FailIf(node->denied, base::ErrorNumber::PermissionDenied);
    return *node;
}

std::vector<FileEntry> DiskTree::Entries(const std::string& folderKey,
                                         const std::string& suffix) const {
    std::vector<FileEntry> entries;
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

void DiskTree::CheckWritable(const DiskPath& place) const {
    const Node* node = Find(place.key);
    CheckParent(place, node == nullptr);
    FailIf(node != nullptr && (node->isFolder || node->readOnly),
           base::ErrorNumber::PathFileAccessError);
    FailIf(node != nullptr && node->denied, base::ErrorNumber::PermissionDenied);
}

void DiskTree::CheckRemovable(const DiskPath& place) const {
    const Node& node = FindFile(place);
    CheckParent(place, true);
    FailIf(node.readOnly, base::ErrorNumber::PathFileAccessError);
}

void DiskTree::CheckParent(const DiskPath& place, bool changing) const {
    const Node* folder = Find(FolderKey(place.key));
    FailIf(folder == nullptr || !folder->isFolder, base::ErrorNumber::PathNotFound);
    FailIf(folder->denied, base::ErrorNumber::PermissionDenied);
    FailIf(changing && folder->readOnly, base::ErrorNumber::PathFileAccessError);
}

void DiskTree::Store(const DiskPath& place, std::string_view bytes) {
    Node& file = Touch(place);
    std::string fitting(bytes);
    if (freeSpace) {
        const std::uint64_t available = *freeSpace + file.bytes.size();
        fitting.resize(static_cast<std::size_t>(std::min<std::uint64_t>(available, bytes.size())));
        freeSpace = available - fitting.size();
    }
    const bool fits = fitting.size() == bytes.size();
    file.bytes = std::move(fitting);
    FailIf(!fits, base::ErrorNumber::DiskFull);
}

void DiskTree::Tear(const std::string& key) {
    std::string& bytes = nodes.at(key).bytes;
    std::fill(bytes.begin() + static_cast<std::ptrdiff_t>(bytes.size() / 2), bytes.end(), '\0');
}

void DiskTree::Move(const std::string& from, DiskPath to) {
    Erase(to.key);
    auto moved = nodes.extract(from);
    moved.key() = std::move(to.key);
    moved.mapped().name = std::move(to.name);
    nodes.insert(std::move(moved));
}

DiskTree::Node& DiskTree::Touch(const DiskPath& place) {
    Node& node = nodes[place.key];
    if (node.name.empty()) {
        node.name = place.name;
    }
    node.changed = ++clock;
    return node;
}

void DiskTree::Erase(const std::string& key) {
    const auto found = nodes.find(key);
    if (found != nodes.end()) {
        if (freeSpace) {
            *freeSpace += found->second.bytes.size();
        }
        nodes.erase(found);
    }
}

}  // namespace forms::headless
