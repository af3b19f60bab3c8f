#pragma once

#include "base/DateTime.h"

// The hourly chime.
namespace CuckooClock {

// The number of strikes that are due in this second. 0 while an alarm sounds. Call it after the
// main clock's checks of the same second, because they set AlarmSounding for the alarms of that
// second.
int StrikesDue(base::DateTime now);

// Plays the cuckoo count times in a row, and returns after the last strike. If the session ends
// meanwhile, returns at once.
void Strike(int count);

}  // namespace CuckooClock
