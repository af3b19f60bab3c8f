#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "notes/frmDisplayNote.h"
#include "tests/support/NoteProgram.h"

// Texts of all kinds, and files that the program would not have written in this form.

namespace {

using namespace std::string_literals;

class BadTextsTest : public testing_support::NoteProgram {
  protected:
    // Starts the program with this file. Returns the text in the text box of the note.
    std::string Shown(const std::string& bytes) {
        files.PutFile(PathOf("Note"), bytes);
        RestartProgram();
        Start(StandardCode::ReadNotes);
        return Editor("Note").txtNote.text();
    }

    static std::string FileWith(const std::string& text, const std::string& date = "#2004-05-14#") {
        return "\"Note\",\"" + text + "\"," + date + ",#09:30:00#,1,12,\"0\",0,\"yes\"\r\n";
    }
};

TEST_F(BadTextsTest, AnyPastedTextComesBack) {
    std::string scripts;
    while (scripts.size() < 65536) {
        scripts += "\xf0\x9f\x98\x80\xd7\xa9\xd7\x9c e\xcc\x81\t\xe6\x97\xa5\r\n";
    }
    for (const std::string& text : std::vector<std::string>{
             std::string(65536, 'x'), std::string(std::size_t{1} << 20, 'y'), scripts, "\t\ttabs\t",
             "   ", "\r\n\r\n", "'", ",,,#,#", "\xef\xbb\xbfmark", "\x1a\x04 control\x7f"}) {
        frmNote& note = MakeNote("Note", text);
        Advance(2000);
        user->CloseBox(note);
        EXPECT_FALSE(testing_support::IsNoteOpen("Note"));
        EXPECT_TRUE(Saved("Note").Text == text);
        RestartProgram();
        Start(StandardCode::ReadNotes);
        EXPECT_TRUE(Editor("Note").txtNote.text() == text);
        RestartProgram();
        files.Remove(PathOf("Note"));
    }
}

TEST_F(BadTextsTest, TheTextAfterAZeroByteIsKept) {
    const std::string bytes = FileWith("first\0second\0third"s);
    EXPECT_EQ(Shown(bytes), "first second third");
    user->Restore(Editor("Note"));
    user->CloseBox(Editor("Note"));
    EXPECT_EQ(FileOf("Note"), bytes);
    EXPECT_EQ(Shown(bytes), "first second third");
    user->Restore(Editor("Note"));
    user->Type(Editor("Note").txtNote, "first second third!");
    user->CloseBox(Editor("Note"));
    EXPECT_EQ(FileOf("Note"), FileWith("first second third!"));
}

TEST_F(BadTextsTest, TheTextAfterAZeroByteOfARecoveryCopyIsKept) {
    MakeNote("Note", "first_second");
    Advance(2000);
    const std::string copy = "C:\\Jotwright\\Notes\\~Note-" + system.instanceId + ".recovery";
    std::string bytes = files.Peek(copy).value_or("");
    ASSERT_NE(bytes.find('_'), std::string::npos);
    bytes[bytes.find('_')] = '\0';
    RestartProgram();
    files.PutFile(copy, bytes);
    Start(StandardCode::ReadNotes);
    EXPECT_EQ(Editor("Note").txtNote.text(), "first second");
}

TEST_F(BadTextsTest, EveryLineBreakIsShownAndKept) {
    EXPECT_EQ(Shown(FileWith("a\nb\n\nc")), "a\r\nb\r\n\r\nc");
    EXPECT_EQ(Shown(FileWith("a\rb\r\rc")), "a\r\nb\r\n\r\nc");
    EXPECT_EQ(Shown(FileWith("a\r\nb\n\rc\r")), "a\r\nb\r\n\r\nc\r\n");
    // Showing a text does not change it, so nothing must be kept for the next start.
    Advance(2000);
    EXPECT_EQ(files.Names("C:\\Jotwright\\Notes"), std::vector<std::string>{"Note.txt"});
    user->Restore(Editor("Note"));
    user->CloseBox(Editor("Note"));
    EXPECT_EQ(FileOf("Note"), FileWith("a\r\nb\n\rc\r"));
    EXPECT_EQ(Shown(*FileOf("Note")), "a\r\nb\r\n\r\nc\r\n");
    user->Restore(Editor("Note"));
    user->Type(Editor("Note").txtNote, "a\r\nb");
    user->CloseBox(Editor("Note"));
    EXPECT_EQ(FileOf("Note"), FileWith("a\r\nb"));
}

TEST_F(BadTextsTest, TheAlarmDisplayShowsEveryLineBreak) {
    files.PutFile(PathOf("Note"), FileWith("a\nb"));
    std::shared_ptr<frmDisplayNote> display;
    Start([&display] {
        StandardCode::LoadNotesArray();
        display = StandardCode::DisplayNote(1);
    });
    EXPECT_EQ(display->lblNoteText.text(), "a\r\nb");
}

// A text with double quotes is written unchanged. The reader finds its end by the fields that
// follow it. Other notes are not changed.
TEST_F(BadTextsTest, ATextWithQuotesComesBackAndTheAlarmRings) {
    const std::string tail = ",#2004-05-14#,#12:00:00#,1,12,\"0\",0,\"yes\"\r\n";
    for (const std::string& text : std::vector<std::string>{
             "He said \"no\"", "\"", "5\" pipe", "x\" \"", "\"\"", "a\",", "\",#", "\"\r\n\"",
             "\"a\",\"b\"", "\"" + tail, "\"" + tail + "more"}) {
        PutNote(Note("A before", "untouched"));
        PutNote(Note("Z behind", "untouched"));
        frmNote& note = MakeNote("Note", text);
        user->Pick(note.dtTime, base::DateTime::FromTime(9, 1, 0));
        user->Click(note.cmdAlarm);
        Start([&note] { note.WriteNote(); });
        EXPECT_EQ(FileOf("Note"),
                  "\"Note\",\"" + text + "\",#2004-05-14#,#09:01:00#,1,12,\"1\",0,\"yes\"\r\n");
        EXPECT_EQ(StandardCode::Shared().NoteCount, 3);
        RestartProgram();
        SetNow(2004, 5, 14, 9, 0, 0);
        Start(StandardCode::ReadNotes);
        EXPECT_EQ(Editor("Note").txtNote.text(), text);
        EXPECT_EQ(StandardCode::NoteTitles(),
                  (std::vector<std::string>{"A before", "Note", "Z behind"}));
        Advance(61'000);
        EXPECT_EQ(Editor("Note").cmdAlarm.caption(), "&Set Alarm");
        EXPECT_TRUE(files.RecycleBin().empty()) << text;
        RestartProgram();
        files.Remove(PathOf("Note"));
        SetNow(2004, 5, 14, 9, 0, 0);
    }
}

TEST_F(BadTextsTest, DatesThatThePickersCannotShowStay) {
    for (const char* date : {"#0100-01-01#", "#0512-02-29#", "#1500-06-05#", "#1600-12-31#",
                             "#1752-09-14#", "#1899-12-30#", "#9999-12-31#"}) {
        const std::string bytes = FileWith("text", date);
        EXPECT_EQ(Shown(bytes), "text") << date;
        frmNote& note = Editor("Note");
        user->Restore(note);
        Advance(3000);
        user->Click(note.cmdAlarm);
        EXPECT_EQ(note.lblDayYear.caption(), std::to_string(note.dtDate.value().Day()) + ", " +
                                                 std::to_string(note.dtDate.value().Year()));
        Advance(3000);
        user->Click(note.cmdAlarm);
        user->CloseBox(note);
        EXPECT_EQ(FileOf("Note"), bytes) << date;
    }
}

TEST_F(BadTextsTest, ImpossibleDatesAreReportedAndTheFileStays) {
    for (const char* date : {"#0000-00-00#", "#0099-12-31#", "#10000-01-01#", "#2004-02-30#",
                             "#2004-13-01#", "#-2004-01-01#", "#99999999999999999999-1-1#"}) {
        const std::string bytes = FileWith("text", date);
        files.PutFile(PathOf("Note"), bytes);
        ExpectLoadError("Type mismatch");
        Start(StandardCode::ReadNotes);
        ExpectNotesArrayError("Error Number: 13) - Type mismatch");
        Start(StandardCode::LoadNotesArray);
        EXPECT_EQ(FileOf("Note"), bytes) << date;
        EXPECT_TRUE(runtime->LoadedForms().empty());
    }
}

TEST_F(BadTextsTest, NumbersOutOfRangeAreReportedOrIgnored) {
    for (const char* numbers : {"32768,12", "1,-32769", "1,1e5", "1,99999999999999999999"}) {
        const std::string bytes = "\"Note\",\"text\",#2004-05-14#,#09:30:00#," +
                                  std::string(numbers) + ",\"0\",0,\"yes\"\r\n";
        files.PutFile(PathOf("Note"), bytes);
        ExpectLoadError("Overflow");
        Start(StandardCode::ReadNotes);
        EXPECT_EQ(FileOf("Note"), bytes);
    }
    for (const char* numbers : {"32767,-32768", "-1,0", "0,32767", "1.5,12.4"}) {
        EXPECT_EQ(Shown("\"Note\",\"text\",#2004-05-14#,#09:30:00#," + std::string(numbers) +
                        ",\"maybe\",-7,\"no\"\r\n"),
                  "text");
    }
}

}  // namespace
