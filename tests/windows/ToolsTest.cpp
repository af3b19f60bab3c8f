#include "tests/windows/DriverTest.h"

namespace driver {

namespace {

constexpr const char* panelCaption = "Notes Control Panel";
constexpr const char* listClass = "SysListView32";

}  // namespace

class Tools : public DriverTest {
  protected:
    void WriteTwoNotes() const;
    Window OpenPanel(const Window& main) const;
};

void Tools::WriteTwoNotes() const {
    WriteNote("Dentist", "\"Dentist\",\"Call\",#2031-06-05#,#09:30:00#,5,12,\"1\",1,\"yes\"\r\n");
    WriteNote("Shopping", "\"Shopping\",\"milk\",#2031-06-02#,#12:00:00#,1,12,\"0\",0,\"yes\"\r\n");
}

Window Tools::OpenPanel(const Window& main) const {
    main.Button("Notes &Control Panel").Click();
    const Window panel = program.WaitFor(panelCaption);
    WaitUntilFilled(panel, listClass);
    return panel;
}

TEST_F(Tools, TheControlPanelListsTheNotesAndErasesOne) {
    WriteTwoNotes();
    const Window panel = OpenPanel(StartProgram());
    const Window list = panel.Only(listClass);
    ASSERT_EQ(RowCount(list), 2);
    EXPECT_TRUE(panel.FindChild("Static", "Total Notes: 2"));
    EXPECT_EQ(CellText(list, 0, 1), "Dentist");
    EXPECT_EQ(CellText(list, 0, 2), "6/5/2031 9:30:00 AM");
    EXPECT_EQ(CellText(list, 1, 1), "Shopping");
    EXPECT_EQ(CellText(list, 1, 2), "Alarm Not Set");
    EXPECT_FALSE(panel.Button("&Erase").IsEnabled());

    ClickRow(list, 1);
    WaitUntil("the row can be erased", [&] { return panel.Button("&Erase").IsEnabled(); });
    panel.Button("&Erase").Click();
    const Box question(program, "Deleting Note");
    EXPECT_EQ(question.Text(), "Would you like to erase        \r\n           SHOPPING?       ");
    question.Press("Yes");
    WaitUntil("the row has gone", [&] { return RowCount(list) == 1; });
    EXPECT_EQ(CellText(list, 0, 1), "Dentist");
    EXPECT_FALSE(FileExists(NotePath("Shopping")));
    EXPECT_TRUE(panel.FindChild("Static", "Total Notes: 1"));
}

TEST_F(Tools, ANoteOpenedFromThePanelAsksBeforeItSaves) {
    WriteTwoNotes();
    const Window main = StartProgram();
    const Window restored = program.WaitFor("Shopping");
    restored.Close();
    WaitUntil("the editor has gone", [&] { return !restored.Exists(); });

    const Window panel = OpenPanel(main);
    ClickRow(panel.Only(listClass), 1);
    WaitUntil("the row can be edited", [&] { return panel.Button("&Edit").IsEnabled(); });
    panel.Button("&Edit").Click();
    const Window editor = program.WaitFor("Shopping");
    WaitUntilFilled(editor, "Edit");
    EXPECT_EQ(editor.Only("Edit").Text(), "milk");
    editor.Only("Edit").Type("milk and eggs");
    editor.Close();
    const Box question(program, "Save Changes?");
    EXPECT_EQ(question.Text(), " Would you like to save changes?     ");
    question.Press("No");
    WaitUntil("the editor has gone", [&] { return !editor.Exists(); });
    ExpectNote("Shopping",
               "\"Shopping\",\"milk\",#2031-06-02#,#12:00:00#,1,12,\"0\",0,\"yes\"\r\n");
    EXPECT_EQ(RowCount(program.WaitFor(panelCaption).Only(listClass)), 2);
}

TEST_F(Tools, OptionsAreAppliedAndUsedByTheNextNote) {
    const Window main = StartProgram();
    ChooseFromMenuBar(program, main, barNoteOptions);
    const Window options = program.WaitFor("Note Options");
    EXPECT_TRUE(options.Button("White").IsChecked());
    options.Button("Green").Click();
    options.Button("16 point").Click();
    options.Button("Hide System Date And Time In Note Editor").Click();
    WaitUntil("the choices are shown", [&] {
        return options.Button("Green").IsChecked() && options.Button("16 point").IsChecked();
    });
    options.Button("A&pply").Click();
    program.WaitUntilGone("Note Options");
    EXPECT_EQ(Setting("Options", "DefaultColor"), "2");
    EXPECT_EQ(Setting("Options", "DefaultFontSize"), "3");
    EXPECT_EQ(Setting("Options", "ShowDateTime"), "1");
    EXPECT_EQ(Setting("Options", "NoteLoops"), "0");
    EXPECT_EQ(Setting("Options", "WindowOnTop"), "0");
    EXPECT_EQ(Setting("Options", "StartCookoo"), "0");
    EXPECT_EQ(Setting("Options", "IsService"), "0");

    const Window editor = MakeNote(main, "Shopping");
    EXPECT_TRUE(editor.FindChild("Button", "Show &System Date/Time"));
    HideNote(editor);
    ExpectNote("Shopping", "\"Shopping\",\"\",#2031-06-02#,#12:00:00#,3,16,\"0\",0,\"yes\"\r\n");
}

}  // namespace driver
