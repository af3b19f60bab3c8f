#pragma once

namespace StandardCode {

// Opens an editor, minimised, for every note file, then restores the unsaved notes of a program
// that was killed. If a file cannot be opened, shows the error and skips the files after it. Leaves
// the mouse pointer as an hourglass.
void ReadNotes();

}  // namespace StandardCode
