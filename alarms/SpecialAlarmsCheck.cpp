#include "alarms/SpecialAlarmsCheck.h"

#include "alarms/Bell.h"
#include "alarms/SpecialAlarmsFile.h"
#include "app/StandardCode.h"

namespace SpecialAlarmsCheck {

namespace {

using StandardCode::Shared;

void Ring(std::size_t row) {
    std::string& message = Shared().SpecialAlarmMessage[row];
    if (message.empty()) {
        message = "No Special Message";
    }
    Bell::RingBehindBox(
        Shared().AlarmSoundPath,
        "Message for " + Shared().SpecialAlarmDay[row] + "               \r\n\r\n" + message,
        {.icon = forms::BoxIcon::Information}, "Jotwright Daily Alarm");
    // Suppresses the cuckoo and the sound of a note for the rest of this second.
    Shared().AlarmSounding = true;
}

}  // namespace

void RingDue(base::DateTime now) {
    for (std::size_t row = 0; row < SpecialAlarmsFile::rowCount; ++row) {
        if (SpecialAlarmsFile::IsDue(SpecialAlarmsFile::SharedRow(row), now)) {
            Ring(row);
        }
    }
}

}  // namespace SpecialAlarmsCheck
