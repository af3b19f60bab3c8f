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

    // A note as it was read. Without a file it is a new note; its file is named after the title
    // when it is first saved.
    void Begin(const StoredNote& stored);
    // Leaves the list of open notes, and removes the recovery copy unless KeepForNextStart() has
    // kept it.
    void End();
    bool IsOpen() const { return store != nullptr; }

    NoteEditor& Editor() const { return editor; }
    const std::string& Title() const { return title; }
    // The name of the file, without its folder; empty for a note that was never saved.
    const std::string& File() const { return file; }

    // The record that the editor showed when there was last nothing to save.
    const StandardCode::NoteRecord& SavedRecord() const { return saved; }
    // Takes the note as the editor shows it now for saved.
    void MarkSaved();
    // An alarm that has rung is no change that the user has to save. The editor's audio alarm is 1
    // or 0, as in the record.
    void AcceptFiring(std::int16_t audioAlarm);
    // The file holds something that this editor has neither read nor written.
    bool IsFileOther() const { return isFileOther; }
    // The file was there and is missing now.
    bool IsFileGone() const { return isFileGone; }
    // Whether closing the editor would lose nothing that it shows.
    bool IsSaved() const;
    // Whether closing the editor must not write the file: the user has changed nothing here, and
    // either another program has changed the file, which is newer then, or the program exits and
    // no alarm has to be switched off in the file. For an open note only, as are Save() and
    // SaveBeforeTheEnd().
    bool LeavesFileAlone(bool isExit) const;

    // Writes the file, unless it has these fields already. Contents of the file that this editor
    // has neither read nor written are put aside first. Raises RuntimeErrors.
    void Save();
    // Moves the file to the Recycle Bin; does nothing for a note that was never saved. Raises
    // RuntimeErrors.
    void Erase();
    // Saves the note; if that fails, keeps it for the next start.
    void SaveBeforeTheEnd();
    // Leaves the file as it is. A note that is not saved stays in a recovery copy, from which the
    // next start brings it back. False if the note is neither in its file nor in the copy.
    bool KeepForNextStart();

    // If the note is not saved, writes its recovery copy; if it is, removes the copy. Does nothing
    // in an editor that holds no note.
    void KeepCopy(RecoveryCopy::When when);
    void RemoveCopy();
    // Takes over the copy that an earlier run of the program left.
    void Adopt(const RecoveredNote& recovered);
    // If the note is not saved, moves it to the Recycle Bin as a recovery copy.
    void RecycleUnsaved();

    // For the store only. The file now has this fingerprint; none if it is gone.
    void FileHolds(std::optional<std::uint64_t> newFingerprint);
    // For the store only. The editor has read or written the file.
    void SawFile(const std::string& fileName, std::uint64_t seenFingerprint);
    std::optional<std::uint64_t> SeenFingerprint() const { return fingerprint; }

  private:
    NoteEditor& editor;
    std::shared_ptr<NoteStore> store;  // null: holds no note
    std::string title;
    std::string file;
    std::optional<std::uint64_t> fingerprint;  // of the file as it was last read or written here
    bool isFileOther = false;
    bool isFileGone = false;
    StandardCode::NoteRecord saved;
    bool hasRung = false;  // the alarm has rung, and the file still has it set
    RecoveryCopy copy;
    bool keepsCopy = false;
};
