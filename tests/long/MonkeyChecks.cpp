#include "tests/long/MonkeyChecks.h"

#include <algorithm>
#include <map>

#include "alarms/Bell.h"
#include "alarms/SpecialAlarmsFile.h"
#include "notes/EditedNote.h"
#include "notes/NoteFile.h"
#include "notes/NoteStore.h"

using namespace forms;
using StandardCode::Shared;

namespace long_tests {

namespace {

// Milliseconds after which the main clock has ticked and the sound that this tick starts has begun.
constexpr std::int64_t settled = 2100;

bool IsNote(const Form& form) { return dynamic_cast<const frmNote*>(&form) != nullptr; }

bool IsDisplay(const Form& form) { return dynamic_cast<const frmDisplayNote*>(&form) != nullptr; }

}  // namespace

std::vector<MonkeyChecks::OpenText> MonkeyChecks::OpenTexts() const {
    std::vector<OpenText> texts;
    for (const EditedNote* note : StandardCode::Notes().OpenNotes()) {
        frmNote& editor = StandardCode::WindowOf(*note);
        const bool wasSaved = !note->File().empty();
        texts.push_back({editor.weak_from_this(), note->Title(),
                         wasSaved ? note->File() : NoteStore::FileNameFor(note->Title()), wasSaved,
                         editor.txtNote.text()});
    }
    return texts;
}

bool MonkeyChecks::IsInFile(const OpenText& note) const {
    const auto says = [&note](const std::string& bytes) {
        StandardCode::NoteRecord record;
        try {
            NoteFile::Decode(bytes, record);
            return record.Text == note.text;
        } catch (const base::RuntimeError&) {
            return false;
        }
    };
    if (says(files.Peek(notesFolder + '\\' + note.file).value_or(""))) {
        return true;
    }
    const auto& recycled = files.RecycledBytes();
    return std::any_of(recycled.rbegin(), recycled.rend(), says);
}

bool MonkeyChecks::IsInEditor(const OpenText& note) {
    const auto& open = StandardCode::Notes().OpenNotes();
    return std::any_of(open.begin(), open.end(), [&note](const EditedNote* other) {
        return (other->Title() == note.title ||
                other->Title().starts_with(note.title + " (recovered")) &&
               StandardCode::WindowOf(*other).txtNote.text() == note.text;
    });
}

void MonkeyChecks::Check() {
    if (runtime->HasEnded() || stage->OpenWaits() > 0) {
        return;
    }
    CheckWindows();
    CheckNotes();
    CheckSounds();
    CheckFiles();
    CheckVanished();
}

void MonkeyChecks::CheckWindows() {
    std::map<std::string, int> ofClass;
    for (const auto& form : runtime->LoadedForms()) {
        const auto& window = headless::HeadlessStage::WindowOf(*form);
        EXPECT_TRUE(window.shown == form->IsVisible() ||
                    (!window.shown && runtime->HasWaitingWindows()))
            << form->name;
        EXPECT_EQ(window.usable, form->IsUsable() || !form->IsVisible()) << form->name;
        // No modal form is open, so no form is disabled.
        EXPECT_TRUE(!form->IsVisible() || form->IsUsable()) << form->name << " is disabled";
        if (form->IsVisible() && !runtime->HasWaitingWindows()) {
            EXPECT_EQ(window.state, form->windowState()) << form->name;
        }
        if (!IsNote(*form) && !IsDisplay(*form)) {
            EXPECT_EQ(++ofClass[form->name], 1) << form->name << " is there twice";
        }
    }
    mostForms = std::max(mostForms, runtime->LoadedForms().size());
    EXPECT_EQ(stage->Survivors().size(), runtime->LoadedForms().size())
        << "a form that was unloaded still exists";
    if (auto* main = LoadedDefault<frmMain>()) {
        EXPECT_TRUE(tray.icon.has_value()) << "no icon in the notification area";
        EXPECT_NE(main->mnuHide.enabled(), main->mnuShow.enabled());
    }
}

void MonkeyChecks::CheckNotes() {
    std::vector<std::string> open;
    for (const auto& form : runtime->LoadedForms()) {
        auto* note = dynamic_cast<frmNote*>(form.get());
        if (note == nullptr || !note->edited.IsOpen()) {
            continue;
        }
        open.push_back(note->caption());
        EXPECT_TRUE(note->IsVisible()) << note->caption() << " is open and hidden";
    }
    std::vector<std::string> titles = StandardCode::NoteTitles();
    std::sort(titles.begin(), titles.end());
    std::sort(open.begin(), open.end());
    EXPECT_EQ(titles, open) << "the list of open titles";
    if (auto* main = LoadedDefault<frmMain>()) {
        const bool isRoom = Shared().NoteCount < StandardCode::maximumNotes;
        EXPECT_EQ(main->cmdMakeNote.enabled(), isRoom);
        EXPECT_EQ(main->txtNoteTitle.enabled(), main->cmdMakeNote.enabled());
    }
}

void MonkeyChecks::CheckSounds() {
    EXPECT_FALSE(Bell::IsRinging()) << "no box is open";
    const bool loops =
        !sound.log.empty() && sound.log.back().kind == headless::RecordedSound::Kind::Loop;
    EXPECT_FALSE(loops) << "a sound loops and no box is open";
    if (clock.MonotonicMilliseconds() - calmSince < settled || !Shared().AlarmSounding) {
        return;
    }
    const auto& forms = runtime->LoadedForms();
    const bool isAboutToSound = std::any_of(forms.begin(), forms.end(), [](const auto& form) {
        const auto* display = dynamic_cast<const frmDisplayNote*>(form.get());
        return display != nullptr && display->tmrSoundAlarm.enabled();
    });
    EXPECT_TRUE(isAboutToSound) << "AlarmSounding is set in silence";
}

void MonkeyChecks::CheckFiles() {
    std::size_t notes = 0;
    for (const std::string& name : files.Names(notesFolder)) {
        notes += name.ends_with(".txt") ? 1 : 0;
        EXPECT_TRUE(trouble.HasBegun() || !name.ends_with(".tmp")) << name;
    }
    mostNotes = std::max(mostNotes, notes);
    if (!trouble.HasBegun() && !trouble.HasChangedNotes()) {
        EXPECT_EQ(static_cast<std::size_t>(Shared().NoteCount), notes);
    }
    if (const auto bytes = files.Peek(SpecialAlarmsFile::Path())) {
        std::vector<SpecialAlarmsFile::Row> rows;
        EXPECT_NO_THROW(SpecialAlarmsFile::Decode(*bytes, rows));
        EXPECT_EQ(rows.size(), SpecialAlarmsFile::rowCount);
    }
}

// If an editor was closed and the user did not discard its text, the note's file holds the text.
void MonkeyChecks::CheckVanished() {
    // In control panel mode, a text of the same length does not count as a change.
    if (userDropped || trouble.HasChangedNotes() || Shared().ControlPanelMode) {
        return;
    }
    const auto& open = StandardCode::Notes().OpenNotes();
    for (const OpenText& note : before) {
        const auto window = note.window.lock();
        const bool isOpen =
            std::any_of(open.begin(), open.end(), [&window](const EditedNote* other) {
                return &other->Editor().Window() == window.get();
            });
        EXPECT_TRUE(isOpen || erased.contains(note.window) || IsInFile(note))
            << note.title << " was closed; " << note.file << " does not say: " << note.text;
    }
}

}  // namespace long_tests
