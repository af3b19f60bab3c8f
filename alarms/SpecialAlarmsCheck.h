#pragma once

#include "base/DateTime.h"

// The main clock's check of the weekly alarms.
namespace SpecialAlarmsCheck {

// Rings all alarms that are due in this second, one after the other, and returns when the user has
// closed the last message. Other handlers run while a message is open.
void RingDue(base::DateTime now);

}  // namespace SpecialAlarmsCheck
