#include <algorithm>
#include <cctype>

#include "tests/windows/DriverTest.h"

namespace driver {

namespace {

constexpr const char* caption = "Choose An Alarm";
constexpr const char* ownFile = "Selected .wav File";

std::string LowerCase(std::string text) {
    std::transform(text.begin(), text.end(), text.begin(),
                   [](unsigned char character) { return std::tolower(character); });
    return text;
}

}  // namespace

class AlarmSoundsTest : public DriverTest {
  protected:
    Window Open(const Window& main) const;
    static void Click(const Window& window, const std::string& option);
    // Expects a box with exactly this text, and clicks OK.
    void ExpectMessage(const std::string& text, const std::string& boxCaption) const;
};

Window AlarmSoundsTest::Open(const Window& main) const {
    return OpenFromMenuBar(main, barChooseAlarmSound, caption, "Edit");
}

void AlarmSoundsTest::Click(const Window& window, const std::string& option) {
    window.Button(option).Click();
    WaitUntil("the option is selected", [&] { return window.Button(option).IsChecked(); });
    window.Send(WM_NULL);
}

void AlarmSoundsTest::ExpectMessage(const std::string& text, const std::string& boxCaption) const {
    const Box box(program, boxCaption);
    EXPECT_EQ(box.Text(), text);
    box.Click("OK");
}

TEST_F(AlarmSoundsTest, AnOwnSoundFileIsTestedAndSaved) {
    // Differs from the path of a built-in sound only in its case.
    const std::string stored = folder + "\\" + LowerCase("Bell alarm.wav");
    ASSERT_NE(stored, folder + "\\Bell alarm.wav");
    WriteSetting("Config", "Alarm", stored);
    const std::string own = UnixPath(Variable("JOTWRIGHT_TEMP")) +
                            "\\Gl\xC3\xB6"
                            "ckchen.WAV";
    WriteWholeFile(own, WholeFile(folder + "\\Alarm clock.wav").value());
    const Window main = StartProgram();
    Window window = Open(main);
    EXPECT_TRUE(window.Button(ownFile).IsChecked());
    EXPECT_EQ(window.Only("Edit").Text(), stored);

    // If the user chooses an own file, Save is disabled until the file dialog has been opened. It
    // does not matter whether the dialog is cancelled.
    Click(window, "Alert Chime");
    EXPECT_TRUE(window.Button("&Save").IsEnabled());
    EXPECT_FALSE(window.Button("&Browse").IsEnabled());
    Click(window, ownFile);
    EXPECT_FALSE(window.Button("&Save").IsEnabled());
    window.Button("&Browse").Click();
    const auto dialog = [&] {
        for (const Window& other : program.Windows()) {
            if (other.IsVisible() && other.ClassName() == boxClass) {
                return other;
            }
        }
        return Window();
    };
    WaitUntil("the dialog opens", [&] { return static_cast<bool>(dialog()); });
    dialog().Post(WM_COMMAND, IDCANCEL);
    WaitUntil("the dialog has gone", [&] { return !dialog(); });
    WaitUntil("it can be saved", [&] { return window.Button("&Save").IsEnabled(); });
    EXPECT_EQ(window.Only("Edit").Text(), stored);

    window.Only("Edit").Type("");
    window.Button("&Test").Click();
    ExpectMessage("Please Select A .wav File To Play", "No File To Test");
    EXPECT_TRUE(ComesTrue([&] { return window.Only("Edit").HasFocus(); }));
    window.Button("&Save").Click();
    ExpectMessage("Please Select A .wav File", "No File Selected");
    window.Only("Edit").Type("C:\\sounds\\bell.wave");
    window.Button("&Save").Click();
    ExpectMessage("The File Selected Was Not A Valid .wav File!       ", "Error Loading .wav File");
    EXPECT_TRUE(ComesTrue([&] { return window.Only("Edit").Text().empty(); }));
    EXPECT_EQ(Setting("Config", "Alarm"), stored);

    window.Only("Edit").Type(own);
    std::uint64_t before = recorder.Now();
    window.Button("&Test").Click();
    {
        const Box box(program, alarmBox);
        EXPECT_EQ(box.Text(), "        Sampling Selected .wav File          ");
        EXPECT_EQ(recorder.WaitForSound(before), "Alarm clock.wav");
        // The file plays for 0.3 seconds.
        EXPECT_TRUE(ComesTrue([&] { return recorder.SoundingSeconds(before) > 0.7; }))
            << "it loops";
        box.Click("OK");
    }
    recorder.WaitForSilence();
    before = recorder.Now();
    window.Only("Edit").Type(own + ".wav");
    window.Button("&Test").Click();
    {
        const Box box(program, alarmBox);
        EXPECT_EQ(box.Text(), "        Sampling Selected .wav File          ");
        // If there were a sound, it would have begun by now.
        recorder.WaitForSilence();
        EXPECT_FALSE(recorder.HasSounded(before)) << "there is no such file";
        box.Click("OK");
    }

    window.Only("Edit").Type("  " + own + " ");
    window.Button("&Save").Click();
    program.WaitUntilGone(caption);
    EXPECT_EQ(Setting("Config", "Alarm"), "  " + own + " ");
    window = Open(main);
    EXPECT_TRUE(window.Button(ownFile).IsChecked());
    EXPECT_EQ(window.Only("Edit").Text(), "  " + own + " ");
}

TEST_F(AlarmSoundsTest, ASoundThatWasClickedButNotSavedIsKeptForThisRun) {
    WriteSetting("Config", "Alarm", folder + "\\Alarm clock.wav");
    WriteNote("Dentist", "\"Dentist\",\"Call\",#2031-06-02#,#09:01:00#,1,12,\"1\",1,\"yes\"\r\n");
    const Window main = StartProgram();
    const Window window = Open(main);
    EXPECT_TRUE(window.Button("Alarm Clock").IsChecked());
    Click(window, "Bell Alarm");
    window.Button("&Cancel").Click();
    program.WaitUntilGone(caption);
    EXPECT_EQ(Setting("Config", "Alarm"), folder + "\\Alarm clock.wav");

    const std::uint64_t before = recorder.Now();
    LetAlarmCome("2031-06-02 09:00:58", alarmBox);
    const Box box(program, alarmBox);
    EXPECT_EQ(recorder.WaitForSound(before), "Bell alarm.wav");
    box.Click("OK");
    recorder.WaitForSilence();
}

}  // namespace driver
