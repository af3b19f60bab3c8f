#include "app/frmMain.h"
#include "forms/Services.h"
#include "tests/support/WholeProgram.h"

using namespace forms;

namespace {

constexpr int leftButtonDown = 513;

class frmMainTest : public testing_support::WholeProgram {};

}  // namespace

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
