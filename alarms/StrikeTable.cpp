#include "alarms/StrikeTable.h"

namespace StrikeTable {

int StrikesAt(forms::DateTime timeOfDay) {
    for (const Entry& entry : entries) {
        if (forms::ParseTime(entry.time) == timeOfDay) {
            return entry.strikes;
        }
    }
    return 0;
}

}  // namespace StrikeTable
