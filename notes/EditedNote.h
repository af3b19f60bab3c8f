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

// The note in one editor: its file, the contents of that file that the editor knows, and the
// recovery copy of an unsaved note. The store lists it among the open notes from Begin() to End().
class EditedNote {
  public:
    explicit EditedNote(NoteEditor& noteEditor) : editor(noteEditor) {}
    ~EditedNote();
    EditedNote(const EditedNote&) = delete;
    EditedNote& operator=(const EditedNote&) = delete;

    // Begins to edit a note that was read. A note without a file is new; its file is named after
    // its title when it is first saved.
    void Begin(const StoredNote& stored);
    // Leaves the list of open notes, and removes the recovery copy unless KeepForNextStart() has
    // kept it.
    void End();
    bool IsOpen() const { return store != nullptr; }

    NoteEditor& Editor() const { return editor; }
    const std::string& Title() const { return title; }
    // The name of the file, without its folder; empty for a note that was never saved.
    const std::string& File() const { return file; }
    // Whether the note has a file and the file's name has this key; see SafeFile::NameKey().
    bool IsOfFile(const std::string& key) const { return !file.empty() && fileKey == key; }

    // The record that the editor showed when everything was last saved.
    const StandardCode::NoteRecord& SavedRecord() const { return saved; }
    // Marks the note as saved, as the editor shows it now.
    void MarkSaved();
    // Accepts that the alarm has rung: the user need not save this change. audioAlarm is 1 or 0, as
    // in the record.
    void AcceptFiring(std::int16_t audioAlarm);
    // Whether the file has contents that this editor has neither read nor written.
    bool IsFileOther() const { return isFileOther; }
    // Whether everything that the editor shows is saved, so that closing it loses nothing.
    bool IsSaved() const;
    // Whether closing the editor must not write the file. The user must have changed nothing in
    // this editor, and one of two conditions must be true: another program has changed the file, so
    // the file is newer; or the program exits, and the file has no alarm that must be switched off.
    // Call this, Save() and SaveBeforeTheEnd() for an open note only.
    bool LeavesFileAlone(bool isExit) const;

    // Writes the file, unless it has these fields already. If the file has contents that this
    // editor has neither read nor written, they are put aside first. Raises RuntimeErrors.
    void Save();
    // Moves the file to the Recycle Bin; does nothing for a note that was never saved. Raises
    // RuntimeErrors.
    void Erase();
    // Saves the note. If that fails, keeps it for the next start.
    void SaveBeforeTheEnd();
    // Leaves the file as it is. If the note is not saved, it stays in a recovery copy, and the next
    // start restores it. Returns false if the note is neither in its file nor in the copy.
    bool KeepForNextStart();

    // Writes the recovery copy if the note is not saved, and removes the copy if it is. Does
    // nothing if the editor holds no note.
    void KeepCopy();
    void RemoveCopy();
    // Takes over a copy that an earlier run of the program left.
    void Adopt(const RecoveredNote& recovered);
    // Moves the note to the Recycle Bin as a recovery copy if it is not saved.
    void RecycleUnsaved();

    // Called by the store only. The file now has this fingerprint. Empty if the file is gone.
    void FileHolds(std::optional<std::uint64_t> newFingerprint);
    // Called by the store only, when the editor has read or written the file.
    void SawFile(const std::string& fileName, std::uint64_t seenFingerprint);
    std::optional<std::uint64_t> SeenFingerprint() const { return fingerprint; }

  private:
    NoteEditor& editor;
    std::shared_ptr<NoteStore> store;  // null: the editor holds no note
    std::string title;
    std::string file;
    std::string fileKey;
    std::optional<std::uint64_t> fingerprint;  // of the file when this editor last read or wrote it
    bool isFileOther = false;
    bool isFileGone = false;  // the file existed and is missing now
    StandardCode::NoteRecord saved;
    bool hasRung = false;  // the alarm has rung, and is still set in the file
    RecoveryCopy copy;
    bool keepsCopy = false;
};
