#include <gtest/gtest.h>

#include "alarms/NoteAlarmsCheck.h"
#include "app/StandardCode.h"
#include "forms/Services.h"
#include "notes/frmDisplayNote.h"
#include "tests/support/ProductProgram.h"

namespace {

using NoteAlarmsCheck::Opened;
using StandardCode::Shared;

// The program starts on Friday, 14 May 2004, 9:00:00.
class NoteAlarmsCheckTest : public testing_support::ProductProgram {
  protected:
    static void SetDue(int slot, const std::string& title, bool withSound) {
        Note note = Note(title).WithAlarmAt(forms::Now().TimeOnly()).On(forms::Today());
        note.AudioAlarm = withSound ? 1 : 0;
        Shared().NotesArray[slot] = note;
    }

    Opened Check() {
        Opened opened;
        Start([&opened] { opened = NoteAlarmsCheck::DisplayDue(forms::Now()); });
        return opened;
    }
};

TEST_F(NoteAlarmsCheckTest, WithoutADueNoteThereIsNothing) {
    const Opened opened = Check();
    EXPECT_EQ(opened.last, nullptr);
    EXPECT_FALSE(opened.wantsSound);
    NoteAlarmsCheck::StartSound(opened);
    EXPECT_FALSE(Shared().AlarmSounding);
}

// Any of the due notes can ask for the sound; the last display plays it.
TEST_F(NoteAlarmsCheckTest, TheLastDisplaySoundsIfAnyNoteAsksForItInSilence) {
    struct Case {
        bool firstHasSound;
        bool secondHasSound;
        bool alarmSounds;
        bool wantsSound;
    };
    for (const Case& test : {Case{false, false, false, false}, Case{true, false, false, true},
                             Case{false, true, false, true}, Case{true, true, true, false}}) {
        SCOPED_TRACE(testing::Message()
                     << test.firstHasSound << test.secondHasSound << test.alarmSounds);
        Restart();
        SetDue(1, "One", test.firstHasSound);
        SetDue(2, "Two", test.secondHasSound);
        Shared().AlarmSounding = test.alarmSounds;
        const Opened opened = Check();
        ASSERT_NE(opened.last, nullptr);
        EXPECT_EQ(opened.last->caption(), "Two");
        EXPECT_EQ(opened.wantsSound, test.wantsSound);
        NoteAlarmsCheck::StartSound(opened);
        EXPECT_EQ(opened.last->tmrSoundAlarm.enabled(), test.wantsSound);
        EXPECT_EQ(Shared().AlarmSounding, test.wantsSound || test.alarmSounds);
    }
}

TEST_F(NoteAlarmsCheckTest, ADisplayThatWasClosedMeanwhileIsSilent) {
    SetDue(1, "Dentist", true);
    const Opened opened = Check();
    user->CloseBox(*opened.last);
    NoteAlarmsCheck::StartSound(opened);
    EXPECT_FALSE(Shared().AlarmSounding);
}

TEST_F(NoteAlarmsCheckTest, AnAlarmWhoseDisplayIsOpenComesUpOnce) {
    SetDue(1, "Dentist", true);
    const Opened first = Check();
    ASSERT_NE(first.last, nullptr);
    EXPECT_EQ(Check().last, nullptr);
    // After the alarm's time has changed, the alarm opens another display beside the old one.
    Shared().NotesArray[1].AlarmTime = base::DateTime::FromTime(9, 1, 0);
    Advance(60'000);
    const Opened second = Check();
    ASSERT_NE(second.last, nullptr);
    EXPECT_NE(second.last, first.last);
    user->CloseBox(*second.last);
    EXPECT_NE(Check().last, nullptr);
}

}  // namespace
