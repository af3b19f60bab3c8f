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

TEST_F(Tools, ASpecialAlarmIsSavedAndRings) {
    const Window main = StartProgram();
    main.Button("S&pecial Alarms").Click();
    const Window window = program.WaitFor("Special Alarms");
    WaitUntilFilled(window, "Edit");
    // The first row, whose day is Monday, as today.
    const auto highest = [](const std::vector<Window>& windows) {
        Window found = windows.front();
        for (const Window& other : windows) {
            if (other.Place().top < found.Place().top) {
                found = other;
            }
        }
        return found;
    };
    std::vector<Window> enabled;
    for (const Window& button : window.ChildrenOfClass("Button")) {
        if (button.Text() == "Enabled") {
            enabled.push_back(button);
        }
    }
    ASSERT_EQ(enabled.size(), 7U);
    highest(enabled).Click();
    highest(window.ChildrenOfClass("Edit")).Type("Pay the rent");
    PickTime(highest(window.ChildrenOfClass("SysDateTimePick32")), 9, 1);
    WaitUntil("the changes can be saved", [&] { return window.Button("&Save").IsEnabled(); });
    window.Button("&Save").Click();
    program.WaitUntilGone("Special Alarms");
    const auto bytes = WholeFile(folder + "\\SpecialAlarms\\SpecialAlarms.txt").value_or("");
    EXPECT_EQ(bytes.substr(0, bytes.find('\n') + 1),
              "\"Monday\",#09:01:00#,\"Pay the rent\",1\r\n");

    const std::uint64_t before = recorder.Now();
    Clock::Set("2031-06-02 09:00:58");
    const Box box(program, "Jotwright Daily Alarm");
    EXPECT_EQ(box.Text(), "Message for Monday               \r\n\r\nPay the rent");
    EXPECT_EQ(recorder.WaitForSound(before), "Alarm buzzer.wav");
    box.Press("OK");
    recorder.WaitForSilence();
}

TEST_F(Tools, TheCuckooClockStrikesTheHour) {
    Clock::Set("2031-06-02 14:50:00");
    const Window main = StartProgram();
    EXPECT_FALSE(main.FindChild("Static", "CooKoo Clock Is Activated"));
    main.Button("Start CooKoo &Clock").Click();
    WaitUntil("the clock runs", [&] {
        return main.FindChild("Button", "Stop CooKoo &Clock") &&
               main.FindChild("Static", "CooKoo Clock Is Activated");
    });
    const std::uint64_t before = recorder.Now();
    Clock::Set("2031-06-02 15:00:13");
    EXPECT_EQ(recorder.WaitForSound(before), "Cuckoo clock.wav");
    recorder.WaitForSilence();
    // Three times 1.7 seconds, without the rest at the end.
    EXPECT_NEAR(recorder.SoundingTime(before), 4.5, 0.6);
}

TEST_F(Tools, TheCountdownEndsWithItsChime) {
    const Window main = StartProgram();
    main.Button("&Timer").Click();
    const Window timer = program.WaitFor("Novelty Timer");
    EXPECT_TRUE(timer.FindChild("Static", "Time Left:\r\n0 Minutes\r\n0 Seconds"));
    timer.Button("&Start Timer").Click();
    Box(program, "No Minutes Entered").Press("OK");

    timer.Only("Edit").Type("0");
    const std::uint64_t before = recorder.Now();
    timer.Button("&Start Timer").Click();
    const Box box(program, alarmBox);
    EXPECT_EQ(box.Text(), "          Time Is Up        ");
    EXPECT_EQ(recorder.WaitForSound(before), "Alert chime.wav");
    box.Press("OK");
    recorder.WaitForSilence();
    EXPECT_TRUE(timer.FindChild("Static", "Time Left: 0 minutes 0 seconds."));

    timer.Only("Edit").Type("5");
    timer.Button("&Start Timer").Click();
    WaitUntil("two seconds are counted", [&] {
        return static_cast<bool>(
            timer.FindChild("Static", "Time Left:\r\n4 Minutes\r\n57 Seconds"));
    });
}

TEST_F(Tools, TheStopWatchKeepsARun) {
    const Window main = StartProgram();
    main.Button("&Stop Watch").Click();
    const Window watch = program.WaitFor("Novelty Stop Watch");
    watch.Button("&Start").Click();
    WaitUntil("two seconds have passed",
              [&] { return static_cast<bool>(watch.FindChild("Static", "00:00:02")); });
    watch.Button("S&top").Click();
    WaitUntil("the run can be saved", [&] { return watch.Button("Sa&ve").IsEnabled(); });
    watch.Button("Sa&ve").Click();
    const Window list = watch.Only(listClass);
    WaitUntil("the run is listed", [&] { return RowCount(list) == 1; });
    EXPECT_EQ(CellText(list, 0, 1), "   #1");
    EXPECT_EQ(CellText(list, 0, 2), "00:00:02");
    EXPECT_TRUE(watch.FindChild("Static", "Total Watch Starts: 1"));
    EXPECT_FALSE(watch.Button("Sa&ve").IsEnabled());
}

}  // namespace driver
