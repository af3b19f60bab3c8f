// Measures the cost of the rules and stores that run for every note or every second.
// bench/instructions counts the instructions of each function in namespace "counted".
#include <benchmark/benchmark.h>

#include <memory>
#include <string>
#include <vector>

#include "alarms/DueRules.h"
#include "alarms/SpecialAlarmsFile.h"
#include "notes/NoteFile.h"
#include "notes/NoteStore.h"
#include "notes/TitleRules.h"
#include "tests/support/RuleDevices.h"

namespace {

using base::DateTime;
using StandardCode::NoteRecord;
using StandardCode::Shared;

NoteRecord Note(int number, std::size_t textLength) {
    NoteRecord note;
    note.Title = "Note " + std::to_string(number);
    while (note.Text.size() < textLength) {
        note.Text += "Call the dentist, water the plants.\r\n";
    }
    note.AlarmDate = DateTime::FromDate(2031, 5, 14);
    note.AlarmTime = DateTime::FromTime(9, 30, 0);
    note.ColorIndex = 5;
    note.FontSize = 12;
    note.AlarmState = "1";
    note.AudioAlarm = 1;
    note.Trailer = "yes";
    return note;
}

// A hundred saved notes, the notes array built from them, and the data for the functions below.
struct Stand {
    Stand() {
        files().PutFolder(StandardCode::NotesFolder());
        for (int number = 1; number <= StandardCode::maximumNotes; ++number) {
            files().PutFile(StandardCode::NotePath(Note(number, 0).Title),
                            NoteFile::Encode(Note(number, 200)));
        }
        StandardCode::LoadNotesArray();
        for (auto& row : weekly) {
            row = {"Friday", DateTime::FromTime(9, 30, 0), "Weekly meeting", 1};
        }
        weeklyBytes = SpecialAlarmsFile::Encode(weekly);
    }
    forms::headless::MemoryFiles& files() { return devices.files; }

    testing_support::RuleDevices devices;
    NoteRecord usual = Note(1, 200);
    NoteRecord large = Note(1, 65536);
    std::string usualBytes = NoteFile::Encode(usual);
    std::string largeBytes = NoteFile::Encode(large);
    DueRules::AlarmValues values = DueRules::ValuesOf(usual.AlarmDate, usual.AlarmTime);
    DateTime now = base::Combine(usual.AlarmDate, DateTime::FromTime(9, 29, 59));
    std::array<SpecialAlarmsFile::Row, SpecialAlarmsFile::rowCount> weekly;
    std::string weeklyBytes;
    int saving = 0;
};

}  // namespace

namespace counted {

[[gnu::noinline]] void ReadNote(Stand& stand) {
    NoteRecord record;
    NoteFile::Decode(stand.usualBytes, record);
    benchmark::DoNotOptimize(record);
}

[[gnu::noinline]] void ReadNoteOf64KiB(Stand& stand) {
    NoteRecord record;
    NoteFile::Decode(stand.largeBytes, record);
    benchmark::DoNotOptimize(record);
}

[[gnu::noinline]] void WriteNote(Stand& stand) {
    benchmark::DoNotOptimize(NoteFile::Encode(stand.usual));
}

[[gnu::noinline]] void WriteNoteOf64KiB(Stand& stand) {
    benchmark::DoNotOptimize(NoteFile::Encode(stand.large));
}

[[gnu::noinline]] void ReadWeeklyAlarms(Stand& stand) {
    std::vector<SpecialAlarmsFile::Row> rows;
    SpecialAlarmsFile::Decode(stand.weeklyBytes, rows);
    benchmark::DoNotOptimize(rows);
}

// The test that an open note runs each time its alarm timer ticks.
[[gnu::noinline]] void EditorDueTest(Stand& stand) {
    benchmark::DoNotOptimize(DueRules::IsEditorAlarmDue(stand.values, stand.now));
}

[[gnu::noinline]] void AlarmValuesOfPickers(Stand& stand) {
    benchmark::DoNotOptimize(DueRules::ValuesOf(stand.usual.AlarmDate, stand.usual.AlarmTime));
}

// What the main clock does once a second: it tests whether each saved note is due.
[[gnu::noinline]] void DueTestOf100SavedNotes(Stand& stand) {
    for (int slot = 1; slot <= StandardCode::maximumNotes; ++slot) {
        benchmark::DoNotOptimize(DueRules::IsSavedNoteDue(Shared().NotesArray[slot], stand.now));
    }
}

[[gnu::noinline]] void TitleRulesAmong100Notes(Stand& /*stand*/) {
    benchmark::DoNotOptimize(TitleRules::Check(
        "A title that is new", StandardCode::Notes().IsTaken("A title that is new")));
}

[[gnu::noinline]] void RebuildArrayUnchanged(Stand& /*stand*/) { StandardCode::LoadNotesArray(); }

[[gnu::noinline]] void SaveNoteAndRebuildArray(Stand& stand) {
    stand.usual.FontSize = static_cast<std::int16_t>(10 + 2 * (++stand.saving % 2));
    StandardCode::Notes().Write("Note 1.txt", stand.usual);
    StandardCode::LoadNotesArray();
}

[[gnu::noinline]] void SaveUnchangedNoteAndRebuildArray(Stand& stand) {
    StandardCode::Notes().Write("Note 2.txt", Note(2, 200));
    StandardCode::LoadNotesArray();
    benchmark::DoNotOptimize(stand.saving);
}

}  // namespace counted

namespace {

template <void (*work)(Stand&)>
void Run(benchmark::State& state) {
    Stand stand;
    for (auto step : state) {
        (void)step;
        work(stand);
    }
}

BENCHMARK(Run<counted::ReadNote>)->Name("ReadNote");
BENCHMARK(Run<counted::ReadNoteOf64KiB>)->Name("ReadNoteOf64KiB");
BENCHMARK(Run<counted::WriteNote>)->Name("WriteNote");
BENCHMARK(Run<counted::WriteNoteOf64KiB>)->Name("WriteNoteOf64KiB");
BENCHMARK(Run<counted::ReadWeeklyAlarms>)->Name("ReadWeeklyAlarms");
BENCHMARK(Run<counted::EditorDueTest>)->Name("EditorDueTest");
BENCHMARK(Run<counted::AlarmValuesOfPickers>)->Name("AlarmValuesOfPickers");
BENCHMARK(Run<counted::DueTestOf100SavedNotes>)->Name("DueTestOf100SavedNotes");
BENCHMARK(Run<counted::TitleRulesAmong100Notes>)->Name("TitleRulesAmong100Notes");
BENCHMARK(Run<counted::RebuildArrayUnchanged>)->Name("RebuildArrayUnchanged");
BENCHMARK(Run<counted::SaveNoteAndRebuildArray>)->Name("SaveNoteAndRebuildArray");
BENCHMARK(Run<counted::SaveUnchangedNoteAndRebuildArray>)->Name("SaveUnchangedNoteAndRebuildArray");

}  // namespace
