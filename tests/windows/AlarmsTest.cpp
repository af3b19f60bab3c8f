#include "tests/windows/DriverTest.h"
#include "tests/windows/Hands.h"
#include "tests/windows/Picture.h"

namespace driver {

namespace {

constexpr COLORREF blue = RGB(128, 128, 255);
constexpr COLORREF white = RGB(255, 255, 255);
constexpr COLORREF black = RGB(0, 0, 0);

}  // namespace

class AlarmsTest : public DriverTest {
  protected:
    // Starts the program with a saved note whose alarm is set for one minute past nine, and closes
    // its editor.
    Window StartWithClosedNote();
    // Waits for the alarm display of that note. It comes soon, because the clock is set forward.
    Window WaitForAlarm();
    void CloseDisplay(const Window& display);

    static constexpr const char* title = "Dentist";
    const std::string saved =
        "\"Dentist\",\"Call to move\r\nthe appointment.\",#2031-06-02#,#09:01:00#,4,14,\"1\",0,"
        "\"yes\"\r\n";
};

Window AlarmsTest::StartWithClosedNote() {
    Variable("JOTWRIGHT_CLOCK_FILE");  // skips the test here if the clock cannot be set
    WriteNote(title, saved);
    const Window main = StartProgram();
    const Window editor = program.WaitFor(title);
    editor.CloseBox();
    WaitUntil("the editor has gone", [&] { return !editor.Exists(); });
    ExpectNote(title, saved);
    return main;
}

Window AlarmsTest::WaitForAlarm() {
    LetAlarmCome("2031-06-02 09:00:58", title);
    const Window display = program.WaitFor(title);
    EXPECT_GE(Clock::Now(), "2031-06-02 09:01:00");
    return display;
}

void AlarmsTest::CloseDisplay(const Window& display) {
    display.CloseBox();
    Box(program, displayQuestion).Click("No");
    WaitUntil("the display has gone", [&] { return !display.Exists(); });
}

TEST_F(AlarmsTest, TheNoteOfAClosedEditorIsDisplayedOnceWithItsSound) {
    const Window main = StartProgram();
    ChooseFromMenuBar(program, main, barChooseAlarmSound);
    const Window sounds = program.WaitFor("Choose An Alarm");
    sounds.Button("Bell Alarm").Click();
    WaitUntil("the bell is selected", [&] { return sounds.Button("Bell Alarm").IsChecked(); });
    sounds.Button("&Save").Click();
    program.WaitUntilGone("Choose An Alarm");
    EXPECT_EQ(Setting("Config", "Alarm"), folder + "\\Bell alarm.wav");

    const Window editor = MakeNote(main, title);
    ChooseFromPopup(program, editor.Only("Edit"), popupBlue);
    ChooseFromPopup(program, editor.Only("Edit"), popup14Points);
    editor.Only("Edit").Type("Call to move\r\nthe appointment.");
    PickTime(TimePicker(editor), 9, 1);
    editor.Button(audioBoxCaption).Click();
    editor.Button(editorSet).Click();
    HideNote(editor);
    ExpectNote(title,
               "\"Dentist\",\"Call to move\r\nthe appointment.\",#2031-06-02#,#09:01:00#,4,14,"
               "\"1\",1,\"yes\"\r\n");

    EXPECT_TRUE(program.Visible(title).empty());
    const std::uint64_t before = recorder.Now();
    const Window display = WaitForAlarm();
    EXPECT_EQ(recorder.WaitForSound(before), "Bell alarm.wav");
    EXPECT_EQ(display.Only("Edit").Text(), "Call to move\r\nthe appointment.");
    EXPECT_TRUE(display.FindChild("Static", "Jotwright Note"));
    EXPECT_TRUE(ComesTrue([&] {
        const Picture picture(display.Only("Edit"));
        return picture.Share(blue) > 0.8 && picture.Share(white) > 0.001 &&
               picture.Share(black) == 0;
    })) << "white on blue";
    // The sound plays once, without a box that stops it.
    recorder.WaitForSilence();
    EXPECT_TRUE(program.Visible(alarmBox).empty());
    Clock::WaitFor("2031-06-02 09:01:05");
    EXPECT_EQ(program.Visible(title).size(), 1U);

    display.CloseBox();
    const Box question(program, displayQuestion);
    EXPECT_EQ(question.Text(), "Would you like to erase this note?");
    question.Click("No");
    WaitUntil("the display has gone", [&] { return !display.Exists(); });
    ExpectNote(title,
               "\"Dentist\",\"Call to move\r\nthe appointment.\",#2031-06-02#,\"#12:00#\",4,14,"
               "\"0\",0,\"yes\"\r\n");
}

TEST_F(AlarmsTest, ADisplayedNoteCanBeErased) {
    StartWithClosedNote();
    const std::uint64_t before = recorder.Now();
    const Window display = WaitForAlarm();
    // If there were a sound, it would begin one second after the window opens.
    recorder.WaitForSilence();
    EXPECT_FALSE(recorder.HasSounded(before)) << "the note wants no sound";
    display.CloseBox();
    Box(program, displayQuestion).Click("Yes");
    WaitUntil("the display has gone", [&] { return !display.Exists(); });
    EXPECT_FALSE(FileExists(NotePath(title)));
}

TEST_F(AlarmsTest, TheSoundOfADisplayLoopsUntilItsBoxIsClosed) {
    WriteSetting("Options", "NoteLoops", "1");
    WriteNote(title, "\"Dentist\",\"Call\",#2031-06-02#,#09:01:00#,1,12,\"1\",1,\"yes\"\r\n");
    StartProgram();
    const Window editor = program.WaitFor(title);
    editor.CloseBox();
    WaitUntil("the editor has gone", [&] { return !editor.Exists(); });

    const Window display = WaitForAlarm();
    const Box box(program, alarmBox);
    EXPECT_EQ(box.Text(), "      Turn Off Alarm?       ");
    const std::uint64_t start = recorder.Now();
    EXPECT_EQ(recorder.WaitForSound(start), "Alarm buzzer.wav");
    // The sound plays more than once.
    Clock::WaitFor("2031-06-02 09:01:05");
    EXPECT_EQ(recorder.WaitForSound(recorder.Now()), "Alarm buzzer.wav");
    box.Click("OK");
    recorder.WaitForSilence();
    EXPECT_TRUE(display.IsVisible());
}

TEST_F(AlarmsTest, AnOpenEditorRings) {
    WriteNote(title, "\"Dentist\",\"Call\",#2031-06-02#,#09:01:00#,1,12,\"1\",1,\"yes\"\r\n");
    StartProgram();
    const Window editor = program.WaitFor(title);
    EXPECT_TRUE(editor.IsMinimized());

    const std::uint64_t before = recorder.Now();
    LetAlarmCome("2031-06-02 09:00:58", alarmBox);
    const Box box(program, alarmBox);
    EXPECT_EQ(box.Text(), "           Turn Off Alarm?");
    EXPECT_FALSE(editor.IsMinimized());
    EXPECT_EQ(recorder.WaitForSound(before), "Alarm buzzer.wav");
    Clock::WaitFor("2031-06-02 09:01:05");
    EXPECT_EQ(recorder.WaitForSound(recorder.Now()), "Alarm buzzer.wav") << "it loops";
    EXPECT_EQ(program.Visible(title).size(), 1U) << "no display besides";
    EXPECT_EQ(program.Visible(alarmBox).size(), 1U);
    box.Click("OK");
    recorder.WaitForSilence();

    EXPECT_TRUE(editor.FindChild("Button", editorSet));
    EXPECT_TRUE(editor.FindChild("Button", " Alarm Set "));
    EXPECT_FALSE(editor.Button(audioBoxCaption).IsChecked());
    EXPECT_TRUE(TimePicker(editor).IsVisible());
    HideNote(editor);
    ExpectNote(title, "\"Dentist\",\"Call\",#2031-06-02#,#09:01:00#,1,12,\"0\",0,\"yes\"\r\n");
}

// Both alarms are due in the same second. The second note opens while the box of the first is open.
// The box disables the note, so the note must stay below the box.
TEST_F(AlarmsTest, ANoteThatComesUpDoesNotCoverAnOpenBox) {
    WriteNote(title, "\"Dentist\",\"Call\",#2031-06-02#,#09:01:00#,1,12,\"1\",1,\"yes\"\r\n");
    WriteNote("Rent", "\"Rent\",\"Pay\",#2031-06-02#,#09:01:00#,4,12,\"1\",0,\"yes\"\r\n");
    StartProgram();
    const Window rent = program.WaitFor("Rent");
    EXPECT_TRUE(rent.IsMinimized());

    LetAlarmCome("2031-06-02 09:00:58", alarmBox);
    const Box box(program, alarmBox);
    WaitUntil("the second note is up", [&] { return !rent.IsMinimized(); });
    EXPECT_FALSE(rent.IsEnabled());
    const auto liesBelowTheBox = [&] {
        for (HWND below = program.Visible(alarmBox).front().handle; below != nullptr;
             below = ::GetWindow(below, GW_HWNDNEXT)) {
            if (below == rent.handle) {
                return true;
            }
        }
        return false;
    };
    EXPECT_TRUE(ComesTrue(liesBelowTheBox));
    box.Click("OK");
    WaitUntil("the second note can be used", [&] { return rent.IsEnabled(); });
}

TEST_F(AlarmsTest, AnAlarmComesUpWhileABoxIsOpen) {
    const Window main = StartWithClosedNote();
    const Window other = MakeNote(main, "Other");
    ChooseFromMenuBar(program, other, barEraseNote);
    const Box box(program, "Kill Note");
    const Window display = WaitForAlarm();
    EXPECT_TRUE(box.window.Exists());
    CloseDisplay(display);
    EXPECT_TRUE(box.window.Exists());
    box.Click("No");
    EXPECT_TRUE(other.IsVisible());
}

TEST_F(AlarmsTest, AnAlarmComesUpWhileAMenuIsOpen) {
    const Window main = StartWithClosedNote();
    RightClick(main);
    WaitUntil("a menu opens", [&] { return static_cast<bool>(program.OpenMenu()); });
    const Window display = WaitForAlarm();
    EXPECT_TRUE(program.OpenMenu());
    CloseMenu(program, main);
    CloseDisplay(display);
}

TEST_F(AlarmsTest, AnAlarmComesUpWhileAWindowIsMoved) {
    const Window main = StartWithClosedNote();
    const RECT place = main.Place();
    // Press the button on the window's title bar and move a little.
    hands::MoveTo((place.left + place.right) / 2, place.top + 10);
    hands::Press();
    hands::MoveBy(20, 20);
    hands::MoveBy(20, 20);
    const auto isMoving = [&] {
        GUITHREADINFO info{};
        info.cbSize = sizeof info;
        ::GetGUIThreadInfo(::GetWindowThreadProcessId(main.handle, nullptr), &info);
        return (info.flags & GUI_INMOVESIZE) != 0;
    };
    WaitUntil("the window is moved", isMoving);
    const Window display = WaitForAlarm();
    EXPECT_TRUE(isMoving());
    hands::Release();
    WaitUntil("the window is let go", [&] { return !isMoving(); });
    CloseDisplay(display);
}

TEST_F(AlarmsTest, AnAlarmComesUpWhileAFileIsChosen) {
    const Window main = StartWithClosedNote();
    ChooseFromMenuBar(program, main, barChooseAlarmSound);
    const Window sounds = program.WaitFor("Choose An Alarm");
    sounds.Button("Selected .wav File").Click();
    WaitUntil("a file can be looked for", [&] { return sounds.Button("&Browse").IsEnabled(); });
    sounds.Button("&Browse").Click();
    Window dialog;
    WaitUntil("the dialog opens", [&] {
        for (const Window& window : program.Windows()) {
            if (window.IsVisible() && window.ClassName() == boxClass) {
                dialog = window;
            }
        }
        return static_cast<bool>(dialog);
    });
    const Window display = WaitForAlarm();
    EXPECT_TRUE(dialog.Exists());
    CloseDisplay(display);
    EXPECT_TRUE(dialog.Exists());
    dialog.Post(WM_COMMAND, IDCANCEL);
    WaitUntil("the dialog has gone", [&] { return !dialog.Exists(); });
    EXPECT_TRUE(sounds.IsVisible());
}

}  // namespace driver
