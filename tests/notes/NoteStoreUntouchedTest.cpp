#include <functional>
#include <map>

#include "forms/Gestures.h"
#include "tests/notes/NoteStoreProgram.h"

// Notes without an edit keep every byte of their files.

namespace {

using base::DateTime;

class NoteStoreUntouchedTest : public testing_support::NoteStoreProgram {
  protected:
    // Lets the open note "Dentist" ring at 9:00:05 without an edit. Returns its saved record.
    StandardCode::NoteRecord LetDentistRing() {
        SetNow(2004, 5, 14, 9, 0, 0);
        const Note record = Note("Dentist").WithAlarmAt(9, 0, 5);
        PutNote(record);
        ReadAll();
        Advance(10'000);
        return record;
    }

    void Exit() {
        const NoteStore::Quiet exit(StandardCode::Notes());
        CloseEditors();
    }
};

TEST_F(NoteStoreUntouchedTest, StartAndExitWithNothingTouchedChangeNoByte) {
    PutNote(Note("a", "plain"));
    PutNote(Note("b", "5\" pipe, \"quoted\", and \"\r\n\""));
    PutNote(Note("c", "umlaut \xc3\xa4 snowman \xe2\x98\x83"));
    files.PutFile(folder + "\\d.txt",
                  NoteFile::Encode(Note("d", "fired"), NoteFile::TimeField::RewrittenText));
    files.PutFile(
        folder + "\\e.txt",
        "\"e\",\"lone\nbreak \x81 \xe4\",#2004-05-14#,#12:00:00#,1,12,\"0\",0,\"yes\"\r\n");
    PutNote(Note("g", "gray, of 11 points").InColor(6).InPoints(11));
    files.PutFile(folder + "\\f.txt",
                  "\"f\",\"spaced\" , #2004-05-14#, #12:00:00#, 1, 12, \"0\", 0, \"yes\"");
    const auto before = Folder();
    ReadAll();
    ASSERT_EQ(StandardCode::Notes().OpenNotes().size(), 7U);
    Advance(5000);
    EXPECT_EQ(Folder(), before);
    files.ClearLog();
    Exit();
    EXPECT_EQ(Folder(), before);
    for (const std::string& entry : files.Log()) {
        EXPECT_TRUE(entry.starts_with("read ")) << entry;
    }
}

TEST_F(NoteStoreUntouchedTest, AnAlarmThatRangIsOffInTheFileOnceTheWindowCloses) {
    LetDentistRing();
    user->CloseBox(Editor("Dentist"));
    EXPECT_EQ(Saved("Dentist").AlarmState, "0");
}

TEST_F(NoteStoreUntouchedTest, AnAlarmThatRangLeavesAFileThatWasChangedElsewhere) {
    const std::map<std::string, std::function<void()>> ends{
        {"closing", [this] { user->CloseBox(Editor("Dentist")); }},
        {"exit", [this] { Exit(); }},
        {"end of the session", [] { forms::gestures::EndSession(); }},
    };
    for (const auto& [how, end] : ends) {
        SCOPED_TRACE(how);
        auto record = LetDentistRing();
        ASSERT_EQ(Editor("Dentist").cmdAlarm.caption(), "&Set Alarm");
        record.Text = "by another program";
        record.AlarmTime = DateTime::FromTime(17, 0, 0);
        PutNote(record);
        const auto bytes = FileOf("Dentist");
        end();
        EXPECT_TRUE(StandardCode::Notes().OpenNotes().empty());
        EXPECT_EQ(FileOf("Dentist"), bytes);
        RestartProgram();
    }
}

TEST_F(NoteStoreUntouchedTest, AnAlarmThatRangIsOffInTheFileAfterExitAndEndOfSession) {
    for (const bool isExit : {true, false}) {
        LetDentistRing();
        if (isExit) {
            Exit();
        } else {
            forms::gestures::EndSession();
        }
        EXPECT_EQ(Saved("Dentist").AlarmState, "0") << isExit;
        RestartProgram();
    }
}

TEST_F(NoteStoreUntouchedTest, UnderUtf8NoByteChanges) {
    locale.codePage = 65001;
    files.PutFolder(folder);
    const std::string tail = "\",#2004-05-14#,#12:00:00#,1,12,\"0\",0,\"yes\"\r\n";
    files.PutFile(folder + "\\ansi.txt", "\"ansi\",\"gr\xfc\xdf" + tail);
    files.PutFile(folder + "\\utf8.txt", "\"utf8\",\"gr\xc3\xbc\xc3\x9f" + tail);
    files.PutFile(folder + "\\mark.txt", "\xef\xbb\xbf\"mark\",\"gr\xc3\xbc\xc3\x9f" + tail);
    const auto before = Folder();
    ReadAll();
    for (const char* file : {"ansi.txt", "utf8.txt", "mark.txt"}) {
        EXPECT_EQ(EditorOf(file).txtNote.text(), "gr\xc3\xbc\xc3\x9f") << file;
    }
    TypeInto(MakeNote("New"), "\xc3\xbc");
    CloseEditors();
    auto after = Folder();
    EXPECT_TRUE(after.at("New.txt").starts_with("\xef\xbb\xbf\"New\",\"\xc3\xbc"));
    after.erase("New.txt");
    EXPECT_EQ(after, before);
}

}  // namespace
