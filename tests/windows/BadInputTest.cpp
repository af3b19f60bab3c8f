#include <windows.h>

#include <algorithm>

#include "forms/win32/Utf.h"
#include "tests/windows/DriverTest.h"

namespace driver {

namespace {

using namespace std::string_literals;
using forms::win32::Wide;

const std::string alarmOff = ",#2031-06-02#,#12:00:00#,1,12,\"0\",0,\"yes\"\r\n";

std::string Repeated(const std::string& piece, std::size_t bytes) {
    std::string text;
    while (text.size() < bytes) {
        text += piece;
    }
    return text;
}

void PutOnClipboard(const std::string& text) {
    const std::wstring wide = Wide(text);
    HGLOBAL memory = ::GlobalAlloc(GMEM_MOVEABLE, (wide.size() + 1) * sizeof(wchar_t));
    std::copy_n(wide.c_str(), wide.size() + 1, static_cast<wchar_t*>(::GlobalLock(memory)));
    ::GlobalUnlock(memory);
    WaitUntil("the clipboard can be opened", [] { return ::OpenClipboard(nullptr) != 0; });
    ::EmptyClipboard();
    ::SetClipboardData(CF_UNICODETEXT, memory);
    ::CloseClipboard();
}

}  // namespace

class BadInputTest : public DriverTest {
  protected:
    // The contents of the program's folder and of the folder above it.
    std::vector<std::string> FilesAround() const {
        auto names = FileNames(folder);
        const auto above = FileNames(FolderOf(folder));
        names.insert(names.end(), above.begin(), above.end());
        return names;
    }
    std::vector<std::string> NoteFiles() const {
        auto names = FileNames(folder + "\\Notes");
        std::erase_if(names, [](const std::string& name) { return !name.ends_with(".txt"); });
        return names;
    }
    void ExpectOnScreen(const Window& window) {
        const RECT place = window.Place();
        EXPECT_GE(place.left, 0);
        EXPECT_GE(place.top, 0);
        EXPECT_LE(place.right, ::GetSystemMetrics(SM_CXSCREEN));
        EXPECT_LE(place.bottom, ::GetSystemMetrics(SM_CYSCREEN));
    }
};

TEST_F(BadInputTest, PastedTextIsSavedByteForByte) {
    const std::string scripts = Repeated(
        "\xF0\x9F\x98\x80 \xD7\xA9\xD7\x9C\xD7\x95\xD7\x9D e\xCC\x81\t\xE6\x97\xA5\r\n", 65536);
    const std::string lines = Repeated("0123456789 abc\r\n", 65536);
    const Window main = StartProgram();
    for (const auto& [title, text] :
         {std::pair<std::string, std::string>{"scripts", scripts}, {"lines", lines}}) {
        const Window editor = MakeNote(main, title);
        PutOnClipboard(text);
        editor.Only("Edit").Post(WM_PASTE);
        WaitUntil("the text is pasted", [&, length = Wide(text).size()] {
            return editor.Only("Edit").Send(WM_GETTEXTLENGTH) == static_cast<LRESULT>(length);
        });
        HideNote(editor);
        ExpectNote(title, (title == "scripts" ? "\xEF\xBB\xBF" : "") + ('"' + title + "\",\"") +
                              text + '"' + alarmOff);
        tray::Click(main);
        MainWindow();
    }
    ExitProgram();
    StartProgram();
    EXPECT_TRUE(OpenRestored("scripts").Only("Edit").Text() == scripts);
    EXPECT_TRUE(OpenRestored("lines").Only("Edit").Text() == lines);
    ExitProgram();
    EXPECT_TRUE(NoteFileIs("lines", "\"lines\",\"" + lines + '"' + alarmOff));
}

TEST_F(BadInputTest, ANoteOfAMebibyteIsRestoredAndSavedAgain) {
    const std::string bytes =
        "\"Long\",\"" + Repeated("0123456789 abc\r\n", 1U << 20U) + '"' + alarmOff;
    WriteNote("Long", bytes);
    StartProgram();
    EXPECT_TRUE(program.WaitFor("Long").IsMinimized());
    ExitProgram();
    EXPECT_TRUE(NoteFileIs("Long", bytes));
}

TEST_F(BadInputTest, ATitleThatCannotBeAFileNameIsReportedAndItsTextStays) {
    const Window main = StartProgram();
    const auto around = FilesAround();
    for (const std::string& title : {std::string("CON"), std::string("nul"), std::string("COM1"),
                                     std::string("AUX "), std::string("what?"), std::string("a*b"),
                                     std::string("tab\tstop"), std::string(252, 'n')}) {
        const Window editor = MakeNote(main, title);
        editor.Only("Edit").Type("typed");
        ClickToolbar(editor.Only("ToolbarWindow32"), toolbarHide);
        const Box report(program, "WriteNote Sub Error");
        EXPECT_EQ(report.Text(), "52 - Bad file name or number");
        report.Click("OK");
        EXPECT_TRUE(editor.IsVisible());
        EXPECT_EQ(editor.Only("Edit").Text(), "typed") << title;
        EXPECT_TRUE(NoteFiles().empty()) << title;
        ClickToolbar(editor.Only("ToolbarWindow32"), toolbarErase);
        Box(program, "Kill Note").Click("Yes");
        WaitUntil("the editor has gone", [&] { return !editor.Exists(); });
        tray::Click(main);
        MainWindow();
    }
    EXPECT_TRUE(NoteFiles().empty());
    EXPECT_EQ(FilesAround(), around);
    EXPECT_TRUE(program.Runs());
}

TEST_F(BadInputTest, ATitleOfAMebibyteIsRefusedOnTheScreen) {
    const Window main = StartProgram();
    PutOnClipboard(std::string(1U << 20U, 'n'));
    main.Only("Edit").Send(WM_PASTE);
    // Some versions of Wine cannot return a text of this size to another process.
    EXPECT_EQ(main.Only("Edit").Send(WM_GETTEXTLENGTH), 1 << 20);
    main.Button("Make &Note").Click();
    WaitUntil("the main window hides itself", [&] { return !main.IsVisible(); });
    Window editor;
    WaitUntil("the editor opens", [&] {
        for (const Window& window : program.Windows()) {
            if (window.IsVisible() && window.HasTitleBar()) {
                editor = window;
            }
        }
        return static_cast<bool>(editor);
    });
    WaitUntilFilled(editor, "Edit");
    editor.Only("Edit").Type("typed");
    ClickToolbar(editor.Only("ToolbarWindow32"), toolbarHide);
    Box(program, "WriteNote Sub Error").Click("OK");
    EXPECT_EQ(editor.Only("Edit").Text(), "typed");
    ClickToolbar(editor.Only("ToolbarWindow32"), toolbarErase);
    const Box question(program, "Kill Note");
    ExpectOnScreen(question.window);
    question.Click("Yes");
    WaitUntil("the editor has gone", [&] { return !editor.Exists(); });
    EXPECT_TRUE(NoteFiles().empty());
    EXPECT_TRUE(program.Runs());
}

TEST_F(BadInputTest, UnusualTitlesAreAcceptedAsFileNames) {
    const Window main = StartProgram();
    for (const char* title : {"a ", "console", "COM10", "\xF0\x9F\x98\x80",
                              "\xD7\xA9\xD7\x9C\xD7\x95\xD7\x9D", "e\xCC\x81"}) {
        HideNote(MakeNote(main, title));
        EXPECT_TRUE(FileExists(NotePath(title))) << title;
        tray::Click(main);
        MainWindow();
    }
    EXPECT_FALSE(FileExists(NotePath("a")));
    EXPECT_EQ(NoteFiles().size(), 6U);
}

TEST_F(BadInputTest, ATitleInAFileNeverNamesAnotherFile) {
    WriteNote("strange", "\"..\\evil\",\"text\"" + alarmOff);
    StartProgram();
    const auto around = FilesAround();
    const Window editor = OpenRestored("..\\evil");
    editor.Only("Edit").Type("typed");
    HideNote(editor);
    EXPECT_EQ(WholeFile(NotePath("strange")), "\"..\\evil\",\"typed\"" + alarmOff);
    EXPECT_EQ(FilesAround(), around);
}

TEST_F(BadInputTest, ADateOutsideThePickersRangeStaysInTheFile) {
    const std::string bytes = "\"Old\",\"text\",#1500-06-05#,#09:30:00#,1,12,\"0\",0,\"yes\"\r\n";
    WriteNote("Old", bytes);
    StartProgram();
    const Window editor = OpenRestored("Old");
    ExpectDate(DatePicker(editor), 1753, 1, 1);
    HideNote(editor);
    EXPECT_EQ(WholeFile(NotePath("Old")), bytes);
    ExitProgram();
}

TEST_F(BadInputTest, TextAfterAZeroByteIsKeptAndEveryLineBreakShows) {
    WriteNote("Odd", "\"Odd\",\"first\0second\nthird\rfourth\""s + alarmOff);
    StartProgram();
    const Window text = OpenRestored("Odd").Only("Edit");
    EXPECT_EQ(text.Text(), "first second\r\nthird\r\nfourth");
    EXPECT_EQ(text.Send(EM_GETLINECOUNT), 3);
    const auto end = static_cast<WPARAM>(text.Send(WM_GETTEXTLENGTH));
    text.Send(EM_SETSEL, end, static_cast<LPARAM>(end));
    text.Post(WM_CHAR, '.', 1);
    WaitUntil("the full stop is typed", [&] { return text.Text().ends_with('.'); });
    HideNote(program.WaitFor("Odd"));
    ExpectNote("Odd", "\"Odd\",\"first second\r\nthird\r\nfourth.\"" + alarmOff);
}

TEST_F(BadInputTest, SpecialAlarmsThatCannotBeSavedStayInTheirWindow) {
    MakeFolder(folder + "\\SpecialAlarms");
    MakeFolder(folder + "\\SpecialAlarms\\SpecialAlarms.txt");
    const Window main = StartProgram();
    main.Button("S&pecial Alarms").Click();
    const Window window = program.WaitFor("Special Alarms");
    WaitUntilFilled(window, "Edit");
    window.ChildrenOfClass("Edit").front().Type("Pay the rent");
    WaitUntil("the alarms can be saved", [&] { return window.Button("&Save").IsEnabled(); });
    window.Button("&Save").Click();
    const Box report(program, "Error Saving Special Alarms");
    EXPECT_EQ(report.Text(),
              "75 - Path/File access error\r\n\r\nThe special alarms have not been saved.");
    report.Click("OK");
    EXPECT_EQ(window.ChildrenOfClass("Edit").front().Text(), "Pay the rent");
    RemoveFolder(folder + "\\SpecialAlarms\\SpecialAlarms.txt");
    window.Button("&Save").Click();
    WaitUntil("the window has gone", [&] { return !window.Exists(); });
    const auto bytes = WholeFile(folder + "\\SpecialAlarms\\SpecialAlarms.txt");
    EXPECT_NE(bytes.value_or("").find("\"Pay the rent\""), std::string::npos);
    ExitProgram();
}

TEST_F(BadInputTest, AnInvalidSoundFileRingsSilently) {
    WriteWholeFile(folder + "\\none.wav", "This is no wave.");
    for (const std::string& path :
         {folder + "\\none.wav", folder, std::string("\\\\localhost\\missing\\a.wav")}) {
        WriteSetting("Config", "Alarm", path);
        WriteNote("Dentist",
                  "\"Dentist\",\"text\",#2031-06-02#,#09:30:00#,1,12,\"1\",1,\"yes\"\r\n");
        Clock::Set("2031-06-02 09:00:00");
        StartProgram();
        LetAlarmCome("2031-06-02 09:29:58", alarmBox);
        const Box box(program, alarmBox);
        EXPECT_EQ(box.Text(), "           Turn Off Alarm?") << path;
        box.Click("OK");
        ExitProgram();
    }
    RemoveFile(folder + "\\none.wav");
}

TEST_F(BadInputTest, ArgumentsAreIgnored) {
    const std::string arguments = "/x \"..\\..\\evil\" -- \"a*\" nul " + std::string(30000, 'x');
    program.Start(executable, arguments);
    const Window main = MainWindow();
    WaitUntil("the splash has gone", [this] { return !FindSplash(); });
    EXPECT_EQ(main.Only("Edit").Text(), "");
    EXPECT_TRUE(FileNames(folder + "\\Notes").empty());
    ExitProgram();
}

}  // namespace driver
