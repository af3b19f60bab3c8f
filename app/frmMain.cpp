#include "app/frmMain.h"

#include "alarms/Bell.h"
#include "alarms/CuckooClock.h"
#include "alarms/NoteAlarmsCheck.h"
#include "alarms/SpecialAlarmsCheck.h"
#include "alarms/SpecialAlarmsFile.h"
#include "alarms/frmAlarms.h"
#include "alarms/frmSpecialAlarms.h"
#include "app/Exit.h"
#include "app/Grid.h"
#include "app/ProductTexts.h"
#include "app/Settings.h"
#include "app/StandardCode.h"
#include "app/TrayMessages.h"
#include "app/dlgMsgBox.h"
#include "app/frmOptions.h"
#include "forms/Application.h"
#include "forms/MsgBox.h"
#include "forms/Services.h"
#include "info/frmAbout.h"
#include "info/frmTip.h"
#include "notes/CreateNote.h"
#include "notes/NoteStore.h"
#include "notes/RestoreNotes.h"
#include "notes/TitleRules.h"
#include "notes/frmDisplayNote.h"
#include "notes/frmNote.h"
#include "notes/frmViewNotes.h"
#include "tools/frmStopWatch.h"
#include "tools/frmTimer.h"

using forms::Default;
using forms::MsgBox;
using Grid::buttonHeight;
using Grid::buttonWidth;
using Grid::frameSide;
using Grid::frameTop;
using Grid::lineHeight;
using Grid::margin;
using StandardCode::Shared;

namespace {

// The buttons of the tool bin are in two columns.
constexpr int toolWidth = 2730;
constexpr int secondTool = frameSide + toolWidth + Grid::gap;
constexpr int wideTool = toolWidth + Grid::gap + toolWidth;
constexpr int toolDistance = buttonHeight + Grid::gap;

constexpr std::uint32_t recordSize = 88;
constexpr std::uint32_t messageIconAndTip = 7;
// The message number of a mouse move, so that the events of the icon reach Form_MouseMove().
constexpr std::uint32_t mouseMoveMessage = 512;

}  // namespace

void frmMain::Design() {
    caption = "Jotwright";
    borderStyle = forms::BorderStyle::Fixed;
    centerOnScreen = true;
    innerWidth = 6300;
    innerHeight = 5220;
    mnuPop.inMenuBar = false;
    mnuShow.enabled = false;
    DesignControls();
    ConnectCommands();
    tmrNow.interval = 1000;
    tmrNow.enabled = true;
    tmrNow.Tick = [this] { tmrNow_Timer(); };
    tmrCooKoo.interval = 1000;
    tmrCooKoo.Tick = [this] { tmrCooKoo_Timer(); };
    // These timers have no handlers. frmKillAlarm switches tmrCheckSoundFile off.
    tmrSpecialNotes.interval = 1000;
    tmrSpecialNotes.enabled = true;
    tmrCheckSoundFile.interval = 500;
    tmrCheckSoundFile.enabled = true;
}

void frmMain::DesignControls() {
    imgLogo.Place(margin, margin, 3900, 1050);
    imgLogo.toolTip = "Click the logo  to visit the Jotwright website.";
    imgLogo.accessibleName = "Jotwright logo";

    fraNotes.caption = "Note Center";
    fraNotes.Place(margin, 1350, 5940, 1200);
    Label1.caption = "Enter A Name For Your New Note.";
    Label1.toolTip = "Right click to view the menu.";
    Label1.PlaceIn(fraNotes, frameSide, frameTop, 5580, lineHeight);
    txtNoteTitle.accessibleName = "Enter A Name For Your New Note.";
    txtNoteTitle.PlaceIn(fraNotes, frameSide, 645 + Grid::fieldInButton, 4200, Grid::fieldHeight);
    cmdMakeNote.caption = "Make &Note";
    cmdMakeNote.toolTip = "Make a new note";
    cmdMakeNote.isDefault = true;
    cmdMakeNote.PlaceIn(fraNotes, 4500, 645, buttonWidth, buttonHeight);

    fraTools.caption = "Tool Bin";
    fraTools.Place(margin, 2670, 5940, 1875);
    cmdSpecialAlarms.caption = "S&pecial Alarms";
    cmdSpecialAlarms.toolTip = "View or Edit Special Alarms";
    cmdSpecialAlarms.PlaceIn(fraTools, frameSide, frameTop, toolWidth, buttonHeight);
    cmdViewNotes.caption = "Notes &Control Panel";
    cmdViewNotes.toolTip = "Open the notes control panel";
    cmdViewNotes.PlaceIn(fraTools, secondTool, frameTop, toolWidth, buttonHeight);
    cmdTimer.caption = "&Timer";
    cmdTimer.toolTip = "Open the timer";
    cmdTimer.PlaceIn(fraTools, frameSide, frameTop + toolDistance, toolWidth, buttonHeight);
    cmdStopWatch.caption = "&Stop Watch";
    cmdStopWatch.toolTip = "Open the stop watch";
    cmdStopWatch.PlaceIn(fraTools, secondTool, frameTop + toolDistance, toolWidth, buttonHeight);
    cmdCookoo.caption = "Start CooKoo &Clock";
    cmdCookoo.toolTip = "Start the cookoo clock";
    cmdCookoo.PlaceIn(fraTools, frameSide, frameTop + 2 * toolDistance, wideTool, buttonHeight);
    lblCooKoo.caption = "CooKoo Clock Is Activated";
    lblCooKoo.visible = false;
    lblCooKoo.PlaceIn(fraTools, secondTool, frameTop + 2 * toolDistance + Grid::labelInButton,
                      toolWidth, lineHeight);
    lblCooKoo.alignment = forms::Alignment::Center;

    cmdHideMe.caption = "&Hide Me";
    cmdHideMe.toolTip = "Hide Jotwright In Tray";
    cmdHideMe.Place(3480, 4665, buttonWidth, buttonHeight);
    cmdExit.caption = "E&xit";
    cmdExit.toolTip = "Close Jotwright";
    cmdExit.Place(4860, 4665, buttonWidth, buttonHeight);

    lblClick.caption = "Right click to view main menu.";
    lblClick.Place(margin, 4665 + Grid::labelInButton, 3180, lineHeight);
    lblCopyright.toolTip = "Right click to view the menu.";
    lblCopyright.Place(4200, 450, 1920, 2 * lineHeight);
    lblCopyright.alignment = forms::Alignment::Right;
}

// Connects the controls and menus to their handlers. A button, an entry of the menu bar and an
// entry of the pop-up menu may have the same handler.
void frmMain::ConnectCommands() {
    cmdMakeNote.Click = [this] { cmdMakeNote_Click(); };
    cmdSpecialAlarms.Click = mnuToolsSpecialAlarms.Click =
        mnuSpecialAlarms.Click = [] { Default<frmSpecialAlarms>().Show(); };
    cmdViewNotes.Click = mnuToolsControlPanel.Click = mnuControlPanel.Click = [] {
        Shared().ControlPanelMode = true;
        Default<frmViewNotes>().Show();
    };
    cmdTimer.Click = mnuToolsTimer.Click = mnuTimer.Click = [] { Default<frmTimer>().Show(); };
    cmdStopWatch.Click = mnuToolsStopWatch.Click =
        mnuStopWatch.Click = [] { Default<frmStopWatch>().Show(); };
    cmdCookoo.Click = [this] { cmdCookoo_Click(); };
    cmdHideMe.Click = mnuHide.Click = [this] { mnuHide_Click(); };
    cmdExit.Click = mnuFileExit.Click = mnuExit.Click = [this] { Unload(); };
    mnuToolsChangeAlarm.Click = mnuAlarm.Click = [] { Default<frmAlarms>().ShowModal(); };
    mnuToolsOptions.Click = [] { Default<frmOptions>().Show(); };
    mnuHelpAbout.Click = mnuAbout.Click = [] { Default<frmAbout>().ShowModal(); };
    mnuHelpHelp.Click = mnuHelp.Click = [this] { ShowHelpFile(forms::HelpCommand::Contents); };
    mnuVisitWeb.Click = mnuWebSite.Click = [this] { OpenInBrowser(StandardCode::webSite); };
    mnuHelpShowTips.Click = mnuTips.Click = [] { Default<frmTip>().ShowModal(); };
    mnuShow.Click = [this] { mnuShow_Click(); };

    const auto showPopup = [this](int button, int x, int y) { Form_MouseUp(button, x, y); };
    fraNotes.MouseUp = showPopup;
    Label1.MouseUp = showPopup;
    fraTools.MouseUp = showPopup;
    lblCooKoo.MouseUp = showPopup;
    lblClick.MouseUp = showPopup;
    lblCopyright.MouseUp = showPopup;
    imgLogo.MouseUp = [this](int button, int x, int y) {
        if (button == forms::leftButton) {
            mnuWebSite.Click();
        } else {
            Form_MouseUp(button, x, y);
        }
    };
}

void frmMain::Form_Initialize() {
    lblCopyright.caption = StandardCode::ownershipNotice;
    std::string soundPath = Settings::alarm.ReadOr(Shared().AlarmSoundPath);
    if (soundPath.empty()) {
        soundPath = forms::ApplicationPath("\\Alarm buzzer.wav");
    }
    Shared().AlarmSoundPath = soundPath;
    StandardCode::LoadSpecialAlarms();
    ConnectSignals();
}

void frmMain::ConnectSignals() {
    auto& signals = StandardCode::Signals();
    signals.NotesArrayLoaded.Subscribe(
        [this] { EnableNoteCreation(Shared().NoteCount < StandardCode::maximumNotes); });
    signals.FocusNoteTitle.Subscribe([this] {
        if (!IsVisible() || windowState() == forms::WindowState::Minimized) {
            mnuShow_Click();
        }
        txtNoteTitle.SetFocus();
    });
    signals.ShowHelp.Subscribe([this] { ShowHelpFile(forms::HelpCommand::ForceFile); });
    signals.ShowAbout.Subscribe([this] { mnuAbout.Click(); });
    signals.StopSoundCheck.Subscribe([this] { tmrCheckSoundFile.enabled = false; });
}

void frmMain::Form_Load() {
    icon = forms::LoadPicture(forms::ApplicationPath("\\logo.ico"));
    StandardCode::LoadNotesArray();
    ReadNotes();
    ApplyNoteLimit();
    Shared().StartCookooFlag = Settings::startCookoo.ReadOr(Shared().StartCookooFlag);
    if (Shared().StartCookooFlag == 1) {
        RunCuckooClock(true);
    }
    imgLogo.picture = forms::LoadPicture(forms::ApplicationPath("\\jotwright_title.gif"));
    AddTrayIcon();
    Default<frmDisplayNote>().Load();
    Default<frmViewNotes>().Load();
    Default<frmViewNotes>().Unload();
    forms::SetMousePointer(forms::MousePointer::Default);
}

void frmMain::ReadNotes() { StandardCode::ReadNotes(); }

void frmMain::EnableNoteCreation(bool enable) {
    cmdMakeNote.enabled = enable;
    txtNoteTitle.enabled = enable;
}

void frmMain::ApplyNoteLimit() {
    const bool canCreate = Shared().NoteCount < StandardCode::maximumNotes;
    if (!canCreate) {
        MsgBox(
            "The maximum number of 100 notes has been reached.\r\n\r\n"
            "Exsiting notes will have to be deleted before more can be created.\r\n ",
            {.icon = forms::BoxIcon::Information}, "Jotwright: Maximum Notes Reached");
    }
    EnableNoteCreation(canCreate);
}

void frmMain::Form_QueryUnload(bool& cancel, forms::UnloadMode /*mode*/) {
    cancel = false;
    forms::Machine().tray->Delete(TrayIconRecord);
    if (!StandardCode::CloseAllBut(*this) && !forms::Application::Current().IsSessionEnding()) {
        cancel = true;
        forms::Machine().tray->Add(TrayIconRecord);
    }
}

void frmMain::Form_Unload(bool& /*cancel*/) {
    if (windowState() == forms::WindowState::Minimized) {
        windowState = forms::WindowState::Maximized;
    }
    forms::Machine().tray->Delete(TrayIconRecord);
    forms::Application::Current().End();
}

void frmMain::cmdMakeNote_Click() {
    try {
        ApplyNoteLimit();
        const std::string title = txtNoteTitle.text;
        const TitleRules::Verdict verdict =
            TitleRules::Check(title, StandardCode::Notes().IsTaken(title));
        if (!verdict.IsAccepted()) {
            if (verdict.HasMessage()) {
                StandardCode::PictureMessageBox(verdict.text, verdict.caption, verdict.picture);
            }
            if (verdict.clearTitle) {
                txtNoteTitle.SetFocus();
                txtNoteTitle.text = "";
            }
            return;
        }
        Shared().ControlPanelMode = false;
        StandardCode::CreateNote(title);
        txtNoteTitle.text = "";
        txtNoteTitle.SetFocus();
        Shared().NoteFlag = 0;
        mnuHide_Click();
    } catch (const base::RuntimeError& error) {
        MsgBox("Error Creating New Note. " + error.description() + "      ",
               {.icon = forms::BoxIcon::Critical}, "Note Error");
    }
}

void frmMain::RunCuckooClock(bool run) {
    tmrCooKoo.enabled = run;
    cmdCookoo.caption = run ? "Stop CooKoo &Clock" : "Start CooKoo &Clock";
    cmdCookoo.toolTip = run ? "Stop the Cookoo Clock" : "Start the Cookoo Clock";
    // Without the label, the button fills the row.
    cmdCookoo.width = run ? toolWidth : wideTool;
    lblCooKoo.visible = run;
}

void frmMain::cmdCookoo_Click() { RunCuckooClock(!tmrCooKoo.enabled); }

void frmMain::tmrNow_Timer() {
    Bell::ClearAlarmSounding();
    StandardCode::Notes().LoadAgainIfDue();
    // All checks use the same second, even if opening windows takes longer.
    const base::DateTime now = forms::Now();
    const NoteAlarmsCheck::Opened opened = NoteAlarmsCheck::DisplayDue(now);
    SpecialAlarmsCheck::RingDue(now);
    NoteAlarmsCheck::StartSound(opened);
}

void frmMain::tmrCooKoo_Timer() {
    const int strikes = CuckooClock::StrikesDue(forms::Now());
    if (strikes > 0) {
        StrikeCuckoo(strikes);
    }
}

void frmMain::StrikeCuckoo(int count) {
    CuckooClock::Strike(count);
    struck = true;
    if (tmrCooKoo.enabled) {
        // Restart the timer, so that its next interval begins after the strikes.
        tmrCooKoo.enabled = false;
        tmrCooKoo.enabled = true;
    }
}

void frmMain::AddTrayIcon() {
    TrayIconRecord.structureSize = recordSize;
    TrayIconRecord.owner = this;
    TrayIconRecord.iconId = 1;
    TrayIconRecord.flags = messageIconAndTip;
    TrayIconRecord.callbackMessage = mouseMoveMessage;
    TrayIconRecord.iconPath = icon().path;
    TrayIconRecord.tip = TrayMessages::FixedTip(caption);
    forms::Machine().tray->Add(TrayIconRecord);
}

void frmMain::Form_MouseMove(int /*button*/, int x, int /*y*/) {
    forms::SetMousePointer(forms::MousePointer::Default);
    // At a large display scale, positions of the real mouse pointer can equal the numbers of
    // messages.
    if (!IsTrayCallback()) {
        return;
    }
    switch (x / forms::TwipsPerPixelX()) {
        case TrayMessages::leftDoubleClick:
            txtNoteTitle.SetFocus();
            [[fallthrough]];
        case TrayMessages::leftButtonUp:
            ShowNormal();
            BringToForeground();
            break;
        case TrayMessages::rightButtonUp:
            // Otherwise the menu would stay open when the user clicks elsewhere.
            BringToForeground();
            PopupMenu(mnuPop);
            break;
        default:
            break;
    }
}

void frmMain::Form_MouseUp(int button, int /*x*/, int /*y*/) {
    if (button == forms::rightButton) {
        PopupMenu(mnuPop);
    }
}

forms::ShortcutTarget frmMain::TargetOf(forms::Shortcut key) {
    return key == forms::Shortcut::F1 ? forms::ShortcutTarget(&mnuHelpHelp)
                                      : forms::ShortcutTarget();
}

void frmMain::mnuHide_Click() {
    Hide();
    mnuHide.enabled = false;
    mnuShow.enabled = true;
}

void frmMain::ShowNormal() {
    windowState = forms::WindowState::Normal;
    Show();
    mnuHide.enabled = true;
    mnuShow.enabled = false;
}

void frmMain::mnuShow_Click() {
    ShowNormal();
    txtNoteTitle.SetFocus();
}

void frmMain::ShowHelpFile(forms::HelpCommand command) {
    cdgMain.helpFile = forms::ApplicationPath("\\JOTWRIGHT2.hlp");
    cdgMain.helpCommand = command;
    cdgMain.ShowHelp();
}

int frmMain::OpenInBrowser(const std::string& document) {
    try {
        const int result = forms::Machine().shell->Open(document, "C:\\");
        if (result <= 32) {
            MsgBox("Unable to open file!", {.icon = forms::BoxIcon::Exclamation}, "Attention");
        }
        return result;
    } catch (const base::RuntimeError&) {
        MsgBox("Could Not Open Default Browser", {}, "Browser Error");
        return 0;
    }
}
