#include <set>

#include "notes/frmNote.h"
#include "tests/support/NoteProgram.h"

// The clocks of the editors blink while the alarm of the default editor is set. The user cannot set
// that alarm.

namespace {

class frmNoteBlinkingTest : public testing_support::NoteProgram {
  protected:
    void SetDefaultAlarm() {
        Start([] { forms::Default<frmNote>().alarm.Restore(NoteAlarm::Icon()); });
    }

    // The milliseconds within the second at which the program wakes up during the next three
    // seconds.
    std::set<std::int64_t> WakeUps() {
        std::set<std::int64_t> places;
        for (int i = 0; i < 3000; ++i) {
            places.insert(runtime->timers.NextDue().value() % 1000);
            Advance(1);
        }
        return places;
    }
};

TEST_F(frmNoteBlinkingTest, TheClockStopsBlinkingWhenTheDefaultAlarmIsCleared) {
    frmNote& note = MakeNote("Dentist");
    SetDefaultAlarm();
    Advance(750);
    EXPECT_EQ(note.lblClock.caption(), "****");
    Advance(750);
    EXPECT_EQ(note.lblClock.caption(), "");
    Start([] { forms::Default<frmNote>().cmdAlarm.Click(); });
    for (int i = 0; i < 4; ++i) {
        Advance(750);
        EXPECT_EQ(note.lblClock.caption(), "");
    }
}

TEST_F(frmNoteBlinkingTest, AnEditorThatIsOpenedLaterBlinks) {
    SetDefaultAlarm();
    frmNote& note = MakeNote("Dentist");
    Advance(750);
    EXPECT_EQ(note.lblClock.caption(), "****");
}

TEST_F(frmNoteBlinkingTest, AnAlarmWakesTheMachineBetweenTheSecondsOnlyWhenItIsNear) {
    SetNow(2004, 5, 14, 11, 59, 10);
    frmNote& note = MakeNote("Dentist");
    note.dtTime.value = base::DateTime::FromTime(12, 0, 0);
    user->Click(note.cmdAlarm);
    Advance(1000);
    EXPECT_EQ(WakeUps().size(), 1U);
    SetNow(2004, 5, 14, 11, 59, 55);
    Advance(2000);
    EXPECT_GT(WakeUps().size(), 1U);
}

TEST_F(frmNoteBlinkingTest, AnEditorThatDoesNotBlinkDoesNotWakeTheMachine) {
    Start([] { forms::Default<frmNote>().Load(); });
    MakeNote("Dentist");
    Advance(1000);
    EXPECT_EQ(WakeUps().size(), 1U);
    SetDefaultAlarm();
    EXPECT_GT(WakeUps().size(), 1U);
}

}  // namespace
