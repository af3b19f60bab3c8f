#pragma once

#include <memory>
#include <string>

#include "notes/NoteStore.h"
#include "notes/frmNote.h"

namespace StandardCode {

// Opens an editor for a note, fills it with all fields and shows it. RuntimeError 53 if an icon is
// missing. Then no editor is left open.
std::shared_ptr<frmNote> OpenEditor(const StoredNote& note);

// Like OpenEditor, and sets the shared AlarmFlag to the note's.
std::shared_ptr<frmNote> RestoreNote(const StoredNote& note);

// Opens an editor for a new note, in white with 12 points. Does not show it.
std::shared_ptr<frmNote> OpenNewEditor(const std::string& title);

}  // namespace StandardCode
