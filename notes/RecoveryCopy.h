#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "app/StandardCode.h"

// An unsaved note. An editor showed it, and its file does not hold it.
struct RecoveredNote {
    std::string path;  // path of the copy
    std::string file;  // the name of the note's file; empty for a note that was never saved
    // The fingerprint of that file when the copy was made. For a note that was never saved, it is
    // the fingerprint of the file named after the title. Empty if there was no such file; see
    // NoteStore::unknownContents.
    std::optional<std::uint64_t> base;
    StandardCode::NoteRecord record;
    bool isWhole = true;  // false: the machine stopped while the copy was written
    // An earlier version wrote the copy. It stored only title and text.
    bool isTextOnly = false;
};

// The recovery copy of one editor: a file in the folder of the notes, in case the program is
// killed. No function raises an error. If a copy cannot be written, it is written later. If a copy
// cannot be removed, the next start restores it. Copies are not flushed to the disk.
class RecoveryCopy {
  public:
    RecoveryCopy() = default;
    // Leaves the copy as it is.
    ~RecoveryCopy();
    RecoveryCopy(const RecoveryCopy&) = delete;
    RecoveryCopy& operator=(const RecoveryCopy&) = delete;

    // Writes the copy, unless the disk has a copy with the same contents.
    void Keep(const RecoveredNote& note);
    // Whether the last Keep() has written its note.
    bool IsWritten() const;
    // Removes the copy if there is one.
    void Remove();
    // Moves the copy to the Recycle Bin. If there is no Recycle Bin, the copy stays for the next
    // start.
    void Recycle();
    // Takes over a copy that an earlier run of the program left, and renames it, because the name
    // contains the instance id of the running program.
    void Adopt(const RecoveredNote& recovered);

    // The copies that earlier runs left, in the order of the folder's listing. Skips copies of
    // editors that are open, here or in another program. Skips files that are not copies.
    static std::vector<RecoveredNote> Find();

  private:
    void Forget();
    void Use(const std::string& newPath);

    std::string path;   // empty: no copy
    std::string key;    // the path, as the file system compares it
    std::string bytes;  // contents of the copy
    bool written = false;
};
