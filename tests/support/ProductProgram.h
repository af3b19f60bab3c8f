#pragma once

#include <optional>
#include <string>

#include "tests/support/Note.h"
#include "tests/support/TestProgram.h"

namespace testing_support {

// TestProgram with the files of notes, and with the message boxes that the notes and their alarms
// open.
class ProductProgram : public TestProgram {
  protected:
    using Note = testing_support::Note;
    using Script = forms::headless::Script;

    static std::string PathOf(const std::string& title);
    // Puts the file of a note on the disk, as the program writes it.
    void PutNote(const StandardCode::NoteRecord& record);
    // Like PutNote, with any file name.
    void PutNoteAs(const std::string& fileName, const StandardCode::NoteRecord& record);
    // Puts the file of a note on the disk. Its date is 30 February, so it cannot be read.
    void PutNoteWithBadDate(const std::string& title);
    // The bytes of a note's file.
    std::optional<std::string> FileOf(const std::string& title) const;

    // Closes all editors, which saves their notes.
    void CloseEditors();

    // Each of these functions expects one box with its exact text, caption, icon, buttons and
    // default button.

    // The error box of a note that cannot be saved or erased.
    void ExpectWriteError(const std::string& text, Script during = nullptr);
    // The error box of notes that cannot be restored at the start.
    void ExpectLoadError(const std::string& description);
    // The error box of the notes array: "Error Number: 13) - Type mismatch".
    void ExpectNotesArrayError(const std::string& text);
    // "... has been saved."
    void ExpectSaved(const std::string& titleInCapitals);

    // The questions are named after their captions. The editor asks "Save Changes?" and "Kill
    // Note", the control panel "Deleting Note", the display of a due note " Erase Note?".
    void ExpectSaveQuestion(forms::BoxResult answer, Script during = nullptr);
    void ExpectKillNoteQuestion(const std::string& titleInCapitals, forms::BoxResult answer,
                                Script during = nullptr);
    void ExpectDeletingNoteQuestion(const std::string& titleInCapitals, forms::BoxResult answer);
    void ExpectEraseNoteQuestion(forms::BoxResult answer, Script during = nullptr);

    // The box that an open note shows while its alarm sounds.
    void ExpectEditorAlarm(Script during = nullptr);
    // The box that the display of a due note shows while its alarm sounds.
    void ExpectDisplayAlarm(Script during = nullptr);
    // The box of a special alarm for Friday.
    void ExpectDailyAlarm(const std::string& message, Script during = nullptr);
    // The box of the countdown.
    void ExpectTimeIsUp(Script during = nullptr);
    // The box at the limit of 100 notes.
    void ExpectMaximumReached(Script during = nullptr);
    // The box of a printer that fails.
    void ExpectPrintError();
};

}  // namespace testing_support
