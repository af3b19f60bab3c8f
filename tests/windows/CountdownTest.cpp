#include <windows.h>

#include <cstdio>
#include <optional>

#include "forms/win32/Utf.h"
#include "tests/windows/DriverTest.h"

namespace driver {

namespace {

// Changes the user's number format while the object exists. Programs that start meanwhile use it.
class NumberSigns {
  public:
    NumberSigns(const std::string& decimal, const std::string& thousands) {
        Exchange(LOCALE_SDECIMAL, decimal, oldDecimal);
        Exchange(LOCALE_STHOUSAND, thousands, oldThousands);
    }
    ~NumberSigns() {
        ::SetLocaleInfoW(LOCALE_USER_DEFAULT, LOCALE_SDECIMAL, oldDecimal);
        ::SetLocaleInfoW(LOCALE_USER_DEFAULT, LOCALE_STHOUSAND, oldThousands);
    }
    NumberSigns(const NumberSigns&) = delete;
    NumberSigns& operator=(const NumberSigns&) = delete;

  private:
    static void Exchange(LCTYPE type, const std::string& sign, wchar_t (&old)[8]) {
        ::GetLocaleInfoW(LOCALE_USER_DEFAULT, type, old, 8);
        EXPECT_NE(::SetLocaleInfoW(LOCALE_USER_DEFAULT, type, forms::win32::Wide(sign).c_str()), 0);
    }

    wchar_t oldDecimal[8]{};
    wchar_t oldThousands[8]{};
};

}  // namespace

// The countdown counts real seconds, even if the clock is set.
class CountdownTest : public DriverTest {
  protected:
    struct Left {
        int minutes;
        int seconds;
        int Total() const { return minutes * 60 + seconds; }
    };
    Window Open(const Window& main) const;
    static void Start(const Window& timer, const std::string& entry);
    static void Stop(const Window& timer);
    static bool Shows(const Window& timer, const std::string& minutes, const std::string& seconds);
    // The remaining time, if the label has one of its two exact forms. Otherwise nothing.
    static std::optional<Left> Shown(const Window& timer);
    static Left WaitUntilItCounts(const Window& timer);
    void ReadAllTips(const Window& main);
    void ReadAbout(const Window& main);
};

Window CountdownTest::Open(const Window& main) const {
    main.Button("&Timer").Click();
    const Window timer = program.WaitFor("Novelty Timer");
    WaitUntilFilled(timer, "Edit");
    return timer;
}

void CountdownTest::Start(const Window& timer, const std::string& entry) {
    timer.Only("Edit").Type(entry);
    timer.Button("&Start Timer").Click();
}

void CountdownTest::Stop(const Window& timer) {
    WaitUntil("it runs", [&] { return timer.Button("&Stop Timer").IsEnabled(); });
    timer.Button("&Stop Timer").Click();
    WaitUntil("it stands", [&] { return timer.Button("&Start Timer").IsEnabled(); });
    EXPECT_TRUE(Shows(timer, "0 Minutes", "0 Seconds"));
    EXPECT_EQ(timer.Only("Edit").Text(), "");
    EXPECT_TRUE(timer.Only("Edit").HasFocus());
}

bool CountdownTest::Shows(const Window& timer, const std::string& minutes,
                          const std::string& seconds) {
    return static_cast<bool>(
        timer.FindChild("Static", "Time Left:\r\n" + minutes + "\r\n" + seconds));
}

std::optional<CountdownTest::Left> CountdownTest::Shown(const Window& timer) {
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
CountdownTest::Left CountdownTest::WaitUntilItCounts(const Window& timer) {
    std::optional<Left> left;
    WaitUntil("it counts", [&] {
        left = Shown(timer);
        return left && left->seconds != 0;
    });
    return *left;
}

void CountdownTest::ReadAllTips(const Window& main) {
    const std::vector<std::string> texts{
        "Create up to 100 personalized notes.",
        "To view the main menu - Right click the Jotwright Icon in the system tray or Right click "
        "any part of the main Jotwright window.",
        "Place the mouse pointer over any button to view a Tool Tip.",
        "Visit the Jotwright website by clicking on the main menu.",
        "Note font size and background color can be changed for each note.",
        "When Jotwright is stopped, all saved notes will be restarted when Jotwright is restarted.",
        "View the Help files by clicking the 'Help' button on any notes toolbar.",
        "Any time you hide a note, all changes to that note are saved.",
        "To start Jotwright when Windows starts, place a shortcut link in the Startup Directory",
        "Thats all of the tips we have. Have fun using the Jotwright!",
    };
    const std::string caption = "Jotwright - Tips and Tricks";
    // The check box shows the setting that was read at start-up, even if another setting was saved
    // later.
    WriteSetting("Startup", "View Tips", "0");
    const Window tips = OpenFromMenuBar(main, barShowTips, caption, "Static");
    EXPECT_FALSE(main.IsEnabled());
    EXPECT_TRUE(tips.FindChild("Static", "Did you know..."));
    EXPECT_TRUE(tips.Button("&Don't Show Tips at Startup").IsChecked());
    for (const std::string& text : texts) {
        WaitUntil("this tip is shown: " + text,
                  [&] { return static_cast<bool>(tips.FindChild("Static", text)); });
        if (text != texts.back()) {
            EXPECT_TRUE(tips.Button("&Next Tip").IsEnabled());
            tips.Button("&Next Tip").Click();
        }
    }
    EXPECT_TRUE(ComesTrue([&] { return !tips.Button("&Next Tip").IsEnabled(); }));
    tips.Button("OK").Click();
    program.WaitUntilGone(caption);
    EXPECT_EQ(Setting("Startup", "View Tips"), "1");

    // When it is opened again, the window begins with the first tip.
    const Window again = OpenFromMenuBar(main, barShowTips, caption, "Static");
    EXPECT_TRUE(again.FindChild("Static", texts.front()));
    EXPECT_TRUE(again.Button("&Don't Show Tips at Startup").IsChecked());
    again.CloseBox();
    program.WaitUntilGone(caption);
    EXPECT_EQ(Setting("Startup", "View Tips"), "1");
}

void CountdownTest::ReadAbout(const Window& main) {
    const Window about = OpenFromMenuBar(main, barAbout, "About Jotwright", "Edit");
    EXPECT_FALSE(main.IsEnabled());
    EXPECT_TRUE(about.FindChild("Static", "The Super Hero Of Note/Alarm Software."));
    EXPECT_TRUE(about.FindChild("Static", "Version 1.0.0"));
    const std::string text = about.Only("Edit").Text();
    EXPECT_NE(text.find("\r\n                             All Rights Reserved\r\n"),
              std::string::npos)
        << text;
    const std::string warning =
        "WARNING:\r\nThis computer program is protected by copyright laws. Unauthorized "
        "reproduction or distribution of this program, or any part of it, may result in severe "
        "civil and criminal penalties, and will will be prosecuted to the fullest extent under the "
        "law.";
    EXPECT_TRUE(text.ends_with("\r\n" + warning)) << text;
    about.Button("&Close").Click();
    program.WaitUntilGone("About Jotwright");
    WaitUntil("the main window can be used", [&] { return main.IsEnabled(); });
}

TEST_F(CountdownTest, CountsAMinuteWhileOtherWindowsAreOpen) {
    const Window main = StartProgram();
    const Window timer = Open(main);
    const ULONGLONG start = ::GetTickCount64();
    Start(timer, "1");
    WaitUntil("it runs", [&] { return timer.Button("&Stop Timer").IsEnabled(); });
    EXPECT_FALSE(timer.Only("Edit").IsEnabled());
    EXPECT_FALSE(timer.Button("&Start Timer").IsEnabled());
    int last = WaitUntilItCounts(timer).Total();
    EXPECT_LT(last, 60);

    ReadAllTips(main);
    ReadAbout(main);
    Clock::Set("2031-06-02 17:00:00");

    // The timer has continued meanwhile. It counts to the end and never up.
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

TEST_F(CountdownTest, AnEntryBeyondItsRangeEndsTheProgramWhichFirstSavesItsNotes) {
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

TEST_F(CountdownTest, TheDecimalSignOfTheUserIsAccepted) {
    const NumberSigns german(",", ".");
    const Window main = StartProgram();
    const Window timer = Open(main);
    const std::vector<std::pair<std::string, std::string>> entries{
        {"2,5", "2"}, {"3,5", "4"}, {"1.000", "1000"}};
    for (const auto& [entry, minutes] : entries) {
        Start(timer, entry);
        WaitUntil("it runs", [&] { return timer.Button("&Stop Timer").IsEnabled(); });
        EXPECT_EQ(timer.Only("Edit").Text(), minutes) << entry;
        Stop(timer);
    }
    // A number alone is not a valid title.
    main.Only("Edit").Type("-2,5");
    main.Button("Make &Note").Click();
    program.WaitFor(" Note Title Error").CloseBox();
    program.WaitUntilGone(" Note Title Error");
    ExitProgram();
}

}  // namespace driver
