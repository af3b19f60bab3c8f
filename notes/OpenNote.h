#pragma once

#include <memory>

#include "notes/frmNote.h"

namespace StandardCode {

// Opens the note in this slot of the notes array in a new editor, or brings up the editor in which
// it is open, as it stands. That editor becomes the current note window. RuntimeError 9 for a slot
// outside 1 to 100, 53 if an icon is missing.
void OpenNote(int slot);

// The editor that OpenNote opened last; null before the first and once it is unloaded.
std::shared_ptr<frmNote> CurrentNote();

}  // namespace StandardCode
