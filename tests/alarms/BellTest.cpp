#include <gtest/gtest.h>

#include "alarms/Bell.h"
#include "app/StandardCode.h"
#include "tests/support/TestProgram.h"

namespace {

using forms::BoxButtons;
using forms::BoxIcon;
using forms::BoxResult;
using forms::headless::RecordedSound;
using StandardCode::Shared;

const std::string alarmSound = "C:\\alarm.wav";
const std::string chime = "C:\\chime.wav";

class BellTest : public testing_support::TestProgram {
  protected:
    static void Ring(const std::string& path, const std::string& text) {
        Bell::RingBehindBox(path, text, {}, "Alarm");
    }

    void ExpectBell(const std::string& text, forms::headless::Script during = nullptr) {
        ExpectMessage(text, "Alarm", BoxIcon::None, std::move(during));
    }

    // All sounds so far, in order: "loop <path>" and "stop".
    std::vector<std::string> Sounds() const {
        std::vector<std::string> sounds;
        for (const RecordedSound::Entry& entry : sound.log) {
            EXPECT_TRUE(entry.kind == RecordedSound::Kind::Loop ||
                        entry.kind == RecordedSound::Kind::Stop);
            sounds.push_back(entry.kind == RecordedSound::Kind::Stop ? "stop"
                                                                     : "loop " + entry.path);
        }
        return sounds;
    }
};

TEST_F(BellTest, LoopsBehindItsBoxAndGivesTheAnswer) {
    ExpectQuestion("Stop it?", "Bell", BoxIcon::Question, BoxResult::No, [&] {
        EXPECT_TRUE(Bell::IsRinging());
        EXPECT_TRUE(Shared().AlarmSounding);
        EXPECT_EQ(Sounds(), std::vector<std::string>{"loop " + alarmSound});
    });
    Start([] {
        EXPECT_EQ(
            Bell::RingBehindBox(alarmSound, "Stop it?",
                                {.buttons = BoxButtons::YesNo, .icon = BoxIcon::Question}, "Bell"),
            BoxResult::No);
    });
    EXPECT_FALSE(Bell::IsRinging());
    EXPECT_EQ(Sounds(), (std::vector<std::string>{"loop " + alarmSound, "stop"}));
}

TEST_F(BellTest, TheSoundOfTheBoxBelowStartsAgain) {
    ExpectBell("below", [&] {
        ExpectBell("above", [&] { EXPECT_EQ(sound.PlayingPath(), chime); });
        Start([] { Ring(chime, "above"); });
        EXPECT_TRUE(Bell::IsRinging());
        EXPECT_EQ(sound.PlayingPath(), alarmSound);
    });
    Start([] { Ring(alarmSound, "below"); });
    EXPECT_FALSE(Bell::IsRinging());
    EXPECT_EQ(Sounds(), (std::vector<std::string>{"loop " + alarmSound, "loop " + chime, "stop",
                                                  "loop " + alarmSound, "stop"}));
}

TEST_F(BellTest, AlarmSoundingIsSetUntilTheLastBoxIsClosed) {
    ExpectBell("below", [&] {
        Bell::ClearAlarmSounding();
        EXPECT_TRUE(Shared().AlarmSounding);
        ExpectBell("above");
        Start([] { Ring(chime, "above"); });
        EXPECT_TRUE(Shared().AlarmSounding);
    });
    Start([] { Ring(alarmSound, "below"); });
    EXPECT_FALSE(Shared().AlarmSounding);
}

TEST_F(BellTest, DoesNotRingAnyMoreWhenTheProgramHasEndedUnderTheBox) {
    ExpectBell("below", [this] { Start([this] { runtime->End(); }); });
    Start([] { Ring(alarmSound, "below"); });
    EXPECT_TRUE(runtime->HasEnded());
    EXPECT_FALSE(Bell::IsRinging());
}

}  // namespace
