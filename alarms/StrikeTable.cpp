#include "alarms/StrikeTable.h"

namespace StrikeTable {

int StrikesAt(base::DateTime timeOfDay) {
    for (const Entry& entry : entries) {
        if (base::ParseTime(entry.time) == timeOfDay) {
            return entry.strikes;
        }
    }
    return 0;
}

}  // namespace StrikeTable
