#pragma once

#include <cstdint>
#include <map>
#include <random>
#include <set>
#include <string>

#include "tests/windows/DriverTest.h"
#include "tests/windows/long/YearModel.h"

namespace driver {

// Acts as the user in YearRun, and predicts the contents of each window and file.
class YearUser : public DriverTest {
  protected:
    using Captions = std::multiset<std::string>;

    // The captions of the windows with a title bar, except the main window. " (minimized)" follows
    // the caption of a minimized window.
    Captions Seen() const;
    // The captions that Seen should return. box is the caption of an open message box, if any.
    Captions Expected(const std::string& box = "") const;
    void WaitForExpected() const;
    // Expects the folder to hold the notes, byte for byte, and nothing else.
    void CheckFiles() const;
    void WriteNotes() const;

    void Start();
    void Kill();
    // Ends the program and checks the files. No display may be open.
    void Exit();

    // Restores the note's editor.
    Window Editor(YearNote& note) const;
    // Closes the editor, which saves the note.
    void Hide(YearNote& note);
    void EditAndHide(YearNote& note);
    void EditAndSave(YearNote& note);
    // Kills the program when the edited text is in a recovery copy, starts it again, and closes the
    // editor with the recovered text.
    void EditAndKill(YearNote& note);
    // Sets the alarm in the note's editor and closes it.
    void SetNewAlarm(YearNote& note, std::int64_t at);
    // Makes a note with this alarm and returns its title.
    std::string MakeNoteFor(std::int64_t at);
    // Adds a note without an alarm to the expected notes. Writes no file.
    YearNote& AddNote();
    // A random note that is open in an editor. Null if there is none.
    YearNote* OneOpen();

    // Closes the display of a note, and answers the question whether to erase it.
    void CloseDisplay(const std::string& title, bool erase);
    // Closes the displays that came up more than two hours before this time, and keeps the notes.
    // So the display in the night of the change is open in the hour that comes twice.
    void CloseOldDisplays(std::int64_t now);

    int Below(int limit) { return std::uniform_int_distribution<int>(0, limit - 1)(random); }

    std::mt19937 random;
    std::map<std::string, YearNote> notes;  // by title
    int kills = 0;
    int exits = 0;
    int made = 0;

  private:
    std::string NewText(const YearNote& note);

    int titles = 0;
    int texts = 0;
};

}  // namespace driver
