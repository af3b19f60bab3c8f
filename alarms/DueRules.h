#pragma once

#include <string>

#include "app/StandardCode.h"
#include "base/DateTime.h"

// When a note's alarm is due. Every comparison is exact to the second: an alarm whose second is not
// tested does not ring.
namespace DueRules {

// The values that an editor compares with the clock.
struct AlarmValues {
    base::DateTime AlarmDayLong;
    // AlarmDayLong after a conversion through a text with a two-digit year, so its year is in 1930
    // to 2029.
    base::DateTime AlarmDayShort;
    base::DateTime AlarmTimeOfDay;
};

// Takes the day from date and the time of day from time, the values of the editor's pickers.
AlarmValues ValuesOf(base::DateTime date, base::DateTime time);

// The editor's own test. The alarm is due if one of the two days matches.
bool IsEditorAlarmDue(const AlarmValues& values, base::DateTime now);

// Whether the editor's own test may come true within the next seconds, on any day. If not, one test
// in each second is enough.
bool MayRingSoon(const AlarmValues& values, base::DateTime now);

// The main clock's test of a saved note. Its result depends on the locale's short date.
bool IsSavedNoteDue(const StandardCode::NoteRecord& note, base::DateTime now);

// The first five characters of "m/d/yyyy" and the last two of the short date. IsSavedNoteDue also
// accepts an alarm date whose own text equals this text. That happens only by accident.
std::string ComparisonText(base::DateTime today);

}  // namespace DueRules
