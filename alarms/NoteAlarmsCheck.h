#pragma once

#include <memory>

#include "base/DateTime.h"

class frmDisplayNote;

// The main clock's check of the saved notes. It skips notes that are open in an editor, because the
// editor tests its own alarm.
namespace NoteAlarmsCheck {

struct Opened {
    std::shared_ptr<frmDisplayNote> last;  // null: no note was due
    bool wantsSound = false;               // at least one of the notes has its audio alarm on
};

// Opens a display for each note that is due in this second.
Opened DisplayDue(base::DateTime now);

// Switches on the sound of the display that was opened last, if the audio alarm of one of the notes
// is on and no alarm sounds.
void StartSound(const Opened& opened);

}  // namespace NoteAlarmsCheck
