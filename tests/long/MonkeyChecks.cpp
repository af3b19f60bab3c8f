// What must be true after each gesture of the monkey.
#include <algorithm>

#include "alarms/Bell.h"
#include "alarms/SpecialAlarmsFile.h"
#include "base/Text.h"
#include "notes/NoteFile.h"
#include "notes/NoteStore.h"
#include "tests/long/Monkey.h"
#include "tests/support/OpenNotes.h"

using namespace forms;
using StandardCode::Shared;

namespace long_tests {

namespace {

const std::string notesFolder = testing_support::applicationFolder + "\\Notes";
// The clock's next tick and what it sets going.
constexpr std::int64_t settled = 2100;

bool IsNote(const Form& form) { return dynamic_cast<const frmNote*>(&form) != nullptr; }

bool IsDisplay(const Form& form) { return dynamic_cast<const frmDisplayNote*>(&form) != nullptr; }

}  // namespace

std::map<std::string, std::string> Monkey::OpenTexts() {
    std::map<std::string, std::string> texts;
    std::map<std::string, int> sharers;
    for (const auto& form : runtime->LoadedForms()) {
        auto* note = dynamic_cast<frmNote*>(form.get());
        if (note != nullptr && note->HoldsNote()) {
            texts[note->caption()] = note->txtNote.text();
            ++sharers[locale.ToUpper(base::Trim(note->caption()))];
        }
    }
    std::erase_if(texts, [&](const auto& entry) {
        return sharers[locale.ToUpper(base::Trim(entry.first))] > 1 ||
               entry.second.find('"') != std::string::npos;
    });
    return texts;
}

void Monkey::Check() {
    if (runtime->HasEnded() || stage->OpenWaits() > 0) {
        return;
    }
    CheckWindows();
    CheckNotes();
    CheckSounds();
    CheckFiles();
    CheckVanished();
}

void Monkey::CheckWindows() {
    std::map<std::string, int> ofClass;
    for (const auto& form : runtime->LoadedForms()) {
        const auto& window = headless::HeadlessStage::WindowOf(*form);
        EXPECT_EQ(window.shown, form->IsVisible()) << form->name;
        EXPECT_EQ(window.usable, form->IsUsable() || !form->IsVisible()) << form->name;
        // No modal form is open: nothing is shut off.
        EXPECT_TRUE(!form->IsVisible() || form->IsUsable()) << form->name << " is shut off";
        if (form->IsVisible()) {
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

void Monkey::CheckNotes() {
    std::vector<std::string> open;
    for (const auto& form : runtime->LoadedForms()) {
        auto* note = dynamic_cast<frmNote*>(form.get());
        if (note == nullptr || !note->HoldsNote()) {
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
        EXPECT_TRUE(main->cmdMakeNote.enabled() == isRoom || (!isRoom && everTrouble));
        EXPECT_EQ(main->txtNoteTitle.enabled(), main->cmdMakeNote.enabled());
    }
}

void Monkey::CheckSounds() {
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

void Monkey::CheckFiles() {
    std::size_t notes = 0;
    for (const std::string& name : files.Names(notesFolder)) {
        notes += name.ends_with(".txt") ? 1 : 0;
        EXPECT_TRUE(everTrouble || !name.ends_with(".tmp")) << name;
    }
    mostNotes = std::max(mostNotes, notes);
    if (!everTrouble && !behindItsBack) {
        EXPECT_EQ(static_cast<std::size_t>(Shared().NoteCount), notes);
    }
    if (const auto bytes = files.Peek(SpecialAlarmsFile::Path())) {
        std::vector<SpecialAlarmsFile::Row> rows;
        EXPECT_NO_THROW(SpecialAlarmsFile::Decode(*bytes, rows));
        EXPECT_EQ(rows.size(), SpecialAlarmsFile::rowCount);
    }
}

// An editor that closed without being told to drop anything has left its text in the file.
void Monkey::CheckVanished() {
    // Through the control panel, a text that has kept its length is no change.
    if (userDropped || behindItsBack || Shared().ControlPanelMode) {
        return;
    }
    const auto now = OpenTexts();
    for (const auto& [title, text] : before) {
        if (now.count(title) != 0 || erased.count(title) != 0 ||
            testing_support::IsNoteOpen(title)) {
            continue;
        }
        StandardCode::NoteRecord record;
        try {
            ::NoteFile::Decode(files.Peek(NoteFile(title)).value_or(""), record);
        } catch (const base::RuntimeError& error) {
            ADD_FAILURE() << title << " was closed; its file: " << error.description();
            continue;
        }
        EXPECT_EQ(record.Text, text) << title << " was closed";
    }
}

}  // namespace long_tests
