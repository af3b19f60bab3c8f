#pragma once

#include <string>

namespace StandardCode {

// The folder of the note files, without a trailing backslash.
std::string NotesFolder();
// The path of the file for a new note with this title.
std::string NotePath(const std::string& title);
// Makes the folder of the note files if it is missing. Raises RuntimeErrors.
void EnsureNotesFolder();

}  // namespace StandardCode
