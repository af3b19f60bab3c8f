#include "tests/windows/DriverTest.h"

namespace driver {

// A note is identified by its file, not by its title.
class SameTitlesTest : public DriverTest {
  protected:
    // Starts the program with two files, "First" and "Second", whose notes have the title
    // "Shopping", and restores both editors.
    void StartWithTwo();
    // The editor that shows this text.
    Window EditorOf(const std::string& text) const;
    // Opens the note of a row with a double click. Returns its editor, which shows this text.
    Window EditRow(const Window& panel, int row, const std::string& text) const;
    static std::string Bytes(const std::string& text) {
        return "\"Shopping\",\"" + text + "\",#2031-06-02#,#12:00:00#,1,12,\"0\",0,\"yes\"\r\n";
    }
    std::vector<std::string> Files() const { return FileNames(folder + "\\Notes"); }

    const std::vector<std::string> bothFiles{"First.txt", "Second.txt"};
};

void SameTitlesTest::StartWithTwo() {
    WriteNote("First", Bytes("milk"));
    WriteNote("Second", Bytes("bread"));
    StartProgram();
    WaitUntil("both notes are there", [&] { return program.Visible("Shopping").size() == 2; });
    for (const Window& editor : program.Visible("Shopping")) {
        EXPECT_TRUE(editor.IsMinimized());
        Restore(editor);
    }
}

Window SameTitlesTest::EditorOf(const std::string& text) const {
    Window found;
    WaitUntil("an editor shows " + text, [&] {
        for (const Window& editor : program.Visible("Shopping")) {
            const auto boxes = editor.ChildrenOfClass("Edit");
            if (!boxes.empty() && boxes.front().Text() == text) {
                found = editor;
            }
        }
        return static_cast<bool>(found);
    });
    return found;
}

Window SameTitlesTest::EditRow(const Window& panel, int row, const std::string& text) const {
    EXPECT_EQ(CellText(panel.Only(listClass), row, 1), "Shopping");
    DoubleClickRow(panel.Only(listClass), row);
    const Window editor = EditorOf(text);
    program.WaitUntilGone(panelCaption);
    return editor;
}

TEST_F(SameTitlesTest, EachNoteIsSavedToItsOwnFile) {
    StartWithTwo();
    const Window first = EditorOf("milk");
    const Window second = EditorOf("bread");
    first.Only("Edit").Type("milk and eggs");
    second.Only("Edit").Type("bread and butter");
    HideNote(first);
    ExpectNote("First", Bytes("milk and eggs"));
    ExpectNote("Second", Bytes("bread"));
    HideNote(second);
    ExpectNote("Second", Bytes("bread and butter"));

    // Each row opens its own note.
    Window panel = OpenPanel(FindMain());
    EXPECT_TRUE(panel.FindChild("Static", "Total Notes: 2"));
    ASSERT_EQ(RowCount(panel.Only(listClass)), 2);
    CloseAndWait(EditRow(panel, 1, "bread and butter"));
    panel = program.WaitFor(panelCaption);
    WaitUntilFilled(panel, listClass);
    const Window again = EditRow(panel, 0, "milk and eggs");
    again.Only("Edit").Type("milk");
    again.CloseBox();
    Box(program, saveQuestion).Click("Yes");
    WaitUntil("the editor has gone", [&] { return !again.Exists(); });
    ExpectNote("First", Bytes("milk"));
    ExpectNote("Second", Bytes("bread and butter"));
    EXPECT_EQ(Files(), bothFiles);
}

TEST_F(SameTitlesTest, TheEndOfTheProgramSavesTheNoteThatWasChanged) {
    StartWithTwo();
    EditorOf("bread").Only("Edit").Type("bread and butter");
    ExitProgram();
    ExpectNote("First", Bytes("milk"));
    ExpectNote("Second", Bytes("bread and butter"));
    EXPECT_EQ(Files(), bothFiles);
}

TEST_F(SameTitlesTest, OneIsErasedWithoutTheOther) {
    StartWithTwo();
    const Window first = EditorOf("milk");
    const Window second = EditorOf("bread");
    ClickToolbar(first.Only(toolbarClass), toolbarErase);
    Box(program, "Kill Note").Click("Yes");
    WaitUntil("the editor has gone", [&] { return !first.Exists(); });
    EXPECT_EQ(Files(), std::vector<std::string>{"Second.txt"});
    EXPECT_EQ(second.Only("Edit").Text(), "bread");
    ExitProgram();

    // In the panel, with the editors closed.
    StartWithTwo();
    CloseAndWait(EditorOf("milk"));
    CloseAndWait(EditorOf("bread"));
    const Window panel = OpenPanel(FindMain());
    const Window list = panel.Only(listClass);
    ASSERT_EQ(RowCount(list), 2);
    SelectRow(list, 1);
    WaitUntil("a note is selected", [&] { return panel.Button("&Erase").IsEnabled(); });
    panel.Button("&Erase").Click();
    Box(program, "Deleting Note").Click("Yes");
    WaitUntil("the row is gone", [&] { return RowCount(list) == 1; });
    WaitUntil("the file is gone", [&] { return !FileExists(NotePath("Second")); });
    EXPECT_EQ(Files(), std::vector<std::string>{"First.txt"});
    CloseAndWait(EditRow(panel, 0, "milk"));
    ExpectNote("First", Bytes("milk"));
    ExitProgram();
    EXPECT_EQ(Files(), std::vector<std::string>{"First.txt"});
}

}  // namespace driver
