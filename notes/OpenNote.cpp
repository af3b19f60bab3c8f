#include "notes/OpenNote.h"

#include "forms/Runtime.h"
#include "notes/RestoreNotes.h"

namespace StandardCode {

namespace {

// A loaded form is kept alive by the runtime, and must not outlive it here.
std::weak_ptr<frmNote>& CurrentNoteReference() {
    static std::weak_ptr<frmNote> reference;
    return reference;
}

void EnableAsShown(frmNote& note) {
    note.mnuHide.enabled = true;
    note.mnuShow.enabled = false;
}

void BringUp(frmNote& note) {
    note.windowState = forms::WindowState::Normal;
    note.Show();
    EnableAsShown(note);
    Events().ControlPanel.Raise(SharedEvents::PanelAction::UnloadIfVisible);
}

}  // namespace

void OpenNote(int slot) {
    // A copy: loading an editor closes the control panel, which may rebuild the array.
    const NoteRecord record = Shared().NotesArray[slot];
    // Of two editors of one note, the one that is closed last would write its old text over what
    // was saved in the other.
    if (const auto open = FindOpenNote(record.Title)) {
        CurrentNoteReference() = open;
        BringUp(*open);
        return;
    }
    auto note = forms::New<frmNote>();
    CurrentNoteReference() = note;
    note->Load();
    FillNote(*note, record);
    if (record.AlarmState == "1") {
        note->PresentAlarm();
        Shared().NotesArray[slot].AlarmState = "1";
    }
    EnableAsShown(*note);
}

std::shared_ptr<frmNote> CurrentNote() {
    auto note = CurrentNoteReference().lock();
    return note && note->IsLoaded() ? note : nullptr;
}

}  // namespace StandardCode
