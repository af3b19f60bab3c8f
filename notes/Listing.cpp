#include "notes/Listing.h"

#include <algorithm>

#include "app/SafeFile.h"

const forms::FileEntry* Listing::Find(const std::string& name) const {
    if (byName.empty()) {
        for (const forms::FileEntry& file : files) {
            byName.emplace(file.name, &file);
        }
    }
    if (const auto exact = byName.find(name); exact != byName.end()) {
        return exact->second;
    }
    // Another program may have changed the letter case of the name.
    const std::string key = SafeFile::NameKey(name);
    const auto found = std::find_if(files.begin(), files.end(), [&](const auto& file) {
        return file.name.size() == name.size() && SafeFile::NameKey(file.name) == key;
    });
    return found == files.end() ? nullptr : &*found;
}
