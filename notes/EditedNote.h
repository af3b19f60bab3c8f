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

// The note in one editor: its file, the fingerprint of the file when the editor last read or wrote
// it, and the recovery copy while the note is unsaved. The store lists the note among the open
// notes from Begin() to End().
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

    // The record that counts as saved: the last one that was saved, with the changes of
    // AcceptFiring().
    const StandardCode::NoteRecord& SavedRecord() const { return saved; }
    // Makes SavedRecord() the record that the editor shows now.
    void MarkSaved();
    // Call it when the alarm has rung, so that the alarm, which is off now, does not count as an
    // unsaved change. audioAlarm is the present value of the record's AudioAlarm.
    void AcceptFiring(std::int16_t audioAlarm);
    // Whether the file has contents that this editor has neither read nor written.
    bool IsFileOther() const { return isFileOther; }
    // Whether everything that the editor shows is saved, so that closing the editor loses nothing.
    bool IsSaved() const;
    // Whether closing the editor must leave the file unchanged. That is so if the user has changed
    // nothing in this editor, and either another program has changed the file, or the program exits
    // and the file has no alarm that must be switched off. Call this, Save() and SaveBeforeTheEnd()
    // for an open note only.
    bool LeavesFileAlone(bool isExit) const;

    // Writes the note to its file, unless the file has the same fields already. If the file has
    // contents that this editor has neither read nor written, they are put aside first. Raises
    // RuntimeErrors.
    void Save();
    // Moves the file to the Recycle Bin, or deletes it if there is no Recycle Bin. Does nothing for
    // a note that was never saved. Raises RuntimeErrors.
    void Erase();
    // Saves the note, unless LeavesFileAlone(true) returns true. If saving fails, calls
    // KeepForNextStart().
    void SaveBeforeTheEnd();
    // Does not write the file. If the note is not saved, keeps it in a recovery copy, which the
    // next start restores. Returns false if the note is neither in its file nor in the copy.
    bool KeepForNextStart();

    // Writes the recovery copy if the note is not saved, and removes the copy if it is. Does
    // nothing if the editor holds no note.
    void KeepCopy();
    void RemoveCopy();
    // Takes over a copy that an earlier run of the program left.
    void Adopt(const RecoveredNote& recovered);
    // If the note is not saved, writes a recovery copy and moves it to the Recycle Bin.
    void RecycleUnsaved();

    // Called by the store only. newFingerprint is that of the file now; empty if the file is gone.
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
