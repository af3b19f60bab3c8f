#include <gtest/gtest.h>

#include <random>

#include "notes/NoteFile.h"
#include "notes/NoteStore.h"
#include "tests/support/Note.h"
#include "tests/support/RuleDevices.h"

namespace {

using testing_support::ErrorOf;
using testing_support::Note;
using testing_support::RuleDevices;

using base::DateTime;
using StandardCode::NoteRecord;

const std::string byteOrderMark = "\xef\xbb\xbf";

class NoteFileTest : public testing::Test, protected RuleDevices {
  protected:
    static NoteRecord Dentist() {
        return Note("Dentist", "Call to move the appointment.\r\nAsk for a Friday.")
            .WithAlarmAt(9, 30)
            .WithSound()
            .InColor(5);
    }

    static NoteRecord Decoded(const std::string& bytes) {
        NoteRecord record;
        NoteFile::Decode(bytes, record);
        return record;
    }

    static int ErrorOfDecoding(const std::string& bytes) {
        return ErrorOf([&] { Decoded(bytes); });
    }
};

TEST_F(NoteFileTest, WritesTheRecordByteForByte) {
    EXPECT_EQ(NoteFile::Encode(Dentist()),
              "\"Dentist\",\"Call to move the appointment.\r\nAsk for a Friday.\","
              "#2004-05-14#,#09:30:00#,5,12,\"1\",1,\"yes\"\r\n");
}

TEST_F(NoteFileTest, ARewrittenNoteHasItsTimeAsText) {
    NoteRecord record = Dentist();
    record.AlarmState = "0";
    record.AudioAlarm = 0;
    const std::string bytes = NoteFile::Encode(record, NoteFile::TimeField::RewrittenText);
    EXPECT_EQ(bytes,
              "\"Dentist\",\"Call to move the appointment.\r\nAsk for a Friday.\","
              "#2004-05-14#,\"#12:00#\",5,12,\"0\",0,\"yes\"\r\n");
    EXPECT_EQ(Decoded(bytes).AlarmTime, DateTime::FromTime(12, 0, 0));
    EXPECT_EQ(Decoded(bytes).AlarmState, "0");
    EXPECT_EQ(Decoded(bytes).Trailer, "yes");
}

TEST_F(NoteFileTest, TextOfSeveralLinesRoundTrips) {
    EXPECT_EQ(Decoded(NoteFile::Encode(Dentist())), Dentist());
}

TEST_F(NoteFileTest, MidnightRoundTrips) {
    NoteRecord record = Dentist();
    record.AlarmTime = DateTime{};
    EXPECT_NE(NoteFile::Encode(record).find(",#00:00:00#,"), std::string::npos);
    EXPECT_EQ(Decoded(NoteFile::Encode(record)), record);
}

TEST_F(NoteFileTest, TheDateFieldHoldsNoTimeAndTheTimeFieldNoDate) {
    NoteRecord record = Dentist();
    record.AlarmDate = base::Combine(record.AlarmDate, DateTime::FromTime(1, 2, 3));
    record.AlarmTime = base::Combine(record.AlarmDate, record.AlarmTime);
    EXPECT_EQ(Decoded(NoteFile::Encode(record)), Dentist());
}

TEST_F(NoteFileTest, EmptyTextsRoundTrip) {
    NoteRecord record = Dentist();
    record.Title.clear();
    record.Text.clear();
    EXPECT_EQ(Decoded(NoteFile::Encode(record)), record);
}

TEST_F(NoteFileTest, CommasBlanksSignsAndLooseLineBreaksRoundTrip) {
    NoteRecord record = Dentist();
    record.Text = "  a, b ,#1#\n\r\r\n\t,, 'x'  ";
    record.ColorIndex = -7;
    EXPECT_EQ(Decoded(NoteFile::Encode(record)), record);
}

TEST_F(NoteFileTest, TextInTheCodePageIsWrittenInTheCodePage) {
    NoteRecord record = Dentist();
    record.Title = "Caf\xc3\xa9";
    record.Text = "5 \xe2\x82\xac";
    const std::string bytes = NoteFile::Encode(record);
    EXPECT_TRUE(bytes.starts_with("\"Caf\xe9\",\"5 \x80\","));
    EXPECT_EQ(Decoded(bytes), record);
}

TEST_F(NoteFileTest, TextOutsideTheCodePageIsWrittenAsUtf8AfterAMark) {
    NoteRecord record = Dentist();
    record.Text = "\xce\xb1 \xf0\x9f\x98\x80 \xc3\xa9";
    const std::string bytes = NoteFile::Encode(record);
    EXPECT_TRUE(
        bytes.starts_with(byteOrderMark + "\"Dentist\",\"\xce\xb1 \xf0\x9f\x98\x80 \xc3\xa9\""));
    EXPECT_EQ(Decoded(bytes), record);
}

TEST_F(NoteFileTest, AQuoteAfterTheFirstByteOfAPairStillEndsTitleAndText) {
    const std::string fields = ",#2004-05-14#,#09:30:00#,5,12,\"1\",1,\"yes\"\r\n";
    for (const int codePage : {932, 936}) {
        locale.codePage = codePage;
        for (const auto& [title, text] : {std::pair<std::string, std::string>{"caf\xe4", "plain"},
                                          {"plain", "caf\xe4"},
                                          {"caf\xe4", "\"a\xe4\" b\xe4"},
                                          {"\xe4", ""}}) {
            const std::string bytes = '"' + title + "\",\"" + text + '"' + fields;
            const NoteRecord record = Decoded(bytes);
            EXPECT_EQ(record.Title, locale.FromAnsi(title)) << codePage;
            EXPECT_EQ(record.Text, locale.FromAnsi(text)) << codePage;
            EXPECT_EQ(record.AlarmDate, DateTime::FromDate(2004, 5, 14));
            EXPECT_EQ(record.AlarmTime, DateTime::FromTime(9, 30, 0));
            EXPECT_EQ(record.ColorIndex, 5);
            EXPECT_EQ(record.FontSize, 12);
            EXPECT_EQ(record.AlarmState, "1");
            EXPECT_EQ(record.AudioAlarm, 1);
            EXPECT_EQ(record.Trailer, "yes");
            EXPECT_TRUE(NoteFile::IsWhole(bytes));
        }
    }
}

TEST_F(NoteFileTest, ReadsAMarkedFileThatAnotherProgramSaved) {
    EXPECT_EQ(Decoded(byteOrderMark + NoteFile::Encode(Dentist())), Dentist());
    NoteRecord broken = Dentist();
    broken.Title =
        "a\xef\xbf\xbd"
        "b";
    EXPECT_EQ(Decoded(byteOrderMark +
                      "\"a\xff"
                      "b\"" +
                      NoteFile::Encode(Dentist()).substr(9)),
              broken);
}

TEST_F(NoteFileTest, AMarkAloneIsAnEmptyFile) {
    EXPECT_EQ(ErrorOfDecoding(byteOrderMark), 62);
    EXPECT_EQ(ErrorOfDecoding(""), 62);
}

TEST_F(NoteFileTest, AnyTextComesBackWhole) {
    std::mt19937 random(20040514);
    const std::vector<std::string> pieces{"\"",
                                          ",",
                                          "#",
                                          "\r\n",
                                          " ",
                                          "0",
                                          "yes",
                                          "a",
                                          "\",\"",
                                          ",#2004-01-02#,#01:02:03#,6,16,\"1\",1,\"yes\"",
                                          "\",#2004-01-02#,\"#12:00#\",6,16,\"1\",1,\"yes\"\r\n"};
    for (int round = 0; round < 3000; ++round) {
        NoteRecord record = Dentist();
        record.Text.clear();
        for (std::size_t count = random() % 12; count > 0; --count) {
            record.Text += pieces[random() % pieces.size()];
        }
        EXPECT_EQ(Decoded(NoteFile::Encode(record)), record) << record.Text;
        EXPECT_TRUE(NoteFile::IsWhole(NoteFile::Encode(record)));
    }
}

TEST_F(NoteFileTest, AQuotedTextBeforeEmptyFieldsComesBackWhole) {
    NoteRecord record = Dentist();
    record.Text = "He said \"hi\", then left";
    std::string bytes = NoteFile::Encode(record);
    bytes.erase(bytes.rfind("yes"), 3);
    EXPECT_EQ(Decoded(bytes).Text, record.Text);
    EXPECT_EQ(Decoded(bytes).Trailer, "");
}

TEST_F(NoteFileTest, AQuotedTextBeforeARewrittenTimeOrANegativeNumberComesBackWhole) {
    const std::string start = "\"Dentist\",\"He said \"hi\", then left\",#2004-05-14#";
    for (const char* fields :
         {",\"#12:00#\",5,12,\"0\",0,\"yes\"\r\n", ",#09:30:00#,-1,12,\"1\",1,\"yes\"\r\n"}) {
        EXPECT_EQ(Decoded(start + fields).Text, "He said \"hi\", then left") << fields;
    }
}

TEST_F(NoteFileTest, AFileThatDoesNotEndInTheRightFieldsIsReadFieldByField) {
    const std::string quoted =
        "\"Dentist\",\"He said \"hi\" to me\",#2004-05-14#,#09:30:00#,5,12,\"1\",1";
    const NoteRecord read = Decoded(quoted + "\r\n");
    EXPECT_EQ(read.Title, "Dentist");
    EXPECT_EQ(read.Text, "He said ");
    EXPECT_EQ(read.AlarmDate, DateTime{});
    EXPECT_EQ(read.ColorIndex, 0);
    EXPECT_FALSE(NoteFile::IsWhole(quoted + "\r\n"));
    EXPECT_EQ(ErrorOfDecoding("\"a\",\"b\"c\",5,12,\"1\",1"), 62);
}

TEST_F(NoteFileTest, BlanksAfterAClosingQuoteAreSkippedAndOtherTextStartsTheNextField) {
    const std::string rest = ",\"t\",#2004-05-14#,#09:30:00#,5,12,\"1\",1,\"yes\"\r\n";
    EXPECT_EQ(Decoded("\"a\"  \t" + rest).Text, "t");
    const NoteRecord read = Decoded("\"a\"b,#2004-05-14#,#09:30:00#,5,12,\"1\",1,\"yes\"\r\n");
    EXPECT_EQ(read.Title, "a");
    EXPECT_EQ(read.Text, "b");
    EXPECT_EQ(read.FontSize, 12);
}

TEST_F(NoteFileTest, UnquotedFieldsEndAtCommaOrLineEnd) {
    for (const char* lineEnd : {"\r\n", "\n", "\r"}) {
        const std::string end = lineEnd;
        const NoteRecord read =
            Decoded("  Title with \"quotes\"" + end + "Text" + end + "#2004-05-14#" + end +
                    "#09:30:00# ," + " 5 , 12 " + end + "1,1" + end + "yes" + end);
        EXPECT_EQ(read.Title, "Title with \"quotes\"");
        EXPECT_EQ(read.Text, "Text");
        EXPECT_EQ(read.AlarmDate, DateTime::FromDate(2004, 5, 14));
        EXPECT_EQ(read.AlarmTime, DateTime::FromTime(9, 30, 0));
        EXPECT_EQ(read.ColorIndex, 5);
        EXPECT_EQ(read.FontSize, 12);
        EXPECT_EQ(read.AlarmState, "1");
        EXPECT_EQ(read.AudioAlarm, 1);
        EXPECT_EQ(read.Trailer, "yes");
    }
}

std::string WithFields(const std::string& date, const std::string& time,
                       const std::string& color = "5") {
    return "\"a\",\"b\"," + date + "," + time + "," + color + ",12,\"1\",1,\"yes\"\r\n";
}

TEST_F(NoteFileTest, ReadsDatesAndTimesInEveryForm) {
    const DateTime day = DateTime::FromDate(2004, 5, 14);
    const DateTime time = DateTime::FromTime(9, 30, 0);
    EXPECT_EQ(Decoded(WithFields("#2004-05-14#", "\"#12:00#\"")).AlarmTime,
              DateTime::FromTime(12, 0, 0));
    EXPECT_EQ(Decoded(WithFields("\"#2004-05-14#\"", "#9:30#")).AlarmDate, day);
    EXPECT_EQ(Decoded(WithFields("5/14/2004", "\"9:30:00 AM\"")).AlarmDate, day);
    EXPECT_EQ(Decoded(WithFields("5/14/2004", "\"9:30:00 AM\"")).AlarmTime, time);
    EXPECT_EQ(Decoded(WithFields("#2004-05-14 09:30:00#", "#09:30:00#")).AlarmDate,
              base::Combine(day, time));
    EXPECT_EQ(Decoded(WithFields("#09:30:00#", "#09:30:00#")).AlarmDate, time);
    EXPECT_EQ(Decoded(WithFields("", "")).AlarmDate, DateTime{});
}

TEST_F(NoteFileTest, ImpossibleDatesAreTypeMismatches) {
    for (const char* date :
         {"#2004-13-14#", "#2004-02-30#", "#0000-01-01#", "#0099-12-31#", "#10000-01-01#", "##",
          "#NULL#", "#2004-05-14 25:00:00#", "#2004-05-14T09:30:00#", "#-#", "#/ #"}) {
        EXPECT_EQ(ErrorOfDecoding(WithFields(date, "#09:30:00#")), 13) << date;
    }
    for (const char* time : {"#24:00:00#", "#09:60:00#", "#noon#", "#9#"}) {
        EXPECT_EQ(ErrorOfDecoding(WithFields("#2004-05-14#", time)), 13) << time;
    }
}

TEST_F(NoteFileTest, TextThatIsNoDateIsTheZeroDate) {
    for (const char* date : {"#2004-05-14", "2004-05-14#", "#", "#2004-05-14#x", "tomorrow", "\"\"",
                             "#2004-05-14 #x", "12"}) {
        EXPECT_EQ(Decoded(WithFields(date, "#09:30:00#")).AlarmDate, DateTime{}) << date;
        EXPECT_EQ(Decoded(WithFields("#2004-05-14#", date)).AlarmTime, DateTime{}) << date;
    }
}

TEST_F(NoteFileTest, Integers) {
    EXPECT_EQ(Decoded(WithFields("#2004-05-14#", "#09:30:00#", "-3")).ColorIndex, -3);
    EXPECT_EQ(Decoded(WithFields("#2004-05-14#", "#09:30:00#", "\"3\"")).ColorIndex, 3);
    EXPECT_EQ(Decoded(WithFields("#2004-05-14#", "#09:30:00#", "")).ColorIndex, 0);
    EXPECT_EQ(Decoded(WithFields("#2004-05-14#", "#09:30:00#", "2.5")).ColorIndex, 2);
    for (const char* wrong : {"blue", "5x", "\"\"", "#5#", "5 5"}) {
        EXPECT_EQ(Decoded(WithFields("#2004-05-14#", "#09:30:00#", wrong)).ColorIndex, 0) << wrong;
    }
    for (const char* large : {"32768", "-32769", "99999999999999999999", "1e300", "1e999"}) {
        EXPECT_EQ(ErrorOfDecoding(WithFields("#2004-05-14#", "#09:30:00#", large)), 6) << large;
    }
}

// If the file is cut at any place, one of three things is true: it is too short, a field cannot be
// converted, or only the end of the last field is missing.
TEST_F(NoteFileTest, EveryTruncationIsAnErrorOrLosesOnlyTheTrailer) {
    const std::string bytes = NoteFile::Encode(Dentist());
    const std::size_t trailer = bytes.size() - 7;  // "yes" with its quotes, CR LF
    for (std::size_t length = 0; length < bytes.size(); ++length) {
        const std::string cut = bytes.substr(0, length);
        const int error = ErrorOfDecoding(cut);
        if (length > trailer) {
            EXPECT_EQ(error, 0) << cut;
            NoteRecord read = Decoded(cut);
            read.Trailer = "yes";
            EXPECT_EQ(read, Dentist());
        } else {
            EXPECT_TRUE(error == 62 || error == 13) << cut << error;
        }
    }
}

TEST_F(NoteFileTest, FieldsRunOutAtEveryBoundary) {
    const std::vector<std::string> fields{"\"a\"", "\"b\"", "#2004-05-14#", "#09:30:00#",
                                          "5",     "12",    "\"1\"",        "1"};
    std::string bytes;
    for (const std::string& field : fields) {
        bytes += field;
        EXPECT_EQ(ErrorOfDecoding(bytes), 62) << bytes;
        bytes += ',';
        EXPECT_EQ(ErrorOfDecoding(bytes), 62) << bytes;
        EXPECT_EQ(ErrorOfDecoding(bytes + "  "), 62) << bytes;
    }
    EXPECT_EQ(ErrorOfDecoding(bytes + "\"yes\""), 0);
    EXPECT_EQ(ErrorOfDecoding(bytes + "\r\n"), 0);  // an empty trailer
}

TEST_F(NoteFileTest, TextAfterTheNinthFieldIsIgnored) {
    EXPECT_EQ(Decoded(NoteFile::Encode(Dentist()) + "\"more\",1,2,3\r\n\xff\x00"), Dentist());
}

TEST_F(NoteFileTest, WithoutItsClosingQuoteAFieldTakesTheRest) {
    NoteRecord read;
    EXPECT_EQ(ErrorOf([&] { NoteFile::Decode("\"a\",\"b,#2004-05-14#,5\r\n", read); }), 62);
    EXPECT_EQ(read.Text, "b,#2004-05-14#,5\r\n");
    EXPECT_EQ(ErrorOfDecoding("\""), 62);
}

TEST_F(NoteFileTest, TextOfAMegabyteRoundTrips) {
    NoteRecord record = Dentist();
    record.Text.assign(std::size_t{1} << 20, 'x');
    record.Text[1000] = ',';
    EXPECT_EQ(Decoded(NoteFile::Encode(record)), record);
    for (std::size_t i = 0; i < record.Text.size(); i += 2) {
        record.Text.replace(i, 2, "\xce\xb1");
    }
    EXPECT_EQ(Decoded(NoteFile::Encode(record)), record);
    EXPECT_EQ(ErrorOfDecoding(std::string(std::size_t{1} << 20, ',')), 0);
    EXPECT_EQ(ErrorOfDecoding(std::string(std::size_t{1} << 20, 'x')), 62);
    EXPECT_EQ(ErrorOfDecoding(std::string(std::size_t{1} << 20, ' ')), 62);
}

TEST_F(NoteFileTest, ZeroBytesAreReadAsBlanks) {
    NoteRecord record = Dentist();
    for (const std::string& letters : {std::string("b"), std::string("\xce\xb1")}) {
        record.Text = std::string("a\0", 2) + letters;
        EXPECT_EQ(Decoded(NoteFile::Encode(record)).Text, "a " + letters);
    }
    EXPECT_EQ(ErrorOfDecoding(std::string(4096, '\0')), 62);
}

TEST_F(NoteFileTest, RandomBytesAtWorstRaiseAnError) {
    std::mt19937 random(20040514);
    for (int round = 0; round < 20000; ++round) {
        std::string bytes(random() % 60, ' ');
        for (char& byte : bytes) {
            static constexpr std::string_view alphabet =
                "\"\"##,,,\r\n\n 0159-:/x\xff\xef\xbb\xbf\0";
            byte = random() % 4 == 0 ? static_cast<char>(random() % 256)
                                     : alphabet[random() % alphabet.size()];
        }
        const int error = ErrorOfDecoding(bytes);
        ASSERT_TRUE(error == 0 || error == 6 || error == 13 || error == 62) << error;
    }
}

TEST_F(NoteFileTest, ReadsFromDisk) {
    files.PutFile("C:\\Jotwright\\Notes\\Dentist.txt", NoteFile::Encode(Dentist()));
    EXPECT_EQ(NoteStore::Read("Dentist.txt").record, Dentist());
    EXPECT_EQ(ErrorOf([] { NoteStore::Read("None.txt"); }), 53);
}

}  // namespace
