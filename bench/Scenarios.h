#pragma once

#include <string>

// The measured actions, in the order in which a user could do them. Each scenario writes one line
// "<name> <milliseconds>" for each measured action, and raises Failure if an action does not have
// its effect.
namespace bench {

struct Settings {
    std::string executable;
    int notes = 0;         // note files that are there at the start
    int times = 0;         // how often each action is measured
    std::string children;  // see Subject
};

// Makes a note, hides it with and without the panel, opens the panel and erases the note in it.
void MakeHideErase(const Settings& settings);
// Opens restored notes for the first time.
void RestoreNotes(const Settings& settings);
// Open All Notes, then Exit with a change in each open note. Needs at least 2 notes, at most 99.
void OpenAllAndExit(const Settings& settings);
// Types keys into the only note, and changes its colour and size.
void ChangeText(const Settings& settings);
// Writes notes with alarms that are due soon, closes half of them and waits until they ring.
// Whenever a sound begins, the caller must append a line with the time, in seconds since 1970, to
// the file "sounds" in the executable's folder.
void RingAlarms(const Settings& settings);
// Starts with many notes, and opens the panel.
void StartWithMany(const Settings& settings);

}  // namespace bench
