#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "base/DateTime.h"
#include "base/Numbers.h"

// Interfaces to the operating system, one for each device. forms/win32/devices implements them for
// Windows, forms/headless for tests. They are called on the user-interface thread only. All text is
// UTF-8; all paths are full paths with backslashes.
namespace forms {

class Form;

class Clock {
  public:
    virtual ~Clock() = default;
    // The wall clock: the local date and time of day, in whole seconds.
    virtual base::DateTime Now() = 0;
    // Milliseconds into the current second of the wall clock, 0 to 999.
    virtual int MillisecondOfSecond() = 0;
    // Milliseconds since a fixed moment. The value never decreases, even if the wall clock is set
    // back.
    virtual std::int64_t MonotonicMilliseconds() = 0;
};

struct FileEntry {
    std::string name;  // without folder
    std::uint64_t size = 0;
    std::int64_t changed = 0;  // time of last change in the file system's own units

    bool operator==(const FileEntry&) const = default;
};

// A file that this program has locked against all others. Destroying the lock removes the file.
class FileLock {
  public:
    virtual ~FileLock() = default;
};

// Flushed: the call returns only after the bytes are on the medium. Cached: it may return earlier.
// Cached bytes survive the end of the program, but may be lost if the machine fails.
enum class Durability { Flushed, Cached };

struct WriteOptions {
    bool mustBeNew = false;  // RuntimeError 58 if the file exists
    Durability durability = Durability::Flushed;
};

// Failures are RuntimeErrors: 52 bad name, 53 no such file, 58 file exists already, 61 disk full,
// 70 permission denied or sharing violation, 75 path/file access error (read-only, or a folder
// instead of a file), 76 no such path, 57 any other error that the device reports.
class FileSystem {
  public:
    virtual ~FileSystem() = default;
    virtual bool FolderExists(const std::string& path) = 0;
    virtual bool FileExists(const std::string& path) = 0;
    virtual void MakeFolder(const std::string& path) = 0;
    // Lists the files in a folder, but not its subfolders, in the order in which the file system
    // gives them. Only files whose names end in suffix (in upper or lower case) are listed. The
    // list is empty if the folder does not exist. Fails, for example with 76, if the folder above
    // it does not exist either or cannot be reached.
    virtual std::vector<FileEntry> List(const std::string& folder, const std::string& suffix) = 0;
    // The file's name as the disk spells it. It may differ from the name in the path in upper and
    // lower case. If there is no such file, returns the name in the path.
    virtual std::string NameOnDisk(const std::string& path) = 0;
    virtual std::string Read(const std::string& path) = 0;
    // Creates or truncates the file and writes all bytes.
    virtual void Write(const std::string& path, const std::string& bytes, WriteOptions options) = 0;
    void Write(const std::string& path, const std::string& bytes) { Write(path, bytes, {}); }
    // Renames the file. If the target exists, the file system replaces it in one step.
    virtual void Replace(const std::string& from, const std::string& to, Durability durability) = 0;
    void Replace(const std::string& from, const std::string& to) {
        Replace(from, to, Durability::Flushed);
    }
    virtual void Delete(const std::string& path) = 0;
    // Moves the file to the Recycle Bin. Returns false, and leaves the file where it is, if no
    // Recycle Bin can take it.
    virtual bool Recycle(const std::string& path) = 0;
    virtual void Copy(const std::string& from, const std::string& to) = 0;
    // Locks the file, and creates it if it is missing. The folder must exist. Returns null if
    // another program holds the lock. RuntimeError if the file cannot be created or locked. When
    // the program ends, even by a crash, the system releases the lock.
    virtual std::unique_ptr<FileLock> Lock(const std::string& path) = 0;
};

// The per-user settings of this application: text values in sections.
class SettingsStore {
  public:
    virtual ~SettingsStore() = default;
    virtual std::optional<std::string> Read(const std::string& section, const std::string& key) = 0;
    virtual void Write(const std::string& section, const std::string& key,
                       const std::string& value) = 0;
};

// Plays sounds. Does not report errors.
class Sound {
  public:
    virtual ~Sound() = default;
    enum class Mode { Once, Loop };
    // Starts the sound and returns at once. Stops a sound that is playing.
    virtual void Play(const std::string& wavePath, Mode mode) = 0;
    // Plays the sound and returns when it has ended. Meanwhile windows are painted, but no handler
    // runs. The only exception is the end of the user's session: Form_QueryUnload and Form_Unload
    // run, and the call returns early.
    virtual void PlayToEnd(const std::string& wavePath) = 0;
    virtual void Stop() = 0;
};

// An icon in the notification area. The fields are those of the first version of the system's own
// structure.
struct TrayRecord {
    std::uint32_t structureSize = 0;
    Form* owner = nullptr;  // its window gets the callback message; not owned
    std::uint32_t iconId = 0;
    std::uint32_t flags = 0;
    std::uint32_t callbackMessage = 0;
    std::string iconPath;  // icon file
    std::string tip;       // exactly 64 characters, the size of the structure's fixed field
};

class Tray {
  public:
    virtual ~Tray() = default;
    virtual bool Add(const TrayRecord& record) = 0;
    // False if there is no such icon.
    virtual bool Delete(const TrayRecord& record) = 0;
};

// The system's default printer. Failures (no printer, printer off, no document begun) are
// RuntimeError 482.
class Printer {
  public:
    virtual ~Printer() = default;
    // Returns false if the user cancelled the document. A printer that writes files asks for the
    // name of the file here, and lets events in meanwhile. Windows therefore call
    // forms::BeginPrinting().
    virtual bool BeginDocument() = 0;
    // Prints the text, wrapped to the page, and a line break.
    virtual void Print(const std::string& text) = 0;
    virtual void SetFontSize(int points) = 0;
    virtual void EndDocument() = 0;
    virtual void AbandonDocument() = 0;
};

struct FileDialogRequest {
    std::string initialFolder;
    std::string filter;  // "Wav Files (*.wav)|*.wav|All Files (*.*)|*.*"
};

class Shell {
  public:
    virtual ~Shell() = default;
    // Performs the verb "Open" with the desktop as parent, no parameters and the normal show state.
    // Returns the system's result code. A code above 32 means success.
    virtual int Open(const std::string& document, const std::string& workingFolder) = 0;
    // Shows a help file. command is the help viewer's own command number.
    virtual void ShowHelp(const std::string& helpFile, int command) = 0;
    // Makes the shortcut start the file that lies beside this program and has the name of the old
    // target. If there is no such file, the shortcut starts this program. A file that is no
    // shortcut, or that cannot be written, stays unchanged.
    virtual void PointToThisProgram(const std::string& shortcut) = 0;
};

struct Picture {
    std::string path;  // empty: no picture
    int width = 0;     // twips
    int height = 0;    // twips
    bool operator==(const Picture&) const = default;
};

class Pictures {
  public:
    virtual ~Pictures() = default;
    // RuntimeError 53 if the file is missing, 481 if it is not a picture.
    virtual Picture Load(const std::string& path) = 0;
};

// Texts in the formats that the user chose in the system's settings.
class Locale {
  public:
    virtual ~Locale() = default;
    virtual std::string ShortDate(base::DateTime value) = 0;    // "5/14/2004"
    virtual std::string TimeText(base::DateTime value) = 0;     // "9:30:00 AM"
    virtual std::string WeekdayName(base::DateTime value) = 0;  // "Friday"
    virtual base::NumberFormat Numbers() = 0;
    virtual std::string ToUpper(const std::string& text) = 0;
    // ToAnsi converts to the system's ANSI code page. Empty if the code page lacks a character of
    // the text. If the code page is UTF-8, ToAnsi converts only ASCII, because other programs and
    // machines read all other bytes in older code pages. FromAnsi then reads bytes that are not
    // valid UTF-8 in the older code page of the system's language.
    virtual std::optional<std::string> ToAnsi(const std::string& utf8) = 0;
    virtual std::string FromAnsi(const std::string& bytes) = 0;
    // Date and time as one text: the short date, a blank, the time. A value at midnight is shown as
    // the date alone, and a value with the zero date as the time alone.
    std::string GeneralDate(base::DateTime value);

  private:
    // The last arguments and result of GeneralDate. They are kept because a hundred windows may ask
    // for the same second.
    base::DateTime lastMoment;
    std::string lastMomentText;
};

class System {
  public:
    virtual ~System() = default;
    // Folder of the executable, without a trailing backslash.
    virtual std::string ApplicationFolder() = 0;
    // The folder of the shortcuts that the system opens when this user signs in, without a trailing
    // backslash. Empty if the system has none.
    virtual std::string StartupFolder() = 0;
    // Whether another copy of the program runs for the same user. The first call also registers
    // this copy.
    virtual bool PreviousInstance() = 0;
    // The version number of the system: the lowest byte is the major number, the second byte the
    // minor.
    virtual std::uint32_t Version() = 0;
    // An id of this run of the program, in letters and digits. It differs from the ids of all other
    // running copies on all machines.
    virtual std::string InstanceId() = 0;
    // Waits. No handler runs meanwhile.
    virtual void Pause(int milliseconds) = 0;
};

// Pointers to all devices, which are not owned. Every pointer is set before the runtime starts.
struct Devices {
    Clock* clock = nullptr;
    FileSystem* files = nullptr;
    SettingsStore* settings = nullptr;
    Sound* sound = nullptr;
    Tray* tray = nullptr;
    Printer* printer = nullptr;
    Shell* shell = nullptr;
    Pictures* pictures = nullptr;
    Locale* locale = nullptr;
    System* system = nullptr;
};

// The devices of the running program.
Devices& Machine();

}  // namespace forms
