#pragma once

#include <string>

#include "forms/MsgBox.h"

// Alarm sounds that play in a loop until the user closes a message box.
namespace Bell {

// Plays the file in a loop behind the box, and stops it when the box is closed. AlarmSounding is
// set until then. If the file cannot be played, the box opens without a sound.
//
// Further boxes may open while this one is open. The sound of the newest box plays. When that box
// is closed, the sound of the box below it starts again.
forms::BoxResult RingBehindBox(const std::string& path, const std::string& text,
                               forms::MsgBoxOptions options, const std::string& caption);

// Whether a looping sound is playing behind a box. If so, do not start another sound: the machine
// plays one sound at a time, and the new sound would end the loop.
bool IsRinging();

// Clears AlarmSounding, unless a looping sound is playing behind a box.
void ClearAlarmSounding();

}  // namespace Bell
