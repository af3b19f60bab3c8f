#pragma once

#include "app/StandardCode.h"
#include "notes/frmNote.h"

namespace StandardCode {

// Opens the editor of every note file, minimised, and brings back what a killed program left
// unsaved. An error ends the restoring of the files and is shown. Leaves the pointer an hourglass.
void ReadNotes();

// Fills a loaded editor with a note and shows it: text, colours, font size and audio alarm. The
// alarm itself is the caller's to present. RuntimeError 53 where a note with an alarm misses the
// alarm icon; the editor is unloaded then.
void FillNote(frmNote& note, const NoteRecord& record);

}  // namespace StandardCode
