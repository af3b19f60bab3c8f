#include "forms/win32/Utf.h"
#include "tests/windows/DriverTest.h"
#include "tests/windows/Hands.h"
#include "tests/windows/Needs.h"
#include "tests/windows/Picture.h"

namespace driver {

namespace {

constexpr COLORREF yellow = RGB(255, 255, 0);
constexpr COLORREF black = RGB(0, 0, 0);
constexpr const char* appointment = "Call to move the appointment.\r\nAsk for a Friday.";

}  // namespace

class NotesTest : public DriverTest {};

TEST_F(NotesTest, ANewNoteIsSavedWithAllItsFields) {
    const Window main = StartProgram();
    const Window editor = MakeNote(main, "Dentist");
    WaitUntil("the main window hides itself", [&] { return !main.IsVisible(); });
    EXPECT_FALSE(editor.IsMinimized());
    EXPECT_FALSE(FileExists(NotePath("Dentist")));

    const Window text = editor.Only("Edit");
    ChooseFromPopup(program, text, popupYellow);
    ChooseFromPopup(program, text, popup14Points);
    text.Type(appointment);
    EXPECT_TRUE(ComesTrue([&] {
        const Picture picture(text);
        return picture.Share(yellow) > 0.8 && picture.Share(black) > 0.001;
    })) << "black on yellow";

    if (Has("JOTWRIGHT_CLOCK_FILE")) {
        ExpectDate(DatePicker(editor), 2031, 6, 2);
    }
    ExpectTime(TimePicker(editor), 12, 0);
    PickDate(DatePicker(editor), 2031, 6, 5);
    PickTime(TimePicker(editor), 9, 31);
    editor.Button(audioBoxCaption).Click();
    editor.Button(editorSet).Click();
    WaitUntil("the alarm is set",
              [&] { return static_cast<bool>(editor.FindChild("Button", editorTurnOff)); });
    EXPECT_TRUE(editor.FindChild("Button", " Alarm Set "));
    EXPECT_TRUE(editor.FindChild("Static", "June"));
    EXPECT_TRUE(editor.FindChild("Static", "5, 2031"));
    EXPECT_FALSE(DatePicker(editor).IsVisible());

    HideNote(editor);
    ExpectNote("Dentist",
               "\"Dentist\",\"Call to move the appointment.\r\nAsk for a Friday.\","
               "#2031-06-05#,#09:31:00#,5,14,\"1\",1,\"yes\"\r\n");
}

TEST_F(NotesTest, ANoteComesBackMinimizedWithEverythingSaved) {
    {
        const Window editor = MakeNote(StartProgram(), "Dentist");
        ChooseFromPopup(program, editor.Only("Edit"), popupYellow);
        ChooseFromPopup(program, editor.Only("Edit"), popup14Points);
        editor.Only("Edit").Type(appointment);
        PickDate(DatePicker(editor), 2031, 6, 5);
        PickTime(TimePicker(editor), 9, 31);
        editor.Button(audioBoxCaption).Click();
        editor.Button(editorSet).Click();
    }
    // The end of the program saves the open note.
    ExitProgram();
    const auto bytes = WholeFile(NotePath("Dentist"));
    ASSERT_TRUE(bytes);

    StartProgram();
    const Window editor = program.WaitFor("Dentist");
    EXPECT_TRUE(editor.IsMinimized());
    editor.Restore();
    WaitUntil("the editor is filled",
              [&] { return !editor.IsMinimized() && editor.ChildrenOfClass("Edit").size() == 1; });
    EXPECT_EQ(editor.Only("Edit").Text(), appointment);
    EXPECT_TRUE(editor.FindChild("Button", editorTurnOff));
    EXPECT_TRUE(editor.FindChild("Button", " Alarm Set "));
    EXPECT_TRUE(editor.Button(audioBoxCaption).IsChecked());
    EXPECT_TRUE(editor.FindChild("Static", "June"));
    EXPECT_TRUE(editor.FindChild("Static", "5, 2031"));
    EXPECT_TRUE(editor.FindChild("Static", "9:31:00 AM"));
    EXPECT_TRUE(ComesTrue([&] { return Picture(editor.Only("Edit")).Share(yellow) > 0.8; }));
    // The pickers are made when the alarm is turned off.
    editor.Button(editorTurnOff).Click();
    WaitUntil("the pickers are shown",
              [&] { return editor.ChildrenOfClass("SysDateTimePick32").size() == 2; });
    ExpectDate(DatePicker(editor), 2031, 6, 5);
    ExpectTime(TimePicker(editor), 9, 31);
    editor.Button(editorSet).Click();
    WaitUntil("the alarm is set",
              [&] { return editor.FindChild("Button", editorTurnOff).Exists(); });

    HideNote(editor);
    EXPECT_EQ(WholeFile(NotePath("Dentist")), bytes);
    ExitProgram();
}

TEST_F(NotesTest, ANoteCanBeWrittenWithTheKeyboardOnly) {
    const Window main = StartProgram();
    WaitUntil("the title box has the focus", [&] { return main.Only("Edit").HasFocus(); });
    hands::TypeKeys("shopping list");
    WaitUntil("the title is typed", [&] { return main.Only("Edit").Text() == "shopping list"; });
    hands::TypeKeys("\r");
    const Window editor = program.WaitFor("shopping list");
    WaitUntil("the text box has the focus", [&] { return editor.Only("Edit").HasFocus(); });
    hands::TypeKeys("milk\rtwo eggs");
    WaitUntil("the text is typed",
              [&] { return editor.Only("Edit").Text() == "milk\r\ntwo eggs"; });
    ChooseFromPopup(program, editor.Only("Edit"), popupHideMe);
    WaitUntil("the editor has gone", [&] { return !editor.Exists(); });
    ExpectNote("shopping list",
               "\"shopping list\",\"milk\r\ntwo eggs\",#2031-06-02#,#12:00:00#,1,12,\"0\",0,"
               "\"yes\"\r\n");
}

TEST_F(NotesTest, TheToolbarErasesANote) {
    const Window main = StartProgram();
    HideNote(MakeNote(main, "Shopping"));
    ExitProgram();
    ASSERT_TRUE(FileExists(NotePath("Shopping")));

    StartProgram();
    const Window editor = OpenRestored("Shopping");
    ClickToolbar(editor.Only("ToolbarWindow32"), toolbarErase);
    const Box question(program, "Kill Note");
    EXPECT_EQ(question.Text(), "Are you sure you would like to erase SHOPPING?              ");
    question.Click("Yes");
    WaitUntil("the editor has gone", [&] { return !editor.Exists(); });
    EXPECT_FALSE(FileExists(NotePath("Shopping")));
    ExitProgram();
    EXPECT_FALSE(FileExists(NotePath("Shopping")));
}

TEST_F(NotesTest, ANoteFileInUseIsReportedAndSavedLater) {
    const Window editor = MakeNote(StartProgram(), "Shopping");
    editor.Only("Edit").Type("milk");
    ClickToolbar(editor.Only("ToolbarWindow32"), toolbarSave);
    Box(program, "").Click("OK");
    const std::string before = WholeFile(NotePath("Shopping")).value();
    HANDLE holder = ::CreateFileW(forms::win32::Wide(NotePath("Shopping")).c_str(), GENERIC_READ, 0,
                                  nullptr, OPEN_EXISTING, 0, nullptr);
    ASSERT_NE(holder, INVALID_HANDLE_VALUE);
    editor.Only("Edit").Type("milk and bread");
    ClickToolbar(editor.Only("ToolbarWindow32"), toolbarSave);
    const Box report(program, "WriteNote Sub Error");
    EXPECT_EQ(report.Text(), "70 - Permission denied");
    report.Click("OK");
    ::CloseHandle(holder);
    EXPECT_EQ(editor.Only("Edit").Text(), "milk and bread");
    EXPECT_EQ(WholeFile(NotePath("Shopping")).value(), before);
    ClickToolbar(editor.Only("ToolbarWindow32"), toolbarSave);
    Box(program, "").Click("OK");
    EXPECT_TRUE(
        WholeFile(NotePath("Shopping")).value().starts_with("\"Shopping\",\"milk and bread\","));
}

TEST_F(NotesTest, TypedTextComesBackAfterTheProgramWasKilled) {
    const Window main = StartProgram();
    const Window saved = MakeNote(main, "Shopping");
    saved.Only("Edit").Type("milk");
    HideNote(saved);
    ExitProgram();

    StartProgram();
    const Window editor = OpenRestored("Shopping");
    editor.Only("Edit").Type("milk, eggs and bread");
    const std::string written =
        "\"Shopping\",\"milk\",#2031-06-02#,#12:00:00#,1,12,\"0\",0,\"yes\"\r\n";
    WaitForCopy("Shopping", "milk, eggs and bread");
    program.Kill();
    ExpectNote("Shopping", written);

    StartProgram();
    const Window again = program.WaitFor("Shopping");
    EXPECT_TRUE(
        ComesTrue([&] { return !again.IsMinimized() && !again.ChildrenOfClass("Edit").empty(); }));
    EXPECT_EQ(again.Only("Edit").Text(), "milk, eggs and bread");
    ExpectNote("Shopping", written);
    ExitProgram();
    ExpectNote("Shopping",
               "\"Shopping\",\"milk, eggs and bread\",#2031-06-02#,#12:00:00#,1,12,\"0\",0,"
               "\"yes\"\r\n");
}

}  // namespace driver
