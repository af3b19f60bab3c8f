#include "alarms/NoteAlarmsCheck.h"

#include "alarms/DueRules.h"
#include "app/StandardCode.h"
#include "notes/EditedNote.h"
#include "notes/NoteStore.h"
#include "notes/frmDisplayNote.h"

namespace NoteAlarmsCheck {

using StandardCode::Shared;

Opened DisplayDue(base::DateTime now) {
    Opened opened;
    for (int slot = 1; slot <= StandardCode::maximumNotes; ++slot) {
        const StandardCode::NoteRecord& note = Shared().NotesArray[slot];
        if (note.Title.empty()) {
            break;
        }
        if (!DueRules::IsSavedNoteDue(note, now)) {
            continue;
        }
        const StoredNote stored = StandardCode::Notes().OfSlot(slot);
        const EditedNote* open = StandardCode::Notes().FindOpen(stored.file);
        // An editor tests the alarm that it shows. If the file has other contents, test the file's
        // alarm here.
        if ((open != nullptr && !open->IsFileOther()) || StandardCode::IsAlarmDisplayed(stored)) {
            continue;
        }
        if (note.AudioAlarm == 1 && !Shared().AlarmSounding) {
            opened.wantsSound = true;
        }
        opened.last = StandardCode::DisplayNote(slot);
    }
    return opened;
}

void StartSound(const Opened& opened) {
    if (Shared().AlarmSounding || !opened.wantsSound || !opened.last->IsLoaded()) {
        return;
    }
    opened.last->tmrSoundAlarm.enabled = true;
    Shared().AlarmSounding = true;
}

}  // namespace NoteAlarmsCheck
