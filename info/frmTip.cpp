#include "info/frmTip.h"

#include "app/Grid.h"
#include "app/Settings.h"
#include "app/StandardCode.h"
#include "forms/Services.h"

namespace {

// Index of the last tip but one.
constexpr int lastButOne = 8;

}  // namespace

void frmTip::Design() {
    caption = "Jotwright - Tips and Tricks";
    borderStyle = forms::BorderStyle::Dialog;
    showInTaskbar = false;
    centerOnScreen = true;
    innerWidth = 6720;
    innerHeight = 3435;
    isPage = true;

    Picture1.resourceName = "tip";
    Picture1.Place(Grid::margin, Grid::margin, 1440, 1440);
    Picture1.accessibleName = "Light bulb";
    Label1.caption = "Did you know...";
    Label1.bold = true;
    Label1.fontSize = 14;
    Label1.Place(1800, Grid::margin, 4740, 420);
    lblTipText.useMnemonic = false;
    lblTipText.Place(1800, 720, 4740, 1980);

    chkShowTips.caption = "&Don't Show Tips at Startup";
    chkShowTips.Place(Grid::margin, 2880, 3300, Grid::buttonHeight);
    cmdNextTip.caption = "&Next Tip";
    cmdNextTip.Place(3900, 2880, Grid::buttonWidth, Grid::buttonHeight);
    cmdNextTip.Click = [this] { cmdNextTip_Click(); };
    cmdOK.caption = "OK";
    cmdOK.isDefault = true;
    cmdOK.Place(5280, 2880, Grid::buttonWidth, Grid::buttonHeight);
    cmdOK.Click = [this] { cmdOK_Click(); };
    // OK has the focus first, so that Enter closes the tips.
    cmdOK.tabIndex = 0;
    chkShowTips.tabIndex = 1;
    cmdNextTip.tabIndex = 2;
}

void frmTip::Form_Load() {
    icon = forms::LoadPicture(forms::ApplicationPath("\\logo.ico"));
    // The store may hold any number. If the number is not a state of a check box, the box stays
    // empty.
    constexpr int grayed = 2;
    const int viewTips = StandardCode::Shared().ViewTipsFlag;
    chkShowTips.value = viewTips >= 0 && viewTips <= grayed ? viewTips : 0;
    lblTipText.fontSize = 12;
    lblTipText.foreColor = forms::Color{0, 0, 128};
    FillTips();
    CurrentTip = 0;
    ShowCurrentTip();
}

void frmTip::FillTips() {
    Tips[0] = "Create up to 100 personalized notes.";
    Tips[1] =
        "To view the main menu - Right click the Jotwright Icon in "
        "the system tray or Right click any part of the main Jotwright "
        "window.";
    Tips[2] = "Place the mouse pointer over any button to view a Tool Tip.";
    Tips[3] = "Visit the Jotwright website by clicking on the main menu.";
    Tips[4] = "Note font size and background color can be changed for each note.";
    Tips[5] =
        "When Jotwright is stopped, all saved notes will be restarted when Jotwright is restarted.";
    Tips[6] = "View the Help files by clicking the 'Help' button on any notes toolbar.";
    Tips[7] = "Any time you hide a note, all changes to that note are saved.";
    Tips[8] =
        "To start Jotwright when Windows starts, place a shortcut link in the Startup Directory";
    Tips[9] = "Thats all of the tips we have. Have fun using the Jotwright!";
}

void frmTip::ShowCurrentTip() {
    lblTipText.caption = Tips.at(static_cast<std::size_t>(CurrentTip));
}

void frmTip::cmdNextTip_Click() {
    ++CurrentTip;
    ShowCurrentTip();
    if (CurrentTip > lastButOne) {
        cmdNextTip.enabled = false;
    }
}

void frmTip::cmdOK_Click() {
    Settings::viewTips.Write(chkShowTips.value() == 1 ? 1 : 0);
    Unload();
}
