#pragma once

#include <string>

#include "notes/NoteStore.h"
#include "notes/frmNote.h"

namespace testing_support {

// The first open editor of a note with exactly this title, or null.
inline frmNote* FindOpenNote(const std::string& title) {
    for (const EditedNote* note : StandardCode::Notes().OpenNotes()) {
        if (note->Title() == title) {
            return &StandardCode::WindowOf(*note);
        }
    }
    return nullptr;
}

inline bool IsNoteOpen(const std::string& title) { return FindOpenNote(title) != nullptr; }

}  // namespace testing_support
