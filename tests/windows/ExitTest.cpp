#include <algorithm>

#include "tests/windows/DriverTest.h"
#include "tests/windows/Needs.h"

namespace driver {

namespace {

constexpr const char* eraseQuestion = "Kill Note";

}  // namespace

// Ends the program in each of its states.
class ExitTest : public DriverTest {
  public:
    // Each of these functions brings the program into one state.
    void RejectATitle();
    void AskWhetherToErase();
    void RingInAnEditor();
    void RingInADisplay();
    void RingOnAWeekday();
    void EndACountdown();
    void ShowEveryTool();
    void LookForASoundFile();
    void ShowThePanel();

    // Each of these functions answers the question that the exit asks in one state.
    void KeepDisplayedNote();
    void SaveChanges();

  protected:
    // Starts the program with a note whose text is only in its editor.
    void Begin();
    void ExitThroughTray() const;
    // Expects that the disk holds the note of Begin() and no other files.
    void ExpectSaved() const;

    Window main;
    Window editor;
    static constexpr const char* title = "Shopping";
    static constexpr const char* saved =
        "\"Shopping\",\"milk\",#2031-06-02#,#12:00:00#,1,12,\"0\",0,\"yes\"\r\n";
};

void ExitTest::Begin() {
    main = StartProgram();
    editor = MakeNote(main, title);
    editor.Only("Edit").Type("milk");
    tray::Click(main);
    WaitUntil("the main window is shown again", [this] { return main.IsVisible(); });
}

void ExitTest::ExitThroughTray() const {
    tray::RightClick(main);
    ChooseFromOpenMenu(program, main, {trayExit});
}

void ExitTest::ExpectSaved() const {
    ExpectNote(title, saved);
    for (const std::string& name : FileNames(folder + "\\Notes")) {
        EXPECT_TRUE(name.ends_with(".txt")) << name;
    }
}

void ExitTest::RejectATitle() {
    Begin();
    main.Only("Edit").Type("2004");
    main.Button("Make &Note").Click();
    program.WaitFor(" Note Title Error");
}

void ExitTest::AskWhetherToErase() {
    Begin();
    ChooseFromMenuBar(program, editor, barEraseNote);
    program.WaitFor(eraseQuestion);
}

void ExitTest::RingInAnEditor() {
    WriteNote("Dentist", "\"Dentist\",\"Call\",#2031-06-02#,#09:01:00#,1,12,\"1\",1,\"yes\"\r\n");
    Begin();
    LetAlarmCome("2031-06-02 09:00:58", alarmBox);
}

void ExitTest::RingInADisplay() {
    WriteSetting("Options", "NoteLoops", "1");
    WriteNote("Dentist", "\"Dentist\",\"Call\",#2031-06-02#,#09:01:00#,1,12,\"1\",1,\"yes\"\r\n");
    Begin();
    CloseAndWait(program.WaitFor("Dentist"));
    LetAlarmCome("2031-06-02 09:00:58", alarmBox);
}

void ExitTest::RingOnAWeekday() {
    std::string rows = "\"Monday\",#09:01:00#,\"Pay the rent\",1\r\n";
    for (const char* day : {"Tuesday", "Wednesday", "Thursday", "Friday", "Saturday", "Sunday"}) {
        rows += '"' + std::string(day) + "\",#12:00:00#,\"\",0\r\n";
    }
    MakeFolder(folder + "\\SpecialAlarms");
    WriteWholeFile(folder + "\\SpecialAlarms\\SpecialAlarms.txt", rows);
    Begin();
    LetAlarmCome("2031-06-02 09:00:58", "Jotwright Daily Alarm");
}

void ExitTest::EndACountdown() {
    Begin();
    main.Button("&Timer").Click();
    const Window timer = program.WaitFor("Novelty Timer");
    timer.Only("Edit").Type("0");
    timer.Button("&Start Timer").Click();
    program.WaitFor(alarmBox);
}

void ExitTest::ShowEveryTool() {
    Begin();
    main.Button("&Timer").Click();
    const Window timer = program.WaitFor("Novelty Timer");
    timer.Only("Edit").Type("5");
    timer.Button("&Start Timer").Click();
    main.Button("&Stop Watch").Click();
    program.WaitFor("Novelty Stop Watch").Button("&Start").Click();
    main.Button("S&pecial Alarms").Click();
    program.WaitFor("Special Alarms");
    ChooseFromMenuBar(program, main, barNoteOptions);
    program.WaitFor("Note Options");
    ChooseFromMenuBar(program, main, barAbout);
    program.WaitFor("About Jotwright");
}

void ExitTest::LookForASoundFile() {
    Begin();
    ChooseFromMenuBar(program, main, barChooseAlarmSound);
    const Window sounds = program.WaitFor("Choose An Alarm");
    sounds.Button("Selected .wav File").Click();
    WaitUntil("a file can be looked for", [&] { return sounds.Button("&Browse").IsEnabled(); });
    sounds.Button("&Browse").Click();
    WaitUntil("the dialog opens", [this] {
        const auto windows = program.Windows();
        return std::any_of(windows.begin(), windows.end(), [](const Window& window) {
            return window.IsVisible() && window.ClassName() == boxClass;
        });
    });
}

void ExitTest::ShowThePanel() {
    Begin();
    OpenPanel(main);
}

void ExitTest::KeepDisplayedNote() { Box(program, displayQuestion).Click("No"); }

void ExitTest::SaveChanges() { Box(program, saveQuestion).Click("Yes"); }

struct BusyState {
    const char* name;
    void (ExitTest::*enter)();
    // Null if the exit asks nothing.
    void (ExitTest::*answer)();
};

void PrintTo(const BusyState& state, std::ostream* out) { *out << state.name; }

class ExitFromTest : public ExitTest, public testing::WithParamInterface<BusyState> {};

TEST_P(ExitFromTest, ThroughTheNotificationArea) {
    (this->*GetParam().enter)();
    EXPECT_TRUE(tray::HasIcon(main));
    ExitThroughTray();
    if (GetParam().answer != nullptr) {
        (this->*GetParam().answer)();
    }
    EXPECT_EQ(program.WaitForEnd(), 0U);
    EXPECT_FALSE(tray::HasIcon(main));
    ExpectSaved();
}

TEST_P(ExitFromTest, AsTheSessionEnds) {
    (this->*GetParam().enter)();
    EXPECT_TRUE(tray::HasIcon(main));
    EndSession();
    EXPECT_EQ(program.WaitForEnd(), 0U);
    EXPECT_FALSE(tray::HasIcon(main));
    ExpectSaved();
}

INSTANTIATE_TEST_SUITE_P(
    Busy, ExitFromTest,
    testing::Values(BusyState{"ARejectedTitle", &ExitTest::RejectATitle, nullptr},
                    BusyState{"TheQuestionWhetherToErase", &ExitTest::AskWhetherToErase, nullptr},
                    BusyState{"AnAlarmInAnEditor", &ExitTest::RingInAnEditor, nullptr},
                    BusyState{"AnAlarmInADisplay", &ExitTest::RingInADisplay,
                              &ExitTest::KeepDisplayedNote},
                    BusyState{"AWeeklyAlarm", &ExitTest::RingOnAWeekday, nullptr},
                    BusyState{"ACountdownThatIsOver", &ExitTest::EndACountdown, nullptr},
                    BusyState{"EveryToolAndAModalWindow", &ExitTest::ShowEveryTool, nullptr},
                    BusyState{"AFileDialog", &ExitTest::LookForASoundFile, nullptr},
                    BusyState{"TheControlPanel", &ExitTest::ShowThePanel, &ExitTest::SaveChanges}),
    [](const auto& state) { return std::string(state.param.name); });

TEST_F(ExitTest, DeclinedChangesAreNotSaved) {
    WriteNote(title, saved);
    main = StartProgram();
    OpenPanel(main);
    const Window restored = OpenRestored(title);
    restored.Only("Edit").Type("milk and eggs");
    main.Button("E&xit").Click();
    Box(program, saveQuestion).Click("No");
    EXPECT_EQ(program.WaitForEnd(), 0U);
    ExpectSaved();
}

// The title cannot be a file name.
TEST_F(ExitTest, ANoteThatCannotBeSavedIsBackAtTheNextStart) {
    main = StartProgram();
    editor = MakeNote(main, "Milk?");
    editor.Only("Edit").Type("two pints");
    ClickToolbar(editor.Only(toolbarClass), toolbarHide);
    const Box error(program, "WriteNote Sub Error");
    error.Click("OK");
    EXPECT_TRUE(editor.IsVisible());
    ExitThroughTray();
    Box(program, "WriteNote Sub Error").Click("OK");
    EXPECT_EQ(program.WaitForEnd(), 0U);

    StartProgram();
    const Window again = program.WaitFor("Milk?");
    EXPECT_FALSE(again.IsMinimized());
    EXPECT_EQ(again.Only("Edit").Text(), "two pints");
}

TEST_F(ExitTest, ACancelledShutDownChangesNothing) {
    Begin();
    const auto windows = program.Windows();
    for (const Window& window : windows) {
        EXPECT_NE(window.Send(WM_QUERYENDSESSION), 0);
    }
    for (const Window& window : windows) {
        window.Send(WM_ENDSESSION, FALSE);
    }
    EXPECT_TRUE(program.Runs());
    EXPECT_TRUE(editor.IsVisible());
    EXPECT_EQ(editor.Only("Edit").Text(), "milk");
    EXPECT_FALSE(FileExists(NotePath(title)));
    ExitProgram();
    ExpectSaved();
}

TEST_F(ExitTest, TheSessionEndsWhileAMenuIsOpen) {
    Begin();
    RightClick(main);
    WaitUntil("a menu opens", [this] { return static_cast<bool>(program.OpenMenu()); });
    EndSession();
    EXPECT_EQ(program.WaitForEnd(), 0U);
    ExpectSaved();
}

TEST_F(ExitTest, TheSessionEndsWhileAWindowIsMoved) {
    NeedDesktop();
    Begin();
    main.Post(WM_SYSCOMMAND, SC_MOVE);
    WaitUntil("the window is moved", [this] {
        GUITHREADINFO info{};
        info.cbSize = sizeof info;
        ::GetGUIThreadInfo(::GetWindowThreadProcessId(main.handle, nullptr), &info);
        return (info.flags & GUI_INMOVESIZE) != 0;
    });
    EndSession();
    EXPECT_EQ(program.WaitForEnd(), 0U);
    ExpectSaved();
}

// The session ends before the user answers whether to save. The next start shows the text as
// unsaved.
TEST_F(ExitTest, TheSessionEndsWhileTheExitAsks) {
    WriteNote(title, saved);
    main = StartProgram();
    OpenPanel(main);
    EXPECT_TRUE(tray::HasIcon(main));
    OpenRestored(title).Only("Edit").Type("milk and eggs");
    main.Button("E&xit").Click();
    program.WaitFor(saveQuestion);
    EndSession();
    EXPECT_EQ(program.WaitForEnd(), 0U);
    EXPECT_FALSE(tray::HasIcon(main));
    ExpectNote(title, saved);

    StartProgram();
    const Window again = program.WaitFor(title);
    EXPECT_FALSE(again.IsMinimized());
    EXPECT_EQ(again.Only("Edit").Text(), "milk and eggs");
}

TEST_F(ExitTest, TheSessionEndsWhileTheProgramStarts) {
    program.Start(executable);
    WaitUntil("the splash is shown", [this] { return static_cast<bool>(FindSplash()); });
    EndSession();
    EXPECT_EQ(program.WaitForEnd(), 0U);

    // A note that cannot be read is reported before the main window opens.
    const std::string damaged = "\"Bad\",\"x\",#2031-13-77#,#12:00:00#,1,12,\"0\",0,\"yes\"\r\n";
    WriteNote("Bad", damaged);
    program.Start(executable);
    program.WaitFor("Error Loading Notes Array");
    EndSession();
    EXPECT_EQ(program.WaitForEnd(), 0U);
    ExpectNote("Bad", damaged);
}

TEST_F(ExitTest, TheSessionEndsWhileASecondCopyShowsItsMessage) {
    Begin();
    Program second;
    second.Start(executable);
    second.WaitFor("  Jotwright Is Running");
    for (const Window& window : second.Windows()) {
        window.Post(WM_ENDSESSION, TRUE);
    }
    EXPECT_EQ(second.WaitForEnd(), 0U);
    EXPECT_TRUE(program.Runs());
    ExitProgram();
    ExpectSaved();
}

}  // namespace driver
