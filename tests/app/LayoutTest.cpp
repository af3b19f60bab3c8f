#include <gtest/gtest.h>

#include <string>

#include "alarms/frmAlarms.h"
#include "alarms/frmKillAlarm.h"
#include "alarms/frmSpecialAlarms.h"
#include "app/Grid.h"
#include "app/TrayMessages.h"
#include "app/dlgMsgBox.h"
#include "app/frmOptions.h"
#include "info/dlgInput.h"
#include "info/frmAbout.h"
#include "info/frmHelp.h"
#include "notes/frmViewNotes.h"
#include "tests/support/Layout.h"
#include "tests/support/WholeProgram.h"
#include "tools/frmStopWatch.h"
#include "tools/frmTimer.h"

namespace {

using forms::Default;
using testing_support::LayoutFaults;
using testing_support::SharedAccessKeys;

class LayoutTest : public testing_support::WholeProgram {
  protected:
    void SetUp() override {
        WholeProgram::SetUp();
        StartQuietly();
    }

    static void ExpectGood(const forms::Form& form, int margin = Grid::margin) {
        for (const std::string& fault : LayoutFaults(form, margin)) {
            ADD_FAILURE() << form.name << ": " << fault;
        }
    }
};

TEST_F(LayoutTest, MainWindow) {
    ExpectGood(Main());
    user->Click(Main().cmdCookoo);
    ASSERT_TRUE(Main().lblCooKoo.visible());
    ExpectGood(Main());
}

TEST_F(LayoutTest, TheToolBinHasNoHole) {
    const auto rightEdge = [](const forms::Control& control) {
        return control.left() + control.width();
    };
    const int edge = rightEdge(Main().cmdStopWatch);
    EXPECT_EQ(rightEdge(Main().cmdCookoo), edge);
    user->Click(Main().cmdCookoo);
    EXPECT_EQ(rightEdge(Main().lblCooKoo), edge);
    EXPECT_EQ(rightEdge(Main().cmdCookoo), rightEdge(Main().cmdTimer));
    user->Click(Main().cmdCookoo);
    EXPECT_EQ(rightEdge(Main().cmdCookoo), edge);
}

TEST_F(LayoutTest, Splash) {
    Start([] { Default<frmSplash>().Show(); });
    ExpectGood(Default<frmSplash>());
}

TEST_F(LayoutTest, Tips) {
    auto& tips = Shown<frmTip>();
    for (int tip = 0; tip < 9; ++tip) {
        ExpectGood(tips);
        user->Click(tips.cmdNextTip);
    }
    ExpectGood(tips);
}

TEST_F(LayoutTest, Editor) {
    frmNote& note = MakeNote("Dentist");
    ExpectGood(note);
    user->Click(note.cmdAlarm);
    ASSERT_TRUE(note.shpClock.visible());
    user->Click(note.chkAudioAlarm);
    ExpectGood(note);
    user->Click(note.cmdShowDateTime);
    ExpectGood(note);
}

TEST_F(LayoutTest, EditorOfAnySize) {
    frmNote& note = MakeNote("Dentist");
    for (const auto& [width, height] :
         {std::pair(note.minimumWidth, note.minimumHeight), std::pair(12'000, 9'000)}) {
        Start([&note, w = width, h = height] {
            note.width = w;
            note.height = h;
        });
        ExpectGood(note);
        EXPECT_EQ(note.txtNote.width(), note.ScaleWidth() - 2 * Grid::margin);
        for (const forms::Control* action : {static_cast<forms::Control*>(&note.cmdAlarm),
                                             static_cast<forms::Control*>(&note.chkAudioAlarm)}) {
            EXPECT_EQ(action->left() + action->width(), note.fraAlarm.width() - Grid::frameSide);
        }
        user->Click(note.cmdShowDateTime);
    }
}

TEST_F(LayoutTest, EditorIsNarrowerThanTheFirstTrayMessage) {
    EXPECT_LT(MakeNote("Dentist").width(), TrayMessages::leftButtonUp * 15);
}

TEST_F(LayoutTest, AlarmDisplay) {
    auto& display = Shown<frmDisplayNote>();
    ExpectGood(display);
    Start([&display] {
        display.width = display.minimumWidth;
        display.height = display.minimumHeight;
    });
    ExpectGood(display);
}

TEST_F(LayoutTest, ControlPanel) {
    PutNote(Note("Dentist"));
    auto& panel = Shown<frmViewNotes>();
    ExpectGood(panel);
    int columns = 0;
    for (const auto& column : panel.lvwNotes.columns) {
        columns += column.width;
    }
    constexpr int borderAndScrollBar = 330;
    EXPECT_LE(columns, panel.lvwNotes.width() - borderAndScrollBar);
}

TEST_F(LayoutTest, SpecialAlarms) { ExpectGood(Shown<frmSpecialAlarms>()); }
TEST_F(LayoutTest, AlarmSounds) { ExpectGood(Shown<frmAlarms>()); }
TEST_F(LayoutTest, StopAlarm) { ExpectGood(Shown<frmKillAlarm>()); }
TEST_F(LayoutTest, Options) { ExpectGood(Shown<frmOptions>()); }
TEST_F(LayoutTest, StopWatch) { ExpectGood(Shown<frmStopWatch>()); }
TEST_F(LayoutTest, About) { ExpectGood(Shown<frmAbout>()); }
TEST_F(LayoutTest, Help) { ExpectGood(Shown<frmHelp>()); }
TEST_F(LayoutTest, Question) { ExpectGood(Shown<dlgInput>()); }

TEST_F(LayoutTest, Timer) {
    auto& timer = Shown<frmTimer>();
    ExpectGood(timer);
    Start([&timer] { timer.lblTime.caption = "Time Left: 0 minutes 0 seconds."; });
    ExpectGood(timer);
}

// The size of the box depends on its message and picture. It has narrower margins than other
// windows.
TEST_F(LayoutTest, PictureMessageBox) {
    constexpr int margin = 45;
    for (const char* picture : {"error.gif", ""}) {
        stage->ExpectModal<dlgMsgBox>([&](dlgMsgBox& dialog) {
            ExpectGood(dialog, margin);
            user->Click(dialog.cmdOk);
        });
        Start([picture] {
            StandardCode::PictureMessageBox("Note titles can't contain a period.", "Error",
                                            picture);
        });
    }
}

// If several controls have the same access key, it moves the focus from one to the next. The
// captions are fixed, and so are these keys.
TEST_F(LayoutTest, AccessKeys) {
    EXPECT_EQ(SharedAccessKeys(Main()),
              "CHT");  // "Notes &Control Panel", "Start CooKoo &Clock"; ...
    EXPECT_EQ(SharedAccessKeys(MakeNote("Dentist")),
              "S");  // "&Set Alarm", "Hide &System Date/Time"
    EXPECT_EQ(SharedAccessKeys(Shown<frmViewNotes>()), "E");  // "&Edit", "&Erase"
    EXPECT_EQ(SharedAccessKeys(Shown<frmTimer>()), "S");      // "&Start Timer", "&Stop Timer"
    EXPECT_EQ(SharedAccessKeys(Shown<frmStopWatch>()), "");
    EXPECT_EQ(SharedAccessKeys(Shown<frmOptions>()), "");
    EXPECT_EQ(SharedAccessKeys(Shown<frmAlarms>()), "");
    EXPECT_EQ(SharedAccessKeys(Shown<frmSpecialAlarms>()), "");
    EXPECT_EQ(SharedAccessKeys(Shown<frmKillAlarm>()), "");
    EXPECT_EQ(SharedAccessKeys(Shown<frmTip>()), "");
    EXPECT_EQ(SharedAccessKeys(Shown<frmAbout>()), "");
    EXPECT_EQ(SharedAccessKeys(Shown<frmHelp>()), "");
    EXPECT_EQ(SharedAccessKeys(Shown<dlgInput>()), "");
}

}  // namespace
