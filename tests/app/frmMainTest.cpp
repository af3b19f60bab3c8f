#include "app/ProductTexts.h"
#include "app/frmMain.h"
#include "forms/Services.h"
#include "tests/support/WholeProgram.h"

using namespace forms;

namespace {

constexpr int leftButtonDown = 513;

class frmMainTest : public testing_support::WholeProgram {
  protected:
    static void ExpectControl(const CommandButton& button, const std::string& caption,
                              const std::string& toolTip) {
        EXPECT_EQ(button.caption(), caption);
        EXPECT_EQ(button.toolTip(), toolTip);
    }
};

}  // namespace

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
    ChooseFromTrayMenu("mnuShow");
    EXPECT_TRUE(Main().IsShownOnStage());
    EXPECT_TRUE(Main().txtNoteTitle.HasFocus());
    EXPECT_TRUE(Main().mnuHide.enabled);
    EXPECT_FALSE(Main().mnuShow.enabled);
    ChooseFromTrayMenu("mnuHide");
    EXPECT_FALSE(Main().IsShownOnStage());
}

TEST_F(frmMainTest, ShowAfterMinimizingAndHidingBringsTheWindowBack) {
    StartQuietly();
    user->Minimize(Main());
    ChooseFromTrayMenu("mnuHide");
    ASSERT_FALSE(Main().IsShownOnStage());
    ChooseFromTrayMenu("mnuShow");
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
    user->Tray(leftButtonDown);
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
