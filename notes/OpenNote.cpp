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

}  // namespace

void OpenNote(int slot) {
    // A copy: loading an editor closes the control panel, which may rebuild the array.
    const NoteRecord record = Shared().NotesArray[slot];
    auto note = forms::New<frmNote>();
    CurrentNoteReference() = note;
    note->Load();
    FillNote(*note, record);
    if (record.AlarmState == "1") {
        note->PresentAlarm();
        Shared().NotesArray[slot].AlarmState = "1";
    }
    note->mnuHide.enabled = true;
    note->mnuShow.enabled = false;
}

std::shared_ptr<frmNote> CurrentNote() {
    auto note = CurrentNoteReference().lock();
    return note && note->IsLoaded() ? note : nullptr;
}

}  // namespace StandardCode
