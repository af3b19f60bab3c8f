#pragma once

#include <string>
#include <vector>

#include "notes/RecoveryCopy.h"
#include "tests/support/NoteProgram.h"

namespace testing_support {

// Note windows of a program that is killed while notes have unsaved edits.
class RecoveryProgram : public NoteProgram {
  protected:
    using Names = std::vector<std::string>;

    const std::string folder = applicationFolder + "\\Notes";

    Names FilesOfNotes() const { return files.Names(folder); }

    // The path of the only copy.
    std::string CopyPath() {
        const auto copies = files.List(folder, ".recovery");
        EXPECT_EQ(copies.size(), 1U);
        return folder + '\\' + (copies.empty() ? "none" : copies.front().name);
    }

    // Starts the program with this saved note, replaces the note's text as the user would, and lets
    // time pass until the copy is written.
    void EditSaved(const StandardCode::NoteRecord& record, const std::string& typed) {
        PutNote(record);
        Start(StandardCode::ReadNotes);
        user->Restore(Editor(record.Title));
        user->Type(Editor(record.Title).txtNote, typed);
        Advance(2000);
    }

    // Ends the process without any event and starts the program again.
    void KillAndStartAgain() {
        RestartProgram();
        Start(StandardCode::ReadNotes);
    }
};

}  // namespace testing_support
