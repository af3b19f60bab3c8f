#pragma once

#include <set>

class frmNote;
struct RecoveredNote;

namespace StandardCode {

// Opens the unsaved notes of a killed program in editors. If the note's file has not changed since
// then, the note's own editor shows the unsaved text. Otherwise a new note beside the saved one
// gets it.
class UnsavedNotes {
  public:
    // RuntimeErrors if the note's icon is missing, or if a file cannot be looked at.
    void BringBack(const RecoveredNote& recovered);

  private:
    frmNote* EditorOf(const RecoveredNote& recovered) const;

    std::set<const frmNote*> filled;
};

}  // namespace StandardCode
