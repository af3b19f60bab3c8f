#pragma once

#include <map>
#include <string>
#include <vector>

#include "notes/EditedNote.h"
#include "notes/NoteStore.h"
#include "tests/support/NoteProgram.h"

namespace testing_support {

// Note windows, with access to each file in the folder of the notes.
class NoteStoreProgram : public NoteProgram {
  protected:
    using Names = std::vector<std::string>;

    const std::string folder = applicationFolder + "\\Notes";

    StandardCode::NoteRecord In(const std::string& file) {
        StandardCode::NoteRecord record;
        NoteFile::Decode(files.Peek(folder + '\\' + file).value_or(""), record);
        return record;
    }

    // The editor of the note in this file.
    frmNote& EditorOf(const std::string& file) {
        const EditedNote* note = StandardCode::Notes().FindOpen(file);
        if (note == nullptr) {
            ADD_FAILURE() << file << " is not open";
            return forms::Default<frmNote>();
        }
        return static_cast<frmNote&>(note->Editor().Window());
    }

    void TypeInto(frmNote& note, const std::string& text) {
        if (note.windowState() == forms::WindowState::Minimized) {
            user->Restore(note);
        }
        user->Type(note.txtNote, text);
    }

    Names InFolder() const { return files.Names(folder); }

    void ReadAll() {
        Start([] { StandardCode::LoadNotesArray(); });
        Start(StandardCode::ReadNotes);
    }

    // The names and bytes of all files in the folder.
    std::map<std::string, std::string> Folder() const {
        std::map<std::string, std::string> all;
        for (const std::string& name : files.Names(folder)) {
            all[name] = files.Peek(folder + '\\' + name).value_or("");
        }
        return all;
    }
};

}  // namespace testing_support
