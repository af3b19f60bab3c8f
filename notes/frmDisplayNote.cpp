#include "notes/frmDisplayNote.h"

#include <algorithm>

#include "alarms/Bell.h"
#include "app/Grid.h"
#include "app/RecordText.h"
#include "app/Settings.h"
#include "app/StandardCode.h"
#include "base/Text.h"
#include "forms/Application.h"
#include "forms/MsgBox.h"
#include "forms/Services.h"
#include "notes/NotePrinting.h"

using StandardCode::Shared;

namespace {

using Grid::margin;
constexpr int lineTop = 510;
constexpr int textTop = 660;
// The colour index of gray, which also stands for any other colour.
constexpr std::int16_t lastColorIndex = 6;

std::int16_t ColorIndexOf(const std::optional<forms::Color>& backColor) {
    for (std::int16_t index = 1; index < lastColorIndex; ++index) {
        if (backColor == StandardCode::noteColors[static_cast<std::size_t>(index - 1)].back) {
            return index;
        }
    }
    return lastColorIndex;
}

int FontSizeOf(const StandardCode::NoteRecord& note) {
    const auto& sizes = StandardCode::fontSizes;
    return std::find(sizes.begin(), sizes.end(), note.FontSize) == sizes.end() ? 12 : note.FontSize;
}

}  // namespace

frmDisplayNote::~frmDisplayNote() {
    std::erase(Shared().AlarmDisplays, static_cast<const frmDisplayNote*>(this));
}

void frmDisplayNote::Design() {
    caption = "note";
    borderStyle = forms::BorderStyle::Sizable;
    innerWidth = 4800;
    innerHeight = 3660;
    minimumWidth = 2400;
    minimumHeight = 1800;

    lblJotwright.caption = "Jotwright Note";
    lblJotwright.toolTip = "Left Click To View PopUp Menu";
    lblJotwright.bold = true;
    lblJotwright.fontSize = 10;
    lblJotwright.Place(margin, margin, 1800, 285);
    lblJotwright.MouseUp = [this](int button, int, int) { ShowPopupOn(button); };
    Line1[0].Place(margin, lineTop, 4440, 0);
    Line1[1].Place(margin, lineTop + 45, 4440, 0);

    lblNoteText.multiLine = true;
    lblNoteText.fontSize = 12;
    lblNoteText.toolTip = "Right Click Above Lines To Access Menu";
    lblNoteText.accessibleName = "Note";
    // The text is the only control that can have the focus. If it took the menu key, the keyboard
    // could not open the window's menu.
    lblNoteText.leavesMenuKey = true;
    lblNoteText.Place(margin, textTop, 4440, 2820);

    tmrSoundAlarm.interval = 1000;
    tmrSoundAlarm.Tick = [this] { tmrSoundAlarm_Timer(); };

    mnuPop.inMenuBar = false;
    mnuPrint.Click = [this] { mnuPrint_Click(); };
    mnuErase.Click = [this] { mnuErase_Click(); };
    mnuClose.Click = [this] { mnuClose_Click(); };
}

void frmDisplayNote::Form_Load() {
    icon = forms::LoadPicture(forms::ApplicationPath("\\logo.ico"));
}

void frmDisplayNote::Form_Resize() {
    const int room = std::max(ScaleWidth() - 2 * margin, 0);
    for (forms::Line& line : Line1) {
        line.width = room;
    }
    lblNoteText.width = room;
    lblNoteText.height = std::max(ScaleHeight() - textTop - margin, 0);
}

void frmDisplayNote::Form_MouseUp(int button, int /*x*/, int /*y*/) { ShowPopupOn(button); }

forms::ShortcutTarget frmDisplayNote::TargetOf(forms::Shortcut key) {
    return key == forms::Shortcut::ControlP ? forms::ShortcutTarget(&mnuPrint)
                                            : forms::ShortcutTarget();
}

void frmDisplayNote::ShowPopupOn(int button) {
    if (button == forms::rightButton) {
        PopupMenu(mnuPop);
    }
}

void frmDisplayNote::Form_Unload(bool& cancel) {
    Shared().Answer = 0;
    if (!NoteStore::Exists(file)) {
        return;
    }
    if (!forms::Application::Current().IsSessionEnding() && IsToBeErased()) {
        EraseNote();
    } else if (!KeepNote() && IsTextChanged() && !forms::Application::Current().IsSessionEnding()) {
        // The text that the user typed here is only in this window.
        cancel = true;
        return;
    }
    using StandardCode::SharedSignals;
    StandardCode::Signals().ControlPanel.Raise(SharedSignals::PanelAction::LoadAndUnload);
}

bool frmDisplayNote::IsToBeErased() {
    try {
        return forms::MsgBox(
                   "Would you like to erase this note?",
                   {.buttons = forms::BoxButtons::YesNo, .icon = forms::BoxIcon::Question},
                   " Erase Note?") == forms::BoxResult::Yes;
    } catch (const forms::ProgramEnded&) {
        // The program ended before the user answered.
        KeepNote();
        throw;
    }
}

void frmDisplayNote::EraseNote() {
    StandardCode::ReportWriteErrors([this] {
        // The file may have been removed while the question was shown.
        if (NoteStore::Exists(file)) {
            StandardCode::Notes().Erase(file);
        }
        copy.Remove();
    });
}

void frmDisplayNote::ShowNote(const StoredNote& note) {
    Shared().AlarmDisplays.push_back(this);
    file = note.file;
    fingerprint = note.fingerprint;
    shown = note.record;
    shownText = RecordText::WithLineBreaks(shown.Text);
    lblNoteText.text = shownText;
}

bool frmDisplayNote::ShowsAlarmOf(const StoredNote& note) const {
    return file == note.file && shown.Title == note.record.Title &&
           shown.AlarmDate == note.record.AlarmDate && shown.AlarmTime == note.record.AlarmTime;
}

std::optional<StoredNote> frmDisplayNote::SavedMeanwhile() const {
    try {
        StoredNote saved = NoteStore::Read(file);
        return saved.record == shown ? std::nullopt : std::optional(std::move(saved));
    } catch (const base::RuntimeError&) {
        return std::nullopt;  // writing the file reports the error
    }
}

bool frmDisplayNote::KeepSaved(StandardCode::NoteRecord note) {
    const bool isNewAlarm = note.AlarmState == "1" && (note.AlarmDate != shown.AlarmDate ||
                                                       note.AlarmTime != shown.AlarmTime);
    note.Text = IsTextChanged() ? lblNoteText.text() : RecordText::WithLineBreaks(note.Text);
    return isNewAlarm ? Write(note, NoteFile::TimeField::Time) : WriteSilenced(note);
}

bool frmDisplayNote::KeepNote() {
    const auto saved = SavedMeanwhile();
    if (!saved) {
        return ReWriteNote();
    }
    if (!IsTextChanged()) {
        fingerprint = saved->fingerprint;  // the file's text is written again
    }
    return KeepSaved(saved->record);
}

bool frmDisplayNote::ReWriteNote() {
    StandardCode::NoteRecord note;
    note.Text = lblNoteText.text;
    note.ColorIndex = ColorIndexOf(backColor);
    note.FontSize = static_cast<std::int16_t>(lblNoteText.fontSize());
    return WriteSilenced(note);
}

bool frmDisplayNote::WriteSilenced(StandardCode::NoteRecord& note) {
    note.AlarmDate = forms::Today();
    note.AlarmState = "0";
    note.AudioAlarm = 0;
    return Write(note, NoteFile::TimeField::RewrittenText);
}

bool frmDisplayNote::Write(StandardCode::NoteRecord& note, NoteFile::TimeField timeField) {
    note.Title = base::Trim(caption());
    const auto write = [&] {
        try {
            StandardCode::Notes().Write(file, note, timeField, fingerprint);
        } catch (const base::RuntimeError&) {
            // Keep a copy now, because the program may end while the error is shown.
            KeepCopy(note);
            throw;
        }
        copy.Remove();
    };
    const forms::Application& program = forms::Application::Current();
    if (!program.IsSessionEnding() && !program.HasEnded()) {
        return StandardCode::ReportWriteErrors(write);
    }
    // At the end of the session, nobody would close a message box.
    try {
        write();
        return true;
    } catch (const base::RuntimeError&) {
        return false;
    }
}

void frmDisplayNote::KeepCopy(const StandardCode::NoteRecord& note) {
    if (IsTextChanged()) {
        RecoveredNote typed;
        typed.file = file;
        typed.base = fingerprint;
        typed.record = note;
        typed.record.Trailer = "yes";
        copy.Keep(typed);
    }
}

void frmDisplayNote::tmrSoundAlarm_Timer() {
    Shared().AlarmSounding = true;
    const bool loops = Settings::noteLoops.Read() == 1;
    // Another alarm may have begun to ring since this window opened. Do not interrupt it.
    if (!Bell::IsRinging()) {
        StartSound(loops);
    }
    tmrSoundAlarm.enabled = false;
    Bell::ClearAlarmSounding();
}

void frmDisplayNote::StartSound(bool loops) {
    if (loops) {
        Bell::RingBehindBox(Shared().AlarmSoundPath, "      Turn Off Alarm?       ",
                            {.icon = forms::BoxIcon::Information}, "Jotwright Audio Alarm");
    } else {
        forms::Machine().sound->Play(Shared().AlarmSoundPath, forms::Sound::Mode::Once);
    }
}

void frmDisplayNote::mnuPrint_Click() { StandardCode::PrintNote(caption, lblNoteText.text); }

void frmDisplayNote::mnuErase_Click() { Unload(); }

void frmDisplayNote::mnuClose_Click() { Unload(); }

namespace StandardCode {

std::shared_ptr<frmDisplayNote> DisplayNote(int slot) {
    const StoredNote stored = Notes().OfSlot(slot);
    const NoteRecord& note = stored.record;
    auto display = forms::New<frmDisplayNote>();
    display->caption = note.Title;
    Shared().WindowOnTopFlag = Settings::windowOnTop.Read();
    if (Shared().WindowOnTopFlag == 1) {
        display->MakeTopMost();
    }
    display->ShowNote(stored);
    if (note.ColorIndex >= 1 && note.ColorIndex <= lastColorIndex) {
        const NoteColor& shade = noteColors[static_cast<std::size_t>(note.ColorIndex - 1)];
        display->backColor = shade.back;
        display->lblNoteText.backColor = shade.back;
        display->lblNoteText.foreColor = shade.text;
        display->lblJotwright.foreColor = shade.text;
    }
    display->lblNoteText.fontSize = FontSizeOf(note);
    display->Show();
    return display;
}

bool IsAlarmDisplayed(const StoredNote& note) {
    const auto& displays = Shared().AlarmDisplays;
    // A handler may keep a closed display alive.
    return std::any_of(displays.begin(), displays.end(), [&note](const frmDisplayNote* display) {
        return display->IsLoaded() && display->ShowsAlarmOf(note);
    });
}

}  // namespace StandardCode
