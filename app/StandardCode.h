#pragma once

#include <array>
#include <cstdint>
#include <map>
#include <memory>
#include <set>
#include <string>

#include "base/DateTime.h"
#include "base/Signal.h"
#include "forms/Color.h"
#include "forms/Devices.h"

// Values that the whole program shares. Only the user-interface thread uses them. Other headers
// declare the functions of StandardCode that need a window.
class NoteStore;
class frmDisplayNote;

namespace StandardCode {

constexpr int maximumNotes = 100;

// The nine fields of a note, in the order of the note's file.
struct NoteRecord {
    std::string Title;
    std::string Text;
    base::DateTime AlarmDate;
    base::DateTime AlarmTime;
    std::int16_t ColorIndex = 0;
    std::int16_t FontSize = 0;
    std::string AlarmState;  // "1" set, "0" not set
    std::int16_t AudioAlarm = 0;
    std::string Trailer;

    bool operator==(const NoteRecord&) const = default;
};

// The saved notes in slots 1 to 100, in the order of the folder's listing.
class NotesTable {
  public:
    // RuntimeError 9 for a slot outside 1 to 100.
    NoteRecord& operator[](int slot);
    const NoteRecord& operator[](int slot) const;

  private:
    std::array<NoteRecord, maximumNotes> slots;
};

// The remaining time for retries in the current action; see Patience.
struct RetryTime {
    std::uint64_t action = 0;
    int left = 0;  // milliseconds
};

// Values that the windows share. Reset() restores the state at the start of the process.
struct SharedValues {
    NotesTable NotesArray;
    std::int16_t NoteCount = 0;
    std::shared_ptr<NoteStore> Store;                  // made by Notes()
    std::weak_ptr<forms::Form> CurrentNote;            // the editor that OpenNote opened last
    std::vector<const frmDisplayNote*> AlarmDisplays;  // the displays that show a note
    std::set<std::string> RecoveryPaths;  // paths of recovery copies in use here, in upper case

    // Locks by folder. They tell other programs that this program uses the folder. See
    // SafeFile::MarkInUse().
    std::map<std::string, std::unique_ptr<forms::FileLock>> FolderLocks;
    int TemporaryFiles = 0;  // number created so far; see SafeFile
    RetryTime TimeToRetry;

    std::string AlarmSoundPath;  // full path of the current alarm sound
    bool AlarmSounding = false;  // suppresses the cuckoo and further alarm sounds
    // Paths of the looping sounds whose boxes are open. The last one plays. See Bell.
    std::vector<std::string> RingingSounds;
    bool ControlPanelMode = false;     // closing an editor asks whether to save; see frmNote
    std::int16_t StartCookooFlag = 0;  // copy of setting "StartCookoo"
    std::int16_t WindowOnTopFlag = 0;  // copy of setting "WindowOnTop"
    std::int16_t ViewTipsFlag = 0;     // setting "View Tips" as read at start-up

    // Unused, but kept on purpose: see docs/decisions/kept-unreachable.md.
    bool BlinkPhase = false;    // shared by all note windows
    std::string AlarmFlag;      // "1" or "0": the alarm of the last note restored
    std::int16_t NoteFlag = 0;  // cleared by note creation
    std::int16_t Answer = 0;    // to the erase question: 2 yes, 1 no

    // The weekly alarms, rows 0 to 6.
    std::array<std::string, 7> SpecialAlarmDay;
    std::array<base::DateTime, 7> SpecialAlarmTime;
    std::array<std::string, 7> SpecialAlarmMessage;
    std::array<std::int16_t, 7> SpecialAlarmEnabled{};
};

SharedValues& Shared();
void Reset();

// Signals through which windows reach windows of higher layers.
struct SharedSignals {
    // The notes array was rebuilt; NoteCount holds the count.
    base::Signal<> NotesArrayLoaded;
    // Commands to the control panel. Reload, ReloadAndShow and LoadAndUnload unload the panel and
    // load it again, so that the notes array and the panel's list are rebuilt. Reload leaves the
    // panel hidden, ReloadAndShow leaves it shown, and LoadAndUnload leaves it unloaded.
    enum class PanelAction { Reload, ReloadAndShow, Show, UnloadIfVisible, LoadAndUnload };
    base::Signal<PanelAction> ControlPanel;
    // Moves the focus to the title box for a new note.
    base::Signal<> FocusNoteTitle;
    // Show the help file (help command 9) and the About box.
    base::Signal<> ShowHelp;
    base::Signal<> ShowAbout;
    // Switches off the main window's timer that checks the sound file.
    base::Signal<> StopSoundCheck;
};

SharedSignals& Signals();

// The colours of notes in the editor, in the options and in the alarm display. noteColors[i] has
// the colour index i + 1 in a note's file: 1 white, 2 red, 3 green, 4 blue, 5 yellow, 6 gray.
struct NoteColor {
    forms::Color back;
    forms::Color text;
};
inline constexpr std::array<NoteColor, 6> noteColors{{
    {{255, 255, 255}, forms::black},
    {{255, 128, 128}, forms::black},
    {{0, 192, 0}, forms::black},
    {{128, 128, 255}, forms::white},
    {{255, 255, 0}, forms::black},
    {{192, 192, 192}, forms::black},
}};

// The font sizes of notes in points, in the order of the codes 0 to 3 of Settings::defaultFontSize.
inline constexpr std::array fontSizes{10, 12, 14, 16};

}  // namespace StandardCode
