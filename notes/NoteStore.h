#pragma once

#include <cstdint>
#include <functional>
#include <limits>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "app/StandardCode.h"
#include "base/RuntimeError.h"
#include "forms/Devices.h"
#include "notes/Listing.h"
#include "notes/LoadReports.h"
#include "notes/NoteFile.h"
#include "notes/NotesFolder.h"

class EditedNote;

// A note as it was read from its file.
struct StoredNote {
    std::string file;  // name without folder; empty if there is no file
    StandardCode::NoteRecord record;
    std::uint64_t fingerprint = 0;  // of the file's bytes
};

// The note files and the open notes. Only this class lists, reads, writes and erases note files.
// Each file is one note: two files with the same title are two notes. Names of files are compared
// by the rules of the file system.
//
// If another program holds a file, the store retries for a short time; see Patience. RuntimeErrors
// are those of forms::FileSystem and NoteFile::Decode().
class NoteStore {
  public:
    // While an object of this class exists, Load() shows no errors, and the control panel is not
    // reloaded.
    class Quiet {
      public:
        explicit Quiet(NoteStore& noteStore) : store(noteStore) { ++store.quiet; }
        ~Quiet() { --store.quiet; }
        Quiet(const Quiet&) = delete;
        Quiet& operator=(const Quiet&) = delete;

      private:
        NoteStore& store;
    };

    bool IsQuiet() const { return quiet > 0; }

    static std::string FileNameFor(const std::string& title) { return title + ".txt"; }

    // Rebuilds NotesArray and NoteCount from the note files, then raises NotesArrayLoaded. Tells
    // every open note if its file has changed, even if the file is in no slot. Returns true if
    // every listed note was loaded or every slot is filled; then a second call would change
    // nothing.
    //
    // A file with too few fields is read again after a moment, because another program may be
    // writing it. If it still has too few fields, the file is put aside (see SafeFile::PutAside()),
    // and the files after it are not loaded. If there are more files than slots, all slots are
    // filled and counted. Any other error leaves NoteCount unchanged.
    //
    // If a file or the folder was out of reach, LoadAgainIfDue() tries again.
    //
    // Errors are shown in a box, and timers tick while it is open. Each error is shown once until
    // the folder changes. The error that there are more files than slots is shown once for each
    // action of the user.
    bool Load();
    // If Load() met an error that may pass, for example because a network was out of reach, calls
    // it again half a minute later, without a message. Otherwise the alarms of the notes that were
    // not loaded would never ring. Call it once a second.
    void LoadAgainIfDue();

    // The listing from which the last Load() rebuilt the array.
    const std::vector<forms::FileEntry>& ListedFiles() const { return listing.Files(); }
    // The note files that exist now, in the order of the folder's listing.
    static std::vector<forms::FileEntry> List();
    // The note in a listed file. Does not read the file again if it has not changed since it was
    // last read.
    StoredNote Read(const forms::FileEntry& file);
    static StoredNote Read(const std::string& file);
    // The note in this slot of NotesArray. RuntimeError 9 for a slot outside 1 to 100.
    StoredNote OfSlot(int slot) const;
    static bool Exists(const std::string& file);
    // The fingerprint of a file that cannot be read. Two files with this fingerprint may differ.
    static constexpr std::uint64_t unknownContents = 0;
    // The fingerprint of a file: empty if there is no such file, unknownContents if it cannot be
    // read. If isPatient is true and another program holds the file, retries; see Patience.
    static std::optional<std::uint64_t> FingerprintOf(const std::string& file,
                                                      bool isPatient = true);
    // Whether a note with exactly this title is in NotesArray, or in a file that was not loaded.
    bool IsTaken(const std::string& title) const;

    // Writes the file of an open note, unless the file has these fields already. If the editor has
    // neither read nor written the file's contents, they go to the Recycle Bin first, or to a file
    // whose name ends with ".replaced".
    void Save(EditedNote& note, const StandardCode::NoteRecord& record);
    // Replaces the whole file or leaves it unchanged. If known is given and the file has another
    // fingerprint, the file's contents are put aside as in Save().
    void Write(const std::string& file, const StandardCode::NoteRecord& record,
               NoteFile::TimeField timeField = NoteFile::TimeField::Time,
               std::optional<std::uint64_t> known = std::nullopt);
    // Moves a file to the Recycle Bin. If there is no Recycle Bin, deletes the file. RuntimeError
    // 53 if the file is missing.
    void Erase(const std::string& file);

    // The open notes, in the order in which they were opened.
    const std::vector<EditedNote*>& OpenNotes() const { return open; }
    // The open note of this file. If the file is open in several editors, returns the first note
    // whose editor has read or written the file's present contents, or else the first note. Null if
    // the file is not open.
    EditedNote* FindOpen(const std::string& file) const;

    // For EditedNote only.
    void Add(EditedNote& note) { open.push_back(&note); }
    void Remove(EditedNote& note) { std::erase(open, &note); }

  private:
    // No file has this size.
    static constexpr std::uint64_t ofNoFile = std::numeric_limits<std::uint64_t>::max();

    // The state of a file when it was last read.
    struct Seen {
        std::uint64_t size = ofNoFile;
        std::int64_t changed = 0;
        std::uint64_t fingerprint = 0;
        int slot = 0;  // 0: none

        bool IsOf(const forms::FileEntry& file) const {
            return size == file.size && changed == file.changed;
        }
    };

    struct SeenRecord : Seen {
        std::optional<StandardCode::NoteRecord> record;  // empty: the file was not decoded
    };

    // The notes of the previous Load(). Usually no file has changed, so the records stay in their
    // slots until a file is found that belongs in another slot.
    struct Earlier {
        std::map<std::string, Seen> slotted;
        std::unique_ptr<StandardCode::NotesTable> moved;  // null: no record was moved

        // Moves the records of this slot and of all later slots from NotesArray to moved. Does
        // nothing if records have been moved before.
        void MoveFrom(int slot);
    };

    // Returns whether all listed notes were loaded. Raises the error that ended the loading.
    bool LoadSlots(int& slot);
    void LoadSlot(int slot, const forms::FileEntry& file, Earlier& before);
    void TellOpenNotes();
    // The fingerprint of a listed file that is in no slot. Reads the file only if its size or its
    // time of change has changed since the last reading, or if that reading failed.
    std::uint64_t FingerprintOfUnslotted(const forms::FileEntry& file);
    void Tell(const std::string& file, std::optional<std::uint64_t> fingerprint,
              const EditedNote* except = nullptr);
    void Forget(const std::string& file);

    Listing listing;
    // By file name, as listed. If the store has written a file since the last Load(), the entry has
    // the size ofNoFile.
    std::map<std::string, Seen> slotted;
    std::map<std::string, SeenRecord> unslotted;  // files in no slot, and their records
    std::size_t loaded = 0;                       // number of listed files in slots, from slot 1 on
    LoadReports reports;
    std::vector<EditedNote*> open;
    int quiet = 0;
    std::optional<std::int64_t> loadAgainAt;  // monotonic milliseconds; empty: not needed
};

namespace StandardCode {

// The program's store.
NoteStore& Notes();
std::shared_ptr<NoteStore> SharedNotes();

// See NoteStore::Load().
bool LoadNotesArray();
// Titles of the open notes, in the order in which they were opened.
std::vector<std::string> NoteTitles();

// Runs an operation that saves a note. Shows an error that ends it, except error 457. Returns true
// if there was no error.
bool ReportWriteErrors(const std::function<void()>& saving);

}  // namespace StandardCode
