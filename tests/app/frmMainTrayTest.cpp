#include "app/TrayMessages.h"
#include "app/frmMain.h"
#include "forms/Gestures.h"
#include "forms/Services.h"
#include "tests/support/WholeProgram.h"

// The icon in the notification area and its messages.

using namespace forms;

namespace {

// Mouse messages that the program ignores: movement, left and right button down, right double
// click, middle button down.
constexpr int otherMessages[] = {512, 513, 516, 518, 519};

using frmMainTrayTest = testing_support::WholeProgram;

}  // namespace

TEST_F(frmMainTrayTest, TheTrayRecord) {
    StartQuietly();
    ASSERT_TRUE(tray.icon.has_value());
    EXPECT_EQ(tray.icon->structureSize, 88U);
    EXPECT_EQ(tray.icon->owner, &Main());
    EXPECT_EQ(tray.icon->iconId, 1U);
    EXPECT_EQ(tray.icon->flags, 7U);
    EXPECT_EQ(tray.icon->callbackMessage, 512U);
    EXPECT_EQ(tray.icon->iconPath, "C:\\Jotwright\\logo.ico");
    EXPECT_EQ(tray.icon->tip, std::string("Jotwright\0", 10) + std::string(54, ' '));
}

TEST_F(frmMainTrayTest, ALeftClickOnTheTrayIconRestoresAMinimizedWindow) {
    StartQuietly();
    user->Minimize(Main());
    Start([this] {
        Main().mnuHide.enabled = false;
        Main().mnuShow.enabled = true;
    });
    ClickTrayIcon();
    EXPECT_EQ(Main().windowState(), WindowState::Normal);
    EXPECT_EQ(stage->Foreground(), &Main());
    EXPECT_TRUE(Main().mnuHide.enabled);
    EXPECT_FALSE(Main().mnuShow.enabled);
}

TEST_F(frmMainTrayTest, ALeftClickOnTheTrayIconShowsAHiddenWindow) {
    StartQuietly();
    user->Click(Main().cmdHideMe);
    ClickTrayIcon();
    EXPECT_TRUE(Main().IsShownOnStage());
    EXPECT_EQ(stage->Foreground(), &Main());
    EXPECT_FALSE(Main().txtNoteTitle.HasFocus());
    EXPECT_TRUE(Main().mnuHide.enabled);
    EXPECT_FALSE(Main().mnuShow.enabled);
}

TEST_F(frmMainTrayTest, ADoubleClickOnTheTrayIconAlsoFocusesTheTitle) {
    StartQuietly();
    user->Minimize(Main());
    DoubleClickTrayIcon();
    EXPECT_EQ(Main().windowState(), WindowState::Normal);
    user->Click(Main().cmdHideMe);
    DoubleClickTrayIcon();
    EXPECT_TRUE(Main().IsShownOnStage());
    EXPECT_EQ(stage->Foreground(), &Main());
    EXPECT_TRUE(Main().txtNoteTitle.HasFocus());
    EXPECT_TRUE(Main().mnuHide.enabled);
    EXPECT_FALSE(Main().mnuShow.enabled);
}

TEST_F(frmMainTrayTest, ARightClickOnTheTrayIconOpensTheMenuWhileTheWindowIsHidden) {
    StartQuietly();
    user->Click(Main().cmdHideMe);
    stage->ExpectPopup("mnuPop", [this](Menu&) -> Menu* {
        EXPECT_EQ(stage->Foreground(), &Main());
        return nullptr;
    });
    RightClickTrayIcon();
    EXPECT_FALSE(Main().IsShownOnStage());
}

TEST_F(frmMainTrayTest, OtherTrayMessagesDoNothing) {
    StartQuietly();
    user->Click(Main().cmdHideMe);
    for (const int message : otherMessages) {
        user->Tray(message);
    }
    EXPECT_FALSE(Main().IsShownOnStage());
}

TEST_F(frmMainTrayTest, ThePointerIsNoTrayMessage) {
    StartQuietly();
    user->Click(Main().cmdTimer);
    for (const int column : {512, 513, 514, 515, 516, 517, 518, 519}) {
        for (const int twips : {0, 14}) {
            Start([] { SetMousePointer(MousePointer::Hourglass); });
            user->MouseMove(Main(), column * 15 + twips);
            EXPECT_EQ(stage->Pointer(), MousePointer::Default) << column;
        }
    }
    EXPECT_TRUE(stage->Popups().empty());
    EXPECT_EQ(stage->Foreground(), nullptr);
    EXPECT_FALSE(Main().txtNoteTitle.HasFocus());
    EXPECT_NE(runtime->ActiveForm(), &Main());
}

// The pointer can move while the menu is open and the handler of the icon's message is still
// running. Such a move must not be taken for a tray message.
TEST_F(frmMainTrayTest, ThePointerIsNoTrayMessageWhileATrayMessageIsHandled) {
    StartQuietly();
    stage->ExpectPopup("mnuPop", [this](Menu&) -> Menu* {
        gestures::MouseMove(Main(), 0, TrayMessages::rightButtonUp * 15, 0);
        return nullptr;
    });
    RightClickTrayIcon();
    EXPECT_EQ(stage->Popups().size(), 1U);
}
