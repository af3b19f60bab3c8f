#pragma once

#include <functional>
#include <string>

#include "forms/headless/HeadlessDevices.h"
#include "forms/headless/MemoryFiles.h"
#include "tests/long/Choices.h"
#include "tests/long/Random.h"
#include "tests/support/TestProgram.h"

namespace long_tests {

inline const std::string notesFolder = testing_support::applicationFolder + "\\Notes";

// Makes devices fail while the program runs, and changes notes as another program does.
class Trouble {
  public:
    // The objects must outlive this one.
    Trouble(Random& numbers, forms::headless::MemoryFiles& disk,
            forms::headless::RecordedPrinter& paper, forms::headless::RecordedShell& system)
        : random(numbers), files(disk), printer(paper), shell(system) {}

    // Adds each kind of trouble.
    void AddTo(Choices& choices);
    // Repairs all devices. Notes that were changed stay changed.
    void End();
    // Removes the notes that cannot be read. Such a file prevents the program from reading the
    // other files, and is reported again and again.
    void RemoveDamaged();

    // Tells the object that the program starts.
    void ProgramStarts() { hasBegun = false; }
    // Tells the object that the program has read the notes.
    void NotesWereRead() { hasChangedNotes = false; }

    // Whether a device fails now.
    bool IsOn() const { return isOn; }
    // Whether a device has failed since the program's start.
    bool HasBegun() const { return hasBegun; }
    // Whether notes were changed and the program has not read them since.
    bool HasChangedNotes() const { return hasChangedNotes; }

  private:
    // The path of a random file in the folder of the notes. Empty if there is none.
    std::string AnyFile();

    Random& random;
    forms::headless::MemoryFiles& files;
    forms::headless::RecordedPrinter& printer;
    forms::headless::RecordedShell& shell;
    bool isOn = false;
    bool hasBegun = false;
    bool hasChangedNotes = false;
};

}  // namespace long_tests
