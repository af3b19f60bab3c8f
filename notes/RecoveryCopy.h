#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "app/StandardCode.h"

// An unsaved note: an editor shows it, and its file does not hold it.
struct RecoveredNote {
    std::string path;  // of the copy
    std::string file;  // the name of the note's file; empty for a note that was never saved
    // The fingerprint of that file when the copy was made. For a note that was never saved, the
    // fingerprint of the file that has its title as name. Nothing if there was no such file; see
    // NoteStore::unknownContents.
    std::optional<std::uint64_t> base;
    StandardCode::NoteRecord record;
    bool isWhole = true;  // false: the machine stopped while the copy was written
    // The copy was written by an earlier version, which kept only title and text.
    bool isTextOnly = false;
};

// The recovery copy of one editor: a file beside the notes in case the program is killed. No
// function raises an error. A copy that cannot be written is written later; a copy that cannot be
// removed comes back at the next start. Copies are not flushed.
class RecoveryCopy {
  public:
    enum class When { Now, AtMostEveryTwoSeconds };

    RecoveryCopy() = default;
    // Leaves the file as it is.
    ~RecoveryCopy();
    RecoveryCopy(const RecoveryCopy&) = delete;
    RecoveryCopy& operator=(const RecoveryCopy&) = delete;

    // Whether a Keep() is due: at once with Now, otherwise two seconds after the last Keep().
    bool IsDue(When when) const;
    // Writes the copy, unless it is on the disk with the same contents.
    void Keep(const RecoveredNote& note);
    // Whether the last Keep() has written its note.
    bool IsWritten() const;
    // Removes the copy if there is one.
    void Remove();
    // Moves the copy to the Recycle Bin. If there is no Recycle Bin, the copy stays for the next
    // start.
    void Recycle();
    // Takes over a copy that an earlier run of the program left, and renames it: the name holds the
    // number of the running program.
    void Adopt(const RecoveredNote& recovered);

    // The copies that earlier runs left, in the order of the folder's listing. Skips the copies of
    // editors that are open, here or in another program, and files that are not copies.
    static std::vector<RecoveredNote> Find();

  private:
    void Forget();
    void Use(const std::string& newPath);

    std::string path;   // empty: no copy
    std::string key;    // the path as the file system compares it
    std::string bytes;  // of the copy
    bool written = false;
    std::optional<std::int64_t> triedAt;  // monotonic milliseconds
};
