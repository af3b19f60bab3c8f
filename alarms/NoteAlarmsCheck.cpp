#include "alarms/NoteAlarmsCheck.h"

#include "alarms/DueRules.h"
#include "app/StandardCode.h"
#include "notes/frmDisplayNote.h"
#include "notes/frmNote.h"

namespace NoteAlarmsCheck {

using StandardCode::Shared;

Opened DisplayDue(forms::DateTime now) {
    Opened opened;
    for (int slot = 1; slot <= StandardCode::maximumNotes; ++slot) {
        const StandardCode::NoteRecord& note = Shared().NotesArray[slot];
        if (note.Title.empty()) {
            break;
        }
        if (!DueRules::IsSavedNoteDue(note, now) || StandardCode::IsNoteOpen(note.Title) ||
            StandardCode::IsAlarmDisplayed(note)) {
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
