#include "notes/OpenEditor.h"

#include <array>

#include "app/RecordText.h"
#include "forms/Application.h"

namespace StandardCode {

namespace {

// Stronger than the shades of a new note, and gray comes back yellow.
constexpr std::array<NoteColor, 5> restoredColors{{
    {{255, 255, 255}, forms::black},
    {{255, 0, 0}, forms::white},
    {{0, 255, 0}, forms::black},
    {{0, 0, 255}, forms::white},
    {{255, 255, 0}, forms::black},
}};

}  // namespace

std::shared_ptr<frmNote> OpenEditor(const StoredNote& note) {
    const NoteRecord& record = note.record;
    const bool isAlarmSet = record.AlarmState == "1";
    // First: an editor without its alarm would save the note without it.
    const forms::Picture alarmIcon = isAlarmSet ? frmNote::AlarmIcon() : forms::Picture{};
    auto editor = forms::New<frmNote>();
    editor->Load();
    editor->BeginNote(note);
    editor->txtNote.text = RecordText::WithLineBreaks(record.Text);
    editor->dtDate.value = record.AlarmDate;
    editor->dtTime.value = record.AlarmTime;
    const bool isKnown = record.ColorIndex >= 1 && record.ColorIndex <= 5;
    const std::size_t colorIndex = isKnown ? static_cast<std::size_t>(record.ColorIndex) : 5;
    editor->ApplyColor(restoredColors[colorIndex - 1], colorIndex);
    editor->ApplyFontSize(record.FontSize);
    // Showing compares the text with the saved one.
    editor->MarkSaved();
    editor->Show();
    if (record.AudioAlarm == 1) {
        editor->chkAudioAlarm.value = 1;
    }
    if (isAlarmSet) {
        editor->PresentAlarm(alarmIcon);
    }
    editor->MarkSaved();
    return editor;
}

std::shared_ptr<frmNote> OpenNewEditor(const std::string& title) {
    auto editor = forms::New<frmNote>();
    editor->Load();
    editor->BeginNote(title);
    return editor;
}

}  // namespace StandardCode
