#pragma once

#include <string>

#include "forms/MsgBox.h"

// Alarm sounds that play in a loop until the user closes a message box.
namespace Bell {

// Shows the box, and plays the file in a loop until the user closes the box. AlarmSounding is set
// until then. If the file cannot be played, the box opens without a sound.
//
// Other handlers run while the box is open, and may open further boxes. The sound of the newest box
// plays. When that box is closed, the sound of the box below it starts again.
forms::BoxResult RingBehindBox(const std::string& path, const std::string& text,
                               forms::MsgBoxOptions options, const std::string& caption);

// Whether a looping sound is playing behind a box. If so, do not start another sound: the machine
// plays one sound at a time, and the new sound would end the loop.
bool IsRinging();

// Clears AlarmSounding, unless a looping sound is playing behind a box.
void ClearAlarmSounding();

}  // namespace Bell
