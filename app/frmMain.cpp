#include "app/frmMain.h"

#include <algorithm>
#include <vector>

#include "alarms/SpecialAlarmsFile.h"
#include "alarms/frmAlarms.h"
#include "alarms/frmSpecialAlarms.h"
#include "app/ProductTexts.h"
#include "app/Settings.h"
#include "app/StandardCode.h"
#include "app/dlgMsgBox.h"
#include "app/frmOptions.h"
#include "forms/Application.h"
#include "forms/MsgBox.h"
#include "forms/Services.h"
#include "info/frmAbout.h"
#include "info/frmTip.h"
#include "notes/CreateNote.h"
#include "notes/EditedNote.h"
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
using StandardCode::Shared;

void frmMain::Form_Initialize() {
    lblCopyright.caption = StandardCode::ownershipNotice;
    std::string soundPath = Settings::alarm.Read(Shared().AlarmSoundPath);
    if (soundPath.empty()) {
        soundPath = forms::ApplicationPath("\\Alarm buzzer.wav");
    }
    Shared().AlarmSoundPath = soundPath;
    StandardCode::LoadSpecialAlarms();
    ConnectEvents();
}

void frmMain::ConnectEvents() {
    auto& events = StandardCode::Events();
    events.NotesArrayLoaded.Subscribe(
        [this] { EnableNoteCreation(Shared().NoteCount < StandardCode::maximumNotes); });
    events.FocusNoteTitle.Subscribe([this] {
        if (!IsVisible() || windowState() == forms::WindowState::Minimized) {
            mnuShow_Click();
        }
        txtNoteTitle.SetFocus();
    });
    events.ShowHelp.Subscribe([this] { ShowHelpFile(forms::HelpCommand::ForceFile); });
    events.ShowAbout.Subscribe([this] { mnuAbout_Click(); });
    events.StopSoundCheck.Subscribe([this] { tmrCheckSoundFile.enabled = false; });
    events.MainIconWanted.Subscribe([this](forms::Picture& picture) { picture = icon; });
}

void frmMain::Form_Load() {
    icon = forms::LoadPicture(forms::ApplicationPath("\\logo.ico"));
    cmdSpecialAlarms.caption = "S&pecial Alarms";
    StandardCode::LoadNotesArray();
    ReadNotes();
    ApplyNoteLimit();
    Shared().StartCookooFlag = Settings::startCookoo.Read(Shared().StartCookooFlag);
    if (Shared().StartCookooFlag == 1) {
        StartCuckooClock();
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

void frmMain::ShowMaximumReached() {
    MsgBox(
        "The maximum number of 100 notes has been reached.\r\n\r\n"
        "Exsiting notes will have to be deleted before more can be created.\r\n ",
        {.icon = forms::BoxIcon::Information}, "Jotwright: Maximum Notes Reached");
}

void frmMain::ApplyNoteLimit() {
    const bool canCreate = Shared().NoteCount < StandardCode::maximumNotes;
    if (!canCreate) {
        ShowMaximumReached();
    }
    EnableNoteCreation(canCreate);
    if (auto* panel = forms::LoadedDefault<frmViewNotes>()) {
        panel->cmdNew.enabled = canCreate;
    }
}

void frmMain::Form_QueryUnload(bool& cancel, forms::UnloadMode /*mode*/) {
    cancel = false;
    const forms::Application& application = forms::Application::Current();
    forms::Machine().tray->Delete(TrayIconRecord);
    if (auto* note = forms::LoadedDefault<frmNote>()) {
        note->Unload();
    }
    const NoteStore::Quiet quiet(StandardCode::Notes());
    // Closing a note reloads the control panel, so the list grows during this loop.
    std::vector<Form*> refused;
    for (;;) {
        const auto& loaded = application.LoadedForms();
        const auto next = std::find_if(loaded.begin(), loaded.end(), [&](const auto& form) {
            return form.get() != this &&
                   std::find(refused.begin(), refused.end(), form.get()) == refused.end();
        });
        if (next == loaded.end()) {
            break;
        }
        // A copy, because the list changes while the form unloads.
        // NOLINTNEXTLINE(performance-unnecessary-copy-initialization)
        const std::shared_ptr<Form> form = *next;
        if (!form->Unload()) {
            refused.push_back(form.get());
        }
    }
    // If a note could not be saved, its window stays open and the program goes on, unless the text
    // is safe until the next start. Otherwise the text would be lost.
    const std::vector<EditedNote*> open = StandardCode::Notes().OpenNotes();
    bool losesText = refused.size() > open.size();
    for (EditedNote* note : open) {
        losesText = !note->KeepForNextStart() || losesText;
    }
    if (losesText && !application.IsSessionEnding()) {
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
        if (Shared().NoteCount < StandardCode::maximumNotes) {
            EnableNoteCreation(true);
        } else {
            ShowMaximumReached();
            EnableNoteCreation(false);
        }
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
        cmdHideMe_Click();
    } catch (const base::RuntimeError& error) {
        MsgBox("Error Creating New Note. " + error.description() + "      ",
               {.icon = forms::BoxIcon::Critical}, "Note Error");
    }
}

void frmMain::cmdSpecialAlarms_Click() { mnuSpecialAlarms_Click(); }

void frmMain::cmdViewNotes_Click() { ShowControlPanel(); }

void frmMain::ShowControlPanel() {
    Shared().ControlPanelMode = true;
    Default<frmViewNotes>().Show();
}

void frmMain::cmdTimer_Click() { Default<frmTimer>().Show(); }

void frmMain::cmdStopWatch_Click() { Default<frmStopWatch>().Show(); }

void frmMain::cmdExit_Click() { Unload(); }

void frmMain::imgLogo_MouseUp(int button) {
    if (button == forms::leftButton) {
        mnuWebSite_Click();
    } else {
        ShowPopupOn(button);
    }
}

void frmMain::mnuToolsOptions_Click() { Default<frmOptions>().Show(); }

void frmMain::mnuAbout_Click() { Default<frmAbout>().ShowModal(); }

void frmMain::mnuHelp_Click() { ShowHelpFile(forms::HelpCommand::Contents); }

void frmMain::mnuWebSite_Click() { OpenInBrowser(StandardCode::webSite); }

void frmMain::mnuTips_Click() { Default<frmTip>().ShowModal(); }

void frmMain::mnuAlarm_Click() { Default<frmAlarms>().ShowModal(); }

void frmMain::mnuSpecialAlarms_Click() { Default<frmSpecialAlarms>().Show(); }

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
