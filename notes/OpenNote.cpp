#include "notes/OpenNote.h"

#include "notes/EditedNote.h"
#include "notes/NoteStore.h"
#include "notes/OpenEditor.h"

namespace StandardCode {

namespace {

void EnableAsShown(frmNote& note) {
    note.mnuHide.enabled = true;
    note.mnuShow.enabled = false;
}

void BringUp(frmNote& note) {
    note.windowState = forms::WindowState::Normal;
    note.Show();
    EnableAsShown(note);
    Signals().ControlPanel.Raise(SharedSignals::PanelAction::UnloadIfVisible);
}

}  // namespace

void OpenNote(int slot) {
    // Use a copy, because the array may be rebuilt while the editor is loaded and shown.
    const StoredNote note = Notes().OfSlot(slot);
    // A file must not have two editors: the editor that is closed last would write its old text
    // over the text that the other editor saved.
    if (const EditedNote* open = Notes().FindOpen(note.file);
        open != nullptr && !open->IsFileOther()) {
        frmNote& editor = WindowOf(*open);
        Shared().CurrentNote = editor.weak_from_this();
        BringUp(editor);
        return;
    }
    const auto editor = OpenEditor(note);
    Shared().CurrentNote = editor;
    if (note.record.AlarmState == "1" && Shared().NotesArray[slot].Title == note.record.Title) {
        Shared().NotesArray[slot].AlarmState = "1";
    }
    EnableAsShown(*editor);
}

std::shared_ptr<frmNote> CurrentNote() {
    auto note = std::static_pointer_cast<frmNote>(Shared().CurrentNote.lock());
    return note && note->IsLoaded() ? note : nullptr;
}

}  // namespace StandardCode
