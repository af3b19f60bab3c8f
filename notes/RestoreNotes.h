#pragma once

namespace StandardCode {

// Opens the editor of every note file, minimised, and restores the unsaved notes of a program that
// was killed. An error is shown and ends the restoring of the files. The mouse pointer remains an
// hourglass.
void ReadNotes();

}  // namespace StandardCode
