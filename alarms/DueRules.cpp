#include "alarms/DueRules.h"

#include "base/Text.h"
#include "forms/Devices.h"

namespace DueRules {

namespace {

std::string LastCharacters(const std::string& text, int count) {
    std::size_t start = text.size();
    while (start > 0 && count > 0) {
        --start;
        const bool isInsideCharacter = (static_cast<unsigned char>(text[start]) & 0xc0U) == 0x80;
        count -= isInsideCharacter ? 0 : 1;
    }
    return text.substr(start);
}

}  // namespace

AlarmValues ValuesOf(base::DateTime date, base::DateTime time) {
    const std::string monthAndDay =
        std::to_string(date.Month()) + '/' + std::to_string(date.Day()) + '/';
    const std::string year = std::to_string(date.Year());
    return {base::ParseMonthDayYear(monthAndDay + year),
            base::ParseMonthDayYear(monthAndDay + LastCharacters(year, 2)),
            base::ParseTime(base::FormatTime24(time))};
}

bool IsEditorAlarmDue(const AlarmValues& values, base::DateTime now) {
    return now.TimeOnly() == values.AlarmTimeOfDay &&
           (now.DateOnly() == values.AlarmDayLong || now.DateOnly() == values.AlarmDayShort);
}

bool MayRingSoon(const AlarmValues& values, base::DateTime now) {
    constexpr std::int64_t soon = 3;
    const std::int64_t since = now.seconds - values.AlarmTimeOfDay.seconds;
    return ((-since) % base::secondsPerDay + base::secondsPerDay) % base::secondsPerDay <= soon;
}

bool IsSavedNoteDue(const StandardCode::NoteRecord& note, base::DateTime now) {
    return note.AlarmState == "1" && note.AlarmTime == now.TimeOnly() &&
           (note.AlarmDate == now.DateOnly() ||
            ComparisonText(now.DateOnly()) == forms::Machine().locale->GeneralDate(note.AlarmDate));
}

std::string ComparisonText(base::DateTime today) {
    return base::FormatMonthDayYear(today).substr(0, 5) +
           LastCharacters(forms::Machine().locale->ShortDate(today), 2);
}

}  // namespace DueRules
