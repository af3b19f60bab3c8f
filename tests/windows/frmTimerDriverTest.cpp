#include <windows.h>

#include <cstdio>
#include <optional>

#include "tests/windows/DriverTest.h"

namespace driver {

// The countdown counts real seconds, even if the clock is set.
class frmTimerDriverTest : public DriverTest {
  protected:
    struct Left {
        int minutes;
        int seconds;
        int Total() const { return minutes * 60 + seconds; }
    };
    Window Open(const Window& main) const;
    static void Start(const Window& timer, const std::string& entry);
    static bool Shows(const Window& timer, const std::string& minutes, const std::string& seconds);
    // The remaining time, if the label has one of its two exact forms. Otherwise nothing.
    static std::optional<Left> Shown(const Window& timer);
    static Left WaitUntilItCounts(const Window& timer);
    // Opens a modal window, waits until less time is left than last, and closes the window. Returns
    // the time left. Both times are in seconds.
    int CountBehind(const Window& main, const MenuPath& entry, const std::string& caption,
                    const Window& timer, int last);
};

Window frmTimerDriverTest::Open(const Window& main) const {
    main.Button("&Timer").Click();
    const Window timer = program.WaitFor("Novelty Timer");
    WaitUntilFilled(timer, "Edit");
    return timer;
}

void frmTimerDriverTest::Start(const Window& timer, const std::string& entry) {
    timer.Only("Edit").Type(entry);
    timer.Button("&Start Timer").Click();
}

bool frmTimerDriverTest::Shows(const Window& timer, const std::string& minutes,
                               const std::string& seconds) {
    return static_cast<bool>(
        timer.FindChild("Static", "Time Left:\r\n" + minutes + "\r\n" + seconds));
}

std::optional<frmTimerDriverTest::Left> frmTimerDriverTest::Shown(const Window& timer) {
    for (const Window& label : timer.ChildrenOfClass("Static")) {
        const std::string text = label.Text();
        Left left{};
        if (std::sscanf(text.c_str(), "Time Left:\r\n%d %*s %d", &left.minutes, &left.seconds) !=
            2) {
            continue;
        }
        const std::string minutes = "Time Left:\r\n" + std::to_string(left.minutes);
        const std::string seconds = std::to_string(left.seconds);
        if (text == minutes + " minutes\r\n" + seconds + " seconds" ||
            text == minutes + " Minutes\r\n" + seconds + " Seconds") {
            return left;
        }
    }
    return std::nullopt;
}

// Waits until the first second has been counted.
frmTimerDriverTest::Left frmTimerDriverTest::WaitUntilItCounts(const Window& timer) {
    std::optional<Left> left;
    WaitUntil("it counts", [&] {
        left = Shown(timer);
        return left && left->seconds != 0;
    });
    return *left;
}

int frmTimerDriverTest::CountBehind(const Window& main, const MenuPath& entry,
                                    const std::string& caption, const Window& timer, int last) {
    ChooseFromMenuBar(program, main, entry);
    const Window modal = program.WaitFor(caption);
    EXPECT_FALSE(main.IsEnabled());
    int left = last;
    WaitUntil("it counts behind " + caption, [&] {
        if (const auto shown = Shown(timer)) {
            left = shown->Total();
        }
        return left < last;
    });
    modal.CloseBox();
    program.WaitUntilGone(caption);
    WaitUntil("the main window can be used", [&] { return main.IsEnabled(); });
    return left;
}

TEST_F(frmTimerDriverTest, CountsAMinuteWhileOtherWindowsAreOpen) {
    const Window main = StartProgram();
    const Window timer = Open(main);
    const ULONGLONG start = ::GetTickCount64();
    Start(timer, "1");
    WaitUntil("it runs", [&] { return timer.Button("&Stop Timer").IsEnabled(); });
    EXPECT_FALSE(timer.Only("Edit").IsEnabled());
    EXPECT_FALSE(timer.Button("&Start Timer").IsEnabled());
    int last = WaitUntilItCounts(timer).Total();
    EXPECT_LT(last, 60);

    last = CountBehind(main, barShowTips, "Jotwright - Tips and Tricks", timer, last);
    last = CountBehind(main, barAbout, "About Jotwright", timer, last);
    Clock::Set("2031-06-02 17:00:00");

    // The countdown has continued while the windows were open. It counts to the end and never up.
    const auto isUp = [&] { return !program.Visible(alarmBox).empty(); };
    std::uint64_t before = recorder.Now();
    WaitUntil("the minute is over", [&] {
        const auto left = Shown(timer);
        if (left && left->minutes >= 0) {
            EXPECT_LE(left->Total(), last);
            last = left->Total();
            before = recorder.Now();
        }
        return isUp();
    });
    // Sixty real seconds, less the part of a second before the first tick.
    EXPECT_GE(::GetTickCount64() - start, 59'000U);
    const Box box(program, alarmBox);
    EXPECT_EQ(box.Text(), "          Time Is Up        ");
    EXPECT_TRUE(Shows(timer, "-1 Minutes", "0 Seconds."));
    EXPECT_EQ(recorder.WaitForSound(before), "Alert chime.wav");
    // The chime lasts 1.7 seconds.
    EXPECT_TRUE(ComesTrue([&] { return recorder.SoundingSeconds(before) > 2.5; })) << "it loops";
    EXPECT_TRUE(Shows(timer, "-1 Minutes", "0 Seconds."));
    box.Click("OK");
    recorder.WaitForSilence();
    EXPECT_TRUE(timer.FindChild("Static", "Time Left: 0 minutes 0 seconds."));
    EXPECT_TRUE(timer.Only("Edit").IsEnabled());
    EXPECT_EQ(timer.Only("Edit").Text(), "");
    EXPECT_TRUE(timer.Button("&Start Timer").IsEnabled());
    EXPECT_FALSE(timer.Button("&Stop Timer").IsEnabled());
}

TEST_F(frmTimerDriverTest, AnEntryBeyondItsRangeEndsTheProgramWhichFirstSavesItsNotes) {
    const Window main = StartProgram();
    const Window editor = MakeNote(main, "Dentist");
    editor.Only("Edit").Type("Call");
    tray::Click(main);
    WaitUntil("the main window is shown", [&] { return main.IsVisible(); });
    Start(Open(main), "40000");
    const Box box(program, mainCaption);
    EXPECT_EQ(box.Text(), "Run-time error '6':\r\n\r\nOverflow");
    box.Click("OK");
    program.WaitForEnd();
    ExpectNote("Dentist", "\"Dentist\",\"Call\",#2031-06-02#,#12:00:00#,1,12,\"0\",0,\"yes\"\r\n");
}

}  // namespace driver
