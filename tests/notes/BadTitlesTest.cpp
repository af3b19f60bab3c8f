#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

#include "notes/TitleRules.h"
#include "tests/support/NoteProgram.h"

// Titles that the rules accept although they are not valid file names, and unusual titles that are
// valid file names.

namespace {

using Names = std::vector<std::string>;

constexpr const char* badName = "52 - Bad file name or number";

class BadTitlesTest : public testing_support::NoteProgram {
  protected:
    Names FilesOfNotes() const { return files.Names("C:\\Jotwright\\Notes"); }
    // The files that no save may change.
    Names FilesAround() const {
        Names names = files.Names("C:\\Jotwright");
        for (const char* folder :
             {"C:", "C:\\Jotwright\\Notes\\sub", "C:\\Jotwright\\SpecialAlarms"}) {
            const Names more = files.Names(folder);
            names.insert(names.end(), more.begin(), more.end());
        }
        return names;
    }
};

TEST_F(BadTitlesTest, ATitleThatIsNoFileNameIsReportedAndTheTextStays) {
    const Names around = FilesAround();
    for (const std::string& title : std::vector<std::string>{
             "CON", "con", "Nul", "AUX ", "PRN", "COM1", "lpt9", "CONIN$", "conout$", "a*b", "a?b",
             "a|b", "a<b", "a>b", "tab\tstop", "line\r\nbreak", "bell\a", std::string(252, 'n'),
             std::string(65536, 'n'),
             // 126 characters of two UTF-16 units each
             [] {
                 std::string emoji;
                 for (int i = 0; i < 126; ++i) {
                     emoji += "\xf0\x9f\x98\x80";
                 }
                 return emoji;
             }()}) {
        ASSERT_TRUE(TitleRules::Check(title, false).IsAccepted());
        frmNote& note = MakeNote(title, "typed");
        ExpectWriteError(badName);
        user->CloseBox(note);
        ASSERT_TRUE(testing_support::IsNoteOpen(title)) << title;
        EXPECT_TRUE(note.IsVisible());
        EXPECT_EQ(note.txtNote.text(), "typed");
        EXPECT_TRUE(FilesOfNotes().empty()) << title;
        ExpectWriteError(badName);
        user->Click(note.tlbMain, "Save");
        EXPECT_TRUE(FilesOfNotes().empty()) << title;
        stage->improvise.box = [](const forms::BoxRequest&) { return forms::BoxResult::Yes; };
        user->Click(note.tlbMain, "Erase");
        stage->improvise.box = nullptr;
        ASSERT_FALSE(testing_support::IsNoteOpen(title)) << title;
    }
    EXPECT_EQ(FilesAround(), around);
}

TEST_F(BadTitlesTest, APathThatIsTooLongForTheSystemIsReported) {
    const std::string title(250, 'n');
    frmNote& note = MakeNote(title, "typed");
    ExpectWriteError("76 - Path not found");
    user->CloseBox(note);
    EXPECT_EQ(Editor(title).txtNote.text(), "typed");
    EXPECT_TRUE(FilesOfNotes().empty());
}

TEST_F(BadTitlesTest, AnUnusualTitleThatIsAFileNameIsSavedUnderIt) {
    const Names titles{
        "a",
        "a ",
        " a",
        "console",
        "COM10",
        "my con",
        "100%",
        "~note",
        "[x] {y} (z) + = ! @ # $ ^ & , `",
        "\xf0\x9f\x98\x80",                      // beyond the first plane
        "\xd7\xa9\xd7\x9c\xd7\x95\xd7\x9d",      // from right to left
        "e\xcc\x81 and \xc3\xa9",                // decomposed and composed
        "\xe6\x97\xa5\xe6\x9c\xac\xe8\xaa\x9e",  // ideographs
        "\xe2\x80\xae"
        "txt"
        "\xe2\x80\xac",  // with reversed direction
    };
    for (const std::string& title : titles) {
        user->CloseBox(MakeNote(title, "text of " + title));
        EXPECT_FALSE(testing_support::IsNoteOpen(title)) << title;
    }
    EXPECT_EQ(FilesOfNotes().size(), titles.size());
    RestartProgram();
    Start(StandardCode::ReadNotes);
    for (const std::string& title : titles) {
        EXPECT_TRUE(FileOf(title).has_value()) << title;
        EXPECT_EQ(Editor(title).txtNote.text(), "text of " + title);
    }
}

// The title in the file of a note may be any text.
TEST_F(BadTitlesTest, ATitleInAFileNeverNamesAnotherFile) {
    const Names titles{"..\\evil",
                       "..\\SpecialAlarms\\SpecialAlarms",
                       "x\\..\\..\\evil",
                       "C:\\evil",
                       "evil.exe:hidden",
                       "\\\\server\\share\\evil",
                       "\\evil",
                       "\\\\?\\C:\\evil",
                       ".",
                       "CON"};
    for (const std::string& title : titles) {
        files.PutFile(PathOf("strange"), NoteFile::Encode(Note(title)));
        Start(StandardCode::ReadNotes);
        frmNote& note = Editor(title);
        user->Restore(note);
        user->Type(note.txtNote, "typed");
        const Names around = FilesAround();
        user->CloseBox(note);
        // The note is saved to the file from which it was read.
        EXPECT_EQ(FileOf("strange"), NoteFile::Encode(Note(title, "typed"))) << title;
        EXPECT_EQ(FilesOfNotes(), Names{"strange.txt"}) << title;
        EXPECT_EQ(FilesAround(), around) << title;
        RestartProgram();
    }
}

TEST_F(BadTitlesTest, ErasingANoteWithAnUnusualTitleErasesNoOtherFile) {
    files.PutFile("C:\\Jotwright\\kept.txt", "kept");
    const auto fresh = files;
    for (const char* title : {"..\\kept", "C:\\Jotwright\\kept"}) {
        files.PutFile(PathOf("strange"), NoteFile::Encode(Note(title)));
        Start(StandardCode::ReadNotes);
        stage->improvise.box = [](const forms::BoxRequest&) { return forms::BoxResult::Yes; };
        user->Restore(Editor(title));
        user->Click(Editor(title).tlbMain, "Erase");
        EXPECT_EQ(files.Peek("C:\\Jotwright\\kept.txt"), "kept");
        EXPECT_TRUE(FilesOfNotes().empty());
        EXPECT_EQ(files.RecycleBin(), Names{PathOf("strange")});
        files = fresh;
        RestartProgram();
    }
}

TEST_F(BadTitlesTest, AFolderInPlaceOfTheFileIsReported) {
    files.PutFolder("C:\\Jotwright\\Notes\\Dentist.txt");
    frmNote& note = MakeNote("Dentist", "typed");
    ExpectWriteError("75 - Path/File access error");
    user->CloseBox(note);
    EXPECT_EQ(Editor("Dentist").txtNote.text(), "typed");
    EXPECT_TRUE(files.FolderExists("C:\\Jotwright\\Notes\\Dentist.txt"));
}

}  // namespace
