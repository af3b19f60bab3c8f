#pragma once

namespace StandardCode {

// Opens the editor of every note file, minimised, and brings back the unsaved notes of a program
// that was killed. An error ends the restoring of the files and is shown. Leaves the pointer an
// hourglass.
void ReadNotes();

}  // namespace StandardCode
