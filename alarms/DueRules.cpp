#include "alarms/DueRules.h"

#include "forms/Devices.h"
#include "forms/Text.h"

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

AlarmValues ValuesOf(forms::DateTime date, forms::DateTime time) {
    const std::string monthAndDay =
        std::to_string(date.Month()) + '/' + std::to_string(date.Day()) + '/';
    const std::string year = std::to_string(date.Year());
    return {forms::ParseMonthDayYear(monthAndDay + year),
            forms::ParseMonthDayYear(monthAndDay + LastCharacters(year, 2)),
            forms::ParseTime(forms::FormatTime24(time))};
}

bool IsEditorAlarmDue(const AlarmValues& values, forms::DateTime now) {
    return now.TimeOnly() == values.AlarmTimeOfDay &&
           (now.DateOnly() == values.AlarmDayLong || now.DateOnly() == values.AlarmDayShort);
}

bool MayRingSoon(const AlarmValues& values, forms::DateTime now) {
    constexpr std::int64_t soon = 3;
    const std::int64_t since = now.seconds - values.AlarmTimeOfDay.seconds;
    return ((-since) % forms::secondsPerDay + forms::secondsPerDay) % forms::secondsPerDay <= soon;
}

bool IsSavedNoteDue(const StandardCode::NoteRecord& note, forms::DateTime now) {
    return note.AlarmState == "1" && note.AlarmTime == now.TimeOnly() &&
           (note.AlarmDate == now.DateOnly() ||
            ComparisonText(now.DateOnly()) == forms::Machine().locale->GeneralDate(note.AlarmDate));
}

std::string ComparisonText(forms::DateTime today) {
    return forms::FormatMonthDayYear(today).substr(0, 5) +
           LastCharacters(forms::Machine().locale->ShortDate(today), 2);
}

}  // namespace DueRules
