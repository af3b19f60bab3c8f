#pragma once

namespace StandardCode {

// Handles temporary files that a killed program left when it saved notes. If the note's file is
// missing, the temporary file takes its place; otherwise it is removed. Never raises an error.
void AdoptNoteLeftovers();

}  // namespace StandardCode
