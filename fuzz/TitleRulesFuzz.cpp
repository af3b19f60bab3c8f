#include <cstdint>
#include <cstdlib>
#include <string>

#include "base/RuntimeError.h"
#include "base/Text.h"
#include "forms/headless/HeadlessDevices.h"
#include "forms/headless/HeadlessLocale.h"
#include "forms/headless/MemoryFiles.h"
#include "notes/NoteStore.h"
#include "notes/TitleRules.h"

namespace {

constexpr const char* folder = "C:\\Jotwright\\Notes";

void Check(bool holds) {
    if (!holds) {
        std::abort();
    }
}

// Saves a note with this title as its editor would. Returns false if the note cannot be saved.
bool Save(const std::string& title) {
    StandardCode::NoteRecord record;
    record.Title = title;
    record.AlarmDate = base::DateTime::FromDate(2004, 5, 14);
    try {
        StandardCode::Notes().Write(NoteStore::FileNameFor(title), record);
        return true;
    } catch (const base::RuntimeError&) {
        return false;
    }
}

}  // namespace

// Checks that every title gets the verdict of one of the rules. A note with an accepted title is
// either saved under exactly that title or not saved.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static forms::headless::HeadlessLocale locale;
    static forms::headless::RecordedSystem system;
    forms::headless::MemoryFiles files;
    files.PutFolder(folder);
    forms::Machine().locale = &locale;
    forms::Machine().system = &system;
    forms::Machine().files = &files;

    const std::string title = base::ToValidUtf8(std::string(data, data + size));
    StandardCode::Reset();
    const TitleRules::Verdict verdict = TitleRules::Check(title, false);
    Check(verdict.rule >= 0 && verdict.rule <= 10);
    Check(verdict.HasMessage() == (verdict.rule != 0 && verdict.rule != 3));
    if (!verdict.IsAccepted()) {
        return 0;
    }
    Check(!StandardCode::Notes().IsTaken(title));
    Check(TitleRules::Check(title, true).rule == 11);
    if (Save(title)) {
        Check(files.Names(folder) == std::vector{title + ".txt"});
        Check(NoteStore::Read(NoteStore::FileNameFor(title)).record.Title == title);
        Check(StandardCode::Notes().IsTaken(title));
    } else {
        Check(files.Names(folder).empty());
    }
    StandardCode::Reset();
    Check(files.Names("C:\\Jotwright").empty() && files.Names("C:").empty());
    return 0;
}
