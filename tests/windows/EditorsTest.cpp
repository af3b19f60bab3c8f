#include "tests/windows/DriverTest.h"
#include "tests/windows/Picture.h"

namespace driver {

namespace {

constexpr COLORREF black = RGB(0, 0, 0);
constexpr COLORREF white = RGB(255, 255, 255);

constexpr int border = 4;  // the widest border of a text box on any system, in pixels

struct Shade {
    int number;  // in the file, or in the menu
    COLORREF back;
    COLORREF text;
    const char* saved;  // the number in the file after the note was closed
};

constexpr Shade restoredShades[]{
    {1, white, black, "1"},
    {2, RGB(255, 0, 0), white, "2"},
    {3, RGB(0, 255, 0), black, "3"},
    {4, RGB(0, 0, 255), white, "4"},
    {6, RGB(255, 255, 0), black, "5"},
};

constexpr Shade menuShades[]{
    {1, RGB(255, 128, 128), black, "2"}, {2, RGB(0, 192, 0), black, "3"},
    {3, RGB(128, 128, 255), white, "4"}, {4, RGB(255, 255, 0), black, "5"},
    {5, RGB(192, 192, 192), black, "6"}, {0, white, black, "1"},
};

// Whether a text box shows text in these two colours and in no other.
bool IsPainted(const Window& textBox, COLORREF back, COLORREF text) {
    return ComesTrue([&] {
        const Picture picture(textBox, border);
        const COLORREF other = text == black ? white : black;
        return picture.Share(back) > 0.8 && picture.Share(text) > 0 &&
               (other == back || picture.Share(other) == 0);
    });
}

}  // namespace

class EditorsTest : public DriverTest {
  protected:
    // Starts the program with a note whose alarm is due at 9:01 and whose fields end in this text,
    // closes its editor, and waits for its display.
    Window ShowDisplay(const std::string& title, const std::string& rest);
};

Window EditorsTest::ShowDisplay(const std::string& title, const std::string& rest) {
    const std::string note = '"' + title + "\",\"some text\",#2031-06-02#,#09:01:00#," + rest;
    WriteNote(title, note);
    StartProgram();
    CloseAndWait(program.WaitFor(title));
    // Closing the editor has rewritten the file. Write the file again, and reload the panel so that
    // it reads the new contents.
    CloseAndWait(OpenPanel(FindMain()));
    WriteNote(title, note);
    CloseAndWait(OpenPanel(FindMain()));
    LetAlarmCome("2031-06-02 09:00:58", title);
    return program.WaitFor(title);
}

TEST_F(EditorsTest, RestoredNotesHaveStrongColorsAndTheirAlarms) {
    WriteNote("Rang", "\"Rang\",\"Call\",#2031-06-01#,\"#12:00#\",1,12,\"0\",0,\"yes\"\r\n");
    for (const Shade& shade : restoredShades) {
        const std::string title = "Note " + std::to_string(shade.number);
        WriteNote(title, '"' + title + "\",\"some text\",#2031-06-02#,#12:00:00#," +
                             std::to_string(shade.number) + ",11,\"0\",1,\"yes\"\r\n");
    }
    StartProgram();
    for (const Shade& shade : restoredShades) {
        const std::string title = "Note " + std::to_string(shade.number);
        const Window editor = OpenRestored(title);
        EXPECT_TRUE(IsPainted(editor.Only("Edit"), shade.back, shade.text)) << shade.number;
        // The check box for the sound is on, although no alarm is set.
        EXPECT_TRUE(editor.Button(audioBoxCaption).IsChecked());
        EXPECT_TRUE(editor.FindChild("Button", editorSet));
        HideNote(editor);
        // The size in the file was not one of the four, so the editor wrote its own size.
        ExpectNote(title, '"' + title + "\",\"some text\",#2031-06-02#,#12:00:00#," + shade.saved +
                              ",12,\"0\",1,\"yes\"\r\n");
    }
    const Window rang = OpenRestored("Rang");
    EXPECT_TRUE(rang.FindChild("Button", editorSet));
    ExpectDate(DatePicker(rang), 2031, 6, 1);
    ExpectTime(TimePicker(rang), 12, 0);
}

TEST_F(EditorsTest, TheMenuGivesEveryColorToTheText) {
    const Window editor = MakeNote(StartProgram(), "Shopping");
    const Window text = editor.Only("Edit");
    text.Type("some text");
    for (const Shade& shade : menuShades) {
        ChooseFromPopup(program, text, {0, shade.number});
        EXPECT_TRUE(IsPainted(text, shade.back, shade.text)) << shade.number;
        ClickToolbar(editor.Only(toolbarClass), toolbarSave);
        Box(program, "").Click("OK");
        ExpectNote("Shopping", std::string("\"Shopping\",\"some text\",#2031-06-02#,#12:00:00#,") +
                                   shade.saved + ",12,\"0\",0,\"yes\"\r\n");
    }
    // A double click also opens the menu. Close it without a choice.
    DoubleClick(text);
    WaitUntil("a menu opens", [&] { return static_cast<bool>(program.OpenMenu()); });
    CloseMenu(program, text);
    EXPECT_TRUE(editor.IsVisible());
}

TEST_F(EditorsTest, AnAlarmAtNoonRingsAndAPastAlarmDoesNot) {
    WriteNote("Lunch", "\"Lunch\",\"Eat\",#2031-06-02#,#12:00:00#,1,12,\"1\",0,\"yes\"\r\n");
    WriteNote("Past", "\"Past\",\"Gone\",#2031-06-02#,#11:59:00#,1,12,\"1\",1,\"yes\"\r\n");
    Clock::Set("2031-06-02 11:59:30");
    StartProgram();
    const Window lunch = program.WaitFor("Lunch");
    const Window past = program.WaitFor("Past");
    EXPECT_TRUE(lunch.IsMinimized());
    const std::uint64_t before = recorder.Now();
    LetTimeCome("2031-06-02 11:59:58", "the note comes up", [&] { return !lunch.IsMinimized(); });
    EXPECT_GE(Clock::Now(), "2031-06-02 12:00:00");
    WaitUntilFilled(lunch, "Edit");
    EXPECT_TRUE(lunch.FindChild("Button", editorSet));
    // The note's audio alarm is off, so no box opens.
    Clock::WaitFor("2031-06-02 12:00:03");
    EXPECT_TRUE(program.Visible(alarmBox).empty());
    EXPECT_TRUE(past.IsMinimized());
    EXPECT_FALSE(recorder.HasSounded(before));
    EXPECT_EQ(program.Visible("Lunch").size(), 1U);
}

TEST_F(EditorsTest, ADisplayOfAnUnknownColorKeepsItsOwn) {
    const Window display = ShowDisplay("Dentist", "0,12,\"1\",0,\"yes\"\r\n");
    EXPECT_TRUE(IsPainted(display.Only("Edit"), white, black));
    display.CloseBox();
    Box(program, displayQuestion).Click("No");
    WaitUntil("the display has gone", [&] { return !display.Exists(); });
    ExpectNote("Dentist",
               "\"Dentist\",\"some text\",#2031-06-02#,\"#12:00#\",6,12,\"0\",0,\"yes\"\r\n");
}

}  // namespace driver
