#include <gtest/gtest.h>

#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "tests/alarms/SpecialAlarmsProgram.h"

// Damaged files, messages of every kind, and disks that refuse a save.

namespace {

using namespace std::string_literals;
using StandardCode::Shared;
using frmSpecialAlarmsBadInputTest = testing_support::SpecialAlarmsProgram;

TEST_F(frmSpecialAlarmsBadInputTest, AFileOfFewerRowsIsReportedAndRepairedBySaving) {
    PutFile("\"Friday\",#17:30:00#,\"Pay the rent\",1\r\n", 5);
    ExpectReadError("62 - Input past end of file");
    Open();
    ASSERT_FALSE(runtime->HasEnded());
    EXPECT_EQ(Window().cboDays[0].Text(), "Friday");
    EXPECT_EQ(Window().txtMessage[0].text(), "Pay the rent");
    EXPECT_EQ(Window().cboDays[6].Text(), "Monday");
    EXPECT_EQ(Shared().SpecialAlarmMessage[0], "Pay the rent");
    EXPECT_FALSE(Window().cmdSave.enabled());
    user->Type(Window().txtMessage[6], "last");
    user->Click(Window().cmdSave);
    EXPECT_EQ(files.Peek(path), "\"Friday\",#17:30:00#,\"Pay the rent\",1\r\n" + emptyRow +
                                    emptyRow + emptyRow + emptyRow + emptyRow +
                                    "\"Monday\",#00:00:00#,\"last\",0\r\n");
    Open();
}

TEST_F(frmSpecialAlarmsBadInputTest, AnEmptyFileIsReported) {
    files.PutFile(path, "");
    ExpectReadError("62 - Input past end of file");
    Open();
    ASSERT_TRUE(IsOpen());
    EXPECT_EQ(Window().cboDays[0].Text(), "Monday");
    EXPECT_EQ(Window().chkEnabled[0].value(), 0);
}

TEST_F(frmSpecialAlarmsBadInputTest, LinesAfterTheSeventhAreNotRead) {
    PutFile("", 7);
    files.PutFile(path, *files.Peek(path) + "\"Friday\",#noon#,\"no row\"\r\n");
    Open();
    EXPECT_TRUE(IsOpen());
}

TEST_F(frmSpecialAlarmsBadInputTest, RowsBehindADamagedOneAreShownAsTheyWereLoaded) {
    PutFile("\"Friday\",#17:30:00#,\"first\",1\r\n\"Sunday\",#08:00:00#,\"second\",1\r\n", 5);
    Start(StandardCode::LoadSpecialAlarms);
    PutFile("\"Tuesday\",#09:00:00#,\"new\",1\r\n\"Sunday\",#eight#,\"lost\",1\r\n", 5);
    ExpectReadError("13 - Type mismatch");
    Open();
    EXPECT_EQ(Window().txtMessage[0].text(), "new");
    EXPECT_EQ(Shared().SpecialAlarmMessage[0], "new");
    EXPECT_EQ(Window().cboDays[1].Text(), "Sunday");
    EXPECT_EQ(Window().dtpTime[1].value(), base::DateTime::FromTime(8, 0, 0));
    EXPECT_EQ(Window().txtMessage[1].text(), "second");
    EXPECT_EQ(Window().chkEnabled[1].value(), 1);
    EXPECT_EQ(Shared().SpecialAlarmMessage[1], "second");
}

TEST_F(frmSpecialAlarmsBadInputTest, AFailedSaveKeepsTheOldFileAndTheWindow) {
    PutFile("\"Friday\",#17:30:00#,\"old\",1\r\n", 6);
    const auto before = files.Peek(path);
    Open();
    user->Type(Window().txtMessage[0], "new");
    files.SetFreeSpace(0);
    ExpectWriteError("61 - Disk full");
    user->Click(Window().cmdSave);
    ASSERT_FALSE(runtime->HasEnded());
    ASSERT_TRUE(IsOpen());
    EXPECT_EQ(files.Peek(path), before);
    EXPECT_EQ(Window().txtMessage[0].text(), "new");
    EXPECT_EQ(Shared().SpecialAlarmMessage[0], "old");

    files.SetFreeSpace(std::nullopt);
    EXPECT_TRUE(Window().cmdSave.enabled());
    user->Click(Window().cmdSave);
    EXPECT_FALSE(IsOpen());
    EXPECT_TRUE(files.Peek(path)->starts_with("\"Friday\",#17:30:00#,\"new\",1\r\n"));
    EXPECT_EQ(Shared().SpecialAlarmMessage[0], "new");
}

TEST_F(frmSpecialAlarmsBadInputTest, AnErrorAtAnyStepOfASaveIsReportedAndTheNextSaveWorks) {
    using base::ErrorNumber;
    int saves = 0;
    int failures = 0;
    for (const bool withFile : {true, false}) {
        for (const ErrorNumber error :
             {ErrorNumber::DiskFull, ErrorNumber::PermissionDenied, ErrorNumber::PathNotFound,
              ErrorNumber::PathFileAccessError, ErrorNumber::DeviceIoError}) {
            bool reachedEnd = false;
            for (int step = 1; !reachedEnd; ++step) {
                SCOPED_TRACE("step " + std::to_string(step) + ": " + DescriptionOf(error));
                ASSERT_LT(step, 20);
                files.Remove(path);
                if (withFile) {
                    PutFile("\"Friday\",#17:30:00#,\"old\",1\r\n", 6);
                }
                Start(StandardCode::LoadSpecialAlarms);
                const auto before = files.Peek(path);
                const std::string known = Shared().SpecialAlarmMessage[0];
                Open();
                user->Type(Window().txtMessage[0], "new");
                std::vector<forms::BoxRequest> reports;
                stage->improvise.box = [&reports](const forms::BoxRequest& box) {
                    reports.push_back(box);
                    return forms::BoxResult::Ok;
                };
                files.FailAt(step, error);
                user->Click(Window().cmdSave);
                reachedEnd = files.Steps() < step;
                files.ClearFaults();
                if (IsOpen()) {
                    ++failures;
                    ASSERT_EQ(reports.size(), 1U);
                    EXPECT_EQ(reports[0].caption, "Error Saving Special Alarms");
                    EXPECT_EQ(reports[0].text, std::to_string(static_cast<int>(error)) + " - " +
                                                   DescriptionOf(error) +
                                                   "\r\n\r\nThe special alarms have not been "
                                                   "saved.");
                    EXPECT_EQ(files.Peek(path), before);
                    EXPECT_EQ(Shared().SpecialAlarmMessage[0], known);
                    EXPECT_EQ(Window().txtMessage[0].text(), "new");
                    user->Click(Window().cmdSave);
                }
                ++saves;
                EXPECT_FALSE(IsOpen());
                EXPECT_EQ(Shared().SpecialAlarmMessage[0], "new");
                EXPECT_NE(files.Peek(path).value_or("").find("\"new\""), std::string::npos);
                EXPECT_EQ(files.Names("C:\\Jotwright\\SpecialAlarms").size(), 1U);
                Shared().SpecialAlarmMessage[0] = "none";
            }
        }
    }
    EXPECT_GT(failures, 30);
    EXPECT_GT(saves, failures);
}

TEST_F(frmSpecialAlarmsBadInputTest, ReadingWaitsForAFileThatIsInUseForAMoment) {
    PutFile("\"Friday\",#17:30:00#,\"old\",1\r\n", 6);
    for (const bool isWindow : {false, true}) {
        files.SetDenied(path, true);
        int pauses = 0;
        system.onPause = [&] {
            if (++pauses == 5) {
                files.SetDenied(path, false);
            }
        };
        Shared().SpecialAlarmMessage[0].clear();
        if (isWindow) {
            Open();
            EXPECT_EQ(Window().txtMessage[0].text(), "old");
        } else {
            Start(StandardCode::LoadSpecialAlarms);
        }
        EXPECT_EQ(Shared().SpecialAlarmMessage[0], "old") << isWindow;
        EXPECT_EQ(pauses, 5);
    }
}

TEST_F(frmSpecialAlarmsBadInputTest, AFileThatWasNotShownIsPutAsideBeforeASaveReplacesIt) {
    const std::string folder = "C:\\Jotwright\\SpecialAlarms";
    for (const bool hasBin : {true, false}) {
        files.SetRecycleBin(hasBin);
        PutFile("\"Friday\",#17:30:00#,\"old\",1\r\n", 6);
        const auto before = files.Peek(path);
        files.SetDenied(path, true);
        ExpectReadError("70 - Permission denied");
        Open();
        files.SetDenied(path, false);
        const std::string message = hasBin ? "first" : "second";
        user->Type(Window().txtMessage[1], message);
        user->Click(Window().cmdSave);
        EXPECT_FALSE(IsOpen());
        EXPECT_NE(files.Peek(path).value_or("").find(message), std::string::npos);
        EXPECT_EQ(hasBin ? files.RecycledBytes().at(0) : files.Peek(path + ".replaced"), before);
    }
    EXPECT_EQ(files.Names(folder).size(), 2U);
}

TEST_F(frmSpecialAlarmsBadInputTest, AFileThatAnotherProgramChangedMeanwhileIsPutAside) {
    PutFile("\"Friday\",#17:30:00#,\"old\",1\r\n", 6);
    Open();
    user->Type(Window().txtMessage[0], "new");
    PutFile("\"Friday\",#17:30:00#,\"by another program\",1\r\n", 6);
    const auto before = files.Peek(path);
    user->Click(Window().cmdSave);
    EXPECT_FALSE(IsOpen());
    EXPECT_EQ(files.RecycledBytes(), std::vector<std::string>{before.value_or("")});
    // This program has shown and saved the present contents, so the next save replaces them without
    // putting them aside.
    Open();
    user->Type(Window().txtMessage[0], "newer");
    user->Click(Window().cmdSave);
    EXPECT_EQ(files.RecycledBytes().size(), 1U);
}

// The error is reported until the user has removed its cause.
TEST_F(frmSpecialAlarmsBadInputTest, ASaveErrorIsReportedEachTime) {
    struct Condition {
        std::function<void(bool)> set;
        std::string report;
    };
    const std::string folder = "C:\\Jotwright\\SpecialAlarms";
    const std::vector<Condition> conditions{
        {[&](bool on) { files.SetFreeSpace(on ? std::optional<std::uint64_t>(0) : std::nullopt); },
         "61 - Disk full"},
        {[&](bool on) { files.SetDenied(path, on); }, "70 - Permission denied"},
        {[&](bool on) { files.SetReadOnly(path, on); }, "75 - Path/File access error"},
        {[&](bool on) { files.SetReadOnly(folder, on); }, "75 - Path/File access error"},
        {[&](bool on) { files.SetDenied(folder, on); }, "70 - Permission denied"},
    };
    for (const Condition& condition : conditions) {
        SCOPED_TRACE(condition.report);
        PutFile("\"Friday\",#17:30:00#,\"old\",1\r\n", 6);
        Open();
        user->Type(Window().txtMessage[0], "new");
        condition.set(true);
        for (int times = 1; times <= 2; ++times) {
            ExpectWriteError(condition.report);
            user->Click(Window().cmdSave);
            ASSERT_TRUE(IsOpen());
            EXPECT_EQ(Window().txtMessage[0].text(), "new");
            EXPECT_EQ(Shared().SpecialAlarmMessage[0], "old");
        }
        condition.set(false);
        user->Click(Window().cmdSave);
        EXPECT_FALSE(IsOpen());
        EXPECT_EQ(Shared().SpecialAlarmMessage[0], "new");
    }
}

TEST_F(frmSpecialAlarmsBadInputTest, AMissingFolderIsMadeAgain) {
    PutFile("\"Friday\",#17:30:00#,\"old\",1\r\n", 6);
    Open();
    user->Type(Window().txtMessage[0], "new");
    files.Remove(path);
    files.Remove("C:\\Jotwright\\SpecialAlarms");
    user->Click(Window().cmdSave);
    EXPECT_FALSE(IsOpen());
    EXPECT_TRUE(files.Peek(path)->starts_with("\"Friday\",#17:30:00#,\"new\",1\r\n"));
}

TEST_F(frmSpecialAlarmsBadInputTest, AFolderThatCannotBeMadeIsReported) {
    files.PutFile("C:\\Jotwright\\SpecialAlarms", "a file");
    Open();
    user->Type(Window().txtMessage[0], "new");
    ExpectWriteError("75 - Path/File access error");
    user->Click(Window().cmdSave);
    ASSERT_FALSE(runtime->HasEnded());
    EXPECT_EQ(Window().txtMessage[0].text(), "new");
    EXPECT_EQ(files.Peek("C:\\Jotwright\\SpecialAlarms"), "a file");
}

TEST_F(frmSpecialAlarmsBadInputTest, MessagesOfAnyKindComeBackWhole) {
    const std::vector<std::string> messages{
        std::string(65536, 'x'),
        "tab\tand , comma",
        "\xf0\x9f\x98\x80 \xd7\xa9\xd7\x9c\xd7\x95\xd7\x9d e\xcc\x81",
        "  blanks  ",
        "#12:00#",
        "two\r\nlines",
        "'single'",
    };
    Open();
    for (std::size_t row = 0; row < messages.size(); ++row) {
        user->Type(Window().txtMessage[row], messages[row]);
    }
    user->Click(Window().cmdSave);
    Restart();
    Start(StandardCode::LoadSpecialAlarms);
    Open();
    for (std::size_t row = 0; row < messages.size(); ++row) {
        EXPECT_EQ(Window().txtMessage[row].text(), messages[row]) << row;
        EXPECT_EQ(Shared().SpecialAlarmMessage[row], messages[row]) << row;
    }
}

TEST_F(frmSpecialAlarmsBadInputTest, TextAfterAZeroByteIsKept) {
    PutFile("\"Friday\",#17:30:00#,\"Pay\0the rent\",1\r\n"s, 6);
    Open();
    EXPECT_EQ(Window().txtMessage[0].text(), "Pay the rent");
    user->Click(Window().chkEnabled[6]);
    user->Click(Window().cmdSave);
    EXPECT_TRUE(files.Peek(path)->starts_with("\"Friday\",#17:30:00#,\"Pay the rent\",1\r\n"));
}

}  // namespace
