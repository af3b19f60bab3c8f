#include "app/Grid.h"
#include "app/frmMain.h"

// Captions, places and handlers of the main window's controls and menus.

using forms::Alignment;
using Grid::buttonHeight;
using Grid::buttonWidth;
using Grid::frameSide;
using Grid::frameTop;
using Grid::lineHeight;
using Grid::margin;

namespace {

// The buttons of the tool bin are in two columns.
constexpr int toolWidth = 2730;
constexpr int secondTool = frameSide + toolWidth + Grid::gap;
constexpr int toolDistance = buttonHeight + Grid::gap;

}  // namespace

void frmMain::Design() {
    caption = "Jotwright";
    borderStyle = forms::BorderStyle::Fixed;
    centerOnScreen = true;
    innerWidth = 6300;
    innerHeight = 5220;
    DesignControls();
    DesignMenus();
    tmrNow.interval = 1000;
    tmrNow.enabled = true;
    tmrNow.Tick = [this] { tmrNow_Timer(); };
    tmrCooKoo.interval = 1000;
    tmrCooKoo.Tick = [this] { tmrCooKoo_Timer(); };
    // Their ticks do nothing. The stop-alarm window switches the sound check off.
    tmrSpecialNotes.interval = 1000;
    tmrSpecialNotes.enabled = true;
    tmrCheckSoundFile.interval = 500;
    tmrCheckSoundFile.enabled = true;
}

void frmMain::DesignControls() {
    const auto showPopup = [this](int button, int, int) { ShowPopupOn(button); };

    imgLogo.Place(margin, margin, 3900, 1050);
    imgLogo.toolTip = "Click the logo  to visit the Jotwright website.";
    imgLogo.accessibleName = "Jotwright logo";
    imgLogo.MouseUp = [this](int button, int, int) { imgLogo_MouseUp(button); };

    fraNotes.caption = "Note Center";
    fraNotes.Place(margin, 1350, 5940, 1200);
    fraNotes.MouseUp = showPopup;
    Label1.caption = "Enter A Name For Your New Note.";
    Label1.toolTip = "Right click to view the menu.";
    Label1.PlaceIn(fraNotes, frameSide, frameTop, 5580, lineHeight);
    Label1.MouseUp = showPopup;
    txtNoteTitle.accessibleName = "Enter A Name For Your New Note.";
    txtNoteTitle.PlaceIn(fraNotes, frameSide, 645 + Grid::fieldInButton, 4200, Grid::fieldHeight);
    cmdMakeNote.caption = "Make &Note";
    cmdMakeNote.toolTip = "Make a new note";
    cmdMakeNote.isDefault = true;
    cmdMakeNote.PlaceIn(fraNotes, 4500, 645, buttonWidth, buttonHeight);
    cmdMakeNote.Click = [this] { cmdMakeNote_Click(); };

    fraTools.caption = "Tool Bin";
    fraTools.Place(margin, 2670, 5940, 1875);
    fraTools.MouseUp = showPopup;
    cmdSpecialAlarms.caption = "S&pecial Alarms";
    cmdSpecialAlarms.toolTip = "View or Edit Special Alarms";
    cmdSpecialAlarms.PlaceIn(fraTools, frameSide, frameTop, toolWidth, buttonHeight);
    cmdSpecialAlarms.Click = [this] { cmdSpecialAlarms_Click(); };
    cmdViewNotes.caption = "Notes &Control Panel";
    cmdViewNotes.toolTip = "Open the notes control panel";
    cmdViewNotes.PlaceIn(fraTools, secondTool, frameTop, toolWidth, buttonHeight);
    cmdViewNotes.Click = [this] { cmdViewNotes_Click(); };
    cmdTimer.caption = "&Timer";
    cmdTimer.toolTip = "Open the timer";
    cmdTimer.PlaceIn(fraTools, frameSide, frameTop + toolDistance, toolWidth, buttonHeight);
    cmdTimer.Click = [this] { cmdTimer_Click(); };
    cmdStopWatch.caption = "&Stop Watch";
    cmdStopWatch.toolTip = "Open the stop watch";
    cmdStopWatch.PlaceIn(fraTools, secondTool, frameTop + toolDistance, toolWidth, buttonHeight);
    cmdStopWatch.Click = [this] { cmdStopWatch_Click(); };
    cmdCookoo.caption = "Start CooKoo &Clock";
    cmdCookoo.toolTip = "Start the cookoo clock";
    cmdCookoo.PlaceIn(fraTools, frameSide, frameTop + 2 * toolDistance, toolWidth, buttonHeight);
    cmdCookoo.Click = [this] { cmdCookoo_Click(); };
    lblCooKoo.caption = "CooKoo Clock Is Activated";
    lblCooKoo.visible = false;
    lblCooKoo.PlaceIn(fraTools, secondTool, frameTop + 2 * toolDistance + Grid::labelInButton,
                      toolWidth, lineHeight);
    lblCooKoo.alignment = Alignment::Center;
    lblCooKoo.MouseUp = showPopup;

    cmdHideMe.caption = "&Hide Me";
    cmdHideMe.toolTip = "Hide Jotwright In Tray";
    cmdHideMe.Place(3480, 4665, buttonWidth, buttonHeight);
    cmdHideMe.Click = [this] { cmdHideMe_Click(); };
    cmdExit.caption = "E&xit";
    cmdExit.toolTip = "Close Jotwright";
    cmdExit.Place(4860, 4665, buttonWidth, buttonHeight);
    cmdExit.Click = [this] { cmdExit_Click(); };

    lblClick.caption = "Right click to view main menu.";
    lblClick.Place(margin, 4665 + Grid::labelInButton, 3180, lineHeight);
    lblClick.MouseUp = showPopup;
    lblCopyright.toolTip = "Right click to view the menu.";
    lblCopyright.Place(4200, 450, 1920, 2 * lineHeight);
    lblCopyright.alignment = Alignment::Right;
    lblCopyright.MouseUp = showPopup;
}

void frmMain::DesignMenus() {
    mnuFileExit.Click = [this] { cmdExit_Click(); };

    mnuToolsSpecialAlarms.Click = [this] { mnuSpecialAlarms_Click(); };
    mnuToolsControlPanel.Click = [this] { ShowControlPanel(); };
    mnuToolsTimer.Click = [this] { cmdTimer_Click(); };
    mnuToolsStopWatch.Click = [this] { cmdStopWatch_Click(); };
    mnuToolsChangeAlarm.Click = [this] { mnuAlarm_Click(); };
    mnuToolsOptions.Click = [this] { mnuToolsOptions_Click(); };

    mnuHelpAbout.Click = [this] { mnuAbout_Click(); };
    mnuHelpHelp.Click = [this] { mnuHelp_Click(); };
    mnuVisitWeb.Click = [this] { mnuWebSite_Click(); };
    mnuHelpShowTips.Click = [this] { mnuTips_Click(); };

    mnuPop.inMenuBar = false;
    mnuAbout.Click = [this] { mnuAbout_Click(); };
    mnuHelp.Click = [this] { mnuHelp_Click(); };
    mnuWebSite.Click = [this] { mnuWebSite_Click(); };
    mnuTips.Click = [this] { mnuTips_Click(); };
    mnuHide.Click = [this] { mnuHide_Click(); };
    mnuShow.enabled = false;
    mnuShow.Click = [this] { mnuShow_Click(); };
    mnuTimer.Click = [this] { cmdTimer_Click(); };
    mnuStopWatch.Click = [this] { cmdStopWatch_Click(); };
    mnuAlarm.Click = [this] { mnuAlarm_Click(); };
    mnuSpecialAlarms.Click = [this] { mnuSpecialAlarms_Click(); };
    mnuControlPanel.Click = [this] { ShowControlPanel(); };
    mnuExit.Click = [this] { cmdExit_Click(); };
}
