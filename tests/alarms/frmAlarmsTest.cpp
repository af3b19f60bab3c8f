#include <gtest/gtest.h>

#include <string>

#include "alarms/frmAlarms.h"
#include "app/StandardCode.h"
#include "tests/support/TestProgram.h"

namespace {

using forms::BoxIcon;
using forms::headless::RecordedSound;
using StandardCode::Shared;

const std::string folder = "C:\\Jotwright";
const std::string ownWave = "D:\\sounds\\my own.wav";

class frmAlarmsTest : public testing_support::TestProgram {
  protected:
    frmAlarms& Open() {
        Start([] { forms::Default<frmAlarms>().Show(); });
        return forms::Default<frmAlarms>();
    }
    frmAlarms& OpenWith(const std::string& stored) {
        settings.values[{"Config", "Alarm"}] = stored;
        return Open();
    }
    static int Selected(const frmAlarms& window) {
        int selected = -1;
        for (const forms::OptionButton& option : window.optAlarm) {
            if (option.value()) {
                EXPECT_EQ(selected, -1) << "two options are selected";
                selected = option.index;
            }
        }
        return selected;
    }
    std::string Stored() { return settings.Read("Config", "Alarm").value_or("(nothing)"); }
};

TEST_F(frmAlarmsTest, WithoutASettingSelectsTheBuzzerAndWritesNothing) {
    Shared().AlarmSoundPath = "before";
    frmAlarms& window = Open();
    EXPECT_EQ(Selected(window), 0);
    EXPECT_EQ(Shared().AlarmSoundPath, folder + "\\Alarm buzzer.wav");
    EXPECT_EQ(Stored(), "(nothing)");
    EXPECT_TRUE(window.cmdSave.enabled());
    EXPECT_FALSE(window.cmdMyWaveFile.enabled());
}

TEST_F(frmAlarmsTest, AnEmptySettingIsTakenAsMissing) {
    frmAlarms& window = OpenWith("");
    EXPECT_EQ(Selected(window), 0);
    EXPECT_EQ(window.txtMyWaveFilePath.text(), "");
    EXPECT_EQ(Shared().AlarmSoundPath, folder + "\\Alarm buzzer.wav");
    EXPECT_EQ(Stored(), "");
}

TEST_F(frmAlarmsTest, TheSoundSelectedByLoadingCountsAsClicked) {
    frmAlarms& window = OpenWith(folder + "\\Bell alarm.wav");
    ExpectMessage("        Sampling Bell Alarm          ", "Jotwright Audio Alarm", BoxIcon::None);
    user->Click(window.cmdTest);
    user->Click(window.cmdSave);
    EXPECT_EQ(Stored(), folder + "\\Bell alarm.wav");
}

TEST_F(frmAlarmsTest, SelectsTheStoredBuiltInSound) {
    const char* names[] = {"\\Alarm buzzer.wav", "\\Alert chime.wav", "\\Cuckoo clock.wav",
                           "\\Alarm clock.wav", "\\Bell alarm.wav"};
    for (int index = 0; index < 5; ++index) {
        const std::string path = folder + names[index];
        frmAlarms& window = OpenWith(path);
        EXPECT_EQ(Selected(window), index);
        EXPECT_EQ(Shared().AlarmSoundPath, path);
        EXPECT_EQ(window.txtMyWaveFilePath.text(), "");
        user->Click(window.cmdCancel);
    }
}

TEST_F(frmAlarmsTest, SelectsTheUsersOwnFileAndShowsItsPath) {
    frmAlarms& window = OpenWith(ownWave);
    EXPECT_EQ(Selected(window), 5);
    EXPECT_EQ(window.txtMyWaveFilePath.text(), ownWave);
    EXPECT_EQ(Shared().AlarmSoundPath, ownWave);
    EXPECT_FALSE(window.cmdSave.enabled());
    EXPECT_TRUE(window.cmdMyWaveFile.enabled());
}

TEST_F(frmAlarmsTest, ComparesTheStoredPathInTheCaseOfItsLetters) {
    frmAlarms& window = OpenWith(folder + "\\alarm buzzer.wav");
    EXPECT_EQ(Selected(window), 5);
    EXPECT_EQ(window.txtMyWaveFilePath.text(), folder + "\\alarm buzzer.wav");
}

TEST_F(frmAlarmsTest, AClickOnABuiltInSoundIsInForceAtOnce) {
    frmAlarms& window = OpenWith(folder + "\\Alert chime.wav");
    user->Click(window.optAlarm[4]);
    EXPECT_EQ(Shared().AlarmSoundPath, folder + "\\Bell alarm.wav");
    EXPECT_EQ(Stored(), folder + "\\Alert chime.wav");
}

TEST_F(frmAlarmsTest, CancelKeepsTheClickedSoundForThisRunOnly) {
    frmAlarms& window = OpenWith(folder + "\\Alert chime.wav");
    user->Click(window.optAlarm[4]);
    user->Click(window.cmdCancel);
    EXPECT_EQ(forms::LoadedDefault<frmAlarms>(), nullptr);
    EXPECT_EQ(Shared().AlarmSoundPath, folder + "\\Bell alarm.wav");
    EXPECT_EQ(Stored(), folder + "\\Alert chime.wav");
    // The next opening reads the setting.
    Open();
    EXPECT_EQ(Shared().AlarmSoundPath, folder + "\\Alert chime.wav");
}

TEST_F(frmAlarmsTest, SaveStoresTheSelectedBuiltInSound) {
    frmAlarms& window = Open();
    user->Click(window.optAlarm[2]);
    user->Click(window.cmdSave);
    EXPECT_EQ(forms::LoadedDefault<frmAlarms>(), nullptr);
    EXPECT_EQ(Stored(), folder + "\\Cuckoo clock.wav");
    EXPECT_EQ(Shared().AlarmSoundPath, folder + "\\Cuckoo clock.wav");
}

TEST_F(frmAlarmsTest, TheOwnFileDisablesSaveUntilBrowseEvenWhenThatIsCancelled) {
    frmAlarms& window = Open();
    const std::string before = Shared().AlarmSoundPath;
    user->Click(window.optAlarm[5]);
    EXPECT_FALSE(window.cmdSave.enabled());
    EXPECT_TRUE(window.cmdMyWaveFile.enabled());
    EXPECT_EQ(Shared().AlarmSoundPath, before);
    stage->ExpectOpenDialog(std::nullopt);
    user->Click(window.cmdMyWaveFile);
    EXPECT_TRUE(window.cmdSave.enabled());
    user->Click(window.optAlarm[1]);
    EXPECT_TRUE(window.cmdSave.enabled());
    EXPECT_FALSE(window.cmdMyWaveFile.enabled());
}

TEST_F(frmAlarmsTest, BrowsePutsTheChosenFileIntoTheBox) {
    frmAlarms& window = Open();
    user->Click(window.optAlarm[5]);
    stage->ExpectOpenDialog(ownWave);
    user->Click(window.cmdMyWaveFile);
    EXPECT_EQ(window.txtMyWaveFilePath.text(), ownWave);
    ASSERT_EQ(stage->OpenDialogs().size(), 1u);
    EXPECT_EQ(stage->OpenDialogs()[0].initialFolder, "c:\\");
    EXPECT_EQ(stage->OpenDialogs()[0].filter, "Wav Files (*.wav)|*.wav|All Files (*.*)|*.*");
}

TEST_F(frmAlarmsTest, ACancelledBrowseKeepsTheText) {
    frmAlarms& window = OpenWith(ownWave);
    stage->ExpectOpenDialog(std::nullopt);
    user->Click(window.cmdMyWaveFile);
    EXPECT_EQ(window.txtMyWaveFilePath.text(), ownWave);
}

TEST_F(frmAlarmsTest, TestLoopsTheSoundBehindItsMessage) {
    frmAlarms& window = Open();
    user->Click(window.optAlarm[3]);
    ExpectMessage("        Sampling Alarm Clock          ", "Jotwright Audio Alarm", BoxIcon::None,
                  [&] {
                      ASSERT_EQ(sound.log.size(), 1u);
                      EXPECT_EQ(sound.log[0].kind, RecordedSound::Kind::Loop);
                      EXPECT_EQ(sound.log[0].path, folder + "\\Alarm clock.wav");
                      Advance(60000);
                      EXPECT_TRUE(sound.IsPlaying());
                  });
    user->Click(window.cmdTest);
    ASSERT_EQ(sound.log.size(), 2u);
    EXPECT_EQ(sound.log[1].kind, RecordedSound::Kind::Stop);
}

TEST_F(frmAlarmsTest, TestTakesTheUsersOwnFileIntoUse) {
    frmAlarms& window = Open();
    user->Click(window.optAlarm[5]);
    user->Type(window.txtMyWaveFilePath, ownWave);
    ExpectMessage("        Sampling Selected .wav File          ", "Jotwright Audio Alarm",
                  BoxIcon::None);
    user->Click(window.cmdTest);
    EXPECT_EQ(sound.log.at(0).path, ownWave);
    EXPECT_EQ(Shared().AlarmSoundPath, ownWave);
    EXPECT_EQ(Stored(), "(nothing)");
}

TEST_F(frmAlarmsTest, AnOwnFileThatDoesNotExistIsSampledAllTheSame) {
    frmAlarms& window = OpenWith("D:\\nowhere.wav");
    ExpectMessage("        Sampling Selected .wav File          ", "Jotwright Audio Alarm",
                  BoxIcon::None);
    user->Click(window.cmdTest);
    EXPECT_EQ(sound.log.at(0).path, "D:\\nowhere.wav");
}

TEST_F(frmAlarmsTest, TestWithoutAnOwnFileSaysSo) {
    frmAlarms& window = Open();
    user->Click(window.optAlarm[5]);
    const std::string before = Shared().AlarmSoundPath;
    ExpectMessage("Please Select A .wav File To Play", "No File To Test", BoxIcon::Information);
    user->Click(window.cmdTest);
    EXPECT_TRUE(window.txtMyWaveFilePath.HasFocus());
    EXPECT_TRUE(sound.log.empty());
    EXPECT_EQ(Shared().AlarmSoundPath, before);
}

// Selects the user's own file and enables Save.
class frmAlarmsOwnFileTest : public frmAlarmsTest {
  protected:
    void SetUp() override {
        frmAlarmsTest::SetUp();
        frmAlarms& window = Open();
        user->Click(window.optAlarm[5]);
        stage->ExpectOpenDialog(std::nullopt);
        user->Click(window.cmdMyWaveFile);
    }
    frmAlarms& Window() { return forms::Default<frmAlarms>(); }
};

TEST_F(frmAlarmsOwnFileTest, IsSavedWithItsBlanksInAnyCaseOfItsExtension) {
    user->Type(Window().txtMyWaveFilePath, "  D:\\bell.WaV  ");
    user->Click(Window().cmdSave);
    EXPECT_EQ(forms::LoadedDefault<frmAlarms>(), nullptr);
    EXPECT_EQ(Stored(), "  D:\\bell.WaV  ");
    EXPECT_EQ(Shared().AlarmSoundPath, "  D:\\bell.WaV  ");
}

TEST_F(frmAlarmsOwnFileTest, WithoutAPathIsNotSaved) {
    ExpectMessage("Please Select A .wav File", "No File Selected", BoxIcon::Information);
    user->Click(Window().cmdSave);
    EXPECT_TRUE(Window().IsVisible());
    EXPECT_TRUE(Window().txtMyWaveFilePath.HasFocus());
    EXPECT_EQ(Stored(), "(nothing)");
}

TEST_F(frmAlarmsOwnFileTest, WithAnotherExtensionIsRefusedAndTheBoxEmptied) {
    for (const char* path : {"D:\\bell.wave", "D:\\bell.mp3", "wav", "D:\\bell.wav\t", "   "}) {
        user->Type(Window().txtMyWaveFilePath, path);
        ExpectMessage("The File Selected Was Not A Valid .wav File!       ",
                      "Error Loading .wav File", BoxIcon::None);
        user->Click(Window().cmdSave);
        EXPECT_EQ(Window().txtMyWaveFilePath.text(), "") << path;
        EXPECT_TRUE(Window().IsVisible());
        EXPECT_EQ(Stored(), "(nothing)");
    }
}

TEST_F(frmAlarmsOwnFileTest, NeedsNothingButItsExtension) {
    user->Type(Window().txtMyWaveFilePath, ".wav");
    user->Click(Window().cmdSave);
    EXPECT_EQ(Stored(), ".wav");
}

}  // namespace
