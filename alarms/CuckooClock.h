#pragma once

#include "base/DateTime.h"

// The hourly chime.
namespace CuckooClock {

// How often to strike in this second; 0 while an alarm sounds. The main clock must have looked at
// the same second before: it sets AlarmSounding for the alarms of that second.
int StrikesDue(base::DateTime now);

// Plays the cuckoo count times, one after the other, and returns after the last.
void Strike(int count);

}  // namespace CuckooClock
