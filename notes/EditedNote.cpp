#include "notes/EditedNote.h"

#include <algorithm>

#include "app/SafeFile.h"
#include "base/RuntimeError.h"
#include "notes/NoteEditor.h"
#include "notes/NoteStore.h"

EditedNote::~EditedNote() {
    if (store) {
        store->Remove(*this);
    }
}

void EditedNote::Begin(const StoredNote& stored) {
    title = stored.record.Title;
    if (!stored.file.empty()) {
        SawFile(stored.file, stored.fingerprint);
    }
    store = StandardCode::SharedNotes();
    store->Add(*this);
}

void EditedNote::End() {
    if (store) {
        store->Remove(*this);
        store.reset();
    }
    if (!keepsCopy) {
        copy.Remove();
    }
}

void EditedNote::MarkSaved() { saved = editor.Record(); }

void EditedNote::AcceptFiring(std::int16_t audioAlarm) {
    hasRung = true;
    saved.AlarmState = "0";
    saved.AudioAlarm = std::min(saved.AudioAlarm, audioAlarm);
}

bool EditedNote::IsSaved() const {
    if (isFileGone) {
        const StandardCode::NoteRecord shown = editor.Record();
        return shown.Text.empty() && shown.AlarmState == "0";
    }
    return !isFileOther && editor.Shows(saved);
}

bool EditedNote::LeavesFileAlone(bool isExit) const {
    if (!NoteStore::Exists(file) || !editor.Shows(saved)) {
        return false;
    }
    if (isExit && !hasRung) {
        return true;
    }
    const auto held = NoteStore::FingerprintOf(file);
    // If the file cannot be read but its alarm must be switched off, let Save() report the error.
    return held == NoteStore::unknownContents ? !hasRung : held != fingerprint;
}

void EditedNote::Save() {
    const StandardCode::NoteRecord record = editor.Record();
    store->Save(*this, record);
    saved = record;
    hasRung = false;
    RemoveCopy();
}

void EditedNote::Erase() {
    if (!file.empty()) {
        store->Erase(file);
    }
}

void EditedNote::SaveBeforeTheEnd() {
    try {
        if (!LeavesFileAlone(true)) {
            Save();
        }
    } catch (const base::RuntimeError&) {
        KeepForNextStart();
    }
}

bool EditedNote::KeepForNextStart() {
    KeepCopy();
    keepsCopy = true;
    return IsSaved() || copy.IsWritten();
}

void EditedNote::KeepCopy() {
    if (!IsOpen()) {
        return;
    }
    if (IsSaved()) {
        RemoveCopy();
        return;
    }
    RecoveredNote state;
    state.file = file;
    // Do not wait here: writing a recovery copy must not block the window because another program
    // holds the file.
    state.base =
        file.empty() ? NoteStore::FingerprintOf(NoteStore::FileNameFor(title), false) : fingerprint;
    state.record = editor.Record();
    copy.Keep(state);
    keepsCopy = false;
}

void EditedNote::RemoveCopy() {
    copy.Remove();
    keepsCopy = false;
}

void EditedNote::Adopt(const RecoveredNote& recovered) { copy.Adopt(recovered); }

void EditedNote::RecycleUnsaved() {
    if (!IsSaved()) {
        KeepCopy();
        copy.Recycle();
    }
}

void EditedNote::FileHolds(std::optional<std::uint64_t> newFingerprint) {
    isFileGone = !newFingerprint.has_value();
    isFileOther = !isFileGone &&
                  (newFingerprint == NoteStore::unknownContents || newFingerprint != fingerprint);
}

void EditedNote::SawFile(const std::string& fileName, std::uint64_t seenFingerprint) {
    file = fileName;
    fileKey = SafeFile::NameKey(fileName);
    fingerprint = seenFingerprint;
    isFileOther = false;
    isFileGone = false;
}
