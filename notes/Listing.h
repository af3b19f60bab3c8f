#pragma once

#include <string>
#include <string_view>
#include <unordered_map>
#include <utility>
#include <vector>

#include "forms/Devices.h"

// The files of the notes folder when it was listed.
class Listing {
  public:
    Listing() = default;
    explicit Listing(std::vector<forms::FileEntry> listed) : files(std::move(listed)) {}
    Listing(const Listing&) = delete;
    Listing(Listing&&) = default;
    Listing& operator=(const Listing&) = delete;
    Listing& operator=(Listing&&) = default;
    ~Listing() = default;

    const std::vector<forms::FileEntry>& Files() const { return files; }
    // The listed file that the file system finds under this name. Null if there is none. The result
    // is valid until the listing is destroyed.
    const forms::FileEntry* Find(const std::string& name) const;

  private:
    std::vector<forms::FileEntry> files;
    // Filled by Find().
    mutable std::unordered_map<std::string_view, const forms::FileEntry*> byName;
};
