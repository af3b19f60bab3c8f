#include "notes/RestoreNotes.h"

#include "app/RecordText.h"
#include "forms/Environment.h"
#include "forms/MsgBox.h"
#include "forms/Runtime.h"
#include "notes/NoteFile.h"
#include "notes/NotesArray.h"

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

// Before the editor holds its note: one that fails half way would save the note without the alarm.
void RequireAlarmIcon(frmNote& note) {
    try {
        forms::LoadPicture(forms::ApplicationPath("\\alarmon.ico"));
    } catch (const forms::RuntimeError&) {
        note.Unload();
        throw;
    }
}

std::shared_ptr<frmNote> RestoreNote(const NoteRecord& record) {
    auto note = forms::New<frmNote>();
    note->Load();
    FillNote(*note, record);
    if (record.AlarmState == "1") {
        note->PresentAlarm();
    }
    Shared().AlarmFlag = record.AlarmState == "1" ? "1" : "0";
    return note;
}

// An editor that was open when the program was killed may not have been restored: its note may be
// new, or an earlier file may have ended the restoring.
std::shared_ptr<frmNote> EditorFor(const std::string& title) {
    if (auto open = FindOpenNote(title); open && !open->IsRecovered()) {
        return open;
    }
    try {
        if (!FindOpenNote(title) && forms::Machine().files->FileExists(NotePath(title))) {
            // Another note's, where titles differ in capitals only.
            if (const NoteRecord record = NoteFile::Read(NotePath(title)); record.Title == title) {
                return RestoreNote(record);
            }
        }
    } catch (const forms::RuntimeError&) {
        // The file cannot be read; what was typed into its editor can.
    }
    auto note = forms::New<frmNote>();
    note->Load();
    note->SetTitle(title);
    note->Show();
    return note;
}

void RestoreFiles() {
    for (const auto& file : forms::Machine().files->List(NotesFolder(), ".txt")) {
        const auto note = RestoreNote(ReadListedNote(file));
        note->windowState = forms::WindowState::Minimized;
    }
}

void BringBackUnsaved() {
    for (const RecoveredText& recovered : Recovery::Find()) {
        EditorFor(recovered.title)->TakeRecovered(recovered);
    }
}

void ReportLoadErrors(void (*loading)()) {
    try {
        loading();
    } catch (const forms::RuntimeError& error) {
        forms::MsgBox(error.description(), {}, "Error Loading File");
    }
}

}  // namespace

void FillNote(frmNote& note, const NoteRecord& record) {
    if (record.AlarmState == "1") {
        RequireAlarmIcon(note);
    }
    note.SetTitle(record.Title);
    const std::string text = RecordText::WithLineBreaks(record.Text);
    note.txtNote.text = text;
    note.MarkSaved(text);
    note.dtDate.value = record.AlarmDate;
    note.dtTime.value = record.AlarmTime;
    const bool isKnown = record.ColorIndex >= 1 && record.ColorIndex <= 5;
    const std::size_t colorIndex = isKnown ? static_cast<std::size_t>(record.ColorIndex) : 5;
    note.ApplyColor(restoredColors[colorIndex - 1], colorIndex);
    note.ApplyFontSize(record.FontSize);
    note.Show();
    if (record.AudioAlarm == 1) {
        note.chkAudioAlarm.value = 1;
    }
}

void ReadNotes() {
    forms::SetMousePointer(forms::MousePointer::Hourglass);
    ReportLoadErrors(RestoreFiles);
    ReportLoadErrors(BringBackUnsaved);
}

}  // namespace StandardCode
