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

// The editor's own test: whether now has the alarm's time of day and is on one of the two days.
bool IsEditorAlarmDue(const AlarmValues& values, base::DateTime now);

// Whether the alarm's time of day is now or in the next three seconds. Ignores the date. While the
// result is false, one call per second is enough.
bool MayRingSoon(const AlarmValues& values, base::DateTime now);

// The main clock's test: whether the alarm of a saved note is due. The result depends on the
// locale's short date.
bool IsSavedNoteDue(const StandardCode::NoteRecord& note, base::DateTime now);

// The first five characters of today as "m/d/yyyy", then the last two of today as a short date.
// IsSavedNoteDue also accepts an alarm date that GeneralDate() shows as this text, which happens
// only by coincidence.
std::string ComparisonText(base::DateTime today);

}  // namespace DueRules
