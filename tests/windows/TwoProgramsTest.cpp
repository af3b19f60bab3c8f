#include "tests/windows/DriverTest.h"
#include "tests/windows/Needs.h"

namespace driver {

// Two sessions of a user, or two machines, may share the folder of the notes.
class TwoProgramsTest : public DriverTest {
  protected:
    // Starts a second copy that does not detect the first.
    void StartSecond();
    Window SecondMain() const;
    static std::string Shopping(const std::string& text) {
        return "\"Shopping\",\"" + text + "\",#2031-06-02#,#12:00:00#,1,12,\"0\",0,\"yes\"\r\n";
    }
    std::string InNotes(const std::string& name) const { return folder + "\\Notes\\" + name; }
    // The instance id of the program that keeps this copy. It is in the second line of the copy.
    std::string InstanceOf(const std::string& copyName) const;

    Program second;
};

Window TwoProgramsTest::SecondMain() const {
    for (const Window& window : second.Windows()) {
        if (window.HasTitleBar() && window.Text() == mainCaption && window.IsVisible()) {
            return window;
        }
    }
    return {};
}

void TwoProgramsTest::StartSecond() {
    Need(Program::CanCloseMutexes(), "Windows 10");
    program.CloseMutex("Local\\Jotwright.Instance");
    second.Start(executable);
    WaitUntil("the second main window is shown",
              [this] { return static_cast<bool>(SecondMain()); });
}

std::string TwoProgramsTest::InstanceOf(const std::string& copyName) const {
    const std::string bytes = WholeFile(CopyPath(copyName)).value();
    const std::size_t start = bytes.find("\r\n") + 2;
    return bytes.substr(start, bytes.find("\r\n", start) - start);
}

TEST_F(TwoProgramsTest, NeitherTouchesTheUnsavedTextsOfTheOther) {
    WriteNote("Shopping", Shopping("milk"));
    StartProgram();
    const Window first = OpenRestored("Shopping");
    first.Only("Edit").Type("milk and eggs");
    WaitForCopy("Shopping", "milk and eggs");
    const std::string firstCopy = CopyPath("Shopping");
    const std::string copy = WholeFile(firstCopy).value();
    // A file that the first program is writing, and files that killed programs have left.
    const std::string beingWritten = "~Jotwright-" + InstanceOf("Shopping") + "-999.tmp";
    WriteWholeFile(InNotes(beingWritten),
                   "\"Rent\",\"pay\",#2031-06-02#,#12:00:00#,1,12,\"0\",0,\"yes\"\r\n");
    WriteWholeFile(InNotes("~Jotwright-0123456789abcdef-1.tmp"), "\"Half\",\"a no");
    WriteWholeFile(InNotes("~Jotwright-0123456789abcdef-2.tmp"),
                   "\"Lost\",\"text\",#2031-06-02#,#12:00:00#,1,12,\"0\",0,\"yes\"\r\n");

    StartSecond();
    const Window other = second.WaitFor("Shopping");
    EXPECT_TRUE(other.IsMinimized());
    Restore(other);
    EXPECT_EQ(other.Only("Edit").Text(), "milk");
    EXPECT_TRUE(second.WaitFor("Lost").IsMinimized());
    EXPECT_EQ(FileNames(folder + "\\Notes"),
              (std::vector<std::string>{"Lost.txt", "Shopping.txt", beingWritten,
                                        firstCopy.substr(firstCopy.rfind('\\') + 1)}));
    EXPECT_EQ(WholeFile(firstCopy), copy);

    // At first, each program has its own recovery copy. Then each program saves its text. The text
    // that is saved last is in the file of the note.
    other.Only("Edit").Type("bread");
    WaitForCopy("Shopping", "bread");
    EXPECT_EQ(CopyPaths("Shopping").size(), 2U);
    EXPECT_EQ(WholeFile(firstCopy), copy);
    HideNote(other);
    ExpectNote("Shopping", Shopping("bread"));
    EXPECT_EQ(CopyPaths("Shopping"), std::vector<std::string>{firstCopy});
    EXPECT_EQ(first.Only("Edit").Text(), "milk and eggs");
    WaitForCopy("Shopping", "milk and eggs");
    SecondMain().CloseBox();
    EXPECT_EQ(second.WaitForEnd(), 0U);
    HideNote(first);
    ExpectNote("Shopping", Shopping("milk and eggs"));
    EXPECT_TRUE(CopyPaths("Shopping").empty());
    ExpectNote("Lost", "\"Lost\",\"text\",#2031-06-02#,#12:00:00#,1,12,\"0\",0,\"yes\"\r\n");
}

TEST_F(TwoProgramsTest, UnsavedTextsOfTheFirstComeBackAfterItIsKilled) {
    WriteNote("Shopping", Shopping("milk"));
    StartProgram();
    OpenRestored("Shopping").Only("Edit").Type("milk and eggs");
    WaitForCopy("Shopping", "milk and eggs");
    const std::string beingWritten = "~Jotwright-" + InstanceOf("Shopping") + "-999.tmp";
    WriteWholeFile(InNotes(beingWritten), "\"Half\",\"a no");
    StartSecond();
    EXPECT_TRUE(second.WaitFor("Shopping").IsMinimized());
    program.Kill();
    SecondMain().CloseBox();
    EXPECT_EQ(second.WaitForEnd(), 0U);
    ExpectNote("Shopping", Shopping("milk"));
    EXPECT_TRUE(FileExists(InNotes(beingWritten)));

    StartProgram();
    const Window again = program.WaitFor("Shopping");
    WaitUntilFilled(again, "Edit");
    EXPECT_EQ(again.Only("Edit").Text(), "milk and eggs");
    EXPECT_FALSE(FileExists(InNotes(beingWritten)));
    ExitProgram();
    ExpectNote("Shopping", Shopping("milk and eggs"));
    EXPECT_EQ(FileNames(folder + "\\Notes"), std::vector<std::string>{"Shopping.txt"});
}

}  // namespace driver
