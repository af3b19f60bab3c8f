#include <algorithm>

#include "tests/notes/RecoveryProgram.h"

// If the file of a note has changed since its recovery copy was written, the copy is opened as a
// second note beside it.

namespace {

using RecoveryBesideTest = testing_support::RecoveryProgram;

TEST_F(RecoveryBesideTest, ACopyOfAnOlderFileComesUpBesideTheNote) {
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
TEST_F(RecoveryBesideTest, ACopyThatCouldNotBeRemovedNeverReplacesASavedText) {
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

TEST_F(RecoveryBesideTest, ANewNoteWhoseTitleIsTakenMeanwhileComesUpBesideTheOther) {
    MakeNote("Dentist", "typed");
    Advance(2000);
    RestartProgram();
    PutNote(Note("Dentist", "by another machine"));
    Start(StandardCode::ReadNotes);
    EXPECT_EQ(Editor("Dentist").txtNote.text(), "by another machine");
    EXPECT_EQ(Editor("Dentist (recovered)").txtNote.text(), "typed");
}

TEST_F(RecoveryBesideTest, ATornCopyComesUpBesideTheNote) {
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

TEST_F(RecoveryBesideTest, ACopyOfAnEarlierVersionComesUpBesideTheNote) {
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

TEST_F(RecoveryBesideTest, ACopyIsNotDroppedIfAnotherTitleOnlyBeginsTheSame) {
    PutNote(Note("ABC", "typed"));
    EditSaved(Note("A", "old"), "typed");
    RestartProgram();
    PutNote(Note("A", "by another machine"));
    Start(StandardCode::ReadNotes);
    EXPECT_EQ(Editor("A (recovered)").txtNote.text(), "typed");
    // The copy is dropped if its text was saved under such a title.
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

TEST_F(RecoveryBesideTest, ARecoveredNoteWithALongTitleCanBeSaved) {
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

}  // namespace
