#include "app/frmMain.h"

// The main window's captions, places and the handlers behind each control and entry.

using forms::Alignment;

void frmMain::Design() {
    caption = "Jotwright";
    borderStyle = forms::BorderStyle::Fixed;
    centerOnScreen = true;
    width = 6390;
    height = 5865;
    DesignControls();
    DesignMenus();
    tmrNow.interval = 1000;
    tmrNow.enabled = true;
    tmrNow.Tick = [this] { tmrNow_Timer(); };
    tmrCooKoo.interval = 1000;
    tmrCooKoo.Tick = [this] { tmrCooKoo_Timer(); };
    // Nothing happens on their ticks; the stop-alarm window switches the sound check off.
    tmrSpecialNotes.interval = 1000;
    tmrSpecialNotes.enabled = true;
    tmrCheckSoundFile.interval = 500;
    tmrCheckSoundFile.enabled = true;
}

void frmMain::DesignControls() {
    const auto showPopup = [this](int button, int, int) { ShowPopupOn(button); };

    imgLogo.Place(180, 120, 3900, 1050);
    imgLogo.toolTip = "Click the logo  to visit the Jotwright website.";
    imgLogo.accessibleName = "Jotwright logo";
    imgLogo.MouseUp = [this](int button, int, int) { imgLogo_MouseUp(button); };

    fraNotes.caption = "Note Center";
    fraNotes.Place(180, 1290, 5940, 1245);
    fraNotes.MouseUp = showPopup;
    Label1.caption = "Enter A Name For Your New Note.";
    Label1.toolTip = "Right click to view the menu.";
    Label1.PlaceIn(fraNotes, 180, 300, 3990, 255);
    Label1.MouseUp = showPopup;
    txtNoteTitle.accessibleName = "Enter A Name For Your New Note.";
    txtNoteTitle.PlaceIn(fraNotes, 180, 645, 3990, 345);
    cmdMakeNote.caption = "Make &Note";
    cmdMakeNote.toolTip = "Make a new note";
    cmdMakeNote.isDefault = true;
    cmdMakeNote.PlaceIn(fraNotes, 4320, 630, 1440, 375);
    cmdMakeNote.Click = [this] { cmdMakeNote_Click(); };

    fraTools.caption = "Tool Bin";
    fraTools.Place(180, 2640, 5940, 1770);
    fraTools.MouseUp = showPopup;
    cmdSpecialAlarms.caption = "S&pecial Alarms";
    cmdSpecialAlarms.toolTip = "View or Edit Special Alarms";
    cmdSpecialAlarms.PlaceIn(fraTools, 180, 345, 2700, 375);
    cmdSpecialAlarms.Click = [this] { cmdSpecialAlarms_Click(); };
    cmdViewNotes.caption = "Notes &Control Panel";
    cmdViewNotes.toolTip = "Open the notes control panel";
    cmdViewNotes.PlaceIn(fraTools, 3060, 345, 2700, 375);
    cmdViewNotes.Click = [this] { cmdViewNotes_Click(); };
    cmdTimer.caption = "&Timer";
    cmdTimer.toolTip = "Open the timer";
    cmdTimer.PlaceIn(fraTools, 180, 810, 2700, 375);
    cmdTimer.Click = [this] { cmdTimer_Click(); };
    cmdStopWatch.caption = "&Stop Watch";
    cmdStopWatch.toolTip = "Open the stop watch";
    cmdStopWatch.PlaceIn(fraTools, 3060, 810, 2700, 375);
    cmdStopWatch.Click = [this] { cmdStopWatch_Click(); };
    cmdCookoo.caption = "Start CooKoo &Clock";
    cmdCookoo.toolTip = "Start the cookoo clock";
    cmdCookoo.PlaceIn(fraTools, 180, 1275, 2700, 375);
    cmdCookoo.Click = [this] { cmdCookoo_Click(); };
    lblCooKoo.caption = "CooKoo Clock Is Activated";
    lblCooKoo.visible = false;
    lblCooKoo.PlaceIn(fraTools, 3060, 1350, 2700, 255);
    lblCooKoo.alignment = Alignment::Center;
    lblCooKoo.MouseUp = showPopup;

    cmdHideMe.caption = "&Hide Me";
    cmdHideMe.toolTip = "Hide Jotwright In Tray";
    cmdHideMe.Place(3240, 4530, 1380, 375);
    cmdHideMe.Click = [this] { cmdHideMe_Click(); };
    cmdExit.caption = "E&xit";
    cmdExit.toolTip = "Close Jotwright";
    cmdExit.Place(4740, 4530, 1380, 375);
    cmdExit.Click = [this] { cmdExit_Click(); };

    lblClick.caption = "Right click to view main menu.";
    lblClick.Place(180, 4605, 2940, 255);
    lblClick.MouseUp = showPopup;
    lblCopyright.toolTip = "Right click to view the menu.";
    lblCopyright.Place(4200, 405, 1920, 510);
    lblCopyright.alignment = Alignment::Right;
    lblCopyright.MouseUp = showPopup;
}

void frmMain::DesignMenus() {
    mnuFile.caption = "&File";
    mnuFileSep.caption = "-";
    mnuFileExit.caption = "&Exit";
    mnuFileExit.Click = [this] { cmdExit_Click(); };

    mnuTools.caption = "&Tools";
    mnuToolsSpecialAlarms.caption = "Special A&larms";
    mnuToolsSpecialAlarms.Click = [this] { mnuSpecialAlarms_Click(); };
    mnuToolsControlPanel.caption = "Notes Co&ntrol Panel";
    mnuToolsControlPanel.Click = [this] { ShowControlPanel(); };
    mnuToolsTimer.caption = "&Timer";
    mnuToolsTimer.Click = [this] { cmdTimer_Click(); };
    mnuToolsStopWatch.caption = "&Stop Watch";
    mnuToolsStopWatch.Click = [this] { cmdStopWatch_Click(); };
    mnuSepOpt.caption = "O&ptions";
    mnuToolsChangeAlarm.caption = "&Choose Alarm Sound";
    mnuToolsChangeAlarm.Click = [this] { mnuAlarm_Click(); };
    mnuToolsOptions.caption = "Note Options";
    mnuToolsOptions.Click = [this] { mnuToolsOptions_Click(); };

    mnuFileHelp.caption = "&Help";
    mnuHelpAbout.caption = "&About";
    mnuHelpAbout.Click = [this] { mnuAbout_Click(); };
    mnuHelpHelp.caption = "&Help Files";
    mnuHelpHelp.Click = [this] { mnuHelp_Click(); };
    mnuVisitWeb.caption = "&Visit Jotwright Web Site";
    mnuVisitWeb.Click = [this] { mnuWebSite_Click(); };
    mnuHelpShowTips.caption = "&Show Jotwright Tips";
    mnuHelpShowTips.Click = [this] { mnuTips_Click(); };

    mnuPop.caption = "Pop";
    mnuPop.inMenuBar = false;
    mnuAbout.caption = "About Jotwright";
    mnuAbout.Click = [this] { mnuAbout_Click(); };
    mnuHelp.caption = "Help";
    mnuHelp.Click = [this] { mnuHelp_Click(); };
    mnuWebSite.caption = "Visit Jotwright Web Site";
    mnuWebSite.Click = [this] { mnuWebSite_Click(); };
    mnuTips.caption = "Show Jotwright Tips";
    mnuTips.Click = [this] { mnuTips_Click(); };
    mnuSep2.caption = "-";
    mnuHide.caption = "Hide Jotwright";
    mnuHide.Click = [this] { mnuHide_Click(); };
    mnuShow.caption = "Show Jotwright";
    mnuShow.enabled = false;
    mnuShow.Click = [this] { mnuShow_Click(); };
    mnuTimer.caption = "Timer";
    mnuTimer.Click = [this] { cmdTimer_Click(); };
    mnuStopWatch.caption = "Stop Watch";
    mnuStopWatch.Click = [this] { cmdStopWatch_Click(); };
    mnuAlarm.caption = "Change Alarm Sound";
    mnuAlarm.Click = [this] { mnuAlarm_Click(); };
    mnuSpecialAlarms.caption = "Special Alarms";
    mnuSpecialAlarms.Click = [this] { mnuSpecialAlarms_Click(); };
    mnuControlPanel.caption = "Notes Control Panel";
    mnuControlPanel.Click = [this] { ShowControlPanel(); };
    sep1.caption = "-";
    mnuExit.caption = "Exit";
    mnuExit.Click = [this] { cmdExit_Click(); };
}
