#pragma once

#include <string>

#include "app/StandardCode.h"
#include "base/DateTime.h"

// When a note's alarm is due. Every comparison is exact to the second: a second that nobody looked
// at is missed.
namespace DueRules {

// What an editor compares the clock with.
struct AlarmValues {
    base::DateTime AlarmDayLong;
    // The day again, by way of a text with a two-digit year: its year is one of 1930 to 2029.
    base::DateTime AlarmDayShort;
    base::DateTime AlarmTimeOfDay;
};

// From the editor's pickers: the day of date and the time of day of time.
AlarmValues ValuesOf(base::DateTime date, base::DateTime time);

// The editor's own test; either day may match.
bool IsEditorAlarmDue(const AlarmValues& values, base::DateTime now);

// Whether the editor's own test may come true within the next seconds, on whatever day. While it
// may not, nobody needs to look more often than once in each second.
bool MayRingSoon(const AlarmValues& values, base::DateTime now);

// The main clock's test of a saved note. The locale's short date plays a part.
bool IsSavedNoteDue(const StandardCode::NoteRecord& note, base::DateTime now);

// The text that an alarm date's own text may equal instead of the date itself: the first five
// characters of "m/d/yyyy" and the last two of the short date. It matches by accident only.
std::string ComparisonText(base::DateTime today);

}  // namespace DueRules
