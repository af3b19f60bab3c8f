#include "notes/EditedNote.h"

#include "notes/NoteStore.h"

EditedNote::~EditedNote() {
    if (store) {
        store->Remove(*this);
    }
}

void EditedNote::Begin(const std::string& newTitle) {
    title = newTitle;
    Register();
}

void EditedNote::Begin(const StoredNote& stored) {
    title = stored.record.Title;
    if (!stored.file.empty()) {
        SawFile(stored.file, stored.fingerprint);
    }
    Register();
}

void EditedNote::Register() {
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

void EditedNote::Recycle(const StandardCode::NoteRecord& shown) {
    KeepCopy(shown, RecoveryCopy::When::Now);
    copy.Recycle();
}

void EditedNote::Save(const StandardCode::NoteRecord& record) {
    store->Save(*this, record);
    saved = record;
    RemoveCopy();
}

void EditedNote::Erase() {
    if (!file.empty()) {
        store->Erase(file);
    }
}

void EditedNote::KeepCopy(const StandardCode::NoteRecord& shown, RecoveryCopy::When when) {
    if (!copy.IsDue(when)) {
        return;
    }
    RecoveredNote state;
    state.file = file;
    // A copy must not keep the window waiting.
    state.base =
        file.empty() ? NoteStore::FingerprintOf(NoteStore::FileNameFor(title), false) : fingerprint;
    state.record = shown;
    copy.Keep(state);
    keepsCopy = false;
}

void EditedNote::RemoveCopy() {
    copy.Remove();
    keepsCopy = false;
}

void EditedNote::Adopt(const RecoveredNote& recovered) { copy.Adopt(recovered); }

void EditedNote::FileHolds(std::optional<std::uint64_t> newFingerprint) {
    isFileGone = !newFingerprint.has_value();
    isFileOther = !isFileGone &&
                  (newFingerprint == NoteStore::unknownContents || newFingerprint != fingerprint);
}

void EditedNote::SawFile(const std::string& fileName, std::uint64_t seenFingerprint) {
    file = fileName;
    fingerprint = seenFingerprint;
    isFileOther = false;
    isFileGone = false;
}
