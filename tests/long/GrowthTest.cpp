#include <malloc.h>

#include <algorithm>
#include <cstdio>

#include "notes/frmViewNotes.h"
#include "tests/long/Scale.h"
#include "tests/support/WholeProgram.h"

// Notes are made, edited, hidden, reopened and erased many times. They must leave nothing behind.

using namespace forms;

#if defined(__SANITIZE_ADDRESS__)
// A function of the address sanitizer, whose headers are not installed everywhere.
extern "C" std::size_t __sanitizer_get_current_allocated_bytes();
#endif

namespace {

constexpr int shortCycles = 250;
constexpr int fullCycles = 10'000;
// The number of bytes that an allocator may keep: a ninth of a byte for each cycle of the full
// form.
constexpr std::int64_t slack = 1024;

// The number of bytes that are allocated now.
std::int64_t HeapInUse() {
#if defined(__SANITIZE_ADDRESS__)
    return static_cast<std::int64_t>(__sanitizer_get_current_allocated_bytes());
#else
    return static_cast<std::int64_t>(mallinfo2().uordblks);
#endif
}

// Counts of objects other than memory that a note may leave behind.
struct Remains {
    std::size_t forms;
    std::size_t survivors;  // forms that exist, loaded or not
    std::size_t timers;     // in the queue
    std::size_t titles;
    std::size_t parsed;
    std::size_t listed;
    int notes;
    std::size_t files;

    bool operator==(const Remains&) const = default;
    std::string Text() const {
        return std::to_string(forms) + " forms loaded, " + std::to_string(survivors) + " there, " +
               std::to_string(titles) + " titles, " + std::to_string(parsed) + " notes parsed, " +
               std::to_string(listed) + " listed, " + std::to_string(notes) + " in the array, " +
               std::to_string(files) + " files, " + std::to_string(timers) + " timers";
    }
};

class GrowthTest : public testing_support::WholeProgram {
  protected:
    frmViewNotes& OpenPanel() {
        ClickTrayIcon();
        user->Click(Main().cmdViewNotes);
        return Default<frmViewNotes>();
    }
    void EditTheOnlyNote() {
        frmViewNotes& panel = OpenPanel();
        user->Select(panel.lvwNotes, 0);
        user->Click(panel.cmdEdit);
    }
    void ClosePanel() {
        auto* panel = LoadedDefault<frmViewNotes>();
        if (panel != nullptr && panel->IsVisible()) {
            user->Click(panel->cmdOK);
        }
    }

    // Makes a note, closes it, opens it in the control panel, and erases it there.
    void ThroughThePanel(const std::string& title);
    // Makes a note, minimizes it, brings it back with all open notes, saves it, and erases it by
    // its toolbar.
    void InItsEditor(const std::string& title);
    void Cycle(int number);
    // Counts recovery copies and all other files too.
    std::size_t FilesOfNotes() {
        return files.Names(testing_support::applicationFolder + "\\Notes").size();
    }
    Remains Count();
    // Empties the records of the stage and the devices.
    void ForgetRecords();
};

void GrowthTest::ThroughThePanel(const std::string& title) {
    frmNote& made = MakeNote(title);
    user->Type(made.txtNote, "the text of " + title);
    Advance(2500);
    user->CloseBox(made);
    EXPECT_TRUE(FileOf(title).has_value());
    EditTheOnlyNote();
    frmNote& again = Editor(title);
    user->Type(again.txtNote, "another, longer text of " + title);
    Advance(2500);
    ExpectSaveQuestion(BoxResult::Yes);
    user->CloseBox(again);
    auto& panel = Default<frmViewNotes>();
    user->Select(panel.lvwNotes, 0);
    ExpectDeletingNoteQuestion(locale.ToUpper(title), BoxResult::Yes);
    user->Click(panel.cmdRemove);
}

void GrowthTest::InItsEditor(const std::string& title) {
    frmNote& note = MakeNote(title);
    user->Type(note.txtNote, "the text of " + title);
    // Wait until the recovery copy of the note is written.
    Advance(2500);
    EXPECT_EQ(FilesOfNotes(), 1U);
    user->Minimize(note);
    user->Click(OpenPanel().cmdOpenAll);
    user->Type(note.txtNote, "another text of " + title);
    Advance(2500);
    ExpectSaved(locale.ToUpper(title));
    user->Click(note.tlbMain, "Save");
    EXPECT_TRUE(FileOf(title).has_value());
    ExpectKillNoteQuestion(locale.ToUpper(title), BoxResult::Yes);
    user->Click(note.tlbMain, "Erase");
}

// Every note has a different title, so data that the program keeps for each title would add up.
void GrowthTest::Cycle(int number) {
    const std::string title = "Note " + std::to_string(100'000 + number);
    if (number % 2 == 0) {
        ThroughThePanel(title);
    } else {
        InItsEditor(title);
    }
    ClosePanel();
    Advance(1000);
    ForgetRecords();
}

Remains GrowthTest::Count() {
    const auto& shared = StandardCode::Shared();
    return {runtime->LoadedForms().size(),
            stage->Survivors().size(),
            runtime->timers.Size(),
            StandardCode::Notes().OpenNotes().size(),
            shared.RecoveryPaths.size(),
            StandardCode::Notes().ListedFiles().size(),
            shared.NoteCount,
            FilesOfNotes()};
}

void GrowthTest::ForgetRecords() {
    stage->ForgetShown();
    files.ClearLog();
    sound.log.clear();
    tray.log.clear();
    pictures.loaded.clear();
}

}  // namespace

TEST_F(GrowthTest, ErasedNotesLeaveNothingBehind) {
    const int cycles = static_cast<int>(long_tests::Scaled(shortCycles, fullCycles));
    const int warm = static_cast<int>(long_tests::Scaled(50, 1000));
    files.SetRecycleBin(false);
    StartQuietly();
    const Remains start = Count();
    std::int64_t base = 0;
    std::int64_t most = 0;
    for (int cycle = 1; cycle <= cycles && !HasFailure(); ++cycle) {
        Cycle(cycle);
        if (cycle % warm != 0) {
            continue;
        }
        const Remains now = Count();
        EXPECT_EQ(now.Text(), start.Text()) << "after " << cycle << " cycles";
        const std::int64_t heap = HeapInUse();
        std::printf("%6d cycles: %s, %lld bytes\n", cycle, now.Text().c_str(),
                    static_cast<long long>(heap));
        if (cycle == warm) {
            base = heap;
        }
        most = std::max(most, heap - base);
        EXPECT_LE(heap - base, slack)
            << "more memory after " << cycle << " cycles than after " << warm;
    }
    std::printf("at most %lld bytes more than after %d cycles\n", static_cast<long long>(most),
                warm);
}
