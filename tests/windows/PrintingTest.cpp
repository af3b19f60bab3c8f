#include "tests/windows/DriverTest.h"
#include "tests/windows/Printer.h"

namespace driver {

class PrintingTest : public DriverTest {
  protected:
    static constexpr int toolbarPrint = 2;
    static constexpr const char* error = "Print Error";
};

TEST_F(PrintingTest, AMissingPrinterIsReported) {
    const Window editor = MakeNote(StartProgram(), "Shopping");
    ClickToolbar(editor.Only("ToolbarWindow32"), toolbarPrint);
    const Box box(program, error);
    EXPECT_EQ(box.Text(),
              "         Jotwright encountered a printing error. \r\nPlease make sure printer is "
              "turned on and try again.");
    box.Click("OK");
}

TEST_F(PrintingTest, ANoteIsPrintedWithItsTitle) {
    const Printer printer;
    const Window editor = MakeNote(StartProgram(), "Shopping");
    editor.Only("Edit").Type("Milk and eggs\r\nBread");
    ChooseFromMenuBar(program, editor, {0, 0});
    const auto lines = Printer::WaitForPage();
    ASSERT_EQ(lines.size(), 3U);
    EXPECT_EQ(lines[0].words, "Note Title: Shopping");
    EXPECT_EQ(lines[1].words, "Milk and eggs");
    EXPECT_EQ(lines[2].words, "Bread");
    // There is one empty line below the title, and two empty lines of the smaller usual font above
    // it.
    constexpr double margin = 54;  // points
    constexpr double usualSize = 10.0 / 12;
    const double step = lines[2].top - lines[1].top;
    EXPECT_GT(step, 12);
    EXPECT_LT(step, 16);
    EXPECT_NEAR(lines[1].top - lines[0].top, 2 * step, 1);
    EXPECT_NEAR(lines[0].top - margin, 2 * usualSize * step, 3);
    EXPECT_NEAR(lines[0].height, lines[2].height, 0.1);
    EXPECT_TRUE(program.Visible(error).empty());
}

TEST_F(PrintingTest, TextInOtherScriptsIsPrinted) {
    const std::string russian = "\xd0\x9c\xd0\xbe\xd0\xbb\xd0\xbe\xd0\xba\xd0\xbe";
    const std::string greek = "\xce\xb3\xce\xac\xce\xbb\xce\xb1";
    const Printer printer;
    const Window editor = MakeNote(StartProgram(), "Shopping");
    editor.Only("Edit").Type(russian + "\r\n" + greek);
    ChooseFromMenuBar(program, editor, {0, 0});
    const auto lines = Printer::WaitForPage();
    ASSERT_EQ(lines.size(), 3U);
    EXPECT_EQ(lines[1].words, russian);
    EXPECT_EQ(lines[2].words, greek);
}

TEST_F(PrintingTest, ATextThatEndsWithItsPageLeavesNoEmptyPage) {
    const Window editor = MakeNote(StartProgram(), "Shopping");
    const auto printLines = [&](std::size_t count) {
        const Printer printer;
        std::string text = "line";
        for (std::size_t line = 1; line < count; ++line) {
            text += "\r\nline";
        }
        editor.Only("Edit").Type(text);
        ChooseFromMenuBar(program, editor, {0, 0});
        return Printer::WaitForPages();
    };
    const auto two = printLines(80);
    ASSERT_EQ(two.size(), 2U);
    const std::size_t withoutTitle = two.front().size() - 1;
    const auto one = printLines(withoutTitle);
    ASSERT_EQ(one.size(), 1U);
    EXPECT_EQ(one.front().size(), two.front().size());
    EXPECT_EQ(printLines(withoutTitle + 1).size(), 2U);
}

}  // namespace driver
