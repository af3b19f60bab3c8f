#include "alarms/frmAlarms.h"
#include "tests/support/WholeProgram.h"
#include "tools/frmTimer.h"

// Alarms that are due while another alarm rings. The machine plays one sound at a time, but every
// alarm must sound until the user has closed its box.

namespace {

using namespace forms;
using headless::RecordedSound;

const std::string buzzer = "C:\\Jotwright\\Alarm buzzer.wav";
const std::string chime = "C:\\Jotwright\\Alert chime.wav";

// The program starts on Friday, 14 May 2004, 14:59:00, with the cuckoo clock on.
class OneBellTest : public testing_support::WholeProgram {
  protected:
    void SetUp() override {
        WholeProgram::SetUp();
        SetNow(2004, 5, 14, 14, 59, 0);
        settings.values[{"Options", "StartCookoo"}] = "1";
    }

    void PutAlarm(const std::string& title, int hour, int minute, int second = 0) {
        PutNote(Note(title).WithAlarmAt(hour, minute, second).WithSound());
    }

    void Hide(const std::string& title) { user->CloseBox(Editor(title)); }

    // The hidden note Dentist is due at 15:00:05, and the hour strikes at 15:00:15. The first sound
    // must continue through both.
    headless::Script NothingEndsIt(const std::string& path) {
        return [this, path] {
            AdvanceTo(15, 0, 30);
            EXPECT_NE(FindWindow<frmDisplayNote>("Dentist"), nullptr);
            EXPECT_EQ(sound.PlayingPath(), path);
            EXPECT_EQ(sound.log.size(), 1U);
            EXPECT_TRUE(StandardCode::Shared().AlarmSounding);
        };
    }
};

TEST_F(OneBellTest, AnEditorsAlarmOutlastsHiddenNotesAndTheCuckoo) {
    for (const char* loops : {"0", "1"}) {
        for (const int hiddenAlarm : {0, 5}) {
            SCOPED_TRACE(std::string(loops) + ' ' + std::to_string(hiddenAlarm));
            SetNow(2004, 5, 14, 14, 59, 0);
            sound.log.clear();
            settings.values[{"Options", "NoteLoops"}] = loops;
            PutAlarm("Dentist", 15, 0, hiddenAlarm);
            PutAlarm("Rent", 15, 0);
            StartQuietly();
            Hide("Dentist");
            ExpectEditorAlarm(NothingEndsIt(buzzer));
            AdvanceTo(15, 0, 40);
            EXPECT_EQ(sound.log.size(), 2U);
            EXPECT_FALSE(sound.IsPlaying());
            EXPECT_FALSE(StandardCode::Shared().AlarmSounding);
            Restart();
        }
    }
}

TEST_F(OneBellTest, ADisplaysLoopOutlastsTheCuckoo) {
    settings.values[{"Options", "NoteLoops"}] = "1";
    PutAlarm("Dentist", 14, 59, 50);
    StartQuietly();
    Hide("Dentist");
    ExpectDisplayAlarm(NothingEndsIt(buzzer));
    AdvanceTo(15, 0, 40);
    EXPECT_EQ(sound.log.size(), 2U);
    EXPECT_FALSE(sound.IsPlaying());
}

TEST_F(OneBellTest, ASampleOutlastsTheCuckooAndHiddenNotes) {
    for (const char* loops : {"0", "1"}) {
        SCOPED_TRACE(loops);
        SetNow(2004, 5, 14, 14, 59, 0);
        sound.log.clear();
        settings.values[{"Options", "NoteLoops"}] = loops;
        PutAlarm("Dentist", 15, 0, 5);
        StartQuietly();
        Hide("Dentist");
        stage->ExpectModal<frmAlarms>([this](frmAlarms& chooser) {
            ExpectMessage("        Sampling Buzzer Alarm          ", "Jotwright Audio Alarm",
                          BoxIcon::None, NothingEndsIt(buzzer));
            user->Click(chooser.cmdTest);
            EXPECT_FALSE(sound.IsPlaying());
            user->Click(chooser.cmdCancel);
        });
        user->Choose(Main().mnuToolsChangeAlarm);
        EXPECT_EQ(sound.log.size(), 2U);
        EXPECT_FALSE(StandardCode::Shared().AlarmSounding);
        Restart();
    }
}

TEST_F(OneBellTest, ACountdownsChimeOutlastsHiddenNotesAndTheCuckoo) {
    PutAlarm("Dentist", 15, 0, 5);
    StartQuietly();
    Hide("Dentist");
    frmTimer& timer = Shown<frmTimer>();
    user->Type(timer.txtMinutes, "1");
    user->Click(timer.cmdStart);
    ExpectTimeIsUp(NothingEndsIt(chime));
    AdvanceTo(15, 0, 40);
    EXPECT_EQ(sound.log.size(), 2U);
}

TEST_F(OneBellTest, ASpecialAlarmOutlastsTheCuckoo) {
    StartQuietly();
    SetFridaysAlarm(0, base::DateTime::FromTime(15, 0, 0), "now");
    ExpectDailyAlarm("now", [this] {
        AdvanceTo(15, 0, 30);
        EXPECT_EQ(sound.PlayingPath(), buzzer);
        EXPECT_EQ(sound.log.size(), 1U);
    });
    AdvanceTo(15, 0, 40);
    EXPECT_EQ(sound.log.size(), 2U);
}

TEST_F(OneBellTest, OfTwoEditorsDueInOneSecondTheSecondRingsOnWhenTheFirstBoxIsClosed) {
    PutAlarm("Dentist", 15, 0);
    PutAlarm("Rent", 15, 0);
    StartQuietly();
    ExpectEditorAlarm([this] {
        ExpectEditorAlarm([this] { EXPECT_EQ(sound.PlayingPath(), buzzer); });
        Advance(5000);
        EXPECT_EQ(sound.PlayingPath(), buzzer) << "this box still waits";
    });
    AdvanceTo(15, 0, 10);
    EXPECT_FALSE(sound.IsPlaying());
    EXPECT_EQ(sound.Count(RecordedSound::Kind::Stop), 2);
}

TEST_F(OneBellTest, AnEditorRingsOnWhenASpecialAlarmAboveItIsClosed) {
    PutAlarm("Rent", 15, 0);
    StartQuietly();
    SetFridaysAlarm(0, base::DateTime::FromTime(15, 0, 10), "now");
    ExpectEditorAlarm([this] {
        ExpectDailyAlarm("now", [this] { EXPECT_TRUE(sound.IsPlaying()); });
        AdvanceTo(15, 0, 30);
        EXPECT_EQ(sound.PlayingPath(), buzzer) << "this box still waits";
        EXPECT_EQ(sound.Count(RecordedSound::Kind::ToEnd), 0);
    });
    AdvanceTo(15, 0, 40);
    EXPECT_FALSE(sound.IsPlaying());
}

TEST_F(OneBellTest, TheNextHourStrikesAgain) {
    PutAlarm("Rent", 15, 0);
    StartQuietly();
    ExpectEditorAlarm();
    AdvanceTo(15, 0, 30);
    EXPECT_EQ(sound.Count(RecordedSound::Kind::ToEnd), 3);
}

}  // namespace
