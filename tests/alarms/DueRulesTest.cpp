#include <gtest/gtest.h>

#include "alarms/DueRules.h"
#include "tests/support/Note.h"
#include "tests/support/RuleDevices.h"

namespace {

using base::DateTime;
using DueRules::AlarmValues;
using DueRules::ComparisonText;
using DueRules::IsEditorAlarmDue;
using DueRules::IsSavedNoteDue;
using StandardCode::NoteRecord;

const DateTime friday = DateTime::FromDate(2004, 5, 14);
const DateTime halfPastNine = DateTime::FromTime(9, 30, 0);

DateTime At(DateTime day, int hour, int minute, int second) {
    return Combine(day, DateTime::FromTime(hour, minute, second));
}

class DueRulesTest : public testing::Test, protected testing_support::RuleDevices {
  protected:
    static NoteRecord DueOn(DateTime date, DateTime time) {
        return testing_support::Note("Dentist").On(date).WithAlarmAt(time);
    }
};

TEST_F(DueRulesTest, ValuesOfThePickers) {
    const AlarmValues values = DueRules::ValuesOf(At(friday, 1, 2, 3), At(friday, 9, 30, 0));
    EXPECT_EQ(values.AlarmDayLong, friday);
    EXPECT_EQ(values.AlarmDayShort, friday);
    EXPECT_EQ(values.AlarmTimeOfDay, halfPastNine);
}

TEST_F(DueRulesTest, ShortDayIsReadFromATwoDigitYear) {
    EXPECT_EQ(DueRules::ValuesOf(DateTime::FromDate(2029, 2, 3), {}).AlarmDayShort,
              DateTime::FromDate(2029, 2, 3));
    EXPECT_EQ(DueRules::ValuesOf(DateTime::FromDate(2030, 2, 3), {}).AlarmDayShort,
              DateTime::FromDate(1930, 2, 3));
    EXPECT_EQ(DueRules::ValuesOf(DateTime::FromDate(1904, 2, 29), {}).AlarmDayShort,
              DateTime::FromDate(2004, 2, 29));
    EXPECT_EQ(DueRules::ValuesOf(DateTime::FromDate(2030, 2, 3), {}).AlarmDayLong,
              DateTime::FromDate(2030, 2, 3));
}

TEST_F(DueRulesTest, LeapDaysOfAllYearsHaveAShortForm) {
    for (int year = 104; year <= 9996; year += 4) {
        if (DateTime::IsValidDate(year, 2, 29)) {
            EXPECT_EQ(DueRules::ValuesOf(DateTime::FromDate(year, 2, 29), {}).AlarmDayShort.Day(),
                      29);
        }
    }
}

TEST_F(DueRulesTest, EditorAlarmIsDueInItsSecondOnly) {
    const AlarmValues values = DueRules::ValuesOf(friday, halfPastNine);
    EXPECT_TRUE(IsEditorAlarmDue(values, At(friday, 9, 30, 0)));
    EXPECT_FALSE(IsEditorAlarmDue(values, At(friday, 9, 29, 59)));
    EXPECT_FALSE(IsEditorAlarmDue(values, At(friday, 9, 30, 1)));
    EXPECT_FALSE(IsEditorAlarmDue(values, At(friday, 21, 30, 0)));
    EXPECT_FALSE(IsEditorAlarmDue(values, At(DateTime::FromDate(2004, 5, 15), 9, 30, 0)));
}

TEST_F(DueRulesTest, EditorAlarmAtNoonAndMidnight) {
    EXPECT_TRUE(IsEditorAlarmDue(DueRules::ValuesOf(friday, DateTime::FromTime(12, 0, 0)),
                                 At(friday, 12, 0, 0)));
    EXPECT_TRUE(IsEditorAlarmDue(DueRules::ValuesOf(friday, {}), friday));
}

TEST_F(DueRulesTest, EditorAlarmMatchesEitherDay) {
    const AlarmValues values = DueRules::ValuesOf(DateTime::FromDate(1904, 5, 14), halfPastNine);
    EXPECT_TRUE(IsEditorAlarmDue(values, At(friday, 9, 30, 0)));
    EXPECT_TRUE(IsEditorAlarmDue(values, At(DateTime::FromDate(1904, 5, 14), 9, 30, 0)));
    EXPECT_FALSE(IsEditorAlarmDue(values, At(DateTime::FromDate(1804, 5, 14), 9, 30, 0)));
}

TEST_F(DueRulesTest, EditorAlarmMayRingSoonInItsLastSecondsOfAnyDay) {
    const DueRules::AlarmValues values = DueRules::ValuesOf(friday, DateTime::FromTime(0, 0, 1));
    EXPECT_FALSE(DueRules::MayRingSoon(values, At(friday, 23, 59, 57)));
    EXPECT_TRUE(DueRules::MayRingSoon(values, At(friday, 23, 59, 58)));
    EXPECT_TRUE(DueRules::MayRingSoon(values, At(friday, 0, 0, 0)));
    EXPECT_TRUE(DueRules::MayRingSoon(values, At(friday, 0, 0, 1)));
    EXPECT_FALSE(DueRules::MayRingSoon(values, At(friday, 0, 0, 2)));
    EXPECT_FALSE(DueRules::MayRingSoon(values, At(friday, 12, 0, 1)));
    EXPECT_TRUE(DueRules::MayRingSoon(values, At(DateTime::FromDate(1850, 1, 1), 0, 0, 0)));
}

TEST_F(DueRulesTest, SavedNoteIsDueInItsSecondOnly) {
    const NoteRecord note = DueOn(friday, halfPastNine);
    EXPECT_TRUE(IsSavedNoteDue(note, At(friday, 9, 30, 0)));
    EXPECT_FALSE(IsSavedNoteDue(note, At(friday, 9, 29, 59)));
    EXPECT_FALSE(IsSavedNoteDue(note, At(friday, 9, 30, 1)));
    EXPECT_FALSE(IsSavedNoteDue(note, At(DateTime::FromDate(2004, 5, 13), 9, 30, 0)));
}

TEST_F(DueRulesTest, SavedNoteIsDueInEveryYear) {
    for (const int year : {1999, 2029, 2030, 2031, 2099}) {
        const DateTime day = DateTime::FromDate(year, 6, 1);
        EXPECT_TRUE(IsSavedNoteDue(DueOn(day, halfPastNine), At(day, 9, 30, 0))) << year;
    }
}

TEST_F(DueRulesTest, OnlyAlarmStateOneIsLookedAt) {
    for (const char* state : {"0", "", "2", " 1", "yes"}) {
        NoteRecord note = DueOn(friday, halfPastNine);
        note.AlarmState = state;
        EXPECT_FALSE(IsSavedNoteDue(note, At(friday, 9, 30, 0))) << state;
    }
}

TEST_F(DueRulesTest, SavedDateWithATimeOrSavedTimeWithADateIsNeverDue) {
    EXPECT_FALSE(IsSavedNoteDue(DueOn(At(friday, 9, 30, 0), halfPastNine), At(friday, 9, 30, 0)));
    EXPECT_FALSE(IsSavedNoteDue(DueOn(friday, At(friday, 9, 30, 0)), At(friday, 9, 30, 0)));
}

TEST_F(DueRulesTest, ComparisonTextIsOdd) {
    EXPECT_EQ(ComparisonText(friday), "5/14/04");
    EXPECT_EQ(ComparisonText(DateTime::FromDate(2004, 12, 25)), "12/2504");
    EXPECT_EQ(ComparisonText(DateTime::FromDate(2004, 1, 2)), "1/2/204");
    EXPECT_EQ(ComparisonText(DateTime::FromDate(2004, 12, 5)), "12/5/04");
}

TEST_F(DueRulesTest, ComparisonTextEndsWithTheEndOfTheShortDate) {
    locale.shortDateFormat = "yyyy-MM-dd";
    EXPECT_EQ(ComparisonText(friday), "5/14/14");
    locale.shortDateFormat = "yyyy'\xe5\xb9\xb4'M'\xe6\x9c\x88'd'\xe6\x97\xa5'";
    EXPECT_EQ(ComparisonText(friday), "5/14/4\xe6\x97\xa5");
    locale.shortDateFormat = "d";
    EXPECT_EQ(ComparisonText(DateTime::FromDate(2004, 12, 5)), "12/5/5");
}

TEST_F(DueRulesTest, ComparisonTextMatchesAnotherCenturyWithShortYears) {
    const NoteRecord old = DueOn(DateTime::FromDate(1904, 5, 14), halfPastNine);
    EXPECT_FALSE(IsSavedNoteDue(old, At(friday, 9, 30, 0)));
    locale.shortDateFormat = "M/d/yy";
    EXPECT_TRUE(IsSavedNoteDue(old, At(friday, 9, 30, 0)));
    EXPECT_FALSE(IsSavedNoteDue(old, At(friday, 9, 30, 1)));
    EXPECT_FALSE(IsSavedNoteDue(DueOn(DateTime::FromDate(1904, 12, 25), halfPastNine),
                                At(DateTime::FromDate(2004, 12, 25), 9, 30, 0)));
}

}  // namespace
