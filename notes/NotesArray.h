#pragma once

#include <functional>
#include <string>

#include "app/StandardCode.h"
#include "forms/Devices.h"
#include "notes/NoteFile.h"

namespace StandardCode {

// The folder of the note files, without a trailing backslash.
std::string NotesFolder();
// The file of the note with this title.
std::string NotePath(const std::string& title);

// Makes the folder of the note files where it is missing. Raises RuntimeErrors.
void EnsureNotesFolder();

// Rebuilds NotesArray and NoteCount from the note files, then raises NotesArrayLoaded. A file with
// too few fields goes to the Recycle Bin and ends the listing. Any other error is shown in a box,
// behind which timers run, and leaves NoteCount as it was. True when every listed note was loaded:
// doing it again at once would change nothing.
bool LoadNotesArray();

// The note of a file that the listing of the notes folder gave, from what LoadNotesArray remembers
// where the file has not changed since. Raises the errors of NoteFile::Read.
NoteRecord ReadListedNote(const forms::FileEntry& file);

// Writes a note's file, whole or not at all. Raises RuntimeErrors.
void SaveNoteFile(const std::string& path, const NoteRecord& record,
                  NoteFile::TimeField timeField = NoteFile::TimeField::Time);

// Does what saves a note and shows the error that ends it, but for 457, which ends it silently.
// True when there was none.
bool ReportWriteErrors(const std::function<void()>& saving);

}  // namespace StandardCode
