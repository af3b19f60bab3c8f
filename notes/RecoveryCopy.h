#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "app/StandardCode.h"

// An unsaved note: an editor showed it, but the note's file does not hold it.
struct RecoveredNote {
    std::string path;  // path of the copy
    std::string file;  // the name of the note's file; empty for a note that was never saved
    // The fingerprint of that file when the editor last read or wrote it. For a note that was never
    // saved: the fingerprint of the file named after the title when the copy was made, empty if
    // there was no such file. See also NoteStore::unknownContents.
    std::optional<std::uint64_t> base;
    StandardCode::NoteRecord record;
    bool isWhole = true;  // false: the machine stopped while the copy was written
    // An earlier version of the program wrote the copy, and stored only title and text.
    bool isTextOnly = false;
};

// The recovery copy of one editor: a file in the notes folder, in case the program is killed. Only
// Find() raises errors. If a copy cannot be written, the next Keep() tries again. If a copy cannot
// be removed, the next start restores it. Copies are not flushed to the disk.
class RecoveryCopy {
  public:
    RecoveryCopy() = default;
    // Leaves the copy as it is.
    ~RecoveryCopy();
    RecoveryCopy(const RecoveryCopy&) = delete;
    RecoveryCopy& operator=(const RecoveryCopy&) = delete;

    // Writes the copy, unless the disk has a copy with the same contents.
    void Keep(const RecoveredNote& note);
    // Whether the last Keep() succeeded, and the copy is still on the disk.
    bool IsWritten() const;
    // Removes the copy if there is one.
    void Remove();
    // Moves the copy to the Recycle Bin. If there is no Recycle Bin, the copy stays for the next
    // start.
    void Recycle();
    // Takes over a copy that an earlier run of the program left. Renames it, because the name of a
    // copy contains the instance id of the program that uses it.
    void Adopt(const RecoveredNote& recovered);

    // The copies that earlier runs left, in the order of the folder's listing. Skips files that are
    // not copies, and copies that this or another running program uses. RuntimeErrors if the folder
    // cannot be listed.
    static std::vector<RecoveredNote> Find();

  private:
    void Forget();
    void Use(const std::string& newPath);

    std::string path;   // empty: no copy
    std::string key;    // the path in upper case; see SharedValues::RecoveryPaths
    std::string bytes;  // contents of the copy
    bool written = false;
};
