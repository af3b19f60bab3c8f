#pragma once

#include <string>
#include <vector>

// What was typed and not saved, kept beside the notes in case the program is killed.

struct RecoveredText {
    std::string path;  // of the copy
    std::string title;
    std::string text;
};

// The recovery copy of one editor. Nothing here raises an error: a copy that cannot be written is
// tried again, one that cannot be removed comes back at the next start.
class RecoveryCopy {
  public:
    RecoveryCopy() = default;
    // Leaves the file as it is.
    ~RecoveryCopy();
    RecoveryCopy(const RecoveryCopy&) = delete;
    RecoveryCopy& operator=(const RecoveryCopy&) = delete;

    // Writes the copy, unless it is there and holds just that.
    void Keep(const std::string& title, const std::string& text);
    // Whether what was kept last is on the disk.
    bool IsWritten() const;
    // Removes the copy where there is one.
    void Remove();
    // Takes over a copy that an earlier run of the program left.
    void Adopt(const RecoveredText& recovered);

  private:
    void Use(const std::string& newPath);

    std::string path;  // empty: no copy
    std::string key;   // the path as the file system compares it
    std::string keptTitle;
    std::string keptText;
    bool written = false;
};

namespace Recovery {

// The copies that earlier runs left, in the order of the folder's listing; those that an editor of
// this run keeps are passed over, and so is what cannot be read.
std::vector<RecoveredText> Find();

}  // namespace Recovery
