#include "tests/windows/DriverTest.h"

namespace driver {

class SystemTest : public DriverTest {
  protected:
    void WriteNotes(std::size_t count) const {
        for (std::size_t i = 1; i <= count; ++i) {
            const std::string title = "Note " + std::to_string(i);
            WriteNote(title,
                      '"' + title + "\",\"text\",#2031-06-05#,#09:30:00#,1,12,\"1\",0,\"yes\"\r\n");
        }
    }
    std::size_t CountMinimized() const {
        std::size_t minimized = 0;
        for (const Window& window : program.Windows()) {
            minimized += window.IsVisible() && window.IsMinimized() ? 1 : 0;
        }
        return minimized;
    }
};

TEST_F(SystemTest, LettersOfAllScriptsAreKept) {
    const std::string title = "Z\xC3\xBCrich \xCE\xA9";                       // u umlaut and omega
    const std::string text = "\xE6\x97\xA5\xE6\x9C\xAC\r\n\xF0\x9F\x98\x80";  // ends in U+1F600
    const Window editor = MakeNote(StartProgram(), title);
    editor.Only("Edit").Type(text);
    EXPECT_EQ(editor.Only("Edit").Text(), text);
    HideNote(editor);
    const std::string bytes = "\xEF\xBB\xBF\"" + title + "\",\"" + text +
                              "\",#2031-06-02#,#12:00:00#,1,12,\"0\",0,\"yes\"\r\n";
    ExpectNote(title, bytes);
    ExitProgram();

    StartProgram();
    EXPECT_EQ(OpenRestored(title).Only("Edit").Text(), text);
    ExitProgram();
    ExpectNote(title, bytes);
}

TEST_F(SystemTest, WesternLettersAreWrittenInTheSystemsCodePage) {
    const Window editor = MakeNote(StartProgram(), "Caf\xC3\xA9");
    editor.Only("Edit").Type("5 \xE2\x82\xAC");  // a euro sign
    HideNote(editor);
    ExpectNote("Caf\xC3\xA9",
               "\"Caf\xE9\",\"5 \x80\",#2031-06-02#,#12:00:00#,1,12,\"0\",0,\"yes\"\r\n");
}

TEST_F(SystemTest, AHundredNotesComeBackAndNoMoreCanBeMade) {
    WriteNotes(100);
    program.Start(executable);
    const Box box(program, "Jotwright: Maximum Notes Reached");
    EXPECT_EQ(box.Text(),
              "The maximum number of 100 notes has been reached.\r\n\r\nExsiting notes will have "
              "to be deleted before more can be created.\r\n ");
    box.Click("OK");
    const Window main = MainWindow();
    EXPECT_FALSE(main.Button("Make &Note").IsEnabled());
    EXPECT_FALSE(main.Only("Edit").IsEnabled());
    EXPECT_EQ(CountMinimized(), 100U);
    ExitProgram();
}

// The windows beyond the first hundred appear in rounds. Meanwhile the main window can be used.
TEST_F(SystemTest, MoreNotesThanSlotsComeBackAsWell) {
    constexpr std::size_t count = 250;
    WriteNotes(count);
    program.Start(executable);
    Box(program, "Error Loading Notes Array").Click("OK");
    Box(program, "Jotwright: Maximum Notes Reached").Click("OK");
    EXPECT_TRUE(MainWindow().Button("&Hide Me").IsEnabled());
    WaitUntil("all notes are back", [&] { return CountMinimized() == count; });
    ExitProgram();
    EXPECT_EQ(FileNames(folder + "\\Notes").size(), count);
}

TEST_F(SystemTest, TheWebSiteOpensInTheBrowser) {
    const std::string log = UnixPath(Variable("JOTWRIGHT_BROWSER_LOG"));
    WriteWholeFile(log, "");
    const Window main = StartProgram();
    ChooseFromMenuBar(program, main, barVisitWebSite);
    WaitUntil("the browser has been called",
              [&] { return WholeFile(log).value_or("").find("http") == 0; });
    EXPECT_TRUE(main.IsEnabled());
}

TEST_F(SystemTest, ADamagedFileIsRemovedAndTheOthersStay) {
    WriteNote("Bad", "\"Bad\",\"no");
    WriteNote("Good", "\"Good\",\"text\",#2031-06-05#,#09:30:00#,1,12,\"0\",0,\"yes\"\r\n");
    StartProgram();
    EXPECT_TRUE(program.WaitFor("Good").IsMinimized());
    EXPECT_EQ(FileNames(folder + "\\Notes"), std::vector<std::string>{"Good.txt"});
    EXPECT_TRUE(FileExists(NotePath("Good")));
}

}  // namespace driver
