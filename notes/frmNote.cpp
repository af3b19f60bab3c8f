#include "notes/frmNote.h"

#include "app/Settings.h"
#include "app/TrayMessages.h"
#include "base/Text.h"
#include "forms/Application.h"
#include "forms/MsgBox.h"
#include "forms/Services.h"
#include "notes/NotePrinting.h"
#include "notes/NoteStore.h"

using StandardCode::Shared;
using StandardCode::Signals;
using PanelAction = StandardCode::SharedSignals::PanelAction;

namespace {

std::string DateTimeText() { return forms::Machine().locale->GeneralDate(forms::Now()); }

void ShowInformation(const std::string& text) {
    forms::MsgBox(text, {.icon = forms::BoxIcon::Information}, "Information");
}

}  // namespace

void frmNote::Design() {
    caption = "Note";
    borderStyle = forms::BorderStyle::Sizable;
    // The window must be narrower than 514 pixels at 96 dpi. In a wider window, the position of the
    // pointer could equal the number of a message of the notification area.
    width = 7200;
    minimumWidth = 7200;
    minimumHeight = 5250;
    TrayIconRecord.owner = this;

    txtNote.multiLine = true;
    txtNote.toolTip = "  Double Click To View The  Menu.";
    txtNote.accessibleName = "Note text";
    txtNote.DoubleClick = [this] { PopupMenu(mnuPop); };
    txtNote.MouseUp = [this](int button, int x, int y) { Form_MouseUp(button, x, y); };
    tlbMain.ButtonClick = [this](const std::string& key) { tlbMain_ButtonClick(key); };

    layout.Design();
    alarm.Design();
    dtDate.Change = [this] { NoteChanged = true; };
    dtTime.Change = [this] { NoteChanged = true; };
    cmdAlarm.Click = [this] { cmdAlarm_Click(); };
    chkAudioAlarm.Click = [this] { imgBell.visible = chkAudioAlarm.value() == 1; };
    chkAudioAlarm.MouseUp = [this](int button, int, int) {
        if (button == forms::leftButton) {
            NoteChanged = true;
        }
    };

    cmdShowDateTime.Click = [this] { layout.TogglePanel(); };

    tmrNow.Tick = [this] { tmrNow_Timer(); };
    tmrNote.Tick = [this] { alarm.FireIfDue(); };
    tmrLabel.interval = 750;
    DesignMenus();
}

void frmNote::DesignMenus() {
    mnuPrint.Click = [this] { StandardCode::PrintNote(caption, txtNote.text); };
    mnuKillNote.Click = [this] { mnuKill_Click(); };
    mnuAlarmStart.Click = [this] { mnuAlarmStart_Click(); };
    mnuAlarmStop.Click = [this] { mnuAlarmStop_Click(); };

    mnuPop.inMenuBar = false;
    style.Design([this] { NoteChanged = true; });
    mnuShow.Click = [this] { mnuShow_Click(); };
    mnuHide.Click = [this] { Unload(); };
    mnuKill.Click = [this] { mnuKill_Click(); };
}

void frmNote::Form_Load() {
    layout.ShowPanel(Settings::showDateTime.Read() != 1);
    NoteErased = false;
    NoteChanged = false;
    tmrLabel.enabled = true;
    alarm.FollowBlinking();
    dtTime.customFormat = "h:mm tt";
    dtTime.upDown = true;
    icon = forms::LoadPicture(forms::ApplicationPath("\\note.ico"));
    dtDate.value = forms::Today();
    dtTime.value = base::DateTime::FromTime(12, 0, 0);
    tmrNow.enabled = true;
    tmrNow.interval = 1000;
    lblSysTime.caption = std::string("Date and Time is ") + base::lineBreak + DateTimeText() + '.';
    Signals().ControlPanel.Raise(PanelAction::UnloadIfVisible);
}

void frmNote::Form_Activate() {
    // Closing compares only the length of the text with the length that is stored here. That would
    // miss a change that was made before, so compare the whole text now.
    if (edited.IsOpen() && txtNote.text() != edited.SavedRecord().Text) {
        NoteChanged = true;
    }
    TextLengthAtActivate = base::Utf16Length(txtNote.text());
}

void frmNote::Form_Resize() { layout.Arrange(); }

StandardCode::NoteRecord frmNote::Record() {
    StandardCode::NoteRecord record;
    record.Title = caption;
    record.Text = txtNote.text;
    record.AlarmDate = alarm.Values().AlarmDayLong;
    record.AlarmTime = alarm.Values().AlarmTimeOfDay;
    record.ColorIndex = static_cast<std::int16_t>(style.ColorIndex());
    record.FontSize = style.FontSize();
    record.AlarmState = alarm.IsSet() ? "1" : "0";
    record.AudioAlarm = alarm.AudioAlarm();
    record.Trailer = "yes";
    return record;
}

bool frmNote::Shows(const StandardCode::NoteRecord& record) {
    return txtNote.text() == record.Text && alarm.Values().AlarmDayLong == record.AlarmDate &&
           alarm.Values().AlarmTimeOfDay == record.AlarmTime &&
           static_cast<std::int16_t>(style.ColorIndex()) == record.ColorIndex &&
           style.FontSize() == record.FontSize && alarm.IsSet() == (record.AlarmState == "1") &&
           alarm.AudioAlarm() == record.AudioAlarm;
}

bool frmNote::WriteNote() {
    if (!StandardCode::ReportWriteErrors([this] { edited.Save(); })) {
        return false;
    }
    StandardCode::LoadNotesArray();
    return true;
}

void frmNote::SaveBeforeTheEnd() {
    if (!edited.IsOpen() || isErasingConfirmed) {
        return;
    }
    if (NoteErased) {
        edited.KeepForNextStart();
    } else {
        edited.SaveBeforeTheEnd();
    }
}

void frmNote::Fill(const StandardCode::NoteRecord& record, const forms::Picture& alarmIcon) {
    txtNote.text = record.Text;
    dtDate.value = record.AlarmDate;
    dtTime.value = record.AlarmTime;
    style.ApplyFontSize(record.FontSize);
    chkAudioAlarm.value = record.AudioAlarm == 1 ? 1 : 0;
    if (record.AlarmState == "1") {
        alarm.Restore(alarmIcon);
    } else if (alarm.IsSet()) {
        alarm.Clear();
    }
}

void frmNote::TakeRecovered(const RecoveredNote& recovered, const forms::Picture& alarmIcon) {
    edited.Adopt(recovered);
    StandardCode::NoteRecord record = recovered.record;
    if (recovered.isTextOnly) {
        record = Record();
        record.Text = recovered.record.Text;
    }
    if (record == Record()) {
        edited.RemoveCopy();
        return;
    }
    Fill(record, alarmIcon);
    const auto index = static_cast<std::size_t>(record.ColorIndex);
    if (index != style.ColorIndex() && index >= 1 && index <= StandardCode::noteColors.size()) {
        style.ApplyColor(StandardCode::noteColors[index - 1], index);
    }
    NoteChanged = true;
    windowState = forms::WindowState::Normal;
    Show();
    // Write the copy again with this program's instance id, so that other programs skip it.
    edited.KeepCopy();
}

void frmNote::Form_QueryUnload(bool& cancel, forms::UnloadMode mode) {
    if (!edited.IsOpen()) {
        return;
    }
    if (mode == forms::UnloadMode::SessionEnd || forms::Application::Current().IsSessionEnding()) {
        SaveBeforeTheEnd();
        return;
    }
    cancel = !(Shared().ControlPanelMode ? CloseThroughPanel() : CloseSilently());
    if (cancel) {
        // The note could not be saved. Its text is only in this window, so show the window.
        if (windowState() == forms::WindowState::Minimized) {
            windowState = forms::WindowState::Normal;
        }
        return;
    }
    // Two kinds of changes have been neither saved nor asked about. In the first, the user chose to
    // erase the note from the toolbar and then answered No. In the second, the user changed the
    // text of a note that was opened through the panel, but its length is the same.
    if (NoteErased ? !isErasingConfirmed : !NoteChanged) {
        edited.RecycleUnsaved();
    }
}

bool frmNote::CloseThroughPanel() {
    Signals().ControlPanel.Raise(PanelAction::Reload);
    if (base::Utf16Length(txtNote.text()) != TextLengthAtActivate) {
        NoteChanged = true;
    }
    if (NoteChanged && !NoteErased) {
        // Keep a copy now, because the session may end before the user answers.
        edited.KeepCopy();
        const auto answer =
            forms::MsgBox(" Would you like to save changes?     ",
                          {.buttons = forms::BoxButtons::YesNo, .icon = forms::BoxIcon::Question},
                          "Save Changes?");
        if (answer != forms::BoxResult::No && !WriteNote()) {
            return false;
        }
        Signals().ControlPanel.Raise(PanelAction::ReloadAndShow);
    }
    if (!NoteChanged) {
        Signals().ControlPanel.Raise(PanelAction::Show);
    }
    return true;
}

bool frmNote::CloseSilently() {
    if (!NoteErased && !edited.LeavesFileAlone(StandardCode::Notes().IsQuiet()) && !WriteNote()) {
        return false;
    }
    Signals().ControlPanel.Raise(PanelAction::Reload);
    return true;
}

void frmNote::Form_Unload(bool& /*cancel*/) { edited.End(); }

void frmNote::Form_MouseUp(int button, int /*x*/, int /*y*/) {
    if (button == forms::rightButton) {
        PopupMenu(mnuPop);
    }
}

void frmNote::Form_MouseMove(int /*button*/, int x, int /*y*/) {
    TrayIconRecord.tip = TrayMessages::FixedTip(caption);
    switch (x / forms::TwipsPerPixelX()) {
        case TrayMessages::leftButtonUp:
        case TrayMessages::leftDoubleClick:
            mnuShow_Click();
            BringToForeground();
            break;
        case TrayMessages::rightButtonUp:
            BringToForeground();
            PopupMenu(mnuPop);
            break;
        default:
            break;
    }
}

forms::ShortcutTarget frmNote::TargetOf(forms::Shortcut key) {
    switch (key) {
        case forms::Shortcut::ControlP:
            return &mnuPrint;
        case forms::Shortcut::ControlS:
            return forms::ToolbarPress{&tlbMain, "Save"};
        case forms::Shortcut::F1:
            return forms::ToolbarPress{&tlbMain, "Help"};
        default:
            return {};
    }
}

void frmNote::tlbMain_ButtonClick(const std::string& key) {
    if (key == "Save") {
        SaveThisNote();
    } else if (key == "Erase") {
        NoteErased = true;
        mnuKill_Click();
    } else if (key == "Print") {
        mnuPrint.Click();
    } else if (key == "Hide") {
        if (Unload()) {
            NoteChanged = false;
        }
    } else if (key == "Help") {
        Signals().ShowHelp.Raise();
    } else if (key == "About") {
        Signals().ShowAbout.Raise();
    }
}

void frmNote::SaveThisNote() {
    if (!WriteNote()) {
        // The error was shown. Mark the note as changed, so that closing asks again.
        NoteChanged = true;
        return;
    }
    NoteChanged = false;
    forms::MsgBox(forms::Machine().locale->ToUpper(caption) + " has been saved.           ",
                  {.icon = forms::BoxIcon::Information}, "");
}

void frmNote::cmdAlarm_Click() {
    alarm.Toggle();
    NoteChanged = true;
}

void frmNote::tmrNow_Timer() {
    lblSysTime.caption =
        std::string("System Date and Time is ") + base::lineBreak + DateTimeText() + '.';
    alarm.RestUntilNear();
    edited.KeepCopy();
}

void frmNote::mnuAlarmStart_Click() {
    if (alarm.IsSet()) {
        ShowInformation("    Alarm Already Started     ");
    } else {
        cmdAlarm_Click();
    }
}

void frmNote::mnuAlarmStop_Click() {
    if (alarm.IsSet()) {
        cmdAlarm_Click();
    } else {
        ShowInformation("   Alarm Not Set              ");
    }
}

void frmNote::mnuShow_Click() {
    Show();
    windowState = forms::WindowState::Normal;
    mnuShow.enabled = false;
    mnuHide.enabled = true;
    forms::Machine().tray->Delete(TrayIconRecord);
}

void frmNote::mnuKill_Click() {
    // Not confirmed yet: the program may end while the question is shown, and must then save the
    // note.
    isErasingConfirmed = false;
    const auto answer =
        forms::MsgBox("Are you sure you would like to erase " +
                          forms::Machine().locale->ToUpper(caption) + "?              ",
                      {.buttons = forms::BoxButtons::YesNo,
                       .icon = forms::BoxIcon::Information,
                       .secondIsDefault = true},
                      "Kill Note");
    isErasingConfirmed = answer == forms::BoxResult::Yes;
    if (!isErasingConfirmed) {
        return;
    }
    try {
        edited.Erase();
    } catch (const base::RuntimeError&) {
        // The error is not reported, and the window closes.
    }
    try {
        // If the window stays open, the note must be saved at the next closing.
        isErasingConfirmed = Unload();
    } catch (const base::RuntimeError&) {
        // An error leaves the window open, too.
        isErasingConfirmed = false;
    }
}
