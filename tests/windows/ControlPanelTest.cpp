#include "tests/windows/DriverTest.h"
#include "tests/windows/Picture.h"

namespace driver {

namespace {

constexpr COLORREF red = RGB(255, 0, 0);
constexpr COLORREF black = RGB(0, 0, 0);
constexpr const char* eraseQuestion = "Deleting Note";

}  // namespace

class ControlPanelTest : public DriverTest {
  protected:
    // Starts the program with two minimized notes. The alarm of one note is set.
    Window StartWithTwoNotes();
    // Calls StartWithTwoNotes and closes both editors.
    Window StartWithTwoClosedNotes();
    void WaitForActions(const Window& panel, bool enabled) const;
    // Whether the panel's total has this text, drawn in color and not in otherColor.
    static bool TotalIsIn(const Window& panel, const std::string& total, COLORREF color,
                          COLORREF otherColor);

    const std::string dentist =
        "\"Dentist\",\"Call\",#2031-06-05#,#09:30:00#,5,12,\"1\",1,\"yes\"\r\n";
    const std::string shopping =
        "\"Shopping\",\"milk\",#2031-06-02#,#12:00:00#,1,12,\"0\",0,\"yes\"\r\n";
    // Entries of the list's menu.
    inline static const MenuPath editSelected{0};
    inline static const MenuPath eraseSelected{1};
    inline static const MenuPath openAll{2};
};

Window ControlPanelTest::StartWithTwoNotes() {
    WriteNote("Dentist", dentist);
    WriteNote("Shopping", shopping);
    return StartProgram();
}

Window ControlPanelTest::StartWithTwoClosedNotes() {
    const Window main = StartWithTwoNotes();
    CloseAndWait(program.WaitFor("Dentist"));
    CloseAndWait(program.WaitFor("Shopping"));
    return main;
}

void ControlPanelTest::WaitForActions(const Window& panel, bool enabled) const {
    WaitUntil("the buttons follow the selection", [&] {
        return panel.Button("&Edit").IsEnabled() == enabled &&
               panel.Button("&Erase").IsEnabled() == enabled;
    });
}

bool ControlPanelTest::TotalIsIn(const Window& panel, const std::string& total, COLORREF color,
                                 COLORREF otherColor) {
    return ComesTrue([&] {
        const Window label = panel.FindChild("Static", total);
        if (!label) {
            return false;
        }
        const Picture picture(label);
        return picture.Share(color) > 0.001 && picture.Share(otherColor) == 0;
    });
}

TEST_F(ControlPanelTest, ListsTheNotesAndErasesThem) {
    const Window panel = OpenPanel(StartWithTwoNotes());
    const Window list = panel.Only(listClass);
    EXPECT_EQ(ColumnHeading(list, 0), "Status");
    EXPECT_EQ(ColumnHeading(list, 1), "Note Title");
    EXPECT_EQ(ColumnHeading(list, 2), "Alarm Time");
    ASSERT_EQ(RowCount(list), 2);
    EXPECT_EQ(CellText(list, 0, 1), "Dentist");
    EXPECT_EQ(CellText(list, 0, 2), "6/5/2031 9:30:00 AM");
    EXPECT_EQ(CellText(list, 1, 1), "Shopping");
    EXPECT_EQ(CellText(list, 1, 2), "Alarm Not Set");
    EXPECT_NE(RowPicture(list, 0), RowPicture(list, 1));
    EXPECT_TRUE(TotalIsIn(panel, "Total Notes: 2", black, red));
    EXPECT_TRUE(
        panel.FindChild("Static", "Highlight any note and click 'Erase' to remove that note."));
    WaitForActions(panel, false);

    // Use the menu without a selected row.
    ChooseFromPopup(program, list, eraseSelected);
    const Box error(program, "Error Occured Removing Note");
    EXPECT_EQ(error.Text(), "Please Select A File To Remove.");
    error.Click("OK");

    SelectRow(list, 1);
    WaitForActions(panel, true);
    panel.Button("&Erase").Click();
    const Box question(program, eraseQuestion);
    EXPECT_EQ(question.Text(), "Would you like to erase        \r\n           SHOPPING?       ");
    question.Click("No");
    WaitForActions(panel, false);
    EXPECT_EQ(RowCount(list), 2);
    ExpectNote("Shopping", shopping);

    // Click the row that is already selected.
    SelectRow(list, 1);
    WaitForActions(panel, true);
    panel.Button("&Erase").Click();
    Box(program, eraseQuestion).Click("Yes");
    WaitUntil("the row has gone", [&] { return RowCount(list) == 1; });
    WaitForActions(panel, false);
    EXPECT_EQ(CellText(list, 0, 1), "Dentist");
    EXPECT_FALSE(FileExists(NotePath("Shopping")));
    EXPECT_TRUE(panel.FindChild("Static", "Total Notes: 1"));

    SelectRow(list, 0);
    WaitForActions(panel, true);
    RightClickRow(list, 0);
    ChooseFromOpenMenu(program, panel, eraseSelected);
    const Box last(program, eraseQuestion);
    EXPECT_EQ(last.Text(), "Would you like to erase        \r\n           DENTIST?       ");
    last.Click("Yes");
    WaitUntil("the list is empty", [&] { return RowCount(list) == 0 && !list.IsEnabled(); });
    EXPECT_TRUE(panel.FindChild("Static", "Total Notes: 0"));
    EXPECT_FALSE(FileExists(NotePath("Dentist")));
    panel.Button("&Close").Click();
    program.WaitUntilGone(panelCaption);
}

TEST_F(ControlPanelTest, OpensAllNotesAndStaysCorrectWhileTheyAreOpen) {
    const Window main = StartWithTwoNotes();
    const Window dentistEditor = program.WaitFor("Dentist");
    const Window shoppingEditor = program.WaitFor("Shopping");
    Window panel = OpenPanel(main);
    ASSERT_TRUE(dentistEditor.IsMinimized());
    panel.Button("&Open All Notes").Click();
    WaitUntilFilled(dentistEditor, "Edit");
    WaitUntilFilled(shoppingEditor, "Edit");
    EXPECT_TRUE(panel.IsVisible());

    // Save a note in its editor.
    const Window list = panel.Only(listClass);
    EXPECT_EQ(CellText(list, 1, 2), "Alarm Not Set");
    shoppingEditor.Button(editorSet).Click();
    WaitUntil("the alarm is set",
              [&] { return static_cast<bool>(shoppingEditor.FindChild("Button", editorTurnOff)); });
    ClickToolbar(shoppingEditor.Only(toolbarClass), toolbarSave);
    Box(program, "").Click("OK");
    EXPECT_TRUE(ComesTrue([&] { return CellText(list, 1, 2) == "6/2/2031 12:00:00 PM"; }));
    EXPECT_EQ(RowPicture(list, 1), RowPicture(list, 0));

    // Erase a note in the panel. Its editor stays open, and Save writes the file again.
    SelectRow(list, 0);
    WaitForActions(panel, true);
    panel.Button("&Erase").Click();
    Box(program, eraseQuestion).Click("Yes");
    WaitUntil("the row has gone", [&] { return RowCount(list) == 1; });
    EXPECT_TRUE(dentistEditor.IsVisible());
    ClickToolbar(dentistEditor.Only(toolbarClass), toolbarSave);
    Box(program, "").Click("OK");
    ExpectNote("Dentist", dentist);
    EXPECT_TRUE(ComesTrue([&] { return RowCount(list) == 2; }));
    EXPECT_TRUE(panel.FindChild("Static", "Total Notes: 2"));

    // Use the menu while one editor is minimized and the other is closed.
    dentistEditor.Minimize();
    WaitUntil("the editor is minimized", [&] { return dentistEditor.IsMinimized(); });
    shoppingEditor.CloseBox();
    WaitUntil("the editor has gone", [&] { return !shoppingEditor.Exists(); });
    panel = program.WaitFor(panelCaption);
    ChooseFromPopup(program, panel.Only(listClass), openAll);
    WaitUntil("the open note is shown", [&] { return !dentistEditor.IsMinimized(); });
    EXPECT_TRUE(program.Visible("Shopping").empty());

    // New shows the main window again, with the focus in the box for the title.
    main.Button("&Hide Me").Click();
    WaitUntil("the main window hides", [&] { return !main.IsVisible(); });
    panel.Button("&New").Click();
    program.WaitUntilGone(panelCaption);
    EXPECT_TRUE(ComesTrue([&] { return main.IsVisible() && main.Only("Edit").HasFocus(); }));
}

TEST_F(ControlPanelTest, EditsWithADoubleClickAndAsksBeforeItSaves) {
    Window panel = OpenPanel(StartWithTwoClosedNotes());
    DoubleClickRow(panel.Only(listClass), 1);
    Window editor = program.WaitFor("Shopping");
    WaitUntilFilled(editor, "Edit");
    program.WaitUntilGone(panelCaption);
    EXPECT_EQ(editor.Only("Edit").Text(), "milk");
    // If a change keeps the length of the text, no question is asked.
    editor.Only("Edit").Type("eggs");
    CloseAndWait(editor);
    panel = program.WaitFor(panelCaption);
    WaitUntilFilled(panel, listClass);
    ExpectNote("Shopping", shopping);

    RightClickRow(panel.Only(listClass), 1);
    ChooseFromOpenMenu(program, panel, editSelected);
    editor = program.WaitFor("Shopping");
    WaitUntilFilled(editor, "Edit");
    editor.Only("Edit").Type("milk and eggs");
    editor.CloseBox();
    const Box first(program, saveQuestion);
    EXPECT_EQ(first.Text(), " Would you like to save changes?     ");
    first.Click("No");
    WaitUntil("the editor has gone", [&] { return !editor.Exists(); });
    ExpectNote("Shopping", shopping);
    panel = program.WaitFor(panelCaption);
    WaitUntilFilled(panel, listClass);
    EXPECT_EQ(RowCount(panel.Only(listClass)), 2);

    SelectRow(panel.Only(listClass), 1);
    WaitForActions(panel, true);
    panel.Button("&Edit").Click();
    editor = program.WaitFor("Shopping");
    WaitUntilFilled(editor, "Edit");
    editor.Only("Edit").Type("milk and eggs");
    editor.Button(editorSet).Click();
    WaitUntil("the alarm is set",
              [&] { return static_cast<bool>(editor.FindChild("Button", editorTurnOff)); });
    ClickToolbar(editor.Only(toolbarClass), toolbarHide);
    Box(program, saveQuestion).Click("Yes");
    WaitUntil("the editor has gone", [&] { return !editor.Exists(); });
    ExpectNote("Shopping",
               "\"Shopping\",\"milk and eggs\",#2031-06-02#,#12:00:00#,1,12,\"1\",0,\"yes\"\r\n");
    panel = program.WaitFor(panelCaption);
    WaitUntilFilled(panel, listClass);
    EXPECT_EQ(CellText(panel.Only(listClass), 1, 2), "6/2/2031 12:00:00 PM");
}

TEST_F(ControlPanelTest, AsksAboutATextThatWasTypedBeforeItsWindowWasActivatedAgain) {
    const Window main = StartWithTwoClosedNotes();
    const Window panel = OpenPanel(main);
    DoubleClickRow(panel.Only(listClass), 1);
    Window editor = program.WaitFor("Shopping");
    WaitUntilFilled(editor, "Edit");
    BringUp(editor);
    editor.Only("Edit").Type("milk and eggs");
    BringUp(main);
    BringUp(editor);
    editor.CloseBox();
    Box(program, saveQuestion).Click("No");
    WaitUntil("the editor has gone", [&] { return !editor.Exists(); });
    ExpectNote("Shopping", shopping);

    // If the note is open, Edit in the panel also counts as an activation.
    const auto edit = [this](const Window& openPanel) {
        SelectRow(openPanel.Only(listClass), 1);
        WaitForActions(openPanel, true);
        openPanel.Button("&Edit").Click();
    };
    WaitUntilFilled(program.WaitFor(panelCaption), listClass);
    edit(program.WaitFor(panelCaption));
    editor = program.WaitFor("Shopping");
    WaitUntilFilled(editor, "Edit");
    editor.Only("Edit").Type("milk and bread");
    program.WaitUntilGone(panelCaption);
    edit(OpenPanel(main));
    program.WaitUntilGone(panelCaption);
    WaitUntil("the editor is active", [&] { return editor.Only("Edit").HasFocus(); });
    EXPECT_EQ(program.Visible("Shopping").size(), 1U);
    EXPECT_EQ(editor.Only("Edit").Text(), "milk and bread");
    editor.CloseBox();
    Box(program, saveQuestion).Click("Yes");
    WaitUntil("the editor has gone", [&] { return !editor.Exists(); });
    ExpectNote("Shopping",
               "\"Shopping\",\"milk and bread\",#2031-06-02#,#12:00:00#,1,12,\"0\",0,\"yes\"\r\n");
}

TEST_F(ControlPanelTest, NewBringsTheMinimizedMainWindowBack) {
    const Window main = StartProgram();
    const Window panel = OpenPanel(main);
    main.Minimize();
    WaitUntil("the main window is minimized", [&] { return main.IsMinimized(); });
    BringUp(panel);
    panel.Button("&New").Click();
    program.WaitUntilGone(panelCaption);
    WaitUntil("the title box has the focus", [&] {
        return main.IsVisible() && !main.IsMinimized() && main.Only("Edit").HasFocus();
    });
    ExitProgram();
}

TEST_F(ControlPanelTest, ShowsTheLimitInRedUntilANoteIsErased) {
    const Window main = StartProgram();
    for (int i = 1; i <= 100; ++i) {
        const std::string title = "Note " + std::to_string(1000 + i);
        WriteNote(title,
                  '"' + title + "\",\"text\",#2031-06-05#,#09:30:00#,1,12,\"0\",0,\"yes\"\r\n");
    }
    const Window panel = OpenPanel(main);
    EXPECT_EQ(RowCount(panel.Only(listClass)), 100);
    EXPECT_TRUE(TotalIsIn(panel, "Total Notes: 100 ( Maximum Reached )", red, black));
    EXPECT_FALSE(panel.Button("&New").IsEnabled());

    EXPECT_FALSE(main.Button("Make &Note").IsEnabled());
    EXPECT_FALSE(main.Only("Edit").IsEnabled());

    SelectRow(panel.Only(listClass), 0);
    WaitForActions(panel, true);
    panel.Button("&Erase").Click();
    Box(program, eraseQuestion).Click("Yes");
    WaitUntil("notes can be made again", [&] { return panel.Button("&New").IsEnabled(); });
    EXPECT_TRUE(TotalIsIn(panel, "Total Notes: 99", black, red));
    EXPECT_TRUE(main.Button("Make &Note").IsEnabled());
    EXPECT_TRUE(main.Only("Edit").IsEnabled());
}

}  // namespace driver
