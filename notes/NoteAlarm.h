#pragma once

#include <cstdint>
#include <optional>
#include <utility>

#include "alarms/DueRules.h"
#include "forms/Devices.h"

class frmNote;

// The alarm of the note in one editor. While the alarm is set, a calendar leaf and a clock are
// shown instead of the pickers. The pickers still hold the alarm's date and time.
class NoteAlarm {
  public:
    explicit NoteAlarm(frmNote& editor) : note(editor) {}

    // Sets the captions and places of the controls in fraAlarm.
    void Design();
    // Moves the check box and the button to the right edge of fraAlarm. Call it whenever the width
    // of the frame has changed.
    void Arrange();

    bool IsSet() const { return isSet; }
    // 1 if the alarm is to sound, else 0.
    std::int16_t AudioAlarm() const;
    const DueRules::AlarmValues& Values();

    // The window's icon while its alarm is set. RuntimeError 53 if its file is missing.
    static forms::Picture Icon();
    // Sets the alarm, or clears it if it is set. RuntimeError 53 if an icon is missing.
    void Toggle();
    void Clear();
    // Sets an alarm that was stored as set, and shows this icon.
    void Restore(const forms::Picture& alarmIcon);

    // Call it once a second. Lets tmrNote tick only while the alarm is near.
    void RestUntilNear();
    // Handlers for the ticks of tmrNote and tmrLabel.
    void FireIfDue();
    void Blink();
    // The clocks of all editors blink while the default editor's alarm is set. If they blink,
    // connects the handler of tmrLabel; if not, removes it, so that the timer causes no wake-ups.
    void FollowBlinking();

  private:
    void Set(bool set);
    void Paint();
    void FillCalendar();
    static bool IsBlinking();

    frmNote& note;
    bool isSet = false;
    DueRules::AlarmValues values;
    // The date and the time from which the values were computed.
    std::optional<std::pair<base::DateTime, base::DateTime>> valuesOf;
};
