#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <vector>

#include "alarms/SpecialAlarmsFile.h"
#include "tests/support/RuleDevices.h"

namespace {

using base::DateTime;
using SpecialAlarmsFile::Row;
using StandardCode::LoadSpecialAlarms;
using StandardCode::Shared;
using testing_support::ErrorOf;

class SpecialAlarmsFileTest : public testing::Test, protected testing_support::RuleDevices {
  protected:
    static std::array<Row, SpecialAlarmsFile::rowCount> Week() {
        return {{{"Monday", DateTime::FromTime(8, 0, 0), "Get up", 1},
                 {"Tuesday", DateTime{}, "", 0},
                 {"Wednesday", DateTime::FromTime(12, 0, 0), "Lunch, at last", 1},
                 {"Thursday", DateTime::FromTime(23, 59, 59), " ", 0},
                 {"Friday", DateTime::FromTime(17, 30, 0), "Pay the rent", 1},
                 {"Saturday", DateTime::FromTime(10, 0, 0), "#1", 0},
                 {"Sunday", DateTime::FromTime(9, 0, 0), "Rest", -1}}};
    }

    static std::vector<Row> Decoded(const std::string& bytes) {
        std::vector<Row> rows;
        SpecialAlarmsFile::Decode(bytes, rows);
        return rows;
    }

    static std::string Line(const std::string& day) {
        return "\"" + day + "\",#08:00:00#,\"m\",1\r\n";
    }

    void PutFile(const std::string& bytes) { files.PutFile(SpecialAlarmsFile::Path(), bytes); }
};

TEST_F(SpecialAlarmsFileTest, Paths) {
    EXPECT_EQ(SpecialAlarmsFile::Folder(), "C:\\Jotwright\\SpecialAlarms");
    EXPECT_EQ(SpecialAlarmsFile::Path(), "C:\\Jotwright\\SpecialAlarms\\SpecialAlarms.txt");
}

TEST_F(SpecialAlarmsFileTest, WritesSevenLinesByteForByte) {
    EXPECT_EQ(SpecialAlarmsFile::Encode(Week()),
              "\"Monday\",#08:00:00#,\"Get up\",1\r\n"
              "\"Tuesday\",#00:00:00#,\"\",0\r\n"
              "\"Wednesday\",#12:00:00#,\"Lunch, at last\",1\r\n"
              "\"Thursday\",#23:59:59#,\" \",0\r\n"
              "\"Friday\",#17:30:00#,\"Pay the rent\",1\r\n"
              "\"Saturday\",#10:00:00#,\"#1\",0\r\n"
              "\"Sunday\",#09:00:00#,\"Rest\",-1\r\n");
}

TEST_F(SpecialAlarmsFileTest, RoundTrips) {
    const auto rows = Decoded(SpecialAlarmsFile::Encode(Week()));
    ASSERT_EQ(rows.size(), 7U);
    EXPECT_TRUE(std::equal(rows.begin(), rows.end(), Week().begin()));
}

TEST_F(SpecialAlarmsFileTest, TimeWithADateIsWrittenWhole) {
    auto week = Week();
    week[0].Time = Combine(DateTime::FromDate(2004, 5, 14), week[0].Time);
    week[1].Time = DateTime::FromDate(2004, 5, 14);
    const std::string bytes = SpecialAlarmsFile::Encode(week);
    EXPECT_TRUE(bytes.starts_with("\"Monday\",#2004-05-14 08:00:00#,"));
    EXPECT_NE(bytes.find("\"Tuesday\",#2004-05-14 00:00:00#,"), std::string::npos);
    EXPECT_EQ(Decoded(bytes).at(0), week[0]);
    EXPECT_EQ(Decoded(bytes).at(1), week[1]);
}

TEST_F(SpecialAlarmsFileTest, MessagesOutsideTheCodePageRoundTrip) {
    auto week = Week();
    week[3].Message = "\xce\xb1\xce\xb2";
    week[4].Message = "\xe2\x82\xac";
    const std::string bytes = SpecialAlarmsFile::Encode(week);
    EXPECT_TRUE(bytes.starts_with("\xef\xbb\xbf\"Monday\""));
    EXPECT_EQ(Decoded(bytes).at(3), week[3]);
    week[3].Message.clear();
    EXPECT_NE(SpecialAlarmsFile::Encode(week).find("\"\x80\""), std::string::npos);
}

TEST_F(SpecialAlarmsFileTest, AQuoteAfterALeadByteEndsTheMessage) {
    for (const int codePage : {932, 936}) {
        locale.codePage = codePage;
        for (std::size_t changed = 0; changed < SpecialAlarmsFile::rowCount; ++changed) {
            std::string bytes;
            for (std::size_t i = 0; i < SpecialAlarmsFile::rowCount; ++i) {
                const std::string message = i == changed ? "a \"caf\xe9\" caf\xe9" : "m";
                bytes += "\"Monday\",#08:00:00#,\"" + message + "\",1\r\n";
            }
            const auto rows = Decoded(bytes);
            ASSERT_EQ(rows.size(), SpecialAlarmsFile::rowCount) << codePage << ' ' << changed;
            EXPECT_EQ(rows[changed].Message, locale.FromAnsi("a \"caf\xe9\" caf\xe9"));
            EXPECT_EQ(rows[(changed + 1) % SpecialAlarmsFile::rowCount].Message, "m");
        }
    }
}

TEST_F(SpecialAlarmsFileTest, IfRowsAreMissingTheErrorComesAfterTheOthersAreRead) {
    std::string bytes;
    for (std::size_t count = 0; count < SpecialAlarmsFile::rowCount; ++count) {
        std::vector<Row> rows;
        EXPECT_EQ(ErrorOf([&] { SpecialAlarmsFile::Decode(bytes, rows); }), 62);
        EXPECT_EQ(rows.size(), count);
        bytes += Line("Monday");
    }
    EXPECT_EQ(Decoded(bytes).size(), 7U);
    EXPECT_EQ(Decoded(bytes + Line("Sunday")).size(), 7U);
}

TEST_F(SpecialAlarmsFileTest, FieldsThatCannotBeConverted) {
    std::vector<Row> rows;
    const auto errorOf = [&](const std::string& line) {
        rows.clear();
        return ErrorOf([&] { SpecialAlarmsFile::Decode(Line("Monday") + line, rows); });
    };
    EXPECT_EQ(errorOf("\"Monday\",#25:00:00#,\"m\",1\r\n"), 13);
    EXPECT_EQ(rows.size(), 1U);
    EXPECT_EQ(errorOf("\"Monday\",#08:00:00#,\"m\",on\r\n"), 13);
    EXPECT_EQ(errorOf("\"Monday\",#08:00:00#,\"m\",\r\n"), 13);
    EXPECT_EQ(errorOf("\"Monday\",#08:00:00#,\"m\",70000\r\n"), 6);
    EXPECT_EQ(errorOf("\"Monday\",#08:00:00#,\"m\""), 62);
    EXPECT_EQ(errorOf("\"Monday\",#08:00:00#,\"m\",\"1\"\r\n"), 62);
    EXPECT_EQ(rows.size(), 2U);
}

// Pieces for messages that look like the rest of their row, or like other rows.
const std::vector<std::string> pieces{
    "\"", "\"",       ",",          ",",      "1",           "0",    "-1",
    " ",  "#",        "#08:00:00#", "Monday", "\"Tuesday\"", "\",1", "\"Friday\",#17:30:00#,\"",
    "a",  "\xc3\xa9", "\t"};

std::string RandomMessage(std::mt19937& random, const std::vector<std::string>& from) {
    std::string message;
    for (auto left = random() % 12; left > 0; --left) {
        message += from[random() % from.size()];
    }
    return message;
}

TEST_F(SpecialAlarmsFileTest, EveryMessageOfOneLineRoundTrips) {
    std::mt19937 random(1);  // NOLINT(cert-msc32-c,cert-msc51-cpp): the same messages in each run
    for (int i = 0; i < 5000; ++i) {
        auto week = Week();
        for (Row& row : week) {
            row.Message = RandomMessage(random, pieces);
            row.Enabled = static_cast<std::int16_t>(random() % 2);
        }
        const auto rows = Decoded(SpecialAlarmsFile::Encode(week));
        ASSERT_TRUE(std::equal(rows.begin(), rows.end(), week.begin(), week.end()))
            << SpecialAlarmsFile::Encode(week);
    }
}

TEST_F(SpecialAlarmsFileTest, DecodedRowsStayTheSameWhenSaved) {
    std::vector<std::string> withLineBreaks = pieces;
    for (const char* piece : {"\r\n", "\r", "\n", "\",1\r\n", "\",1\r\n\"Monday\",#08:00:00#,\""}) {
        withLineBreaks.emplace_back(piece);
    }
    std::mt19937 random(2);  // NOLINT(cert-msc32-c,cert-msc51-cpp): the same messages in each run
    int read = 0;
    for (int i = 0; i < 5000; ++i) {
        std::string bytes;
        for (int row = 0; row < 7; ++row) {
            bytes +=
                "\"Monday\",#08:00:00#,\"" + RandomMessage(random, withLineBreaks) + "\",1\r\n";
        }
        std::vector<Row> rows;
        if (ErrorOf([&] { SpecialAlarmsFile::Decode(bytes, rows); }) != 0) {
            continue;
        }
        ++read;
        std::array<Row, SpecialAlarmsFile::rowCount> week;
        std::copy(rows.begin(), rows.end(), week.begin());
        if (std::any_of(rows.begin(), rows.end(),
                        [](const Row& row) { return row.Day.find('"') != std::string::npos; })) {
            continue;  // the window writes only names of days
        }
        ASSERT_EQ(Decoded(SpecialAlarmsFile::Encode(week)), rows) << bytes;
    }
    EXPECT_GT(read, 500);
}

TEST_F(SpecialAlarmsFileTest, AMessageOfSeveralLinesMayHoldQuotes) {
    const std::string bytes =
        "\"Monday\",#08:00:00#,\"Say \"one\"\r\nand \"two\", then go\",1\r\n" + Line("Tuesday") +
        Line("Friday") + Line("Friday") + Line("Friday") + Line("Friday") + Line("Sunday");
    EXPECT_EQ(Decoded(bytes).at(0).Message, "Say \"one\"\r\nand \"two\", then go");
    EXPECT_EQ(Decoded(bytes).at(6).Day, "Sunday");
}

TEST_F(SpecialAlarmsFileTest, RowsCanBeReadAgainIfALineOfAMessageLooksLikeTheEndOfItsRow) {
    auto week = Week();
    week[0].Message = "a\",1\r\"b";
    week[1].Message = "one\r\ntwo";
    const std::vector<Row> read = Decoded(SpecialAlarmsFile::Encode(week));
    ASSERT_EQ(read.size(), week.size());
    EXPECT_EQ(read[0].Message, "a\",1 \"b");
    EXPECT_EQ(read[1].Message, "one  two");
    EXPECT_EQ(read[6], week[6]);
}

TEST_F(SpecialAlarmsFileTest, AMessageThatLooksLikeAnotherRowAddsNoRow) {
    auto week = Week();
    week[0].Message = "a\",1\r\n\"Friday\",#08:00:00#,\"b";
    const std::vector<Row> read = Decoded(SpecialAlarmsFile::Encode(week));
    ASSERT_EQ(read.size(), week.size());
    EXPECT_EQ(read[0].Message, "a\",1  \"Friday\",#08:00:00#,\"b");
    EXPECT_EQ(read[1], week[1]);
    EXPECT_EQ(read[6], week[6]);
}

TEST_F(SpecialAlarmsFileTest, FilesOfOtherLayoutsAreRead) {
    const std::vector<std::string> forms{
        // all rows in one line
        "\"Monday\",#08:00:00#,\"m\",1,",
        // one line for each field
        "\"Monday\"\r\n#08:00:00#\r\n\"m\"\r\n1\r\n",
        // blanks, and other line breaks
        " \"Monday\" , #08:00:00# , \"m\" , 1 \n",
        // quotes around fields that need no quotes, and no quotes around fields that need them
        "Monday,\"08:00:00\",m,\"1\"\r\n",
        "\"Monday\",#08:00:00#,\"m\",\"1\"\r\n",
    };
    for (const std::string& form : forms) {
        std::string bytes;
        for (std::size_t row = 0; row < SpecialAlarmsFile::rowCount; ++row) {
            bytes += form;
        }
        for (const Row& row : Decoded(bytes)) {
            EXPECT_EQ(row.Day, "Monday") << form;
            EXPECT_EQ(row.Time, DateTime::FromTime(8, 0, 0)) << form;
            EXPECT_EQ(row.Message, "m") << form;
            EXPECT_EQ(row.Enabled, 1) << form;
        }
    }
}

TEST_F(SpecialAlarmsFileTest, BinaryAndHugeFilesAreOnlyErrors) {
    EXPECT_EQ(ErrorOf([] { Decoded(std::string(1 << 20, '\0')); }), 62);
    EXPECT_EQ(ErrorOf([] { Decoded(std::string(1 << 20, '"')); }), 13);
    EXPECT_EQ(ErrorOf([] { Decoded(std::string(1 << 20, '\xff')); }), 62);
    EXPECT_EQ(ErrorOf([] { Decoded("\"Mon"); }), 62);
}

TEST_F(SpecialAlarmsFileTest, LoadFillsTheSharedArrays) {
    PutFile(SpecialAlarmsFile::Encode(Week()));
    LoadSpecialAlarms();
    for (std::size_t i = 0; i < SpecialAlarmsFile::rowCount; ++i) {
        EXPECT_EQ(SpecialAlarmsFile::SharedRow(i), Week()[i]);
    }
    EXPECT_EQ(Shared().SpecialAlarmDay[4], "Friday");
    EXPECT_EQ(Shared().SpecialAlarmTime[4], DateTime::FromTime(17, 30, 0));
    EXPECT_EQ(Shared().SpecialAlarmMessage[4], "Pay the rent");
    EXPECT_EQ(Shared().SpecialAlarmEnabled[4], 1);
}

TEST_F(SpecialAlarmsFileTest, WithoutAFileTheArraysStay) {
    LoadSpecialAlarms();
    EXPECT_EQ(SpecialAlarmsFile::SharedRow(0), Row{});
    files.PutFolder(SpecialAlarmsFile::Folder());
    SpecialAlarmsFile::StoreSharedRow(6, Week()[6]);
    LoadSpecialAlarms();
    EXPECT_EQ(SpecialAlarmsFile::SharedRow(6), Week()[6]);
}

TEST_F(SpecialAlarmsFileTest, AnErrorKeepsTheRowsReadSoFar) {
    SpecialAlarmsFile::StoreSharedRow(2, Week()[2]);
    PutFile(Line("Monday") + Line("Sunday") + "\"Friday\",#noon#,\"m\",1\r\n" + Line("Monday"));
    LoadSpecialAlarms();
    EXPECT_EQ(Shared().SpecialAlarmDay[0], "Monday");
    EXPECT_EQ(Shared().SpecialAlarmDay[1], "Sunday");
    EXPECT_EQ(SpecialAlarmsFile::SharedRow(2), Week()[2]);
    EXPECT_EQ(SpecialAlarmsFile::SharedRow(3), Row{});
}

TEST_F(SpecialAlarmsFileTest, AFileThatCannotBeReadIsSilent) {
    PutFile(SpecialAlarmsFile::Encode(Week()));
    files.SetDenied(SpecialAlarmsFile::Path(), true);
    LoadSpecialAlarms();
    EXPECT_EQ(SpecialAlarmsFile::SharedRow(0), Row{});
}

TEST_F(SpecialAlarmsFileTest, DueAtItsSecondOfItsWeekday) {
    const DateTime friday = DateTime::FromDate(2004, 5, 14);
    const Row row = Week()[4];
    EXPECT_TRUE(SpecialAlarmsFile::IsDue(row, Combine(friday, DateTime::FromTime(17, 30, 0))));
    EXPECT_FALSE(SpecialAlarmsFile::IsDue(row, Combine(friday, DateTime::FromTime(17, 30, 1))));
    EXPECT_FALSE(SpecialAlarmsFile::IsDue(row, Combine(friday, DateTime::FromTime(17, 29, 59))));
    EXPECT_FALSE(SpecialAlarmsFile::IsDue(
        row, Combine(DateTime::FromDate(2004, 5, 15), DateTime::FromTime(17, 30, 0))));
    EXPECT_TRUE(SpecialAlarmsFile::IsDue(
        row, Combine(DateTime::FromDate(2004, 5, 21), DateTime::FromTime(17, 30, 0))));
}

TEST_F(SpecialAlarmsFileTest, OnlyOneIsEnabled) {
    const DateTime now = Combine(DateTime::FromDate(2004, 5, 14), DateTime::FromTime(17, 30, 0));
    for (const int enabled : {0, -1, 2}) {
        Row row = Week()[4];
        row.Enabled = static_cast<std::int16_t>(enabled);
        EXPECT_FALSE(SpecialAlarmsFile::IsDue(row, now)) << enabled;
    }
}

TEST_F(SpecialAlarmsFileTest, WeekdayNamesAreComparedExactly) {
    const DateTime now = Combine(DateTime::FromDate(2004, 5, 14), DateTime::FromTime(17, 30, 0));
    Row row = Week()[4];
    row.Day = "friday";
    EXPECT_FALSE(SpecialAlarmsFile::IsDue(row, now));
    row.Day = "Friday";
    locale.weekdayNames[5] = "Freitag";
    EXPECT_FALSE(SpecialAlarmsFile::IsDue(row, now));
}

TEST_F(SpecialAlarmsFileTest, ATimeWithADateIsNeverDue) {
    const DateTime now = Combine(DateTime::FromDate(2004, 5, 14), DateTime::FromTime(17, 30, 0));
    Row row = Week()[4];
    row.Time = now;
    EXPECT_FALSE(SpecialAlarmsFile::IsDue(row, now));
}

TEST_F(SpecialAlarmsFileTest, ATimeWithSecondsIsDueInThatSecond) {
    const DateTime friday = DateTime::FromDate(2004, 5, 14);
    Row row = Week()[4];
    row.Time = DateTime::FromTime(17, 30, 20);
    EXPECT_FALSE(SpecialAlarmsFile::IsDue(row, Combine(friday, DateTime::FromTime(17, 30, 0))));
    EXPECT_TRUE(SpecialAlarmsFile::IsDue(row, Combine(friday, DateTime::FromTime(17, 30, 20))));
}

TEST_F(SpecialAlarmsFileTest, AWholeLeftoverBecomesTheMissingFile) {
    const std::string leftover = SpecialAlarmsFile::Folder() + "\\~Jotwright-0123456789abcdef-";
    const std::string whole = SpecialAlarmsFile::Encode(Week());
    files.PutFile(leftover + "1.tmp", whole.substr(0, whole.size() / 2));
    files.PutFile(leftover + "2.tmp", whole);
    SpecialAlarmsFile::AdoptLeftovers();
    EXPECT_EQ(files.Names(SpecialAlarmsFile::Folder()),
              std::vector<std::string>{"SpecialAlarms.txt"});
    EXPECT_EQ(files.Peek(SpecialAlarmsFile::Path()), whole);

    PutFile("the present file");
    files.PutFile(leftover + "3.tmp", whole);
    SpecialAlarmsFile::AdoptLeftovers();
    EXPECT_EQ(files.Names(SpecialAlarmsFile::Folder()),
              std::vector<std::string>{"SpecialAlarms.txt"});
    EXPECT_EQ(files.Peek(SpecialAlarmsFile::Path()), "the present file");
}

}  // namespace
