#pragma once

namespace StandardCode {

// Opens the editor of every note file, minimised, and brings back the unsaved notes of a program
// that was killed. An error is shown and ends the restoring of the files. The mouse pointer stays
// an hourglass.
void ReadNotes();

}  // namespace StandardCode
