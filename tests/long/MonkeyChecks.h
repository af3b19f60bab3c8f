#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <set>
#include <string>
#include <vector>

#include "tests/long/Random.h"
#include "tests/long/Trouble.h"
#include "tests/support/WholeProgram.h"

namespace long_tests {

// The whole program with devices that may fail, and the invariants that always hold; see
// docs/architecture.md.
class MonkeyChecks : public testing_support::WholeProgram {
  protected:
    using Window = std::weak_ptr<forms::Form>;
    struct OpenText {
        Window window;
        std::string title;
        std::string file;  // the text is saved to this file
        bool wasSaved;
        std::string text;
    };

    // Checks the invariants. Call it after each gesture.
    void Check();
    // The texts that the open editors show, in the order in which they were opened.
    std::vector<OpenText> OpenTexts() const;
    // Whether the file of the note, or a file in the Recycle Bin, holds this text. A file goes to
    // the Recycle Bin when another note replaces it.
    bool IsInFile(const OpenText& note) const;
    static bool IsInEditor(const OpenText& note);
    std::size_t MostForms() const { return mostForms; }
    std::size_t MostNotes() const { return mostNotes; }

    Random random;
    Trouble trouble{random, files, printer, shell};
    bool userDropped = false;      // the user has chosen in this gesture to erase or not to save
    std::int64_t calmSince = 0;    // monotonic time of the last failure or typing
    std::vector<OpenText> before;  // OpenTexts before the gesture
    std::set<Window, std::owner_less<Window>> erased;  // editors whose Erase button was pressed

  private:
    void CheckWindows();
    void CheckNotes();
    void CheckSounds();
    void CheckFiles();
    void CheckVanished();

    std::size_t mostForms = 0;
    std::size_t mostNotes = 0;
};

}  // namespace long_tests
