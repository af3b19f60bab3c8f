#include "forms/Gestures.h"
#include "notes/frmNote.h"
#include "tests/support/NoteProgram.h"

// The alarm of an editor: setting it, clearing it, and firing.

namespace {

using base::DateTime;
using forms::BoxIcon;
using forms::WindowState;
using forms::headless::RecordedSound;
using StandardCode::Shared;

class frmNoteAlarmTest : public testing_support::NoteProgram {
  protected:
    static void ExpectSet(frmNote& note) {
        EXPECT_EQ(note.cmdAlarm.caption(), "&Turn Off Alarm");
        ExpectCalendar(note, true);
        EXPECT_TRUE(note.tmrNote.enabled());
        EXPECT_EQ(note.tmrNote.interval(), 600);
        EXPECT_EQ(note.icon().path, "C:\\Jotwright\\alarmon.ico");
    }

    static void ExpectNotSet(frmNote& note) {
        EXPECT_EQ(note.cmdAlarm.caption(), "&Set Alarm");
        ExpectCalendar(note, false);
        EXPECT_FALSE(note.tmrNote.enabled());
        EXPECT_EQ(note.icon().path, "C:\\Jotwright\\note.ico");
    }

    frmNote& SetFor(const std::string& title, DateTime date, DateTime time) {
        frmNote& note = MakeNote(title);
        user->Pick(note.dtDate, date);
        user->Pick(note.dtTime, time);
        user->Click(note.cmdAlarm);
        return note;
    }

    void ExpectInformation(const std::string& text) {
        ExpectMessage(text, "Information", BoxIcon::Information);
    }

  private:
    static void ExpectCalendar(frmNote& note, bool shown) {
        for (const forms::Control* control : std::initializer_list<const forms::Control*>{
                 &note.shpMonth, &note.shpCalBody, &note.shpClock, &note.lblCalMonth,
                 &note.lblDayYear, &note.lblClock}) {
            EXPECT_EQ(control->visible(), shown) << control->name;
        }
        for (const forms::Control* control : std::initializer_list<const forms::Control*>{
                 &note.dtDate, &note.dtTime, &note.lblDate, &note.lblTime}) {
            EXPECT_EQ(control->visible(), !shown) << control->name;
        }
        EXPECT_EQ(note.dtDate.enabled(), !shown);
        EXPECT_EQ(note.dtTime.enabled(), !shown);
    }
};

const DateTime today = DateTime::FromDate(2004, 5, 14);

TEST_F(frmNoteAlarmTest, AtFirstTheAlarmIsNotSet) {
    frmNote& note = MakeNote("Dentist");
    ExpectNotSet(note);
    EXPECT_FALSE(note.imgAlarm.visible());
    EXPECT_FALSE(note.imgBell.visible());
    EXPECT_EQ(note.tmrNote.interval(), 0);
}

TEST_F(frmNoteAlarmTest, SettingShowsTheCalendarLeaf) {
    frmNote& note = SetFor("Dentist", today, DateTime::FromTime(9, 30, 0));
    ExpectSet(note);
    EXPECT_EQ(note.fraAlarm.caption(), " Alarm Set ");
    EXPECT_EQ(note.lblCalMonth.caption(), "May");
    EXPECT_EQ(note.lblDayYear.caption(), "14, 2004");
    EXPECT_EQ(note.lblClock.caption(), "9:30:00 AM");
}

TEST_F(frmNoteAlarmTest, TheMonthIsEnglishAndTheTimeIsInTheFormatOfTheSystem) {
    locale.timeFormat = "HH:mm";
    frmNote& note =
        SetFor("Dentist", DateTime::FromDate(2031, 12, 1), DateTime::FromTime(21, 5, 0));
    EXPECT_EQ(note.lblCalMonth.caption(), "December");
    EXPECT_EQ(note.lblDayYear.caption(), "1, 2031");
    EXPECT_EQ(note.lblClock.caption(), "21:05");
}

TEST_F(frmNoteAlarmTest, ClearingBringsThePickersBack) {
    frmNote& note = SetFor("Dentist", today, DateTime::FromTime(9, 30, 0));
    user->Click(note.cmdAlarm);
    ExpectNotSet(note);
    EXPECT_EQ(note.fraAlarm.caption(), " Schedule Alarm ");
    Advance(2 * 3600 * 1000);
    EXPECT_TRUE(stage->Boxes().empty());
    EXPECT_EQ(note.fraAlarm.caption(), " Schedule Alarm ");
}

TEST_F(frmNoteAlarmTest, TheMenuStartsAndStops) {
    frmNote& note = MakeNote("Dentist");
    ExpectInformation("   Alarm Not Set              ");
    user->Choose(note.mnuAlarmStop);
    ExpectNotSet(note);
    user->Choose(note.mnuAlarmStart);
    ExpectSet(note);
    ExpectInformation("    Alarm Already Started     ");
    user->Choose(note.mnuAlarmStart);
    ExpectSet(note);
    EXPECT_EQ(note.fraAlarm.caption(), " Alarm Set ");
    user->Choose(note.mnuAlarmStop);
    ExpectNotSet(note);
    EXPECT_EQ(note.fraAlarm.caption(), " Schedule Alarm ");
}

TEST_F(frmNoteAlarmTest, StartAlarmOnASetAlarmShowsItsBoxAndChangesNothing) {
    const Note record = Note("Dentist", "").WithAlarm();
    frmNote& note = OpenThroughPanel(record);
    ExpectInformation("    Alarm Already Started     ");
    user->Choose(note.mnuAlarmStart);
    ExpectSet(note);
    // Nothing has changed, so closing asks nothing.
    user->CloseBox(note);
    EXPECT_EQ(Saved("Dentist"), record);
}

TEST_F(frmNoteAlarmTest, StopAlarmWithoutAnAlarmShowsItsBoxAndChangesNothing) {
    const auto record = Note("Dentist", "");
    frmNote& note = OpenThroughPanel(record);
    ExpectInformation("   Alarm Not Set              ");
    user->Choose(note.mnuAlarmStop);
    ExpectNotSet(note);
    EXPECT_EQ(note.fraAlarm.caption(), "Schedule Alarm");
    user->CloseBox(note);
    EXPECT_EQ(Saved("Dentist"), record);
}

TEST_F(frmNoteAlarmTest, AfterFiringTheFrameReadsAlarmSetUntilTheNextSetOrClear) {
    SetNow(2004, 5, 14, 11, 59, 59);
    frmNote& note = SetFor("Dentist", today, DateTime::FromTime(12, 0, 0));
    Advance(1900);
    EXPECT_EQ(note.cmdAlarm.caption(), "&Set Alarm");
    EXPECT_EQ(note.fraAlarm.caption(), " Alarm Set ");
    user->Click(note.cmdAlarm);
    EXPECT_EQ(note.fraAlarm.caption(), " Alarm Set ");
    user->Click(note.cmdAlarm);
    EXPECT_EQ(note.fraAlarm.caption(), " Schedule Alarm ");
}

TEST_F(frmNoteAlarmTest, WithoutAudioFiringOnlyBringsTheWindowUp) {
    SetNow(2004, 5, 14, 11, 59, 59);
    Shared().AlarmSoundPath = "C:\\Sounds\\bell.wav";
    settings.values[{"Options", "NoteLoops"}] = "1";
    frmNote& note = SetFor("Dentist", today, DateTime::FromTime(12, 0, 0));
    user->Minimize(note);
    Advance(1900);
    EXPECT_EQ(note.windowState(), WindowState::Normal);
    EXPECT_EQ(stage->Foreground(), &note);
    EXPECT_TRUE(stage->Boxes().empty());
    EXPECT_TRUE(sound.log.empty());
}

TEST_F(frmNoteAlarmTest, FiresInItsSecond) {
    SetNow(2004, 5, 14, 11, 59, 58);
    frmNote& note = SetFor("Dentist", today, DateTime::FromTime(12, 0, 0));
    user->Minimize(note);
    Advance(1999);
    ExpectSet(note);
    EXPECT_EQ(note.windowState(), WindowState::Minimized);
    Advance(1001);
    ExpectNotSet(note);
    EXPECT_EQ(note.windowState(), WindowState::Normal);
    EXPECT_TRUE(note.IsVisible());
    EXPECT_EQ(stage->Foreground(), &note);
    EXPECT_EQ(note.fraAlarm.caption(), " Alarm Set ");
    EXPECT_FALSE(note.mnuShow.enabled());
    EXPECT_TRUE(note.mnuHide.enabled());
    EXPECT_TRUE(sound.log.empty());
    EXPECT_FALSE(FileOf("Dentist").has_value());
}

TEST_F(frmNoteAlarmTest, FiresInAnySecondOfTheMinute) {
    for (int second = 0; second < 60; ++second) {
        SetNow(2004, 5, 14, 11, 59, second);
        frmNote& note = MakeNote("Second " + std::to_string(second));
        const DateTime due{DateTime::FromTime(11, 59, second).seconds + 7};
        Start([&] { note.dtTime.value = due; });
        user->Click(note.cmdAlarm);
        Advance(6999);
        EXPECT_EQ(note.cmdAlarm.caption(), "&Turn Off Alarm") << second;
        Advance(1000);
        EXPECT_EQ(note.cmdAlarm.caption(), "&Set Alarm") << second;
        user->CloseBox(note);
    }
}

TEST_F(frmNoteAlarmTest, AnAlarmInThePastNeverFires) {
    frmNote& note = SetFor("Dentist", today, DateTime::FromTime(8, 59, 0));
    Advance(60'000);
    ExpectSet(note);
    SetNow(2004, 5, 15, 8, 58, 58);
    Advance(4000);
    ExpectSet(note);
}

TEST_F(frmNoteAlarmTest, AnAlarmDuringSleepIsMissed) {
    SetNow(2004, 5, 14, 11, 59, 0);
    frmNote& note = SetFor("Dentist", today, DateTime::FromTime(12, 0, 0));
    clock.Suspend(3600);
    Advance(60'000);
    ExpectSet(note);
    SetNow(2004, 5, 15, 11, 59, 58);
    Advance(4000);
    ExpectSet(note);
}

TEST_F(frmNoteAlarmTest, ADateOfTheLastCenturyMatchesByTheTwoDigitsOfItsYear) {
    SetNow(2004, 5, 14, 11, 59, 59);
    frmNote& note =
        SetFor("Dentist", DateTime::FromDate(1904, 5, 14), DateTime::FromTime(12, 0, 0));
    Advance(1900);
    ExpectNotSet(note);
}

TEST_F(frmNoteAlarmTest, AnotherDayDoesNotFire) {
    SetNow(2004, 5, 14, 11, 59, 59);
    frmNote& note =
        SetFor("Dentist", DateTime::FromDate(2004, 5, 15), DateTime::FromTime(12, 0, 0));
    Advance(5000);
    ExpectSet(note);
    SetNow(2004, 5, 15, 11, 59, 58);
    Advance(4000);
    ExpectNotSet(note);
}

TEST_F(frmNoteAlarmTest, WithAudioTheSoundLoopsUntilItsBoxIsAnswered) {
    SetNow(2004, 5, 14, 11, 59, 59);
    Shared().AlarmSoundPath = "C:\\Sounds\\bell.wav";
    settings.values[{"Options", "NoteLoops"}] = "0";
    frmNote& note = SetFor("Dentist", today, DateTime::FromTime(12, 0, 0));
    user->Click(note.chkAudioAlarm);
    EXPECT_TRUE(note.imgBell.visible());
    ExpectEditorAlarm([&] {
        EXPECT_TRUE(sound.IsPlaying());
        EXPECT_EQ(note.cmdAlarm.caption(), "&Set Alarm");
        EXPECT_EQ(note.chkAudioAlarm.value(), 1);
        Advance(60'000);
        EXPECT_TRUE(sound.IsPlaying());
        EXPECT_EQ(note.lblSysTime.caption(), "System Date and Time is \r\n5/14/2004 12:00:59 PM.");
    });
    Advance(1900);
    ASSERT_EQ(sound.log.size(), 2U);
    EXPECT_EQ(sound.log[0].kind, RecordedSound::Kind::Loop);
    EXPECT_EQ(sound.log[0].path, "C:\\Sounds\\bell.wav");
    EXPECT_EQ(sound.log[1].kind, RecordedSound::Kind::Stop);
    EXPECT_EQ(note.chkAudioAlarm.value(), 0);
    EXPECT_FALSE(note.imgBell.visible());
    EXPECT_FALSE(Shared().AlarmSounding);
}

TEST_F(frmNoteAlarmTest, TheSecondOfTwoAlarmsRingsEvenIfTheBoxOfTheFirstOpensSlowly) {
    SetNow(2004, 5, 14, 11, 59, 50);
    frmNote& first = SetFor("Dentist", today, DateTime::FromTime(12, 0, 0));
    user->Click(first.chkAudioAlarm);
    frmNote& other = SetFor("Rent", today, DateTime::FromTime(12, 0, 0));
    ExpectEditorAlarm([&] {
        clock.Pass(1200);
        Advance(1);
        ExpectNotSet(other);
    });
    Advance(12'000);
    ExpectNotSet(first);
}

TEST_F(frmNoteAlarmTest, FiringRemovesTheMarkerOfARestoredAlarm) {
    SetNow(2004, 5, 14, 11, 59, 58);
    PutNote(Note("Dentist", "").WithAlarm());
    Start(StandardCode::ReadNotes);
    frmNote& note = Editor("Dentist");
    EXPECT_TRUE(note.imgAlarm.visible());
    Advance(3000);
    EXPECT_FALSE(note.imgAlarm.visible());
    ExpectNotSet(note);
}

TEST_F(frmNoteAlarmTest, TurningItOffRemovesTheMarkerOfARestoredAlarm) {
    frmNote& note = OpenThroughPanel(Note("Dentist", "").WithAlarm());
    ASSERT_TRUE(note.imgAlarm.visible());
    user->Click(note.cmdAlarm);
    EXPECT_FALSE(note.imgAlarm.visible());
    ExpectNotSet(note);
}

TEST_F(frmNoteAlarmTest, ANoteThatIsRestoredInTheSecondOfItsAlarmFires) {
    SetNow(2004, 5, 14, 12, 0, 0);
    PutNote(Note("Dentist", "").WithAlarm());
    Start(StandardCode::ReadNotes);
    Advance(999);
    ExpectNotSet(Editor("Dentist"));
}

TEST_F(frmNoteAlarmTest, FiringIsNoChange) {
    SetNow(2004, 5, 14, 11, 59, 58);
    frmNote& note = OpenThroughPanel(Note("Dentist", "").WithAlarm());
    Advance(3000);
    ExpectNotSet(note);
    user->CloseBox(note);
    EXPECT_EQ(Saved("Dentist").AlarmState, "1");
}

TEST_F(frmNoteAlarmTest, UncheckingTheAudioBoxAfterFiringIsNoChange) {
    SetNow(2004, 5, 14, 11, 59, 58);
    frmNote& note = OpenThroughPanel(Note("Dentist", "").WithAlarm().WithSound());
    ExpectEditorAlarm();
    Advance(3000);
    EXPECT_EQ(note.chkAudioAlarm.value(), 0);
    user->CloseBox(note);
    EXPECT_EQ(Saved("Dentist").AudioAlarm, 1);
}

TEST_F(frmNoteAlarmTest, ClosingEndsTheAlarm) {
    SetNow(2004, 5, 14, 11, 59, 58);
    frmNote& note = SetFor("Dentist", today, DateTime::FromTime(12, 0, 0));
    Start([&note] { note.chkAudioAlarm.value = 1; });
    user->CloseBox(note);
    EXPECT_EQ(Saved("Dentist").AlarmState, "1");
    Advance(5000);
    EXPECT_TRUE(sound.log.empty());
}

TEST_F(frmNoteAlarmTest, TwoNotesFireInOneSecond) {
    SetNow(2004, 5, 14, 11, 59, 58);
    frmNote& first = SetFor("First", today, DateTime::FromTime(12, 0, 0));
    frmNote& second = SetFor("Second", today, DateTime::FromTime(12, 0, 0));
    Start([&] {
        first.chkAudioAlarm.value = 1;
        second.chkAudioAlarm.value = 1;
    });
    ExpectEditorAlarm([&] {
        ExpectEditorAlarm([&] { ExpectNotSet(first); });
        Advance(1000);
    });
    Advance(3000);
    ExpectNotSet(first);
    ExpectNotSet(second);
    EXPECT_FALSE(sound.IsPlaying());
}

TEST_F(frmNoteAlarmTest, TheClockBlinksOnlyForTheAlarmOfTheDefaultEditor) {
    frmNote& note = SetFor("Dentist", today, DateTime::FromTime(12, 0, 0));
    Advance(3000);
    EXPECT_EQ(note.lblClock.caption(), "12:00:00 PM");
    EXPECT_FALSE(Shared().BlinkPhase);
    user->Click(note.cmdAlarm);
    Start([] { forms::Default<frmNote>().alarm.Restore(NoteAlarm::Icon()); });
    Advance(750);
    EXPECT_TRUE(Shared().BlinkPhase);
    EXPECT_EQ(note.lblClock.caption(), "****");
    Advance(750);
    EXPECT_FALSE(Shared().BlinkPhase);
    EXPECT_EQ(note.lblClock.caption(), "");
}

TEST_F(frmNoteAlarmTest, AllNotesBlinkTogether) {
    frmNote& first = MakeNote("First");
    frmNote& second = MakeNote("Second");
    Start([] { forms::Default<frmNote>().alarm.Restore(NoteAlarm::Icon()); });
    Advance(750);
    EXPECT_FALSE(Shared().BlinkPhase);
    EXPECT_NE(first.lblClock.caption(), second.lblClock.caption());
}

TEST_F(frmNoteAlarmTest, TheBellShowsWhileTheAudioAlarmIsOn) {
    frmNote& note = MakeNote("Dentist");
    user->Click(note.chkAudioAlarm);
    EXPECT_TRUE(note.imgBell.visible());
    user->Click(note.chkAudioAlarm);
    EXPECT_FALSE(note.imgBell.visible());
}

TEST_F(frmNoteAlarmTest, AMissingAlarmIconIsReported) {
    frmNote& note = MakeNote("Dentist", "text");
    files.Remove("C:\\Jotwright\\alarmon.ico");
    ExpectRunTimeError(53, "File not found");
    user->Click(note.cmdAlarm);
    EXPECT_TRUE(runtime->HasEnded());
}

}  // namespace
