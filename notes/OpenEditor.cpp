#include "notes/OpenEditor.h"

#include <array>

#include "app/RecordText.h"
#include "forms/Application.h"

namespace StandardCode {

namespace {

// Stronger shades than those of a new note. There is no gray: a gray note is restored as yellow.
constexpr std::array<NoteColor, 5> restoredColors{{
    {{255, 255, 255}, forms::black},
    {{255, 0, 0}, forms::white},
    {{0, 255, 0}, forms::black},
    {{0, 0, 255}, forms::white},
    {{255, 255, 0}, forms::black},
}};

std::shared_ptr<frmNote> LoadedEditor(const StoredNote& note) {
    auto editor = forms::New<frmNote>();
    editor->Load();
    editor->caption = note.record.Title;
    editor->edited.Begin(note);
    return editor;
}

}  // namespace

std::shared_ptr<frmNote> OpenEditor(const StoredNote& note) {
    NoteRecord record = note.record;
    // Load the icon first: if it is missing, no editor may open, because an editor without the
    // alarm would save the note without the alarm.
    const forms::Picture alarmIcon =
        record.AlarmState == "1" ? NoteAlarm::Icon() : forms::Picture{};
    auto editor = LoadedEditor(note);
    record.Text = RecordText::WithLineBreaks(record.Text);
    editor->Fill(record, alarmIcon);
    const bool isKnown = record.ColorIndex >= 1 && record.ColorIndex <= 5;
    const std::size_t colorIndex = isKnown ? static_cast<std::size_t>(record.ColorIndex) : 5;
    editor->style.ApplyColor(restoredColors[colorIndex - 1], colorIndex);
    // Call this before Show(), which compares the text with the saved text.
    editor->edited.MarkSaved();
    editor->Show();
    return editor;
}

std::shared_ptr<frmNote> RestoreNote(const StoredNote& note) {
    auto editor = OpenEditor(note);
    Shared().AlarmFlag = note.record.AlarmState == "1" ? "1" : "0";
    return editor;
}

std::shared_ptr<frmNote> OpenNewEditor(const std::string& title) {
    StoredNote note;
    note.record.Title = title;
    return LoadedEditor(note);
}

}  // namespace StandardCode
