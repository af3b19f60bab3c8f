#include "app/ProductTexts.h"
#include "app/frmMain.h"
#include "forms/Services.h"
#include "tests/support/WholeProgram.h"

using namespace forms;

namespace {

class frmMainTest : public testing_support::WholeProgram {
  protected:
    static void ExpectControl(const CommandButton& button, const std::string& caption,
                              const std::string& toolTip) {
        EXPECT_EQ(button.caption(), caption);
        EXPECT_EQ(button.toolTip(), toolTip);
    }
};

}  // namespace

TEST_F(frmMainTest, CaptionsAndToolTips) {
    StartQuietly();
    auto& main = Main();
    EXPECT_EQ(main.caption(), "Jotwright");
    EXPECT_EQ(main.fraNotes.caption(), "Note Center");
    EXPECT_EQ(main.Label1.caption(), "Enter A Name For Your New Note.");
    EXPECT_EQ(main.Label1.toolTip(), "Right click to view the menu.");
    ExpectControl(main.cmdMakeNote, "Make &Note", "Make a new note");
    EXPECT_EQ(main.fraTools.caption(), "Tool Bin");
    ExpectControl(main.cmdSpecialAlarms, "S&pecial Alarms", "View or Edit Special Alarms");
    ExpectControl(main.cmdViewNotes, "Notes &Control Panel", "Open the notes control panel");
    ExpectControl(main.cmdTimer, "&Timer", "Open the timer");
    ExpectControl(main.cmdStopWatch, "&Stop Watch", "Open the stop watch");
    ExpectControl(main.cmdCookoo, "Start CooKoo &Clock", "Start the cookoo clock");
    ExpectControl(main.cmdHideMe, "&Hide Me", "Hide Jotwright In Tray");
    ExpectControl(main.cmdExit, "E&xit", "Close Jotwright");
    EXPECT_EQ(main.lblCooKoo.caption(), "CooKoo Clock Is Activated");
    EXPECT_FALSE(main.lblCooKoo.visible);
    EXPECT_EQ(main.lblClick.caption(), "Right click to view main menu.");
    EXPECT_EQ(main.imgLogo.toolTip(), "Click the logo  to visit the Jotwright website.");
    EXPECT_EQ(main.imgLogo.picture().path, "C:\\Jotwright\\jotwright_title.gif");
    EXPECT_EQ(main.lblCopyright.caption(), StandardCode::ownershipNotice);
    EXPECT_EQ(main.lblCopyright.toolTip(), "Right click to view the menu.");
}

TEST_F(frmMainTest, TimersAtStart) {
    StartQuietly();
    EXPECT_EQ(Main().tmrNow.interval(), 1000);
    EXPECT_TRUE(Main().tmrNow.enabled);
    EXPECT_EQ(Main().tmrCooKoo.interval(), 1000);
    EXPECT_FALSE(Main().tmrCooKoo.enabled);
    EXPECT_EQ(Main().tmrSpecialNotes.interval(), 1000);
    EXPECT_TRUE(Main().tmrSpecialNotes.enabled);
    EXPECT_EQ(Main().tmrCheckSoundFile.interval(), 500);
    EXPECT_TRUE(Main().tmrCheckSoundFile.enabled);
}

TEST_F(frmMainTest, MenuBar) {
    StartQuietly();
    const auto captions = [](const Menu& menu) {
        std::vector<std::string> all{menu.caption()};
        for (const Menu* entry : menu.entries) {
            all.push_back(entry->caption());
        }
        return all;
    };
    using Texts = std::vector<std::string>;
    EXPECT_EQ(captions(Main().mnuFile), (Texts{"&File", "-", "&Exit"}));
    EXPECT_EQ(captions(Main().mnuTools), (Texts{"&Tools", "Special A&larms", "Notes Co&ntrol Panel",
                                                "&Timer", "&Stop Watch", "O&ptions"}));
    EXPECT_EQ(captions(Main().mnuSepOpt),
              (Texts{"O&ptions", "&Choose Alarm Sound", "Note Options"}));
    EXPECT_EQ(captions(Main().mnuFileHelp),
              (Texts{"&Help", "&About", "&Help Files", "&Visit Jotwright Web Site",
                     "&Show Jotwright Tips"}));
    EXPECT_EQ(
        captions(Main().mnuPop),
        (Texts{"Pop", "About Jotwright", "Help", "Visit Jotwright Web Site", "Show Jotwright Tips",
               "-", "Hide Jotwright", "Show Jotwright", "Timer", "Stop Watch", "Change Alarm Sound",
               "Special Alarms", "Notes Control Panel", "-", "Exit"}));
    EXPECT_FALSE(Main().mnuPop.inMenuBar);
}

TEST_F(frmMainTest, HidingAndShowing) {
    StartQuietly();
    EXPECT_TRUE(Main().mnuHide.enabled);
    EXPECT_FALSE(Main().mnuShow.enabled);
    user->Click(Main().cmdHideMe);
    EXPECT_FALSE(Main().IsShownOnStage());
    EXPECT_TRUE(tray.icon.has_value());
    EXPECT_FALSE(Main().mnuHide.enabled);
    EXPECT_TRUE(Main().mnuShow.enabled);
    stage->ExpectPopup("mnuPop", "mnuShow");
    user->Tray(517);
    EXPECT_TRUE(Main().IsShownOnStage());
    EXPECT_TRUE(Main().txtNoteTitle.HasFocus());
    EXPECT_TRUE(Main().mnuHide.enabled);
    EXPECT_FALSE(Main().mnuShow.enabled);
    stage->ExpectPopup("mnuPop", "mnuHide");
    user->Tray(517);
    EXPECT_FALSE(Main().IsShownOnStage());
}

TEST_F(frmMainTest, ShowAfterMinimisingAndHidingBringsTheWindowBack) {
    StartQuietly();
    user->Minimize(Main());
    stage->ExpectPopup("mnuPop", "mnuHide");
    user->Tray(517);
    ASSERT_FALSE(Main().IsShownOnStage());
    stage->ExpectPopup("mnuPop", "mnuShow");
    user->Tray(517);
    EXPECT_TRUE(Main().IsShownOnStage());
    EXPECT_EQ(Main().windowState(), WindowState::Normal);
    EXPECT_EQ(stage->WindowOf(Main()).state, WindowState::Normal);
    EXPECT_EQ(runtime->ActiveForm(), &Main());
    EXPECT_TRUE(Main().txtNoteTitle.HasFocus());
}

TEST_F(frmMainTest, TheMousePointerIsSetBack) {
    Start([] { SetMousePointer(MousePointer::Hourglass); });
    StartQuietly();
    EXPECT_EQ(stage->Pointer(), MousePointer::Default);
    Start([] { SetMousePointer(MousePointer::Hourglass); });
    user->Tray(513);
    EXPECT_EQ(stage->Pointer(), MousePointer::Default);
}

TEST_F(frmMainTest, TheRightButtonOpensTheMenuEverywhere) {
    StartQuietly();
    stage->ExpectPopupDismissed("mnuPop");
    user->RightClick(Main());
    user->Click(Main().cmdCookoo);  // shows lblCooKoo
    Control* const places[] = {&Main().fraNotes, &Main().fraTools,  &Main().Label1,
                               &Main().lblClick, &Main().lblCooKoo, &Main().lblCopyright,
                               &Main().imgLogo};
    for (Control* place : places) {
        stage->ExpectPopupDismissed("mnuPop");
        user->RightClick(*place);
    }
}
