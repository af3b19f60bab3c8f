#include "info/frmSplash.h"

#include <string>

#include "alarms/frmKillAlarm.h"
#include "app/Grid.h"
#include "app/ProductTexts.h"
#include "app/Settings.h"
#include "app/StandardCode.h"
#include "app/frmMain.h"
#include "forms/Application.h"
#include "forms/Services.h"
#include "info/frmTip.h"
#include "notes/frmDisplayNote.h"
#include "notes/frmNote.h"

using forms::Default;

void frmSplash::Design() {
    caption = "Jotwright";
    borderStyle = forms::BorderStyle::None;
    showInTaskbar = false;
    centerOnScreen = true;
    innerWidth = 4860;
    innerHeight = 4830;
    isPage = true;

    imgLogo.Place(Grid::margin, Grid::margin, 4500, 3300);
    imgLogo.sizeToPicture = true;
    imgLogo.accessibleName = "Jotwright's mascot";
    lblLogo.caption = std::string("Jotwright Version ") + StandardCode::version;
    lblLogo.fontName = "Papyrus";
    lblLogo.fontSize = 16;
    lblLogo.alignment = forms::Alignment::Center;
    lblLogo.foreColor = forms::Color{20, 87, 200};
    lblLogo.Place(Grid::margin, 3600, 4500, 480);
    lblCopyright.alignment = forms::Alignment::Center;
    lblCopyright.Place(Grid::margin, 4140, 4500, 2 * Grid::lineHeight);

    tmrSplash.interval = 500;
    tmrSplash.Tick = [this] { tmrSplash_Timer(); };
}

void frmSplash::Form_Load() {
    imgLogo.picture = forms::LoadPicture(forms::ApplicationPath("\\mascot.jpg"));
    lblCopyright.caption = StandardCode::ownershipNotice;
}

void frmSplash::tmrSplash_Timer() {
    if (TickCount != 1) {
        ++TickCount;
        return;
    }
    // The user is waiting for the notes, so allow the longer time for files that other programs
    // hold; see Patience.
    forms::Application::Current().BeginUsersAction();
    Default<frmMain>().Show();
    Default<frmNote>().Load();
    Default<frmDisplayNote>().Load();
    Default<frmKillAlarm>().Load();
    Unload();
    ShowTips();
}

void frmSplash::ShowTips() {
    std::int16_t& hideTips = StandardCode::Shared().ViewTipsFlag;
    hideTips = Settings::viewTips.Read();
    Default<frmTip>().Load();
    if (hideTips != 1) {
        // Window managers of X11 give the focus back only to a window that had it before. So give
        // the main window the focus before the tips disable that window.
        forms::Application::Current().LetWindowsComeUp();
        Default<frmTip>().ShowModal();
        Default<frmTip>().Load();
    }
}
