#include "notes/NotesArray.h"

#include <map>
#include <utility>

#include "app/SafeFile.h"
#include "forms/Devices.h"
#include "forms/MsgBox.h"
#include "forms/RuntimeError.h"

namespace StandardCode {

namespace {

using Parsed = std::map<std::string, ParsedNote>;

bool IsSame(const ParsedNote& known, const forms::FileEntry& file) {
    return known.size == file.size && known.changed == file.changed;
}

// Two savings may fall into one tick of the file system's clock: what is remembered of this file is
// not trusted any more. Whatever letters the path writes its name with.
void Distrust(const std::string& path) {
    forms::Locale& locale = *forms::Machine().locale;
    const std::string name = locale.ToUpper(path.substr(path.find_last_of('\\') + 1));
    std::erase_if(Shared().ParsedNotes, [&](const auto& parsed) {
        return parsed.first.size() == name.size() && locale.ToUpper(parsed.first) == name;
    });
}

// Puts the note of one file into its slot, from the file only where that has changed, and remembers
// it.
void LoadSlot(int slot, const forms::FileEntry& file, Parsed& before, Parsed& parsed) {
    NoteRecord& record = Shared().NotesArray[slot];
    if (auto known = before.extract(file.name); known && IsSame(known.mapped(), file)) {
        record = known.mapped().record;
        parsed.insert(std::move(known));
        return;
    }
    record = NoteRecord{};
    NoteFile::Decode(forms::Machine().files->Read(NotesFolder() + '\\' + file.name), record);
    parsed[file.name] = {file.size, file.changed, record};
}

// The slot behind the last note; all from there on are empty, whatever ends the loading.
class NextSlot {
  public:
    ~NextSlot() {
        for (int rest = number; rest <= maximumNotes; ++rest) {
            Shared().NotesArray[rest] = NoteRecord{};
        }
    }
    int number = 1;
};

// Whether all listed notes could be loaded: a damaged one ends the loading.
bool LoadSlots(NextSlot& slot) {
    Parsed before = std::exchange(Shared().ParsedNotes, {});
    for (const forms::FileEntry& file : Shared().NotesListing) {
        try {
            LoadSlot(slot.number, file, before, Shared().ParsedNotes);
        } catch (const forms::RuntimeError& error) {
            if (!(error == forms::ErrorNumber::InputPastEndOfFile)) {
                // What could be read of it stays: its title is taken.
                ++slot.number;
                throw;
            }
            forms::Machine().files->Recycle(NotesFolder() + '\\' + file.name);
            return false;
        }
        ++slot.number;
    }
    return true;
}

}  // namespace

std::string NotesFolder() { return forms::ApplicationPath("\\Notes"); }

std::string NotePath(const std::string& title) { return NotesFolder() + '\\' + title + ".txt"; }

void EnsureNotesFolder() {
    if (!forms::Machine().files->FolderExists(NotesFolder())) {
        forms::Machine().files->MakeFolder(NotesFolder());
    }
}

bool LoadNotesArray() try {
    bool isComplete = false;
    {
        NextSlot slot;
        Shared().NotesListing.clear();
        Shared().NotesListing = forms::Machine().files->List(NotesFolder(), ".txt");
        isComplete = LoadSlots(slot);
        Shared().NoteCount = static_cast<std::int16_t>(slot.number - 1);
    }
    Events().NotesArrayLoaded.Raise();
    return isComplete;
} catch (const forms::RuntimeError& error) {
    forms::MsgBox("Error Number: " + std::to_string(error.number()) + ") - " + error.description(),
                  {}, "Error Loading Notes Array");
    return false;
}

NoteRecord ReadListedNote(const forms::FileEntry& file) {
    const auto known = Shared().ParsedNotes.find(file.name);
    return known != Shared().ParsedNotes.end() && IsSame(known->second, file)
               ? known->second.record
               : NoteFile::Read(NotesFolder() + '\\' + file.name);
}

void SaveNoteFile(const std::string& path, const NoteRecord& record,
                  NoteFile::TimeField timeField) {
    try {
        if (SafeFile::ReplaceFile(path, NoteFile::Encode(record, timeField))) {
            Distrust(path);
        }
    } catch (const forms::RuntimeError&) {
        Distrust(path);
        throw;
    }
}

bool ReportWriteErrors(const std::function<void()>& saving) {
    try {
        saving();
        return true;
    } catch (const forms::RuntimeError& error) {
        if (!(error == forms::ErrorNumber::KeyNotUnique)) {
            forms::MsgBox(std::to_string(error.number()) + " - " + error.description(), {},
                          "WriteNote Sub Error");
        }
        return false;
    }
}

}  // namespace StandardCode
