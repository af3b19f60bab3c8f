#pragma once

#include <cstdint>
#include <string>

#include "app/StandardCode.h"

namespace testing_support {

// The record of a note, for tests: Note("Dentist", "Call.").WithAlarmAt(9, 30).WithSound(). Unless
// a call changes it, the note is white, in 12 points, and its alarm is off. The time of the alarm
// is 14 May 2004, 12:00.
struct Note : StandardCode::NoteRecord {
    explicit Note(const std::string& title, const std::string& text = "text") {
        Title = title;
        Text = text;
        AlarmDate = base::DateTime::FromDate(2004, 5, 14);
        AlarmTime = base::DateTime::FromTime(12, 0, 0);
        ColorIndex = 1;
        FontSize = 12;
        AlarmState = "0";
        Trailer = "yes";
    }

    Note& On(base::DateTime date) {
        AlarmDate = date;
        return *this;
    }
    Note& At(base::DateTime time) {
        AlarmTime = time;
        return *this;
    }
    Note& At(int hour, int minute, int second = 0) {
        return At(base::DateTime::FromTime(hour, minute, second));
    }
    Note& WithAlarm() {
        AlarmState = "1";
        return *this;
    }
    Note& WithAlarmAt(base::DateTime time) { return At(time).WithAlarm(); }
    Note& WithAlarmAt(int hour, int minute, int second = 0) {
        return At(hour, minute, second).WithAlarm();
    }
    Note& WithSound() {
        AudioAlarm = 1;
        return *this;
    }
    // 1 white, 2 red, 3 green, 4 blue, 5 yellow, 6 grey.
    Note& InColor(int index) {
        ColorIndex = static_cast<std::int16_t>(index);
        return *this;
    }
    Note& InPoints(int size) {
        FontSize = static_cast<std::int16_t>(size);
        return *this;
    }
};

}  // namespace testing_support
