#include <algorithm>

#include "tests/notes/RecoveryProgram.h"

// The editor that shows the unsaved text of a killed program: the note's own editor, or, if the
// note's file has changed since the recovery copy was written, a second note beside it.

namespace {

using UnsavedNotesTest = testing_support::RecoveryProgram;

TEST_F(UnsavedNotesTest, ACopyOfAnOlderFileComesUpBesideTheNote) {
    EditSaved(Note("Dentist", "old"), "typed");
    RestartProgram();
    PutNote(Note("Dentist", "by another machine"));
    Start(StandardCode::ReadNotes);
    EXPECT_EQ(Editor("Dentist").txtNote.text(), "by another machine");
    EXPECT_EQ(Editor("Dentist").windowState(), forms::WindowState::Minimized);
    EXPECT_EQ(Editor("Dentist (recovered)").txtNote.text(), "typed");
    EXPECT_EQ(Editor("Dentist (recovered)").windowState(), forms::WindowState::Normal);
    // If the program is killed again before the copy is saved, the copy is restored under its new
    // name.
    KillAndStartAgain();
    EXPECT_EQ(Editor("Dentist (recovered)").txtNote.text(), "typed");
    EXPECT_EQ(StandardCode::NoteTitles().size(), 2U);
}

// A virus scanner has the copy open while the note is saved and closed. Afterwards the copy is
// older than the file.
TEST_F(UnsavedNotesTest, ACopyThatCouldNotBeRemovedNeverReplacesASavedText) {
    EditSaved(Note("Dentist", "old"), "first half");
    const std::string copy = CopyPath();
    ASSERT_TRUE(files.Peek(copy).has_value());
    files.SetDenied(copy, true);
    user->Type(Editor("Dentist").txtNote, "first half, second half");
    user->CloseBox(Editor("Dentist"));
    files.SetDenied(copy, false);
    KillAndStartAgain();
    EXPECT_EQ(Editor("Dentist").txtNote.text(), "first half, second half");
    EXPECT_EQ(Editor("Dentist (recovered)").txtNote.text(), "first half");
    while (!StandardCode::NoteTitles().empty()) {
        user->CloseBox(Editor(StandardCode::NoteTitles().front()));
    }
    EXPECT_EQ(Saved("Dentist").Text, "first half, second half");
    EXPECT_EQ(Saved("Dentist (recovered)").Text, "first half");
    EXPECT_EQ(FilesOfNotes(), (Names{"Dentist (recovered).txt", "Dentist.txt"}));
}

TEST_F(UnsavedNotesTest, ANewNoteWhoseTitleIsTakenMeanwhileComesUpBesideTheOther) {
    MakeNote("Dentist", "typed");
    Advance(2000);
    RestartProgram();
    PutNote(Note("Dentist", "by another machine"));
    Start(StandardCode::ReadNotes);
    EXPECT_EQ(Editor("Dentist").txtNote.text(), "by another machine");
    EXPECT_EQ(Editor("Dentist (recovered)").txtNote.text(), "typed");
}

TEST_F(UnsavedNotesTest, ATornCopyComesUpBesideTheNote) {
    EditSaved(Note("Dentist", "saved"), "typed before the power went");
    const std::string copy = CopyPath();
    std::string bytes = files.Peek(copy).value_or("");
    RestartProgram();
    const std::size_t torn = bytes.find(" before");
    ASSERT_NE(torn, std::string::npos);
    std::fill(bytes.begin() + static_cast<std::ptrdiff_t>(torn), bytes.end(), '\0');
    files.PutFile(copy, bytes);
    Start(StandardCode::ReadNotes);
    EXPECT_EQ(Editor("Dentist").txtNote.text(), "saved");
    EXPECT_TRUE(Editor("Dentist (recovered)").txtNote.text().starts_with("typed"));
}

TEST_F(UnsavedNotesTest, ACopyWithTheContentsOfTheFileIsRemoved) {
    EditSaved(Note("Dentist", "old"), "new");
    const std::string copy = CopyPath();
    std::string bytes = files.Peek(copy).value_or("");
    RestartProgram();
    ASSERT_NE(bytes.find("\"new\""), std::string::npos);
    files.PutFile(copy, bytes.replace(bytes.find("\"new\""), 5, "\"old\""));
    Start(StandardCode::ReadNotes);
    EXPECT_EQ(Editor("Dentist").windowState(), forms::WindowState::Minimized);
    EXPECT_EQ(FilesOfNotes(), Names{"Dentist.txt"});
}

TEST_F(UnsavedNotesTest, ACopyOfAnEarlierVersionComesUpBesideTheNote) {
    PutNote(Note("Dentist", "saved").InColor(3));
    const auto put = [this](const std::string& title, const std::string& text) {
        files.PutFile(folder + "\\~" + title + ".recovery", "Jotwright recovery copy\r\n" +
                                                                std::to_string(title.size()) +
                                                                "\r\n" + title + "\r\n" + text);
    };
    put("Dentist", "typed \"quoted\",\r\nlines \xc3\xa4");
    put("New", "never saved");
    PutNote(Note("Same", "saved after all"));
    put("Same", "saved after all");
    KillAndStartAgain();
    EXPECT_EQ(Editor("Dentist").txtNote.text(), "saved");
    frmNote& beside = Editor("Dentist (recovered)");
    EXPECT_EQ(beside.txtNote.text(), "typed \"quoted\",\r\nlines \xc3\xa4");
    EXPECT_EQ(beside.windowState(), forms::WindowState::Normal);
    EXPECT_EQ(beside.dtDate.value(), base::DateTime::FromDate(2004, 5, 14));
    EXPECT_EQ(beside.dtTime.value(), base::DateTime::FromTime(12, 0, 0));
    EXPECT_EQ(Editor("New").txtNote.text(), "never saved");
    EXPECT_EQ(StandardCode::NoteTitles().size(), 4U);
    // Both notes are unsaved and survive another kill.
    KillAndStartAgain();
    EXPECT_EQ(Editor("New").txtNote.text(), "never saved");
    user->CloseBox(Editor("Dentist (recovered)"));
    EXPECT_EQ(Saved("Dentist (recovered)").Text, "typed \"quoted\",\r\nlines \xc3\xa4");
    EXPECT_EQ(Saved("Dentist").Text, "saved");
}

TEST_F(UnsavedNotesTest, ACopyIsNotDroppedIfAnotherTitleOnlyBeginsTheSame) {
    PutNote(Note("ABC", "typed"));
    EditSaved(Note("A", "old"), "typed");
    RestartProgram();
    PutNote(Note("A", "by another machine"));
    Start(StandardCode::ReadNotes);
    EXPECT_EQ(Editor("A (recovered)").txtNote.text(), "typed");
    // Once its text is saved under the title of the recovered note, the copy is dropped.
    user->CloseBox(Editor("A (recovered)"));
    ASSERT_EQ(Saved("A (recovered)").Text, "typed");
    RecoveredNote again;
    again.file = "A.txt";
    again.base = 1;
    again.record = Note("A", "typed");
    RecoveryCopy().Keep(again);
    KillAndStartAgain();
    EXPECT_EQ(StandardCode::NoteTitles(), (Names{"A (recovered)", "A", "ABC"}));
    EXPECT_EQ(FilesOfNotes().size(), 3U);
}

TEST_F(UnsavedNotesTest, ARecoveredNoteWithALongTitleCanBeSaved) {
    // With its folder and extension, the path has the maximum length.
    const std::string title(259 - std::string("C:\\Jotwright\\Notes\\.txt").size(), 'x');
    PutNote(Note(title, "old"));
    Start(StandardCode::ReadNotes);
    for (const char* text : {"first", "second"}) {
        user->Restore(Editor(title));
        user->Type(Editor(title).txtNote, text);
        Advance(2000);
        RestartProgram();
        PutNote(Note(title, std::string("newer than the ") + text));
        Start(StandardCode::ReadNotes);
        ASSERT_EQ(StandardCode::NoteTitles().size(), *text == 'f' ? 2U : 3U);
        const std::string beside =
            title.substr(0, 219) + (*text == 'f' ? " (recovered)" : " (recovered 2)");
        EXPECT_EQ(Editor(beside).txtNote.text(), text);
        user->CloseBox(Editor(beside));
        EXPECT_EQ(Saved(beside).Text, text);
    }
}

TEST_F(UnsavedNotesTest, TwoNewNotesOfOneTitleBothComeBack) {
    MakeNote("Twin", "first");
    Start([] { StandardCode::CreateNote("Twin"); });
    auto* second = dynamic_cast<frmNote*>(runtime->LoadedForms().back().get());
    user->Type(second->txtNote, "second");
    Advance(2000);
    KillAndStartAgain();
    ASSERT_EQ(runtime->LoadedForms().size(), 2U);
    std::vector<std::string> texts;
    for (const auto& form : runtime->LoadedForms()) {
        texts.push_back(dynamic_cast<frmNote&>(*form).txtNote.text());
    }
    EXPECT_EQ(texts, (Names{"first", "second"}));
}

TEST_F(UnsavedNotesTest, TwoNotesInOneFileAreBothKept) {
    frmNote& first = MakeNote("Twin", "first");
    Start([&first] { first.WriteNote(); });
    Start([] { StandardCode::CreateNote("twin"); });
    auto* second = dynamic_cast<frmNote*>(runtime->LoadedForms().back().get());
    user->Type(second->txtNote, "second");
    Start([second] { second->WriteNote(); });
    EXPECT_EQ(Saved("Twin").Text, "second");
    Advance(2000);
    KillAndStartAgain();
    EXPECT_EQ(Editor("twin").txtNote.text(), "second");
    EXPECT_EQ(Editor("Twin (recovered)").txtNote.text(), "first");
}

TEST_F(UnsavedNotesTest, TheNoteKeepsItsColorAndItsAlarm) {
    EditSaved(Note("Dentist", "old").WithAlarm().InColor(3), "new");
    // A damaged file that is read earlier ends the restoring.
    files.PutFile(PathOf("Aaa"), "damaged");
    RestartProgram();
    ExpectLoadError("Input past end of file");
    Start(StandardCode::ReadNotes);
    frmNote& note = Editor("Dentist");
    EXPECT_EQ(note.txtNote.text(), "new");
    EXPECT_TRUE(note.mnuGreen.checked());
    EXPECT_EQ(note.cmdAlarm.caption(), "&Turn Off Alarm");
}

TEST_F(UnsavedNotesTest, ACopyKeepsItsAlarmIfTheAlarmIconIsMissing) {
    PutNote(Note("Dentist"));
    Start(StandardCode::ReadNotes);
    user->Restore(Editor("Dentist"));
    user->Pick(Editor("Dentist").dtTime, base::DateTime::FromTime(17, 0, 0));
    user->Click(Editor("Dentist").cmdAlarm);
    Advance(2000);
    const std::string icon = "C:\\Jotwright\\alarmon.ico";
    const std::string picture = files.Peek(icon).value_or("");
    files.Remove(icon);
    RestartProgram();
    ExpectLoadError("File not found");
    Start(StandardCode::ReadNotes);
    Advance(3000);
    EXPECT_EQ(StandardCode::NoteTitles(), Names{"Dentist"});
    files.PutFile(icon, picture);
    KillAndStartAgain();
    EXPECT_EQ(Editor("Dentist").cmdAlarm.caption(), "&Turn Off Alarm");
    EXPECT_EQ(Editor("Dentist").lblClock.caption(), "5:00:00 PM");
}

}  // namespace
