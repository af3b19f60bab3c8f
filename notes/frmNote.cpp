#include "notes/frmNote.h"

#include <algorithm>

#include "app/Settings.h"
#include "app/TrayMessages.h"
#include "forms/Environment.h"
#include "forms/MsgBox.h"
#include "forms/Runtime.h"
#include "forms/Text.h"
#include "notes/NotePrinting.h"
#include "notes/NotesArray.h"

using StandardCode::Events;
using StandardCode::Shared;
using PanelAction = StandardCode::SharedEvents::PanelAction;

namespace {

std::string DateTimeText() { return forms::Machine().locale->GeneralDate(forms::Now()); }

}  // namespace

void frmNote::Form_Load() {
    const int hidesDateTime =
        Settings::ReadInteger(Settings::Options::section, Settings::Options::showDateTime, 0);
    ShowDateTimePanel(hidesDateTime != 1);
    NoteErased = false;
    NoteChanged = false;
    tmrLabel.enabled = true;
    FollowBlinking();
    dtTime.customFormat = "h:mm tt";
    dtTime.upDown = true;
    icon = forms::LoadPicture(forms::ApplicationPath("\\note.ico"));
    dtDate.value = forms::Today();
    dtTime.value = forms::DateTime::FromTime(12, 0, 0);
    tmrNow.enabled = true;
    tmrNow.interval = 1000;
    lblSysTime.caption = std::string("Date and Time is ") + forms::lineBreak + DateTimeText() + '.';
    Events().ControlPanel.Raise(PanelAction::UnloadIfVisible);
}

void frmNote::Form_Activate() { TextLengthAtActivate = forms::Utf16Length(txtNote.text()); }

void frmNote::Form_Resize() { Arrange(); }

void frmNote::SetTitle(const std::string& title) {
    caption = title;
    holdsNote = true;
    Shared().NoteTitles.push_back(title);
}

void frmNote::ForgetTitle() {
    if (!holdsNote) {
        return;
    }
    holdsNote = false;
    auto& titles = Shared().NoteTitles;
    const auto own = std::find(titles.begin(), titles.end(), caption());
    if (own != titles.end()) {
        titles.erase(own);
    }
}

StandardCode::NoteRecord frmNote::Record() {
    StandardCode::NoteRecord record;
    record.Title = caption;
    record.Text = txtNote.text;
    record.AlarmDate = alarmValues.AlarmDayLong;
    record.AlarmTime = alarmValues.AlarmTimeOfDay;
    const auto colors = ColorItems();
    const auto color = std::find_if(colors.begin(), colors.end(),
                                    [](const auto* item) { return item->checked(); });
    record.ColorIndex =
        static_cast<std::int16_t>(color == colors.end() ? 6 : color - colors.begin() + 1);
    record.FontSize = mnu10.checked ? 10 : mnu12.checked ? 12 : mnu14.checked ? 14 : 16;
    record.AlarmState = cmdAlarm.caption() == "&Set Alarm" ? "0" : "1";
    record.AudioAlarm = chkAudioAlarm.value() == 1 ? 1 : 0;
    return record;
}

void frmNote::SaveFile() {
    StandardCode::EnsureNotesFolder();
    ComputeAlarmValues();
    const StandardCode::NoteRecord record = Record();
    StandardCode::SaveNoteFile(StandardCode::NotePath(record.Title), record);
    StandardCode::NoteFileHolds(record.Title, record.Text);
    recoveryCopy.Remove();
}

void frmNote::WriteNote() {
    saveFailed = !StandardCode::ReportWriteErrors([this] { SaveFile(); });
    if (saveFailed) {
        return;
    }
    StandardCode::LoadNotesArray();
    if (Shared().NoteCount == StandardCode::maximumNotes) {
        Events().MaximumReached.Raise();
    }
}

void frmNote::SaveBeforeTheEnd() {
    if (!holdsNote || NoteErased) {
        return;
    }
    try {
        SaveFile();
    } catch (const forms::RuntimeError&) {
        // Nobody can be asked any more; the next start brings the text back.
        keepsRecoveryCopy = true;
        KeepRecoveryCopy();
    }
}

void frmNote::KeepRecoveryCopy() {
    if (!holdsNote) {
        return;
    }
    if (txtNote.text() == savedText) {
        recoveryCopy.Remove();
    } else {
        recoveryCopy.Keep(caption, txtNote.text);
    }
}

bool frmNote::KeepForNextStart() {
    KeepRecoveryCopy();
    return txtNote.text() == savedText || recoveryCopy.IsWritten();
}

void frmNote::TakeRecovered(const RecoveredText& recovered) {
    recoveryCopy.Adopt(recovered);
    isRecovered = true;
    if (txtNote.text() == recovered.text) {
        recoveryCopy.Remove();
        return;
    }
    txtNote.text = recovered.text;
    NoteChanged = true;
    windowState = forms::WindowState::Normal;
    Show();
}

void frmNote::Form_QueryUnload(bool& cancel, forms::UnloadMode mode) {
    if (!holdsNote) {
        return;
    }
    if (mode == forms::UnloadMode::SessionEnd || forms::Runtime::Current().IsSessionEnding()) {
        SaveBeforeTheEnd();
        return;
    }
    if (Shared().ControlPanelMode) {
        CloseThroughPanel(cancel);
    } else {
        CloseSilently(cancel);
    }
}

void frmNote::CloseThroughPanel(bool& cancel) {
    Events().ControlPanel.Raise(PanelAction::Reload);
    if (forms::Utf16Length(txtNote.text()) != TextLengthAtActivate) {
        NoteChanged = true;
    }
    if (NoteChanged && !NoteErased) {
        // The session may end before the answer comes.
        KeepRecoveryCopy();
        const auto answer =
            forms::MsgBox(" Would you like to save changes?     ",
                          {.buttons = forms::BoxButtons::YesNo, .icon = forms::BoxIcon::Question},
                          "Save Changes?");
        if (answer != forms::BoxResult::No) {
            WriteNote();
            if (saveFailed) {
                KeepOpen(cancel);
                return;
            }
        }
        Events().ControlPanel.Raise(PanelAction::ReloadAndShow);
    }
    if (!NoteChanged) {
        Events().ControlPanel.Raise(PanelAction::Show);
    }
}

void frmNote::CloseSilently(bool& cancel) {
    if (!NoteErased) {
        WriteNote();
        if (saveFailed) {
            KeepOpen(cancel);
            return;
        }
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

void frmNote::Form_Unload(bool& /*cancel*/) {
    ForgetTitle();
    if (!keepsRecoveryCopy) {
        recoveryCopy.Remove();
    }
}

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
    WriteNote();
    // The error was shown; closing the window must not take the text for saved.
    if (saveFailed) {
        NoteChanged = true;
        return;
    }
    NoteChanged = false;
    forms::MsgBox(forms::Machine().locale->ToUpper(caption) + " has been saved.           ",
                  {.icon = forms::BoxIcon::Information}, "");
}

void frmNote::tmrNow_Timer() {
    lblSysTime.caption =
        std::string("System Date and Time is ") + forms::lineBreak + DateTimeText() + '.';
    ComputeAlarmValues();
    RestUntilTheAlarm();
    KeepRecoveryCopy();
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
    const auto answer =
        forms::MsgBox("Are you sure you would like to erase " +
                          forms::Machine().locale->ToUpper(caption) + "?              ",
                      {.buttons = forms::BoxButtons::YesNo,
                       .icon = forms::BoxIcon::Information,
                       .secondIsDefault = true},
                      "Kill Note");
    if (answer != forms::BoxResult::Yes) {
        return;
    }
    const std::string path = StandardCode::NotePath(caption);
    try {
        forms::Machine().files->Recycle(path);
    } catch (const forms::RuntimeError&) {
        // Whatever became of the file, the window goes.
    }
    // The closing may write the note back, and that may fail.
    if (!forms::Machine().files->FileExists(path)) {
        StandardCode::NoteFileHolds(caption, "");
    }
    try {
        Unload();
    } catch (const forms::RuntimeError&) {
        // As above: erasing reports nothing.
    }
}

namespace StandardCode {

void NoteFileHolds(const std::string& title, const std::string& text) {
    forms::Locale& locale = *forms::Machine().locale;
    const std::string name = locale.ToUpper(title);
    for (const auto& form : forms::Runtime::Current().LoadedForms()) {
        auto* note = dynamic_cast<frmNote*>(form.get());
        if (note != nullptr && note->HoldsNote() && note->caption().size() == title.size() &&
            locale.ToUpper(note->caption()) == name) {
            note->MarkSaved(text);
        }
    }
}

std::shared_ptr<frmNote> FindOpenNote(const std::string& title) {
    for (const auto& form : forms::Runtime::Current().LoadedForms()) {
        auto note = std::dynamic_pointer_cast<frmNote>(form);
        if (note && note->HoldsNote() && note->caption() == title) {
            return note;
        }
    }
    return nullptr;
}

bool IsNoteOpen(const std::string& title) { return FindOpenNote(title) != nullptr; }

}  // namespace StandardCode
