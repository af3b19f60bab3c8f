#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "app/StandardCode.h"

// A note that an editor shows and its file does not hold.
struct RecoveredNote {
    std::string path;  // of the copy
    std::string file;  // the name of the note's file; empty for a note that was never saved
    // Of that file when the copy was made; for a note that was never saved, of the file that has
    // its title as name. Nothing if there was no such file; see NoteStore::unknownContents.
    std::optional<std::uint64_t> base;
    StandardCode::NoteRecord record;
    bool isWhole = true;  // false: the machine stopped while the copy was written
    // The copy is one of an earlier version, which kept no other fields than title and text.
    bool isTextOnly = false;
};

// The recovery copy of one editor, a file beside the notes in case the program is killed. Nothing
// here raises an error: a copy that cannot be written is tried again, one that cannot be removed
// comes back at the next start. Copies are not flushed.
class RecoveryCopy {
  public:
    enum class When { Now, AtMostEveryTwoSeconds };

    RecoveryCopy() = default;
    // Leaves the file as it is.
    ~RecoveryCopy();
    RecoveryCopy(const RecoveryCopy&) = delete;
    RecoveryCopy& operator=(const RecoveryCopy&) = delete;

    // Whether the last Keep() is long enough ago.
    bool IsDue(When when) const;
    // Writes the copy, unless it is there and holds just that.
    void Keep(const RecoveredNote& note);
    // Whether the note that was kept last is on the disk.
    bool IsWritten() const;
    // Removes the copy if there is one.
    void Remove();
    // Moves the copy to the Recycle Bin, from where the user can get it back. If there is none, the
    // copy stays for the next start.
    void Recycle();
    // Takes over a copy that an earlier run of the program left, and gives it a name of this
    // program's.
    void Adopt(const RecoveredNote& recovered);

    // The copies that earlier runs left, in the order of the folder's listing. Those of editors
    // that are open, here or in another program, are passed over, and so are files that are no
    // copies.
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
