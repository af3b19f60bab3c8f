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

    // The program starts with this saved note. The user replaces its text, and time passes until
    // the copy is written.
    void EditSaved(const StandardCode::NoteRecord& record, const std::string& typed) {
        PutNote(record);
        Start(StandardCode::ReadNotes);
        user->Restore(Editor(record.Title));
        user->Type(Editor(record.Title).txtNote, typed);
        Advance(2000);
    }

    // The process ends without any event, and the program is started again.
    void KillAndStartAgain() {
        RestartProgram();
        Start(StandardCode::ReadNotes);
    }
};

}  // namespace testing_support
