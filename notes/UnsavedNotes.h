#pragma once

#include <set>

class frmNote;
struct RecoveredNote;

namespace StandardCode {

// Opens the unsaved notes of a killed program in editors. If the note's file has not changed since
// the recovery copy was made, the note's own editor shows the unsaved note. Otherwise a new note,
// beside the saved one, shows it.
class UnsavedNotes {
  public:
    // RuntimeError 53 if an icon is missing, and those of forms::FileSystem.
    void BringBack(const RecoveredNote& recovered);

  private:
    frmNote* EditorOf(const RecoveredNote& recovered) const;

    std::set<const frmNote*> filled;
};

}  // namespace StandardCode
