#pragma once

#include <cstdint>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "base/RuntimeError.h"
#include "forms/Devices.h"

// The messages about errors of NoteStore::Load(). Each error of each file is shown once until the
// folder changes. The error that there are more files than slots is shown once for each action of
// the user.
class LoadReports {
  public:
    // file is the first file of the listing that was not loaded. Empty if the folder could not be
    // listed. Timers tick while the message is open.
    void Show(const base::RuntimeError& error, const std::vector<forms::FileEntry>& listing,
              const std::string& file);
    // Whether an error of this file was shown since the folder last changed.
    bool HasShown(const std::string& file) const;

  private:
    std::vector<forms::FileEntry> shownListing;
    std::set<std::pair<int, std::string>> shown;  // error number and file
    std::uint64_t fullShownIn = 0;  // action in which the lack of slots was last shown
};
