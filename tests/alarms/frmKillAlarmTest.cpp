#include <gtest/gtest.h>

#include "alarms/frmKillAlarm.h"
#include "app/StandardCode.h"
#include "tests/support/WholeProgram.h"

namespace {

class frmKillAlarmTest : public testing_support::WholeProgram {};

TEST_F(frmKillAlarmTest, TakesTheMainWindowsIcon) {
    StartQuietly();
    ASSERT_FALSE(Main().icon().path.empty());
    EXPECT_EQ(forms::Default<frmKillAlarm>().icon(), Main().icon());
}

TEST_F(frmKillAlarmTest, TheButtonSwitchesOffTheSoundCheckAndNothingElse) {
    StartQuietly();
    Start([] { forms::Default<frmKillAlarm>().Show(); });
    ASSERT_TRUE(Main().tmrCheckSoundFile.enabled());
    user->Click(forms::Default<frmKillAlarm>().Command1);
    EXPECT_FALSE(Main().tmrCheckSoundFile.enabled());
    EXPECT_TRUE(Main().tmrNow.enabled());
    EXPECT_TRUE(Main().tmrSpecialNotes.enabled());
    EXPECT_TRUE(forms::Default<frmKillAlarm>().IsVisible());
    EXPECT_TRUE(sound.log.empty());
}

TEST_F(frmKillAlarmTest, IsHarmlessWithoutAMainWindow) {
    Start([] { forms::Default<frmKillAlarm>().Show(); });
    user->Click(forms::Default<frmKillAlarm>().Command1);
    EXPECT_TRUE(forms::Default<frmKillAlarm>().IsVisible());
    user->CloseBox(forms::Default<frmKillAlarm>());
}

}  // namespace
