#include <windows.h>
#include <commctrl.h>

#include <algorithm>
#include <vector>

#include "forms/win32/Utf.h"
#include "tests/windows/DriverTest.h"

namespace driver {

namespace {

constexpr const char* caption = "Special Alarms";
constexpr const char* alarmCaption = "Jotwright Daily Alarm";
constexpr const char* heading = "Message for Monday               \r\n\r\n";
constexpr const char* emptyRow = "\"Monday\",#00:00:00#,\"\",0\r\n";
constexpr std::size_t rowCount = 7;

constexpr int tuesday = 1;

// The controls of a column, from top to bottom.
std::vector<Window> Column(std::vector<Window> cells) {
    std::sort(cells.begin(), cells.end(),
              [](const Window& a, const Window& b) { return a.Place().top < b.Place().top; });
    return cells;
}

}  // namespace

class SpecialAlarmsTest : public DriverTest {
  protected:
    struct Rows {
        std::vector<Window> enabled;
        std::vector<Window> days;
        std::vector<Window> times;
        std::vector<Window> messages;
    };

    Window Open(const Window& main) const;
    static Rows RowsOf(const Window& window);
    static void Enable(const Window& checkBox, bool enable);
    // Sets a row to 10:30 of this day and enables it.
    static void Fill(const Rows& rows, std::size_t row, int day);
    // Waits until Save is enabled, and clicks it.
    static void Save(const Window& window);
    void Close(const Window& window) const;
    void ExpectIdentical(int first, int second) const;
    std::string Path() const { return folder + "\\SpecialAlarms\\SpecialAlarms.txt"; }
    void WriteAlarms(const std::string& bytes) const;
    void ExpectNoBox() const { EXPECT_TRUE(program.Visible(alarmCaption).empty()); }
};

Window SpecialAlarmsTest::Open(const Window& main) const {
    main.Button("S&pecial Alarms").Click();
    const Window window = program.WaitFor(caption);
    WaitUntilFilled(window, "Edit");
    return window;
}

SpecialAlarmsTest::Rows SpecialAlarmsTest::RowsOf(const Window& window) {
    auto enabled = window.ChildrenOfClass("Button");
    std::erase_if(enabled, [](const Window& button) { return button.Text() != "Enabled"; });
    Rows rows{Column(enabled), Column(window.ChildrenOfClass("ComboBox")),
              Column(window.ChildrenOfClass(forms::win32::Narrow(DATETIMEPICK_CLASSW))),
              Column(window.ChildrenOfClass("Edit"))};
    for (const auto* column : {&rows.enabled, &rows.days, &rows.times, &rows.messages}) {
        if (column->size() != rowCount) {
            throw Failure(std::to_string(column->size()) + " rows");
        }
    }
    return rows;
}

void SpecialAlarmsTest::Enable(const Window& checkBox, bool enable) {
    checkBox.Click();
    WaitUntil("the box is changed", [&] { return checkBox.IsChecked() == enable; });
}

void SpecialAlarmsTest::Fill(const Rows& rows, std::size_t row, int day) {
    Select(rows.days[row], day);
    PickTime(rows.times[row], 10, 30);
    Enable(rows.enabled[row], true);
}

void SpecialAlarmsTest::Save(const Window& window) {
    WaitUntil("the changes can be saved", [&] { return window.Button("&Save").IsEnabled(); });
    window.Button("&Save").Click();
}

void SpecialAlarmsTest::Close(const Window& window) const {
    window.Button("&Close").Click();
    program.WaitUntilGone(caption);
}

void SpecialAlarmsTest::ExpectIdentical(int first, int second) const {
    const Box box(program, "Error - Identical Alarms");
    EXPECT_EQ(box.Text(), "                    Alarm Number: " + std::to_string(first) +
                              "\r\n                               and \r\n"
                              "                    Alarm Number: " +
                              std::to_string(second) +
                              "\r\n          Have the same day and time set.\r\n\r\n"
                              "  Alarms can't be set for the same day and time.      ");
    box.Click("OK");
    EXPECT_FALSE(program.Visible(caption).empty());
}

void SpecialAlarmsTest::WriteAlarms(const std::string& bytes) const {
    MakeFolder(folder + "\\SpecialAlarms");
    WriteWholeFile(Path(), bytes);
}

TEST_F(SpecialAlarmsTest, IdenticalRowsAreRefusedAndSavedRowsComeBack) {
    const Window main = StartProgram();
    Window window = Open(main);
    Rows rows = RowsOf(window);
    Fill(rows, 1, tuesday);
    Fill(rows, 4, tuesday);
    Save(window);
    ExpectIdentical(2, 5);
    EXPECT_FALSE(FileExists(Path()));

    Enable(rows.enabled[4], false);
    rows.messages[4].Type("Say \"hello\", then go");
    Save(window);
    program.WaitUntilGone(caption);
    const std::string saved =
        std::string(emptyRow) + "\"Tuesday\",#10:30:00#,\"\",1\r\n" + emptyRow + emptyRow +
        "\"Tuesday\",#10:30:00#,\"Say \"hello\", then go\",0\r\n" + emptyRow + emptyRow;
    EXPECT_EQ(WholeFile(Path()).value_or("(no file)"), saved);

    window = Open(main);
    EXPECT_FALSE(window.Button("&Save").IsEnabled());
    rows = RowsOf(window);
    EXPECT_EQ(rows.days[4].Text(), "Tuesday");
    ExpectTime(rows.times[4], 10, 30);
    EXPECT_EQ(rows.messages[4].Text(), "Say \"hello\", then go");
    EXPECT_TRUE(rows.enabled[1].IsChecked());
    EXPECT_FALSE(rows.enabled[4].IsChecked());
    Close(window);
}

TEST_F(SpecialAlarmsTest, RowsOfOneSecondRingOneAfterTheOther) {
    const std::string saved =
        "\"Monday\",#09:01:00#,\"\",1\r\n"
        "\"Tuesday\",#09:01:00#,\"another day\",1\r\n"
        "\"Monday\",#09:01:00#,\"disabled\",0\r\n"
        "\"Monday\",#09:01:00#,\"second\",1\r\n"
        "\"Monday\",#2031-06-02 09:01:00#,\"with a date\",1\r\n"
        "\"Monday\",#09:02:30#,\"half past\",1\r\n"
        "\"Monday\",#00:00:00#,\"saved in the window\",0\r\n";
    WriteAlarms(saved);
    const Window main = StartProgram();
    LetAlarmCome("2031-06-02 09:00:58", alarmCaption);
    {
        const Box box(program, alarmCaption);
        EXPECT_GE(Clock::Now(), "2031-06-02 09:01:00");
        EXPECT_EQ(box.Text(), std::string(heading) + "No Special Message");
        // The sound lasts 1.6 seconds, so it loops.
        Clock::WaitFor("2031-06-02 09:01:04");
        EXPECT_EQ(recorder.WaitForSound(recorder.Now()), "Alarm buzzer.wav");
        box.Click("OK");
    }
    {
        const Box box(program, alarmCaption);
        EXPECT_EQ(box.Text(), std::string(heading) + "second");
        EXPECT_EQ(recorder.WaitForSound(recorder.Now()), "Alarm buzzer.wav");
        box.Click("OK");
    }
    recorder.WaitForSilence();
    ExpectNoBox();
    EXPECT_EQ(WholeFile(Path()).value_or("(no file)"), saved);

    // For a row without a message, the box showed a default text. This text is in neither the
    // window nor the file. Saved rows ring without a restart of the program.
    const Window window = Open(main);
    const Rows rows = RowsOf(window);
    EXPECT_EQ(rows.messages[0].Text(), "");
    Enable(rows.enabled[0], false);
    Enable(rows.enabled[3], false);  // the window shows it as identical to the row with a date
    PickTime(rows.times[6], 9, 2);
    Enable(rows.enabled[6], true);
    Save(window);
    program.WaitUntilGone(caption);
    EXPECT_EQ(WholeFile(Path()).value_or("").substr(0, 30),
              "\"Monday\",#09:01:00#,\"\",0\r\n\"Tue");
    LetAlarmCome("2031-06-02 09:01:58", alarmCaption);
    {
        const Box box(program, alarmCaption);
        EXPECT_EQ(box.Text(), std::string(heading) + "saved in the window");
        box.Click("OK");
    }
    LetAlarmCome("2031-06-02 09:02:28", alarmCaption);
    const Box box(program, alarmCaption);
    EXPECT_GE(Clock::Now(), "2031-06-02 09:02:30");
    EXPECT_EQ(box.Text(), std::string(heading) + "half past");
    box.Click("OK");
}

TEST_F(SpecialAlarmsTest, ADamagedFileIsReportedWhenTheWindowOpens) {
    const std::string whole = "\"Friday\",#17:30:00#,\"Pay the rent\",1\r\n";
    WriteAlarms(whole + "\"Monday\",#08:0");
    const Window main = StartProgram();
    main.Button("S&pecial Alarms").Click();
    Box(program, "Error Loading Special Alarms").Click("OK");
    const Window window = program.WaitFor(caption);
    WaitUntilFilled(window, "Edit");
    const Rows rows = RowsOf(window);
    EXPECT_EQ(rows.days[0].Text(), "Friday");
    EXPECT_EQ(rows.messages[0].Text(), "Pay the rent");
    EXPECT_TRUE(rows.enabled[0].IsChecked());
    Close(window);
}

}  // namespace driver
