#include <optional>

#include "tests/windows/CuckooCall.h"
#include "tests/windows/DriverTest.h"

namespace driver {

namespace {

constexpr const char* startCaption = "Start CooKoo &Clock";
constexpr const char* stopCaption = "Stop CooKoo &Clock";

}  // namespace

class CuckooTest : public DriverTest {
  protected:
    void UseShortCall() { call.emplace(SoundPath(), 1); }
    std::string SoundPath() const { return folder + "\\Cuckoo clock.wav"; }
    static bool Runs(const Window& main);
    // Sets the clock to fifteen seconds past the hour, and counts the calls by the seconds of
    // sound.
    void ExpectCalls(const std::string& hour, int calls) const;
    int Calls(std::uint64_t since) const;
    // Lets the clock pass the hour while an alarm sounds.
    void ExpectOnlyTheAlarm(const std::string& hour) const;

    std::optional<CuckooCall> call;
};

bool CuckooTest::Runs(const Window& main) {
    return main.FindChild("Button", stopCaption) &&
           main.FindChild("Static", "CooKoo Clock Is Activated");
}

void CuckooTest::ExpectCalls(const std::string& hour, int calls) const {
    const std::uint64_t before = recorder.Now();
    if (calls > 0) {
        LetTimeCome(hour + ":00:13", "something sounds",
                    [&] { return recorder.HasSounded(before); });
        WaitUntil("the calls have sounded", [&] { return Calls(before) >= calls; });
    } else {
        Clock::Set(hour + ":00:13");
    }
    // The first call would have come in the second before this one.
    Clock::WaitFor(hour + ":00:17");
    recorder.WaitForSilence();
    EXPECT_EQ(Calls(before), calls) << hour;
}

int CuckooTest::Calls(std::uint64_t since) const {
    return CuckooCalls(recorder, SoundPath(), since);
}

void CuckooTest::ExpectOnlyTheAlarm(const std::string& hour) const {
    Clock::Set(hour + ":00:13");
    Clock::WaitFor(hour + ":00:17");
    EXPECT_EQ(recorder.WaitForSound(recorder.Now()), "Alarm buzzer.wav") << hour;
}

TEST_F(CuckooTest, StrikesTheHour) {
    Clock::Set("2031-06-02 14:50:00");
    const Window main = StartProgram();
    EXPECT_FALSE(Runs(main));
    main.Button(startCaption).Click();
    WaitUntil("the clock runs", [&] { return Runs(main); });
    const std::uint64_t before = recorder.Now();
    ExpectCalls("2031-06-02 15", 3);
    EXPECT_EQ(recorder.WaitForSound(before), "Cuckoo clock.wav");
}

TEST_F(CuckooTest, StrikesAsOftenAsItsTableSays) {
    UseShortCall();
    WriteSetting("Options", "StartCookoo", "1");
    Clock::Set("2031-06-02 11:59:50");
    const Window main = StartProgram();
    EXPECT_TRUE(Runs(main));
    ExpectCalls("2031-06-02 12", 0);
    ExpectCalls("2031-06-02 23", 12);
    ExpectCalls("2031-06-03 00", 12);

    main.Button(stopCaption).Click();
    WaitUntil("the clock stands",
              [&] { return static_cast<bool>(main.FindChild("Button", startCaption)); });
    EXPECT_FALSE(Runs(main));
    ExpectCalls("2031-06-03 01", 0);
}

// The twelve calls would take two minutes.
TEST_F(CuckooTest, AnswersAndPaintsWhileItStrikesAndEndsWithTheSession) {
    call.emplace(SoundPath(), 100);
    WriteSetting("Options", "StartCookoo", "1");
    Clock::Set("2031-06-02 22:59:50");
    const Window main = StartProgram();
    const std::uint64_t before = recorder.Now();
    LetTimeCome("2031-06-02 23:00:13", "something sounds",
                [&] { return recorder.HasSounded(before); });
    main.Button("&Timer").Click();
    main.Send(WM_NULL);
    ::RedrawWindow(main.handle, nullptr, nullptr, RDW_INVALIDATE | RDW_ALLCHILDREN);
    WaitUntil("the window is painted",
              [&] { return ::GetUpdateRect(main.handle, nullptr, FALSE) == 0; });
    EXPECT_TRUE(program.Visible("Novelty Timer").empty());
    EXPECT_LT(Calls(before), 12);
    for (const Window& window : program.Windows()) {
        ::SendNotifyMessageW(window.handle, WM_ENDSESSION, TRUE, 0);
    }
    program.WaitForEnd();
    EXPECT_LT(Calls(before), 12);
}

TEST_F(CuckooTest, IsSilentWhileAnAlarmSounds) {
    UseShortCall();
    WriteSetting("Options", "StartCookoo", "1");
    WriteSetting("Options", "NoteLoops", "1");
    WriteNote("Dentist", "\"Dentist\",\"Call\",#2031-06-02#,#17:00:00#,1,12,\"1\",1,\"yes\"\r\n");
    WriteNote("Shop", "\"Shop\",\"milk\",#2031-06-02#,#18:00:00#,1,12,\"1\",1,\"yes\"\r\n");
    MakeFolder(folder + "\\SpecialAlarms");
    std::string alarms = "\"Monday\",#15:00:15#,\"now\",1\r\n";
    for (int row = 1; row < 7; ++row) {
        alarms += "\"Monday\",#00:00:00#,\"\",0\r\n";
    }
    WriteWholeFile(folder + "\\SpecialAlarms\\SpecialAlarms.txt", alarms);
    const Window main = StartProgram();
    const Window editor = program.WaitFor("Dentist");
    editor.CloseBox();
    WaitUntil("the editor has gone", [&] { return !editor.Exists(); });
    EXPECT_TRUE(Runs(main));

    ExpectOnlyTheAlarm("2031-06-02 15");
    Box(program, "Jotwright Daily Alarm").Click("OK");

    // First use the alarm of a display, then the alarm of an editor.
    for (const char* hour : {"17", "18"}) {
        LetAlarmCome("2031-06-02 " + std::to_string(std::stoi(hour) - 1) + ":59:58", alarmBox);
        const Box box(program, alarmBox);
        ExpectOnlyTheAlarm(std::string("2031-06-02 ") + hour);
        box.Click("OK");
    }
    recorder.WaitForSilence();
    ExpectCalls("2031-06-02 19", 7);
}

}  // namespace driver
