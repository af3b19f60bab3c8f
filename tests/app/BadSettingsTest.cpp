#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "alarms/frmAlarms.h"
#include "app/frmOptions.h"
#include "base/RuntimeError.h"
#include "base/Text.h"
#include "tests/support/WholeProgram.h"

// Settings may hold any text, because the user can edit them by hand.

namespace {

using forms::BoxIcon;

const std::vector<std::string> numbers{"-1",     "6",     "-32768", "32767", " 1 ",
                                       "&HFFFF", "1.5e2", "+3",     "1,000", "2."};
const std::vector<std::string> tooLarge{"32768", "-32769", "1e400", "&HFFFFFFFFF",
                                        std::string(65536, '9')};
const std::vector<std::string> noNumbers{
    "", "abc", "1x", "0x10", "1 2", "\xef\xbc\x91", "\t1", "--1", std::string(65536, 'x')};

class BadSettingsTest : public testing_support::WholeProgram {
  protected:
    void Set(const std::string& key, const std::string& value) {
        settings.values[{"Options", key}] = value;
    }
};

class ReadOnlySettings : public forms::headless::HeadlessSettings {
  public:
    void Write(const std::string&, const std::string&, const std::string&) override {
        throw base::RuntimeError(base::ErrorNumber::InvalidProcedureCall);
    }
};

TEST_F(BadSettingsTest, ANewNoteAcceptsAnyNumberAndReportsOtherTexts) {
    StartQuietly();
    int made = 0;
    for (const char* key : {"DefaultColor", "DefaultFontSize", "ShowDateTime"}) {
        for (const auto& values : {numbers, tooLarge}) {
            for (const std::string& value : values) {
                Set(key, value);
                user->CloseBox(MakeNote("note " + std::to_string(++made)));
            }
        }
        const auto refuse = [&](const std::string& value) {
            Set(key, value);
            if (!Main().IsVisible()) {
                ClickTrayIcon();
            }
            ExpectMessage("Error Creating New Note. Type mismatch      ", "Note Error",
                          BoxIcon::Critical);
            user->Type(Main().txtNoteTitle, "refused");
            user->Click(Main().cmdMakeNote);
            EXPECT_EQ(FindWindow<frmNote>("refused"), nullptr) << key << value;
            EXPECT_EQ(Main().txtNoteTitle.text(), "refused");
        };
        for (const std::string& value : noNumbers) {
            refuse(value);
        }
        settings.values.erase({"Options", key});
    }
    EXPECT_FALSE(runtime->HasEnded());
}

TEST_F(BadSettingsTest, OpenNotesAreSavedBeforeABadSettingEndsTheProgram) {
    PutNote(Note("Dentist").WithAlarmAt(9, 0, 10));
    StartQuietly();
    user->CloseBox(Editor("Dentist"));
    user->Type(MakeNote("Shopping").txtNote, "milk");
    Set("WindowOnTop", "always");
    ExpectRunTimeError(13, "Type mismatch");
    Advance(12000);
    EXPECT_TRUE(runtime->HasEnded());
    EXPECT_NE(FileOf("Shopping").value_or("").find("milk"), std::string::npos);
}

TEST_F(BadSettingsTest, NoNumberEndsTheProgram) {
    for (const auto& values : {numbers, tooLarge}) {
        for (const std::string& value : values) {
            PutNote(Note("Dentist").WithAlarmAt(9, 0, 10).WithSound());
            SetNow(2004, 5, 14, 9, 0, 0);
            for (const char* key : {"WindowOnTop", "StartCookoo", "ShowDateTime", "IsService",
                                    "DefaultColor", "DefaultFontSize", "NoteLoops"}) {
                Set(key, value);
            }
            if (value == " 1 ") {
                Set("NoteLoops", "0");
            }
            StartQuietly();
            user->CloseBox(Editor("Dentist"));
            Advance(12000);  // the display opens and sounds
            EXPECT_NE(FindWindow<frmDisplayNote>("Dentist"), nullptr) << value;
            EXPECT_EQ(sound.Count(forms::headless::RecordedSound::Kind::Once), 1) << value;
            frmOptions& options = Shown<frmOptions>();
            EXPECT_TRUE(options.IsVisible()) << value;
            user->Click(options.cmdCancel);
            ASSERT_FALSE(runtime->HasEnded()) << value;
            sound.log.clear();
            Restart();
        }
    }
}

TEST_F(BadSettingsTest, AnyTextIsASoundPath) {
    for (const std::string& path :
         std::vector<std::string>{"nonsense", "C:\\", "C:\\Jotwright", "\\\\server\\share\\a.wav",
                                  "C:\\Jotwright\\logo.ico", "..\\..\\x", "con", "a\r\nb",
                                  "\xf0\x9f\x98\x80.wav", std::string(65536, 'x')}) {
        settings.values[{"Config", "Alarm"}] = path;
        PutNote(Note("Dentist").WithAlarmAt(9, 0, 10).WithSound());
        SetNow(2004, 5, 14, 9, 0, 0);
        StartQuietly();
        ExpectEditorAlarm();
        Advance(12000);
        EXPECT_EQ(sound.log.back().kind, forms::headless::RecordedSound::Kind::Stop);
        stage->ExpectModal<frmAlarms>([&](frmAlarms& window) {
            EXPECT_EQ(window.txtMyWaveFilePath.text(), path);
            EXPECT_TRUE(window.optAlarm[5].value());
            user->Click(window.cmdCancel);
        });
        user->Choose(Main().mnuToolsChangeAlarm);
        ASSERT_FALSE(runtime->HasEnded());
        Restart();
    }
}

TEST_F(BadSettingsTest, ASoundThatCannotBeStoredIsReportedAndTheWindowStays) {
    ReadOnlySettings refusing;
    forms::Machine().settings = &refusing;
    Start([] { forms::Default<frmAlarms>().Show(); });
    user->Click(forms::Default<frmAlarms>().optAlarm[1]);
    ExpectMessage(
        "5 - Invalid procedure call or argument\r\n\r\nThe alarm sound has not been saved.",
        "Error Saving Alarm Sound", BoxIcon::Exclamation);
    user->Click(forms::Default<frmAlarms>().cmdSave);
    ASSERT_FALSE(runtime->HasEnded());
    EXPECT_TRUE(forms::Default<frmAlarms>().IsVisible());
    user->Click(forms::Default<frmAlarms>().cmdCancel);
}

}  // namespace
