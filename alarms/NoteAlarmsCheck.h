#pragma once

#include <memory>

#include "base/DateTime.h"

class frmDisplayNote;

// The main clock's check of the saved notes. It skips notes that are open in an editor, because the
// editor tests its own alarm.
namespace NoteAlarmsCheck {

struct Opened {
    std::shared_ptr<frmDisplayNote> last;  // null: no display was opened
    bool wantsSound = false;  // a due note has its audio alarm on, and no alarm was sounding
};

// Opens a display for each note that is due in this second, unless a display of the same alarm is
// open.
Opened DisplayDue(base::DateTime now);

// Starts the sound timer of the display that was opened last, if opened.wantsSound is true, the
// display is still loaded and no alarm sounds.
void StartSound(const Opened& opened);

}  // namespace NoteAlarmsCheck
