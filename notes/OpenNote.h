#pragma once

#include <memory>

#include "notes/frmNote.h"

namespace StandardCode {

// Opens the note in this slot of the notes array in a new editor. If the note is open already,
// brings its editor to the front instead, with its contents unchanged. In both cases CurrentNote()
// then returns the editor. RuntimeError 9 for a slot outside 1 to 100, 53 if an icon is missing.
void OpenNote(int slot);

// The editor that OpenNote opened last. Null if there is none, or if it has been unloaded.
std::shared_ptr<frmNote> CurrentNote();

}  // namespace StandardCode
