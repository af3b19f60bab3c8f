#include <gtest/gtest.h>

#include "alarms/NoteAlarmsCheck.h"
#include "app/StandardCode.h"
#include "forms/Services.h"
#include "notes/frmDisplayNote.h"
#include "tests/support/TestProgram.h"

namespace {

using NoteAlarmsCheck::Opened;
using StandardCode::Shared;

// The program starts on Friday, 14 May 2004, 9:00:00.
class NoteAlarmsCheckTest : public testing_support::TestProgram {
  protected:
    static void PutAlarm(int slot, const std::string& title, std::int16_t audio) {
        StandardCode::NoteRecord& note = Shared().NotesArray[slot];
        note.Title = title;
        note.AlarmDate = forms::Today();
        note.AlarmTime = forms::Now().TimeOnly();
        note.AlarmState = "1";
        note.AudioAlarm = audio;
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

TEST_F(NoteAlarmsCheckTest, ANoteWithoutAudioAlarmWantsNoSound) {
    PutAlarm(1, "Dentist", 0);
    const Opened opened = Check();
    ASSERT_NE(opened.last, nullptr);
    EXPECT_FALSE(opened.wantsSound);
    NoteAlarmsCheck::StartSound(opened);
    EXPECT_FALSE(opened.last->tmrSoundAlarm.enabled());
}

TEST_F(NoteAlarmsCheckTest, NoSoundIsWantedWhileAnAlarmSounds) {
    PutAlarm(1, "Dentist", 1);
    Shared().AlarmSounding = true;
    const Opened opened = Check();
    ASSERT_NE(opened.last, nullptr);
    EXPECT_FALSE(opened.wantsSound);
}

TEST_F(NoteAlarmsCheckTest, TheLastDisplayGetsTheSoundOfAnyOfThem) {
    PutAlarm(1, "One", 1);
    PutAlarm(2, "Two", 0);
    const Opened opened = Check();
    ASSERT_NE(opened.last, nullptr);
    EXPECT_EQ(opened.last->caption(), "Two");
    EXPECT_TRUE(opened.wantsSound);
    NoteAlarmsCheck::StartSound(opened);
    EXPECT_TRUE(opened.last->tmrSoundAlarm.enabled());
    EXPECT_TRUE(Shared().AlarmSounding);
}

TEST_F(NoteAlarmsCheckTest, ADisplayThatWasClosedMeanwhileIsSilent) {
    PutAlarm(1, "Dentist", 1);
    const Opened opened = Check();
    user->CloseBox(*opened.last);
    NoteAlarmsCheck::StartSound(opened);
    EXPECT_FALSE(Shared().AlarmSounding);
}

TEST_F(NoteAlarmsCheckTest, AnAlarmWhoseDisplayIsOpenComesUpOnce) {
    PutAlarm(1, "Dentist", 1);
    const Opened first = Check();
    ASSERT_NE(first.last, nullptr);
    EXPECT_EQ(Check().last, nullptr);
    // After a change of its time, the alarm opens another display beside the old one.
    Shared().NotesArray[1].AlarmTime = base::DateTime::FromTime(9, 1, 0);
    Advance(60'000);
    const Opened second = Check();
    ASSERT_NE(second.last, nullptr);
    EXPECT_NE(second.last, first.last);
    user->CloseBox(*second.last);
    EXPECT_NE(Check().last, nullptr);
}

}  // namespace
