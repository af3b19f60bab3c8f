#pragma once

#include <memory>
#include <optional>

#include "forms/Form.h"
#include "notes/NoteStore.h"
#include "notes/RecoveryCopy.h"

// Shows a saved note whose alarm is due. Each note has its own instance, and the caption is the
// note's title. When the user closes the window, it asks whether to erase the note. If the user
// keeps the note, the window switches the alarm off in the file. If an editor saved the note while
// this window was open, closing keeps those changes, and an alarm that was set again stays set. But
// a text that the user typed in this window replaces the text in the file.
//
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

    // Plays the sound one second after the timer was switched on, unless another alarm is ringing
    // then.
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
    forms::ShortcutTarget TargetOf(forms::Shortcut key) override;

    // Shows the note's text. Call it once. If the text is different when the window closes, the
    // user has changed it here.
    void ShowNote(const StoredNote& note);
    // The name of the note's file; empty for the default instance.
    const std::string& File() const { return file; }
    // Whether this window was opened for this note and for the present date and time of its alarm.
    bool ShowsAlarmOf(const StoredNote& note) const;
    // Replaces the note's file with the note as the window shows it, in one step and with the alarm
    // switched off. If that fails, returns false, leaves the file unchanged, and keeps a text that
    // was typed here in a recovery copy. Shows the error, unless the session ends.
    bool ReWriteNote();

  private:
    void ShowPopupOn(int button);
    bool IsToBeErased();  // asks the user
    void EraseNote();
    bool KeepNote();  // false if the note could not be written
    // The note in the file, if the file has changed since this window opened.
    std::optional<StoredNote> SavedMeanwhile() const;
    bool KeepSaved(StandardCode::NoteRecord note);
    // Switches the note's alarm off and writes the note.
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
    std::uint64_t fingerprint = 0;  // of the contents that are overwritten without a copy
    StandardCode::NoteRecord shown;
    std::string shownText;
    RecoveryCopy copy;  // of the note, if the text that the user typed here could not be saved
};

namespace StandardCode {

// Opens a display for the note in this slot of NotesArray. The caller starts the sound, if any,
// with tmrSoundAlarm.
std::shared_ptr<frmDisplayNote> DisplayNote(int slot);

// Whether a display is open for this note's present alarm.
bool IsAlarmDisplayed(const StoredNote& note);

}  // namespace StandardCode
