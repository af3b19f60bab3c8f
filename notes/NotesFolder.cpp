#include "notes/NotesFolder.h"

#include "forms/Services.h"
#include "notes/NoteStore.h"

namespace StandardCode {

std::string NotesFolder() { return forms::ApplicationPath("\\Notes"); }

std::string NotePath(const std::string& title) {
    return NotesFolder() + '\\' + NoteStore::FileNameFor(title);
}

void EnsureNotesFolder() {
    forms::FileSystem& files = *forms::Machine().files;
    if (!files.FolderExists(NotesFolder())) {
        files.MakeFolder(NotesFolder());
    }
}

}  // namespace StandardCode
