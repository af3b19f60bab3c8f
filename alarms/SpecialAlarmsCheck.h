#pragma once

#include "base/DateTime.h"

// The main clock's check of the weekly alarms.
namespace SpecialAlarmsCheck {

// Rings each alarm that is due in this second, one after the other: returns when the user has
// closed the last message.
void RingDue(base::DateTime now);

}  // namespace SpecialAlarmsCheck
