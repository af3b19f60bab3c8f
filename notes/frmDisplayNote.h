#pragma once

#include <memory>
#include <optional>

#include "forms/Form.h"
#include "notes/NoteStore.h"
#include "notes/RecoveryCopy.h"

// Shows a saved note whose alarm is due. One instance a note; its caption is the note's title.
// Closing it asks whether the note is to be erased; a note that is kept has its alarm switched off.
// What was saved in an editor meanwhile stays, also an alarm that was set anew; but a text that was
// typed here goes before that of the file.
// The default instance is loaded hidden at start-up, holds no note and closes silently.
class frmDisplayNote : public forms::Form {
  public:
    frmDisplayNote() : Form("frmDisplayNote") {}
    ~frmDisplayNote() override;
    frmDisplayNote(const frmDisplayNote&) = delete;
    frmDisplayNote& operator=(const frmDisplayNote&) = delete;

    forms::Label lblJotwright{this, "lblJotwright"};
    forms::ControlArray<forms::Line, 2> Line1{this, "Line1"};
    forms::TextBox lblNoteText{this, "lblNoteText"};

    // Plays the sound one second after it was switched on, unless another alarm rings then.
    forms::Timer tmrSoundAlarm{this, "tmrSoundAlarm"};

    forms::Menu mnuPop{this, "mnuPop", "Menu"};
    forms::Menu mnuPrint{this, mnuPop, "mnuPrint", "Print Note"};
    forms::Menu mnuErase{this, mnuPop, "mnuErase", "Erase Note"};
    forms::Menu mnuSep{this, mnuPop, "mnuSep", "-"};
    forms::Menu mnuClose{this, mnuPop, "mnuClose", "Close"};

    void Design() override;
    void Form_Load() override;
    void Form_Resize() override;
    void Form_Unload(bool& cancel) override;
    void Form_MouseUp(int button, int x, int y) override;

    // Shows the note's text; a text that differs from it when the window closes was typed here. To
    // be called once.
    void ShowNote(const StoredNote& note);
    // Of the note; empty for the default instance.
    const std::string& File() const { return file; }
    // Whether the window came up for this note, at the date and time that its alarm has now.
    bool ShowsAlarmOf(const StoredNote& note) const;
    // Writes the note's file from what the window shows, its alarm switched off: the file is
    // replaced in one step. A failure is shown in a box, unless the session ends, and leaves the
    // file as it was; false then. A text that was typed here lies in a recovery copy then.
    bool ReWriteNote();

  private:
    void ShowPopupOn(int button);
    bool IsToBeErased();  // as the user answers
    void EraseNote();
    bool KeepNote();  // false where the note could not be written
    // The note as its file has it, where that is not what came up here.
    std::optional<StoredNote> SavedMeanwhile() const;
    bool KeepSaved(StandardCode::NoteRecord note);
    // With the note's alarm switched off.
    bool WriteSilenced(StandardCode::NoteRecord& note);
    bool Write(StandardCode::NoteRecord& note, NoteFile::TimeField timeField);
    void KeepCopy(const StandardCode::NoteRecord& note);
    bool IsTextChanged() const { return lblNoteText.text() != shownText; }
    void tmrSoundAlarm_Timer();
    void StartSound(bool loops);
    void mnuPrint_Click();
    void mnuErase_Click();
    void mnuClose_Click();

    std::string file;
    std::uint64_t fingerprint = 0;  // of the file's contents that may be written over
    StandardCode::NoteRecord shown;
    std::string shownText;
    RecoveryCopy copy;  // of a text that was typed here and could not be written
};

namespace StandardCode {

// Opens a display for the note in this slot of NotesArray. The caller starts the sound, if any,
// with tmrSoundAlarm.
std::shared_ptr<frmDisplayNote> DisplayNote(int slot);

// Whether a display is open that came up for this note's present alarm.
bool IsAlarmDisplayed(const StoredNote& note);

}  // namespace StandardCode
