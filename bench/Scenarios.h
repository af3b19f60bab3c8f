#pragma once

#include <string>

// The measured actions, in the order in which a user could do them. Each scenario writes one line
// "<name> <milliseconds>" for each measured action, and raises Failure if an action does not have
// its effect.
namespace bench {

struct Settings {
    std::string executable;
    int notes = 0;         // note files that exist at the start
    int times = 0;         // how often each action is measured
    std::string children;  // see Subject
};

// Make Note, Hide with and without the panel, opening the panel, erasing in it.
void MakeHideErase(const Settings& settings);
// Opens restored notes for the first time.
void RestoreNotes(const Settings& settings);
// Open All Notes, then Exit with a change in each open note. Needs at least 2 notes, at most 99.
void OpenAllAndExit(const Settings& settings);
// A key, a colour and a size in the only note.
void ChangeText(const Settings& settings);
// Writes notes with alarms that are due soon, closes half of them and waits until they ring.
// Meanwhile bench/actions must add a line to the file "sounds" in the executable's folder each time
// a sound begins: the time in seconds since 1970.
void RingAlarms(const Settings& settings);
// The start with many notes, and the panel with them.
void StartWithMany(const Settings& settings);

}  // namespace bench
