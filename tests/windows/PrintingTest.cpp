#include "tests/windows/DriverTest.h"
#include "tests/windows/Printer.h"

namespace driver {

class Printing : public DriverTest {
  protected:
    static constexpr int toolbarPrint = 2;
    static constexpr const char* error = "Print Error";
};

TEST_F(Printing, AMissingPrinterIsReported) {
    const Window editor = MakeNote(StartProgram(), "Shopping");
    PressToolbar(editor.Only("ToolbarWindow32"), toolbarPrint);
    const Box box(program, error);
    EXPECT_EQ(box.Text(),
              "         Jotwright encountered a printing error. \r\nPlease make sure printer is "
              "turned on and try again.");
    box.Press("OK");
}

TEST_F(Printing, ANoteIsPrintedWithItsTitle) {
    const Printer printer;
    const Window editor = MakeNote(StartProgram(), "Shopping");
    editor.Only("Edit").Type("Milk and eggs\r\nBread");
    ChooseFromMenuBar(program, editor, {0, 0});
    EXPECT_EQ(Printer::WaitForPage(), "Note Title: Shopping\nMilk and eggs\nBread\n");
    EXPECT_TRUE(program.Visible(error).empty());
}

}  // namespace driver
