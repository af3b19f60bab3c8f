#include <gtest/gtest.h>

#include <string>

#include "tests/alarms/SpecialAlarmsProgram.h"

namespace {

using base::DateTime;
using StandardCode::Shared;

using frmSpecialAlarmsTest = testing_support::SpecialAlarmsProgram;

TEST_F(frmSpecialAlarmsTest, LoadsWithoutAFile) {
    Open();
    EXPECT_FALSE(Window().cmdSave.enabled());
    for (std::size_t i = 0; i < 7; ++i) {
        EXPECT_EQ(Window().cboDays[i].Text(), "Monday");
        EXPECT_EQ(Window().dtpTime[i].value(), DateTime{});
        EXPECT_EQ(Window().txtMessage[i].text(), "");
        EXPECT_EQ(Window().chkEnabled[i].value(), 0);
    }
}

TEST_F(frmSpecialAlarmsTest, LoadShowsTheFileAndRefreshesTheSharedRows) {
    PutFile("\"Friday\",#17:30:00#,\"Pay the rent\",1\r\n\"Sunday\",#08:05:30#,\"\",0\r\n", 5);
    Open();
    EXPECT_EQ(Window().cboDays[0].Text(), "Friday");
    EXPECT_EQ(Window().dtpTime[0].value(), DateTime::FromTime(17, 30, 0));
    EXPECT_EQ(Window().txtMessage[0].text(), "Pay the rent");
    EXPECT_EQ(Window().chkEnabled[0].value(), 1);
    EXPECT_EQ(Window().cboDays[1].Text(), "Sunday");
    EXPECT_EQ(Window().dtpTime[1].value(), DateTime::FromTime(8, 5, 30));
    EXPECT_EQ(Window().chkEnabled[1].value(), 0);
    EXPECT_FALSE(Window().cmdSave.enabled());
    EXPECT_EQ(Shared().SpecialAlarmDay[0], "Friday");
    EXPECT_EQ(Shared().SpecialAlarmTime[0], DateTime::FromTime(17, 30, 0));
    EXPECT_EQ(Shared().SpecialAlarmMessage[0], "Pay the rent");
    EXPECT_EQ(Shared().SpecialAlarmEnabled[0], 1);
}

TEST_F(frmSpecialAlarmsTest, AnUnknownDayKeepsTheDayOfTheRowBefore) {
    PutFile(
        "\"Freitag\",#00:00:00#,\"\",0\r\n\"Tuesday\",#00:00:00#,\"\",0\r\n"
        "\"tuesday\",#00:00:00#,\"\",0\r\n\"\",#00:00:00#,\"\",0\r\n",
        3);
    Open();
    EXPECT_EQ(Window().cboDays[0].Text(), "Monday");
    EXPECT_EQ(Window().cboDays[1].Text(), "Tuesday");
    EXPECT_EQ(Window().cboDays[2].Text(), "Tuesday");
    EXPECT_EQ(Window().cboDays[3].Text(), "Tuesday");
    EXPECT_EQ(Window().cboDays[4].Text(), "Monday");
    EXPECT_EQ(Shared().SpecialAlarmDay[0], "Freitag");
}

TEST_F(frmSpecialAlarmsTest, AStoredDateIsKeptForTheClockAndDroppedByThePicker) {
    PutFile("\"Friday\",#2004-05-14 17:30:00#,\"\",1\r\n", 6);
    Open();
    EXPECT_EQ(Window().dtpTime[0].value(), DateTime::FromTime(17, 30, 0));
    EXPECT_TRUE(Shared().SpecialAlarmTime[0].HasDate());
}

TEST_F(frmSpecialAlarmsTest, AnyMarkButOneIsUnchecked) {
    PutFile("\"Friday\",#17:30:00#,\"\",-1\r\n\"Friday\",#17:30:00#,\"\",2\r\n", 5);
    Open();
    EXPECT_EQ(Window().chkEnabled[0].value(), 0);
    EXPECT_EQ(Window().chkEnabled[1].value(), 0);
}

TEST_F(frmSpecialAlarmsTest, SavingAfterAFileCouldNotBeOpenedLosesNoAlarm) {
    PutFile("\"Friday\",#17:30:00#,\"Pay the rent\",1\r\n", 6);
    const auto before = files.Peek(path);
    Start(StandardCode::LoadSpecialAlarms);
    files.SetDenied(path, true);
    ExpectReadError("70 - Permission denied");
    Open();
    files.SetDenied(path, false);
    user->Click(Window().chkEnabled[6]);
    user->Click(Window().chkEnabled[6]);
    user->Click(Window().cmdSave);
    EXPECT_EQ(files.Peek(path), before);
}

TEST_F(frmSpecialAlarmsTest, TheFirstAndTheLastDateOfTheCalendarGiveTheirTime) {
    PutFile(
        "\"Friday\",#0100-01-01 17:30:00#,\"\",1\r\n"
        "\"Friday\",#9999-12-31 23:59:59#,\"\",1\r\n",
        5);
    Open();
    EXPECT_EQ(Window().dtpTime[0].value(), DateTime::FromTime(17, 30, 0));
    EXPECT_EQ(Window().dtpTime[1].value(), DateTime::FromTime(23, 59, 59));
}

TEST_F(frmSpecialAlarmsTest, EveryKindOfChangeEnablesSave) {
    Open();
    EXPECT_FALSE(Window().cmdSave.enabled());
    user->Select(Window().cboDays[0], "Monday");
    EXPECT_TRUE(Window().cmdSave.enabled()) << "the same day, chosen again";
    Window().cmdSave.enabled = false;
    user->Select(Window().cboDays[6], "Sunday");
    EXPECT_TRUE(Window().cmdSave.enabled());
    Window().cmdSave.enabled = false;
    user->Pick(Window().dtpTime[5], DateTime::FromTime(7, 0, 0));
    EXPECT_TRUE(Window().cmdSave.enabled());
    Window().cmdSave.enabled = false;
    user->Type(Window().txtMessage[4], "x");
    EXPECT_TRUE(Window().cmdSave.enabled());
    Window().cmdSave.enabled = false;
    user->Click(Window().chkEnabled[3]);
    EXPECT_TRUE(Window().cmdSave.enabled());
}

TEST_F(frmSpecialAlarmsTest, SaveWritesSevenLinesRefreshesTheSharedRowsAndCloses) {
    Open();
    SetRow(0, "Friday", DateTime::FromTime(17, 30, 0), true);
    user->Type(Window().txtMessage[0], "Pay the rent, now");
    SetRow(6, "Sunday", DateTime::FromTime(8, 0, 0), false);
    user->Click(Window().cmdSave);
    EXPECT_FALSE(IsOpen());
    EXPECT_EQ(files.Peek(path), "\"Friday\",#17:30:00#,\"Pay the rent, now\",1\r\n" + emptyRow +
                                    emptyRow + emptyRow + emptyRow + emptyRow +
                                    "\"Sunday\",#08:00:00#,\"\",0\r\n");
    EXPECT_EQ(Shared().SpecialAlarmDay[0], "Friday");
    EXPECT_EQ(Shared().SpecialAlarmTime[0], DateTime::FromTime(17, 30, 0));
    EXPECT_EQ(Shared().SpecialAlarmMessage[0], "Pay the rent, now");
    EXPECT_EQ(Shared().SpecialAlarmEnabled[0], 1);
    EXPECT_EQ(Shared().SpecialAlarmDay[6], "Sunday");
    EXPECT_EQ(Shared().SpecialAlarmEnabled[6], 0);
}

TEST_F(frmSpecialAlarmsTest, SavedAlarmsComeBack) {
    Open();
    SetRow(3, "Thursday", DateTime::FromTime(0, 0, 0), true);
    user->Type(Window().txtMessage[3], "M\xc3\xbcll \xe2\x80\x93 \xd0\x94\xd0\xb0");
    user->Click(Window().cmdSave);
    Restart();
    Open();
    EXPECT_EQ(Window().cboDays[3].Text(), "Thursday");
    EXPECT_EQ(Window().txtMessage[3].text(), "M\xc3\xbcll \xe2\x80\x93 \xd0\x94\xd0\xb0");
    EXPECT_EQ(Window().chkEnabled[3].value(), 1);
}

TEST_F(frmSpecialAlarmsTest, TabsCommasNumberSignsAndEmojiComeBack) {
    const std::string message =
        "  a\tb, #c# 'd' \xf0\x9f\x8e\x82\xf0\x9f\x91\xa9\xe2\x80\x8d\xf0\x9f\x92\xbb ";
    Open();
    user->Type(Window().txtMessage[0], message);
    SetRow(1, "Friday", DateTime::FromTime(9, 0, 0), true);
    user->Click(Window().cmdSave);
    EXPECT_EQ(Shared().SpecialAlarmMessage[0], message);
    Restart();
    Open();
    EXPECT_EQ(Window().txtMessage[0].text(), message);
    EXPECT_EQ(Window().cboDays[1].Text(), "Friday");
}

TEST_F(frmSpecialAlarmsTest, QuotesInMessagesAreKept) {
    const std::vector<std::string> messages{"Say \"hello\", please",
                                            "\"",
                                            "\",1",
                                            "a\",1,\"Tuesday\",#08:00:00#,\"b\",1",
                                            "x\" 1",
                                            "\",\"1\"",
                                            "\", "};
    Open();
    for (std::size_t row = 0; row < messages.size(); ++row) {
        user->Type(Window().txtMessage[row], messages[row]);
    }
    SetRow(6, "Friday", DateTime::FromTime(9, 0, 0), true);
    user->Click(Window().cmdSave);
    EXPECT_FALSE(IsOpen());
    const std::string saved = files.Peek(path).value_or("");
    EXPECT_TRUE(saved.starts_with("\"Monday\",#00:00:00#,\"Say \"hello\", please\",0\r\n"))
        << saved;
    Restart();
    Open();
    for (std::size_t row = 0; row < messages.size(); ++row) {
        EXPECT_EQ(Window().txtMessage[row].text(), messages[row]);
    }
    EXPECT_EQ(Window().cboDays[6].Text(), "Friday");
    user->Pick(Window().dtpTime[0], DateTime::FromTime(10, 0, 0));
    user->Click(Window().cmdSave);
    Open();
    for (std::size_t row = 0; row < messages.size(); ++row) {
        EXPECT_EQ(Window().txtMessage[row].text(), messages[row]);
    }
}

TEST_F(frmSpecialAlarmsTest, IdenticalEnabledRowsAreRefused) {
    Open();
    SetRow(1, "Friday", DateTime::FromTime(17, 30, 0), true);
    SetRow(4, "Friday", DateTime::FromTime(17, 30, 0), true);
    ExpectIdentical("2", "5");
    user->Click(Window().cmdSave);
    EXPECT_TRUE(IsOpen());
    EXPECT_TRUE(Window().cmdSave.enabled());
    EXPECT_FALSE(files.FileExists(path));
}

TEST_F(frmSpecialAlarmsTest, TheLastRowIsComparedToo) {
    Open();
    SetRow(6, "Friday", DateTime::FromTime(17, 30, 0), true);
    SetRow(2, "Friday", DateTime::FromTime(17, 30, 0), true);
    ExpectIdentical("3", "7");
    user->Click(Window().cmdSave);
    EXPECT_TRUE(IsOpen());
}

TEST_F(frmSpecialAlarmsTest, TheLastTwoRowsAreComparedToo) {
    Open();
    SetRow(5, "Friday", DateTime::FromTime(17, 30, 0), true);
    SetRow(6, "Friday", DateTime::FromTime(17, 30, 0), true);
    ExpectIdentical("6", "7");
    user->Click(Window().cmdSave);
    EXPECT_TRUE(IsOpen());
}

TEST_F(frmSpecialAlarmsTest, OfSeveralIdenticalPairsThePairThatEndsFirstIsNamed) {
    Open();
    SetRow(0, "Friday", DateTime::FromTime(17, 30, 0), true);
    SetRow(6, "Friday", DateTime::FromTime(17, 30, 0), true);
    SetRow(1, "Sunday", DateTime::FromTime(17, 30, 0), true);
    SetRow(3, "Sunday", DateTime::FromTime(17, 30, 0), true);
    // The search finds the pair of rows 1 and 7 only when it reaches row 7.
    ExpectIdentical("2", "4");
    user->Click(Window().cmdSave);
}

TEST_F(frmSpecialAlarmsTest, ADisabledRowMayShareDayAndTime) {
    Open();
    SetRow(1, "Friday", DateTime::FromTime(17, 30, 0), true);
    SetRow(4, "Friday", DateTime::FromTime(17, 30, 0), false);
    user->Click(Window().cmdSave);
    EXPECT_FALSE(IsOpen());
    EXPECT_TRUE(files.FileExists(path));
}

TEST_F(frmSpecialAlarmsTest, OtherDaysAndOtherTimesMayBeEnabledTogether) {
    Open();
    SetRow(0, "Friday", DateTime::FromTime(17, 30, 0), true);
    SetRow(1, "Saturday", DateTime::FromTime(17, 30, 0), true);
    SetRow(2, "Friday", DateTime::FromTime(17, 31, 0), true);
    user->Click(Window().cmdSave);
    EXPECT_FALSE(IsOpen());
}

TEST_F(frmSpecialAlarmsTest, CloseDiscardsWithoutAsking) {
    Open();
    user->Type(Window().txtMessage[0], "lost");
    user->Click(Window().cmdCancel);
    EXPECT_FALSE(IsOpen());
    EXPECT_FALSE(files.FileExists(path));
    EXPECT_EQ(Shared().SpecialAlarmMessage[0], "");
}

TEST_F(frmSpecialAlarmsTest, TabGoesAlongTheRows) {
    Open();
    EXPECT_EQ(Window().focus.ActiveControl(), &Window().chkEnabled[0]);
    user->PressTab();
    EXPECT_EQ(Window().focus.ActiveControl(), &Window().cboDays[0]);
    user->PressTab();
    user->PressTab();
    EXPECT_EQ(Window().focus.ActiveControl(), &Window().txtMessage[0]);
    user->PressTab();
    EXPECT_EQ(Window().focus.ActiveControl(), &Window().chkEnabled[1]);
}

}  // namespace
