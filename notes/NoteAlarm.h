#pragma once

#include <cstdint>
#include <optional>
#include <utility>

#include "alarms/DueRules.h"
#include "forms/Devices.h"

class frmNote;

// The alarm of the note in one editor. While it is set, a leaf of a calendar and a clock stand in
// the place of the pickers, which hold the alarm's date and time.
class NoteAlarm {
  public:
    explicit NoteAlarm(frmNote& editor) : note(editor) {}

    // Captions and places of the controls in fraAlarm.
    void Design();

    bool IsSet() const { return isSet; }
    // 1 if the alarm is to sound, else 0.
    std::int16_t AudioAlarm() const;
    const DueRules::AlarmValues& Values();

    // Sets the alarm, or clears it if it is set. RuntimeError 53 if an icon is missing.
    void Toggle();
    void Clear();
    // Shows an alarm that was set before: with its marker.
    void Restore(const forms::Picture& alarmIcon);

    // Once a second: lets tmrNote tick only while the alarm is near.
    void RestUntilNear();
    // Ticks of tmrNote and tmrLabel.
    void FireIfDue();
    void Blink();
    // The clocks of all editors blink while the default editor's alarm is set. Removes the handler
    // of tmrLabel while they do not, so that it causes no wake-ups.
    void FollowBlinking();

  private:
    void Set(bool set);
    void Paint();
    void FillCalendar();
    static bool IsBlinking();

    frmNote& note;
    bool isSet = false;
    DueRules::AlarmValues values;
    // The date and the time that the values were computed from.
    std::optional<std::pair<base::DateTime, base::DateTime>> valuesOf;
};
