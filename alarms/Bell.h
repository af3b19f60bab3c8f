#pragma once

#include <string>

#include "forms/MsgBox.h"

// Alarm sounds that go on in a loop until the user has closed a message box.
namespace Bell {

// Plays the file in a loop behind the box and stops it when the box is closed. AlarmSounding is set
// meanwhile. A file that cannot be played leaves the box without a sound.
//
// Further boxes may open while this one waits. The sound of the newest box is heard; when that box
// is closed, the sound of the box below it starts again.
forms::BoxResult RingBehindBox(const std::string& path, const std::string& text,
                               forms::MsgBoxOptions options, const std::string& caption);

// Whether a looping sound waits for its box. No other sound may start then: the machine plays one
// sound at a time, and the new one would end the loop.
bool IsRinging();

// Clears AlarmSounding, unless something rings.
void ClearAlarmSounding();

}  // namespace Bell
