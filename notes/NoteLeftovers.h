#pragma once

namespace StandardCode {

// Renames or removes the temporary files that a killed program left when it saved notes. If a
// temporary file is complete and no saved note has its title, it becomes a note's file; otherwise
// it is removed. Never raises an error.
void AdoptNoteLeftovers();

}  // namespace StandardCode
