#pragma once

#include <memory>
#include <string>

#include "notes/NoteStore.h"
#include "notes/frmNote.h"

namespace StandardCode {

// Opens an editor for a note, fills it with all fields and shows it. RuntimeError 53 if an icon is
// missing; no editor is then left open.
std::shared_ptr<frmNote> OpenEditor(const StoredNote& note);

// Like OpenEditor, but also sets the shared AlarmFlag: "1" if the note's alarm is set, else "0".
std::shared_ptr<frmNote> RestoreNote(const StoredNote& note);

// Opens an editor for a new note, white and with a font of 12 points. Does not show the editor.
std::shared_ptr<frmNote> OpenNewEditor(const std::string& title);

}  // namespace StandardCode
