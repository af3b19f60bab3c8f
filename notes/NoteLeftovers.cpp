#include "notes/NoteLeftovers.h"

#include <string>

#include "app/SafeFile.h"
#include "base/RuntimeError.h"
#include "notes/NoteStore.h"

namespace StandardCode {

namespace {

// Whether a note with this title has a file. Reads the files, because their names may differ from
// the titles.
bool IsTitleInAnyFile(const std::string& title) {
    if (NoteStore::Exists(NoteStore::FileNameFor(title))) {
        return true;
    }
    for (const forms::FileEntry& file : NoteStore::List()) {
        try {
            if (NoteStore::Read(file.name).record.Title == title) {
                return true;
            }
        } catch (const base::RuntimeError&) {
            // The file cannot be read, so no title is found in it.
        }
    }
    return false;
}

}  // namespace

void AdoptNoteLeftovers() {
    SafeFile::SettleLeftovers(NotesFolder(), [](const std::string& bytes) {
        if (!NoteFile::IsWhole(bytes)) {
            return std::string();
        }
        NoteRecord record;
        NoteFile::Decode(bytes, record);
        return IsTitleInAnyFile(record.Title) ? std::string() : NotePath(record.Title);
    });
}

}  // namespace StandardCode
