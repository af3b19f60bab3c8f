#include "alarms/frmAlarms.h"
#include "alarms/frmSpecialAlarms.h"
#include "app/ProductTexts.h"
#include "app/frmMain.h"
#include "app/frmOptions.h"
#include "info/frmAbout.h"
#include "notes/frmViewNotes.h"
#include "tests/support/WholeProgram.h"
#include "tools/frmStopWatch.h"
#include "tools/frmTimer.h"

using namespace forms;

namespace {

// The windows that the buttons and menus of the main window open.
class frmMainToolsTest : public testing_support::WholeProgram {
  protected:
    // Expects that the action shows the tool beside the main window. Closes the tool again.
    template <class T>
    void ExpectTool(const std::function<void()>& act) {
        act();
        T* tool = LoadedDefault<T>();
        ASSERT_NE(tool, nullptr);
        EXPECT_TRUE(tool->IsShownOnStage()) << tool->name;
        EXPECT_FALSE(tool->IsModal()) << tool->name;
        user->CloseBox(*tool);
        EXPECT_EQ(LoadedDefault<T>(), nullptr);
    }

    // Expects that both menus show the dialog modally. Closes the dialog.
    template <class T>
    void ExpectDialog(Menu& barEntry, const std::string& trayEntry) {
        const auto close = [this](T& dialog) {
            EXPECT_FALSE(Main().IsUsable()) << dialog.name;
            user->CloseBox(dialog);
        };
        stage->ExpectModal<T>(close);
        user->Choose(barEntry);
        stage->ExpectPopup("mnuPop", trayEntry);
        stage->ExpectModal<T>(close);
        RightClickTrayIcon();
        EXPECT_EQ(LoadedDefault<T>(), nullptr);
    }

    std::function<void()> Press(CommandButton& button) {
        return [this, &button] { user->Click(button); };
    }
    std::function<void()> FromBar(Menu& entry) {
        return [this, &entry] { user->Choose(entry); };
    }
    std::function<void()> FromTray(const std::string& entry) {
        return [this, entry] { ChooseFromTrayMenu(entry); };
    }

    int OpenInBrowser(const std::string& document) {
        int result = -1;
        Start([&] { result = Main().OpenInBrowser(document); });
        return result;
    }

    static bool PanelMode() { return StandardCode::Shared().ControlPanelMode; }
};

}  // namespace

TEST_F(frmMainToolsTest, TheSpecialAlarmsOpenBesideTheMainWindow) {
    StartQuietly();
    ExpectTool<frmSpecialAlarms>(Press(Main().cmdSpecialAlarms));
    ExpectTool<frmSpecialAlarms>(FromBar(Main().mnuToolsSpecialAlarms));
    ExpectTool<frmSpecialAlarms>(FromTray("mnuSpecialAlarms"));
}

TEST_F(frmMainToolsTest, TheControlPanelOpensBesideTheMainWindow) {
    StartQuietly();
    ExpectTool<frmViewNotes>(Press(Main().cmdViewNotes));
    ExpectTool<frmViewNotes>(FromBar(Main().mnuToolsControlPanel));
    ExpectTool<frmViewNotes>(FromTray("mnuControlPanel"));
}

TEST_F(frmMainToolsTest, TheTimerOpensBesideTheMainWindow) {
    StartQuietly();
    ExpectTool<frmTimer>(Press(Main().cmdTimer));
    ExpectTool<frmTimer>(FromBar(Main().mnuToolsTimer));
    ExpectTool<frmTimer>(FromTray("mnuTimer"));
}

TEST_F(frmMainToolsTest, TheStopWatchOpensBesideTheMainWindow) {
    StartQuietly();
    ExpectTool<frmStopWatch>(Press(Main().cmdStopWatch));
    ExpectTool<frmStopWatch>(FromBar(Main().mnuToolsStopWatch));
    ExpectTool<frmStopWatch>(FromTray("mnuStopWatch"));
}

TEST_F(frmMainToolsTest, TheOptionsOpenBesideTheMainWindow) {
    StartQuietly();
    ExpectTool<frmOptions>(FromBar(Main().mnuToolsOptions));
}

TEST_F(frmMainToolsTest, TheAlarmSoundIsChosenInADialog) {
    StartQuietly();
    ExpectDialog<frmAlarms>(Main().mnuToolsChangeAlarm, "mnuAlarm");
}

TEST_F(frmMainToolsTest, AboutAndTipsAreDialogs) {
    StartQuietly();
    ExpectDialog<frmAbout>(Main().mnuHelpAbout, "mnuAbout");
    ExpectDialog<frmTip>(Main().mnuHelpShowTips, "mnuTips");
}

TEST_F(frmMainToolsTest, HelpShowsTheShippedFile) {
    StartQuietly();
    FromBar(Main().mnuHelpHelp)();
    FromTray("mnuHelp")();
    ASSERT_EQ(shell.helpShown.size(), 2U);
    for (const auto& help : shell.helpShown) {
        EXPECT_EQ(help.file, "C:\\Jotwright\\JOTWRIGHT2.hlp");
        EXPECT_EQ(help.command, 3);  // the contents
    }
    EXPECT_EQ(Main().cdgMain.helpFile, "C:\\Jotwright\\JOTWRIGHT2.hlp");
}

TEST_F(frmMainToolsTest, HelpFromAnEditorForcesTheFile) {
    StartQuietly();
    user->Click(MakeNote("Dentist").tlbMain, "Help");
    ASSERT_EQ(shell.helpShown.size(), 1U);
    EXPECT_EQ(shell.helpShown[0].file, "C:\\Jotwright\\JOTWRIGHT2.hlp");
    EXPECT_EQ(shell.helpShown[0].command, 9);
}

TEST_F(frmMainToolsTest, AboutFromAnEditorIsThatOfTheMainWindow) {
    StartQuietly();
    frmNote& note = MakeNote("Dentist");
    stage->ExpectModal<frmAbout>([this](frmAbout& about) { user->CloseBox(about); });
    user->Click(note.tlbMain, "About");
    EXPECT_EQ(LoadedDefault<frmAbout>(), nullptr);
}

TEST_F(frmMainToolsTest, EveryWayToOpenTheControlPanelSwitchesItsModeOn) {
    PutNote(Note("Restored"));
    StartQuietly();
    EXPECT_FALSE(PanelMode());
    user->CloseBox(Editor("Restored"));
    EXPECT_FALSE(PanelMode());
    for (const auto& open : {Press(Main().cmdViewNotes), FromBar(Main().mnuToolsControlPanel),
                             FromTray("mnuControlPanel")}) {
        StandardCode::Shared().ControlPanelMode = false;
        open();
        EXPECT_TRUE(PanelMode());
        user->CloseBox(Default<frmViewNotes>());
        EXPECT_TRUE(PanelMode());
    }
    MakeNote("New");
    EXPECT_FALSE(PanelMode());
}

TEST_F(frmMainToolsTest, NewInTheControlPanelBringsBackAHiddenMainWindow) {
    StartQuietly();
    user->Click(Main().cmdViewNotes);
    user->Click(Main().cmdHideMe);
    user->Click(Default<frmViewNotes>().cmdNew);
    EXPECT_TRUE(Main().IsShownOnStage());
    EXPECT_TRUE(Main().txtNoteTitle.HasFocus());
    EXPECT_TRUE(Main().mnuHide.enabled);
    EXPECT_FALSE(Main().mnuShow.enabled);
    EXPECT_EQ(LoadedDefault<frmViewNotes>(), nullptr);
}

TEST_F(frmMainToolsTest, NewInTheControlPanelBringsBackAMinimizedMainWindow) {
    StartQuietly();
    user->Click(Main().cmdViewNotes);
    user->Minimize(Main());
    user->Click(Default<frmViewNotes>().cmdNew);
    EXPECT_TRUE(Main().IsShownOnStage());
    EXPECT_EQ(Main().windowState(), WindowState::Normal);
    EXPECT_EQ(stage->WindowOf(Main()).state, WindowState::Normal);
    EXPECT_EQ(runtime->ActiveForm(), &Main());
    EXPECT_TRUE(Main().txtNoteTitle.HasFocus());
    EXPECT_EQ(LoadedDefault<frmViewNotes>(), nullptr);
}

TEST_F(frmMainToolsTest, TheLogoOpensTheWebSite) {
    StartQuietly();
    user->Click(Main().imgLogo);
    ASSERT_EQ(shell.opened.size(), 1U);
    EXPECT_EQ(shell.opened[0].document, StandardCode::webSite);
    EXPECT_EQ(shell.opened[0].workingFolder, "C:\\");
    FromBar(Main().mnuVisitWeb)();
    FromTray("mnuWebSite")();
    ASSERT_EQ(shell.opened.size(), 3U);
    EXPECT_EQ(shell.opened[2].document, StandardCode::webSite);
}

TEST_F(frmMainToolsTest, BrowserFailures) {
    StartQuietly();
    shell.result = 33;
    EXPECT_EQ(OpenInBrowser("readme.htm"), 33);
    EXPECT_EQ(shell.opened.back().document, "readme.htm");
    shell.result = 32;
    ExpectMessage("Unable to open file!", "Attention", BoxIcon::Exclamation);
    EXPECT_EQ(OpenInBrowser("readme.htm"), 32);
    ExpectMessage("Unable to open file!", "Attention", BoxIcon::Exclamation);
    user->Choose(Main().mnuVisitWeb);
    shell.error = base::ErrorNumber::InvalidProcedureCall;
    ExpectMessage("Could Not Open Default Browser", "Browser Error", BoxIcon::None);
    user->Choose(Main().mnuVisitWeb);
}
