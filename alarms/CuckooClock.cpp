#include "alarms/CuckooClock.h"

#include "alarms/StrikeTable.h"
#include "app/StandardCode.h"
#include "forms/Devices.h"
#include "forms/Services.h"

namespace CuckooClock {

int StrikesDue(base::DateTime now) {
    return StandardCode::Shared().AlarmSounding ? 0 : StrikeTable::StrikesAt(now.TimeOnly());
}

void Strike(int count) {
    for (int strike = 0; strike < count; ++strike) {
        forms::Machine().sound->PlayToEnd(forms::ApplicationPath("\\Cuckoo clock.wav"));
    }
}

}  // namespace CuckooClock
