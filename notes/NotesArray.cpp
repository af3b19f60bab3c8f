#include "notes/NotesArray.h"

#include "app/SafeFile.h"
#include "forms/Devices.h"
#include "forms/MsgBox.h"
#include "forms/RuntimeError.h"

namespace StandardCode {

namespace {

std::string CacheKey(const std::string& fileName) {
    return forms::Machine().locale->ToUpper(fileName);
}

// What the last rebuild read in this file; null where the file has changed since.
const NoteRecord* Remembered(const forms::FileEntry& file) {
    const auto known = Shared().ParsedNotes.find(CacheKey(file.name));
    return known != Shared().ParsedNotes.end() && known->second.size == file.size &&
                   known->second.changed == file.changed
               ? &known->second.record
               : nullptr;
}

// Puts the note of one file into its slot, from the file only where that has changed.
void LoadSlot(int slot, const forms::FileEntry& file, std::map<std::string, ParsedNote>& parsed) {
    NoteRecord& record = Shared().NotesArray[slot];
    if (const NoteRecord* known = Remembered(file)) {
        record = *known;
    } else {
        NoteFile::Decode(forms::Machine().files->Read(NotesFolder() + '\\' + file.name), record);
    }
    parsed[CacheKey(file.name)] = {file.size, file.changed, record};
}

}  // namespace

std::string NotesFolder() { return forms::ApplicationPath("\\Notes"); }

std::string NotePath(const std::string& title) { return NotesFolder() + '\\' + title + ".txt"; }

void EnsureNotesFolder() {
    if (!forms::Machine().files->FolderExists(NotesFolder())) {
        forms::Machine().files->MakeFolder(NotesFolder());
    }
}

void LoadNotesArray() try {
    Shared().NotesArray = NotesTable{};
    std::map<std::string, ParsedNote> parsed;
    int slot = 1;
    for (const forms::FileEntry& file : forms::Machine().files->List(NotesFolder(), ".txt")) {
        try {
            LoadSlot(slot, file, parsed);
        } catch (const forms::RuntimeError& error) {
            if (!(error == forms::ErrorNumber::InputPastEndOfFile)) {
                throw;
            }
            Shared().NotesArray[slot] = NoteRecord{};
            forms::Machine().files->Recycle(NotesFolder() + '\\' + file.name);
            break;
        }
        ++slot;
    }
    Shared().ParsedNotes = std::move(parsed);
    Shared().NoteCount = static_cast<std::int16_t>(slot - 1);
    Events().NotesArrayLoaded.Raise();
} catch (const forms::RuntimeError& error) {
    forms::MsgBox("Error Number: " + std::to_string(error.number()) + ") - " + error.description(),
                  {}, "Error Loading Notes Array");
}

NoteRecord ReadListedNote(const forms::FileEntry& file) {
    const NoteRecord* known = Remembered(file);
    return known != nullptr ? *known : NoteFile::Read(NotesFolder() + '\\' + file.name);
}

void SaveNoteFile(const std::string& path, const NoteRecord& record,
                  NoteFile::TimeField timeField) {
    // Two savings may fall into one tick of the file system's clock: what is remembered of this
    // file is not trusted any more.
    Shared().ParsedNotes.erase(CacheKey(path.substr(path.find_last_of('\\') + 1)));
    SafeFile::ReplaceFile(path, NoteFile::Encode(record, timeField));
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
