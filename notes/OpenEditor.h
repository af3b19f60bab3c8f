#pragma once

#include <memory>
#include <string>

#include "notes/NoteStore.h"
#include "notes/frmNote.h"

namespace StandardCode {

// Opens an editor for a note and shows it: text, colours, font size, audio alarm, and its alarm if
// it is set. RuntimeError 53 if an icon is missing; no editor is left behind then.
std::shared_ptr<frmNote> OpenEditor(const StoredNote& note);

// Opens an editor for a new note, with the settings of an editor that was given none, and does not
// show it.
std::shared_ptr<frmNote> OpenNewEditor(const std::string& title);

}  // namespace StandardCode
