#include "notes/NoteStore.h"

#include <algorithm>
#include <utility>

#include "app/Patience.h"
#include "app/RecordText.h"
#include "app/SafeFile.h"
#include "forms/MsgBox.h"
#include "forms/Services.h"
#include "notes/EditedNote.h"

using StandardCode::NoteRecord;
using StandardCode::Shared;

namespace {

constexpr const char* noteSuffix = ".txt";
// In milliseconds.
constexpr int pauseBeforeSecondLook = 200;
constexpr std::int64_t pauseBeforeNextLoad = 30'000;

forms::FileSystem& Files() { return *forms::Machine().files; }

std::string PathOf(const std::string& file) { return StandardCode::NotesFolder() + '\\' + file; }

// Whether a file with these bytes holds the same note as the record.
bool SaysTheSame(const std::string& bytes, const NoteRecord& record) {
    NoteRecord held;
    try {
        NoteFile::Decode(bytes, held);
    } catch (const base::RuntimeError&) {
        return false;
    }
    held.Text = RecordText::WithLineBreaks(held.Text);
    return held == record;
}

// Whether the error may be temporary: a missing file or folder, a device error, permission denied.
bool MayPass(const base::RuntimeError& error) {
    return error == base::ErrorNumber::FileNotFound || error == base::ErrorNumber::PathNotFound ||
           error == base::ErrorNumber::DeviceIoError ||
           error == base::ErrorNumber::PermissionDenied;
}

// Reads a file again, after a pause, because another program may have been writing it.
std::string ReadLater(const std::string& path) {
    forms::Machine().system->Pause(pauseBeforeSecondLook);
    return Files().Read(path);
}

}  // namespace

std::vector<forms::FileEntry> NoteStore::List() {
    return Patience::Try([] { return Files().List(StandardCode::NotesFolder(), noteSuffix); });
}

bool NoteStore::Load() {
    int slot = 1;
    bool isComplete = false;
    std::optional<base::RuntimeError> failure;
    try {
        isComplete = LoadSlots(slot);
    } catch (const base::RuntimeError& error) {
        failure = error;
    }
    for (int rest = slot; rest <= StandardCode::maximumNotes; ++rest) {
        Shared().NotesArray[rest] = NoteRecord{};
    }
    TellOpenNotes();
    loadAgainAt.reset();
    if (failure && MayPass(*failure)) {
        loadAgainAt = forms::Machine().clock->MonotonicMilliseconds() + pauseBeforeNextLoad;
    }
    const bool isFull = failure && *failure == base::ErrorNumber::SubscriptOutOfRange;
    if (!failure || isFull) {
        Shared().NoteCount = static_cast<std::int16_t>(slot - 1);
        StandardCode::Signals().NotesArrayLoaded.Raise();
    }
    if (failure && !IsQuiet()) {
        const std::vector<forms::FileEntry>& files = listing.Files();
        reports.Show(*failure, files, loaded < files.size() ? files[loaded].name : std::string());
    }
    return isComplete || isFull;
}

void NoteStore::LoadAgainIfDue() {
    if (loadAgainAt && forms::Machine().clock->MonotonicMilliseconds() >= *loadAgainAt) {
        const Quiet withoutMessage(*this);
        Load();
    }
}

bool NoteStore::LoadSlots(int& slot) {
    listing = Listing();
    loaded = 0;
    Earlier before{std::exchange(slotted, {}), nullptr};
    listing = Listing(List());
    for (const forms::FileEntry& file : listing.Files()) {
        if (slot > StandardCode::maximumNotes) {
            throw base::RuntimeError(base::ErrorNumber::SubscriptOutOfRange);
        }
        try {
            LoadSlot(slot, file, before);
        } catch (const base::RuntimeError& error) {
            if (!(error == base::ErrorNumber::InputPastEndOfFile)) {
                // Keep the fields that could be read, so that IsTaken() finds the title.
                ++slot;
                throw;
            }
            SafeFile::PutAside(PathOf(file.name), ".damaged");
            Tell(file.name, std::nullopt);
            return false;
        }
        ++loaded;
        ++slot;
    }
    return true;
}

void NoteStore::Earlier::MoveFrom(int slot) {
    if (moved) {
        return;
    }
    moved = std::make_unique<StandardCode::NotesTable>();
    for (; slot <= StandardCode::maximumNotes; ++slot) {
        (*moved)[slot] = std::exchange(Shared().NotesArray[slot], {});
    }
}

void NoteStore::LoadSlot(int slot, const forms::FileEntry& file, Earlier& before) {
    NoteRecord& record = Shared().NotesArray[slot];
    auto known = before.slotted.extract(file.name);
    if (!known || known.mapped().slot != slot) {
        before.MoveFrom(slot);
    }
    if (known && known.mapped().IsOf(file)) {
        if (before.moved) {
            record = std::move((*before.moved)[std::exchange(known.mapped().slot, slot)]);
        }
        // Insert at the end: folders are usually listed in the order of names.
        slotted.insert(slotted.end(), std::move(known));
        return;
    }
    record = NoteRecord{};
    const std::string path = PathOf(file.name);
    // If an error of this file has been shown and the folder has not changed since, do not wait for
    // the file again.
    const bool isKnownToFail = reports.HasShown(file.name);
    std::string bytes =
        isKnownToFail ? Files().Read(path) : Patience::Try([&] { return Files().Read(path); });
    try {
        NoteFile::Decode(bytes, record);
    } catch (const base::RuntimeError& error) {
        if (isKnownToFail || !(error == base::ErrorNumber::InputPastEndOfFile)) {
            throw;
        }
        bytes = ReadLater(path);
        record = NoteRecord{};
        NoteFile::Decode(bytes, record);
    }
    slotted[file.name] = {file.size, file.changed, NoteFile::Fingerprint(bytes), slot};
}

StoredNote NoteStore::Read(const forms::FileEntry& file) {
    const auto known = slotted.find(file.name);
    if (known != slotted.end() && known->second.IsOf(file)) {
        const Seen& seen = known->second;
        return {file.name, Shared().NotesArray[seen.slot], seen.fingerprint};
    }
    SeenRecord& seen = unslotted[file.name];
    if (seen.record && seen.IsOf(file)) {
        return {file.name, *seen.record, seen.fingerprint};
    }
    StoredNote note = Read(file.name);
    seen = {{file.size, file.changed, note.fingerprint}, note.record};
    return note;
}

StoredNote NoteStore::Read(const std::string& file) {
    const std::string bytes = Patience::Try([&] { return Files().Read(PathOf(file)); });
    StoredNote note{Files().NameOnDisk(PathOf(file)), {}, NoteFile::Fingerprint(bytes)};
    NoteFile::Decode(bytes, note.record);
    return note;
}

StoredNote NoteStore::OfSlot(int slot) const {
    StoredNote note{{}, Shared().NotesArray[slot], {}};
    const auto place = static_cast<std::size_t>(slot - 1);
    if (place < loaded) {
        note.file = listing.Files()[place].name;
        // If the store wrote the file after the last Load(), the slot does not hold its contents,
        // and the fingerprint is unknownContents.
        const auto known = slotted.find(note.file);
        note.fingerprint = known == slotted.end() ? 0 : known->second.fingerprint;
    }
    return note;
}

bool NoteStore::Exists(const std::string& file) {
    return !file.empty() && Files().FileExists(PathOf(file));
}

std::optional<std::uint64_t> NoteStore::FingerprintOf(const std::string& file, bool isPatient) {
    if (!Exists(file)) {
        return std::nullopt;
    }
    const auto read = [&] { return NoteFile::Fingerprint(Files().Read(PathOf(file))); };
    try {
        return isPatient ? Patience::Try(read) : read();
    } catch (const base::RuntimeError&) {
        // The file may have been removed in the meantime.
        return Exists(file) ? std::optional(unknownContents) : std::nullopt;
    }
}

bool NoteStore::IsTaken(const std::string& title) const {
    for (int slot = 1; slot <= StandardCode::maximumNotes; ++slot) {
        if (Shared().NotesArray[slot].Title == title) {
            return true;
        }
    }
    const std::string file = FileNameFor(title);
    if (!Exists(file)) {
        return false;
    }
    const std::string onDisk = Files().NameOnDisk(PathOf(file));
    const auto first = listing.Files().begin();
    const auto loadedEnd = first + static_cast<std::ptrdiff_t>(loaded);
    // The letter case of the title must match, but that of the extension need not.
    return onDisk.size() == file.size() && onDisk.starts_with(title) &&
           std::none_of(first, loadedEnd,
                        [&](const forms::FileEntry& entry) { return entry.name == onDisk; });
}

void NoteStore::Save(EditedNote& note, const NoteRecord& record) {
    StandardCode::EnsureNotesFolder();
    std::string file = note.File().empty() ? FileNameFor(record.Title) : note.File();
    const bool exists = Exists(file);
    if (exists) {
        file = Files().NameOnDisk(PathOf(file));
    }
    const std::string path = PathOf(file);
    std::optional<std::uint64_t> held;
    try {
        if (exists) {
            const std::string bytes = Patience::Try([&] { return Files().Read(path); });
            held = NoteFile::Fingerprint(bytes);
            if (SaysTheSame(bytes, record)) {
                note.SawFile(file, *held);
                return;
            }
        }
    } catch (const base::RuntimeError&) {
        // If the file cannot be read, it is put aside below, which reports the error.
    }
    const std::string bytes = NoteFile::Encode(record);
    const bool isForeign = exists && (!held || held != note.SeenFingerprint());
    Forget(file);
    SafeFile::ReplaceFile(path, bytes, {.isKnownToDiffer = true, .isForeign = isForeign});
    const std::uint64_t fingerprint = NoteFile::Fingerprint(bytes);
    note.SawFile(Files().NameOnDisk(path), fingerprint);
    Tell(note.File(), fingerprint, &note);
}

void NoteStore::Write(const std::string& file, const NoteRecord& record,
                      NoteFile::TimeField timeField, std::optional<std::uint64_t> known) {
    const std::string bytes = NoteFile::Encode(record, timeField);
    const std::string path = PathOf(file);
    const auto held = known ? FingerprintOf(file) : std::nullopt;
    const bool isForeign = held && (held == unknownContents || held != known);
    try {
        if (SafeFile::ReplaceFile(path, bytes, {.isForeign = isForeign})) {
            Forget(file);
        }
    } catch (const base::RuntimeError&) {
        Forget(file);
        throw;
    }
    Tell(file, NoteFile::Fingerprint(bytes));
}

void NoteStore::Erase(const std::string& file) {
    const std::string path = PathOf(file);
    if (!Patience::Try([&] { return Files().Recycle(path); })) {
        Patience::Try([&] { Files().Delete(path); });
    }
    Tell(file, std::nullopt);
}

EditedNote* NoteStore::FindOpen(const std::string& file) const {
    EditedNote* other = nullptr;
    const std::string key = SafeFile::NameKey(file);
    for (EditedNote* note : open) {
        if (!note->IsOfFile(key)) {
            continue;
        }
        if (!note->IsFileOther()) {
            return note;
        }
        other = other == nullptr ? note : other;
    }
    return other;
}

// Called after loading: other programs may have changed, erased or renamed the files of open notes.
void NoteStore::TellOpenNotes() {
    std::erase_if(unslotted, [this](const auto& entry) {
        return slotted.contains(entry.first) || listing.Find(entry.first) == nullptr;
    });
    for (EditedNote* note : open) {
        if (note->File().empty()) {
            continue;
        }
        if (const auto known = slotted.find(note->File()); known != slotted.end()) {
            note->FileHolds(known->second.fingerprint);
            continue;
        }
        if (const forms::FileEntry* file = listing.Find(note->File())) {
            note->FileHolds(FingerprintOfUnslotted(*file));
        } else if (!Exists(note->File())) {
            note->FileHolds(std::nullopt);
        }
    }
}

std::uint64_t NoteStore::FingerprintOfUnslotted(const forms::FileEntry& file) {
    SeenRecord& seen = unslotted[file.name];
    const bool isUnchanged = seen.IsOf(file);
    if (!isUnchanged || seen.fingerprint == unknownContents) {
        // If the file could not be read before and has not changed, do not wait for it again.
        const auto fingerprint = FingerprintOf(file.name, !isUnchanged);
        seen = {{file.size, file.changed, fingerprint.value_or(unknownContents)}, {}};
    }
    return seen.fingerprint;
}

void NoteStore::Tell(const std::string& file, std::optional<std::uint64_t> fingerprint,
                     const EditedNote* except) {
    const std::string key = SafeFile::NameKey(file);
    for (EditedNote* note : open) {
        if (note != except && note->IsOfFile(key)) {
            note->FileHolds(fingerprint);
        }
    }
}

// Two saves can have the same time of change, because the file system's clock is coarse. So the
// size and the time of a file that was just written do not show whether it has changed.
void NoteStore::Forget(const std::string& file) {
    const std::string key = SafeFile::NameKey(file);
    const auto forget = [&](auto& seen) {
        auto found = seen.find(file);
        if (found == seen.end()) {
            found = std::find_if(seen.begin(), seen.end(), [&](const auto& entry) {
                return entry.first.size() == file.size() && SafeFile::NameKey(entry.first) == key;
            });
        }
        if (found != seen.end()) {
            found->second.size = ofNoFile;
            found->second.fingerprint = unknownContents;
        }
    };
    forget(slotted);
    forget(unslotted);
}

namespace StandardCode {

std::shared_ptr<NoteStore> SharedNotes() {
    if (!Shared().Store) {
        Shared().Store = std::make_shared<NoteStore>();
    }
    return Shared().Store;
}

NoteStore& Notes() { return *SharedNotes(); }

bool LoadNotesArray() { return Notes().Load(); }

std::vector<std::string> NoteTitles() {
    std::vector<std::string> titles;
    for (const EditedNote* note : Notes().OpenNotes()) {
        titles.push_back(note->Title());
    }
    return titles;
}

bool ReportWriteErrors(const std::function<void()>& saving) {
    try {
        saving();
        return true;
    } catch (const base::RuntimeError& error) {
        if (!(error == base::ErrorNumber::KeyNotUnique)) {
            forms::MsgBox(std::to_string(error.number()) + " - " + error.description(), {},
                          "WriteNote Sub Error");
        }
        return false;
    }
}

}  // namespace StandardCode
