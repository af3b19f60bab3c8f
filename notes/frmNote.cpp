#include "notes/frmNote.h"

#include <algorithm>

#include "app/Settings.h"
#include "app/TrayMessages.h"
#include "base/Text.h"
#include "forms/Application.h"
#include "forms/MsgBox.h"
#include "forms/Services.h"
#include "notes/NotePrinting.h"
#include "notes/NoteStore.h"

using StandardCode::Events;
using StandardCode::Shared;
using PanelAction = StandardCode::SharedEvents::PanelAction;

namespace {

std::string DateTimeText() { return forms::Machine().locale->GeneralDate(forms::Now()); }

}  // namespace

void frmNote::Form_Load() {
    ShowDateTimePanel(Settings::showDateTime.Read() != 1);
    NoteErased = false;
    NoteChanged = false;
    tmrLabel.enabled = true;
    FollowBlinking();
    dtTime.customFormat = "h:mm tt";
    dtTime.upDown = true;
    icon = forms::LoadPicture(forms::ApplicationPath("\\note.ico"));
    dtDate.value = forms::Today();
    dtTime.value = base::DateTime::FromTime(12, 0, 0);
    tmrNow.enabled = true;
    tmrNow.interval = 1000;
    lblSysTime.caption = std::string("Date and Time is ") + base::lineBreak + DateTimeText() + '.';
    Events().ControlPanel.Raise(PanelAction::UnloadIfVisible);
}

void frmNote::Form_Activate() {
    // The length that is taken here hides from the closing that the text was changed before.
    if (edited.IsOpen() && txtNote.text() != edited.SavedRecord().Text) {
        NoteChanged = true;
    }
    TextLengthAtActivate = base::Utf16Length(txtNote.text());
}

void frmNote::Form_Resize() { Arrange(); }

void frmNote::BeginNote(const std::string& title) {
    caption = title;
    edited.Begin(title);
}

void frmNote::BeginNote(const StoredNote& stored) {
    caption = stored.record.Title;
    edited.Begin(stored);
}

StandardCode::NoteRecord frmNote::Record() {
    ComputeAlarmValues();
    StandardCode::NoteRecord record;
    record.Title = caption;
    record.Text = txtNote.text;
    record.AlarmDate = alarmValues.AlarmDayLong;
    record.AlarmTime = alarmValues.AlarmTimeOfDay;
    record.ColorIndex = ColorIndex();
    record.FontSize = FontSize();
    record.AlarmState = IsAlarmSet() ? "1" : "0";
    record.AudioAlarm = AudioAlarm();
    record.Trailer = "yes";
    return record;
}

std::int16_t frmNote::ColorIndex() {
    const auto colors = ColorItems();
    const auto color = std::find_if(colors.begin(), colors.end(),
                                    [](const auto* item) { return item->checked(); });
    return static_cast<std::int16_t>(color == colors.end() ? 6 : color - colors.begin() + 1);
}

std::int16_t frmNote::FontSize() {
    return mnu10.checked ? 10 : mnu12.checked ? 12 : mnu14.checked ? 14 : 16;
}

// Compares without a copy of the text: a hundred clocks come here each second.
bool frmNote::ShowsSavedRecord() {
    const StandardCode::NoteRecord& saved = edited.SavedRecord();
    ComputeAlarmValues();
    return txtNote.text() == saved.Text && alarmValues.AlarmDayLong == saved.AlarmDate &&
           alarmValues.AlarmTimeOfDay == saved.AlarmTime && ColorIndex() == saved.ColorIndex &&
           FontSize() == saved.FontSize && IsAlarmSet() == (saved.AlarmState == "1") &&
           AudioAlarm() == saved.AudioAlarm;
}

bool frmNote::IsSaved() {
    if (edited.IsFileGone()) {
        return txtNote.text().empty() && !IsAlarmSet();
    }
    return !edited.IsFileOther() && ShowsSavedRecord();
}

bool frmNote::LeavesFileAlone(bool isExit) {
    if (!NoteStore::Exists(edited.File()) || !ShowsSavedRecord()) {
        return false;
    }
    if (isExit && !hasRung) {
        return true;
    }
    const auto held = NoteStore::FingerprintOf(edited.File());
    // If the file cannot be read, the saving of the alarm reports why.
    return held == NoteStore::unknownContents ? !hasRung : held != edited.SeenFingerprint();
}

void frmNote::MarkSaved() { edited.SetSavedRecord(Record()); }

void frmNote::SaveFile() {
    edited.Save(Record());
    hasRung = false;
}

bool frmNote::WriteNote() {
    if (!StandardCode::ReportWriteErrors([this] { SaveFile(); })) {
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
        KeepForNextStart();
        return;
    }
    try {
        if (!LeavesFileAlone(true)) {
            SaveFile();
        }
    } catch (const base::RuntimeError&) {
        KeepForNextStart();
    }
}

bool frmNote::KeepForNextStart() {
    KeepRecoveryCopy(RecoveryCopy::When::Now);
    edited.KeepCopyBeyondTheEnd();
    return IsSaved() || edited.IsCopyWritten();
}

void frmNote::KeepRecoveryCopy(RecoveryCopy::When when) {
    if (!edited.IsOpen()) {
        return;
    }
    if (IsSaved()) {
        edited.RemoveCopy();
    } else {
        edited.KeepCopy(Record(), when);
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
    txtNote.text = record.Text;
    dtDate.value = record.AlarmDate;
    dtTime.value = record.AlarmTime;
    if (record.ColorIndex != ColorIndex() && record.ColorIndex >= 1 && record.ColorIndex <= 6) {
        const auto index = static_cast<std::size_t>(record.ColorIndex);
        ApplyColor(StandardCode::noteColors[index - 1], index);
    }
    ApplyFontSize(record.FontSize);
    chkAudioAlarm.value = record.AudioAlarm == 1 ? 1 : 0;
    NoteChanged = true;
    windowState = forms::WindowState::Normal;
    Show();
    if (IsAlarmSet() && record.AlarmState != "1") {
        ClearAlarm();
    } else if (record.AlarmState == "1") {
        PresentAlarm(alarmIcon);
    }
    // From now on the copy is this program's.
    KeepRecoveryCopy(RecoveryCopy::When::Now);
}

void frmNote::Form_QueryUnload(bool& cancel, forms::UnloadMode mode) {
    if (!edited.IsOpen()) {
        return;
    }
    if (mode == forms::UnloadMode::SessionEnd || forms::Application::Current().IsSessionEnding()) {
        SaveBeforeTheEnd();
        return;
    }
    if (Shared().ControlPanelMode) {
        CloseThroughPanel(cancel);
    } else {
        CloseSilently(cancel);
    }
    if (!cancel) {
        RecycleUnsaved();
    }
}

// Two kinds of edits go without a save and without a question: those of a note that the toolbar was
// to erase and did not, and those that keep the text's length in a note opened through the panel.
void frmNote::RecycleUnsaved() {
    const bool isUnnoticed = NoteErased ? !isErasingConfirmed : !NoteChanged;
    if (isUnnoticed && !IsSaved()) {
        edited.Recycle(Record());
    }
}

void frmNote::CloseThroughPanel(bool& cancel) {
    Events().ControlPanel.Raise(PanelAction::Reload);
    if (base::Utf16Length(txtNote.text()) != TextLengthAtActivate) {
        NoteChanged = true;
    }
    if (NoteChanged && !NoteErased) {
        // The session may end before the answer comes.
        KeepRecoveryCopy(RecoveryCopy::When::Now);
        const auto answer =
            forms::MsgBox(" Would you like to save changes?     ",
                          {.buttons = forms::BoxButtons::YesNo, .icon = forms::BoxIcon::Question},
                          "Save Changes?");
        if (answer != forms::BoxResult::No && !WriteNote()) {
            KeepOpen(cancel);
            return;
        }
        Events().ControlPanel.Raise(PanelAction::ReloadAndShow);
    }
    if (!NoteChanged) {
        Events().ControlPanel.Raise(PanelAction::Show);
    }
}

void frmNote::CloseSilently(bool& cancel) {
    if (!NoteErased && !LeavesFileAlone(StandardCode::Notes().IsQuiet()) && !WriteNote()) {
        KeepOpen(cancel);
        return;
    }
    Events().ControlPanel.Raise(PanelAction::Reload);
}

// A note that could not be saved keeps its window: the text is nowhere else.
void frmNote::KeepOpen(bool& cancel) {
    cancel = true;
    if (windowState() == forms::WindowState::Minimized) {
        windowState = forms::WindowState::Normal;
    }
}

void frmNote::Form_Unload(bool& /*cancel*/) { edited.End(); }

void frmNote::Form_MouseUp(int button, int /*x*/, int /*y*/) { txtNote_MouseUp(button); }

void frmNote::Form_MouseMove(int /*button*/, int x, int /*y*/) {
    TrayIconRecord.tip = TrayMessages::FixedTip(caption);
    switch (x / forms::TwipsPerPixelX()) {
        case TrayMessages::leftButtonUp:
        case TrayMessages::leftDoubleClick:
            windowState = forms::WindowState::Normal;
            BringToForeground();
            mnuHide.enabled = true;
            mnuShow.enabled = false;
            Show();
            forms::Machine().tray->Delete(TrayIconRecord);
            break;
        case TrayMessages::rightButtonUp:
            BringToForeground();
            PopupMenu(mnuPop);
            break;
        default:
            break;
    }
}

void frmNote::txtNote_MouseUp(int button) {
    if (button == forms::rightButton) {
        PopupMenu(mnuPop);
    }
}

void frmNote::tlbMain_ButtonClick(const std::string& key) {
    if (key == "Save") {
        SaveThisNote();
    } else if (key == "Erase") {
        NoteErased = true;
        mnuKill_Click();
    } else if (key == "Print") {
        mnuPrint_Click();
    } else if (key == "Hide") {
        if (mnuHide_Click()) {
            NoteChanged = false;
        }
    } else if (key == "Help") {
        Events().ShowHelp.Raise();
    } else if (key == "About") {
        Events().ShowAbout.Raise();
    }
}

void frmNote::SaveThisNote() {
    if (!WriteNote()) {
        // The error was shown; closing the window must not take the text for saved.
        NoteChanged = true;
        return;
    }
    NoteChanged = false;
    forms::MsgBox(forms::Machine().locale->ToUpper(caption) + " has been saved.           ",
                  {.icon = forms::BoxIcon::Information}, "");
}

void frmNote::tmrNow_Timer() {
    lblSysTime.caption =
        std::string("System Date and Time is ") + base::lineBreak + DateTimeText() + '.';
    ComputeAlarmValues();
    RestUntilTheAlarm();
    KeepRecoveryCopy(RecoveryCopy::When::AtMostEveryTwoSeconds);
}

void frmNote::mnuPrint_Click() { StandardCode::PrintNote(caption, txtNote.text); }

void frmNote::mnuColorItem_Click(std::size_t colorIndex) {
    ApplyColor(StandardCode::noteColors[colorIndex - 1], colorIndex);
    NoteChanged = true;
}

void frmNote::mnuFontItem_Click(int points) {
    ApplyFontSize(points);
    NoteChanged = true;
}

void frmNote::ApplyColor(StandardCode::NoteColor color, std::size_t colorIndex) {
    txtNote.backColor = color.back;
    txtNote.foreColor = color.text;
    const auto items = ColorItems();
    for (std::size_t i = 0; i < items.size(); ++i) {
        items[i]->checked = i + 1 == colorIndex;
    }
}

void frmNote::ApplyFontSize(int points) {
    constexpr std::array sizes{10, 12, 14, 16};
    if (std::find(sizes.begin(), sizes.end(), points) == sizes.end()) {
        return;
    }
    txtNote.fontSize = points;
    const auto items = FontItems();
    for (std::size_t i = 0; i < items.size(); ++i) {
        items[i]->checked = sizes[i] == points;
    }
}

void frmNote::mnuShow_Click() {
    Show();
    windowState = forms::WindowState::Normal;
    mnuShow.enabled = false;
    mnuHide.enabled = true;
    forms::Machine().tray->Delete(TrayIconRecord);
}

bool frmNote::mnuHide_Click() { return Unload(); }

void frmNote::mnuKill_Click() {
    // The program may end while the question waits.
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
        // Whatever became of the file, the window goes.
    }
    try {
        // If the window stays, what is typed there from now on is wanted.
        isErasingConfirmed = Unload();
    } catch (const base::RuntimeError&) {
        // As above: erasing reports nothing.
        isErasingConfirmed = false;
    }
}
