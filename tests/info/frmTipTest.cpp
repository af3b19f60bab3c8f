#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "info/frmTip.h"
#include "tests/support/TestProgram.h"

namespace {

const std::vector<std::string> wantedTips = {
    "Create up to 100 personalized notes.",
    "To view the main menu - Right click the Jotwright Icon in the system tray or Right click any "
    "part of the main Jotwright window.",
    "Place the mouse pointer over any button to view a Tool Tip.",
    "Visit the Jotwright website by clicking on the main menu.",
    "Note font size and background color can be changed for each note.",
    "When Jotwright is stopped, all saved notes will be restarted when Jotwright is restarted.",
    "View the Help files by clicking the 'Help' button on any notes toolbar.",
    "Any time you hide a note, all changes to that note are saved.",
    "To start Jotwright when Windows starts, place a shortcut link in the Startup Directory",
    "Thats all of the tips we have. Have fun using the Jotwright!",
};

class frmTipTest : public testing_support::TestProgram {
  protected:
    void Show(const std::function<void(frmTip&)>& script) {
        stage->ExpectModal<frmTip>([&](frmTip& window) {
            script(window);
            if (window.IsLoaded()) {
                user->CloseBox(window);
            }
        });
        Start([] { forms::Default<frmTip>().ShowModal(); });
    }

    std::optional<std::string> Stored() { return settings.Read("Startup", "View Tips"); }
};

TEST_F(frmTipTest, NineClicksReachTheLastTipAndDisableTheButton) {
    Show([this](frmTip& window) {
        for (std::size_t index = 1; index < wantedTips.size(); ++index) {
            EXPECT_TRUE(window.cmdNextTip.enabled()) << index;
            user->Click(window.cmdNextTip);
            EXPECT_EQ(window.lblTipText.caption(), wantedTips[index]);
        }
        EXPECT_FALSE(window.cmdNextTip.enabled());
    });
}

TEST_F(frmTipTest, TheTipsOpenAgainWithTheFirst) {
    Show([this](frmTip& window) { user->Click(window.cmdNextTip); });
    Show([](frmTip& window) { EXPECT_EQ(window.lblTipText.caption(), wantedTips[0]); });
}

TEST_F(frmTipTest, OkWritesTheCheckedBox) {
    Show([this](frmTip& window) {
        user->Click(window.chkShowTips);
        EXPECT_EQ(Stored(), std::nullopt);
        user->Click(window.cmdOK);
        EXPECT_FALSE(window.IsLoaded());
    });
    EXPECT_EQ(Stored(), "1");
}

TEST_F(frmTipTest, OkWritesTheUncheckedBox) {
    settings.Write("Startup", "View Tips", "1");
    Show([this](frmTip& window) { user->Click(window.cmdOK); });
    EXPECT_EQ(Stored(), "0");
}

TEST_F(frmTipTest, TheCloseBoxWritesNothing) {
    Show([this](frmTip& window) {
        user->Click(window.chkShowTips);
        user->CloseBox(window);
    });
    EXPECT_EQ(Stored(), std::nullopt);
}

TEST_F(frmTipTest, AMissingIconIsAnErrorOfLoading) {
    files.Remove("C:\\Jotwright\\logo.ico");
    ExpectRunTimeError(53, "File not found");
    Start([] { forms::Default<frmTip>().ShowModal(); });
}

}  // namespace
