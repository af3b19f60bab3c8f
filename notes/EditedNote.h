#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>

#include "app/StandardCode.h"
#include "notes/RecoveryCopy.h"

class NoteEditor;
class NoteStore;
struct StoredNote;

// The note in one editor: the file that it is, the state of that file that the editor knows, and
// the recovery copy of what is not saved. From Begin() to End() the store has it in its list of
// open notes.
class EditedNote {
  public:
    explicit EditedNote(NoteEditor& noteEditor) : editor(noteEditor) {}
    ~EditedNote();
    EditedNote(const EditedNote&) = delete;
    EditedNote& operator=(const EditedNote&) = delete;

    // A new note. Its file is named after the title when it is first saved.
    void Begin(const std::string& newTitle);
    // A note as it was read. Without a file it is a new one.
    void Begin(const StoredNote& stored);
    // Leaves the list of open notes, and removes the recovery copy unless it is to outlive the
    // editor.
    void End();
    // The note as the editor shows it is not saved, and the user was not asked: it goes to the
    // Recycle Bin as a recovery copy.
    void Recycle(const StandardCode::NoteRecord& shown);
    bool IsOpen() const { return store != nullptr; }

    NoteEditor& Editor() const { return editor; }
    const std::string& Title() const { return title; }
    // The name of the file, without its folder; empty for a note that was never saved.
    const std::string& File() const { return file; }

    // The record that the editor shows if there is nothing to save. The editor sets it once it is
    // filled.
    const StandardCode::NoteRecord& SavedRecord() const { return saved; }
    void SetSavedRecord(const StandardCode::NoteRecord& record) { saved = record; }
    // The file holds something that this editor has neither read nor written.
    bool IsFileOther() const { return isFileOther; }
    // The file was there and is missing now.
    bool IsFileGone() const { return isFileGone; }

    // Writes the file, unless it says the same already. What the file holds beyond the knowledge of
    // this editor is put aside first. Raises RuntimeErrors.
    void Save(const StandardCode::NoteRecord& record);
    // Moves the file to the Recycle Bin; nothing for a note that was never saved. Raises
    // RuntimeErrors.
    void Erase();

    // Writes a recovery copy; at most every two seconds unless it is to be done at once.
    void KeepCopy(const StandardCode::NoteRecord& shown, RecoveryCopy::When when);
    void RemoveCopy();
    bool IsCopyWritten() const { return copy.IsWritten(); }
    // Takes over the copy that an earlier run of the program left.
    void Adopt(const RecoveredNote& recovered);
    // The copy stays when the editor ends.
    void KeepCopyBeyondTheEnd() { keepsCopy = true; }

    // For the store only. The file now has this fingerprint; none if it is gone.
    void FileHolds(std::optional<std::uint64_t> newFingerprint);
    // For the store only. The editor has read or written the file.
    void SawFile(const std::string& fileName, std::uint64_t seenFingerprint);
    std::optional<std::uint64_t> SeenFingerprint() const { return fingerprint; }

  private:
    void Register();

    NoteEditor& editor;
    std::shared_ptr<NoteStore> store;  // null: holds no note
    std::string title;
    std::string file;
    std::optional<std::uint64_t> fingerprint;  // of the file as it was last read or written here
    bool isFileOther = false;
    bool isFileGone = false;
    StandardCode::NoteRecord saved;
    RecoveryCopy copy;
    bool keepsCopy = false;
};
