#pragma once

#include <cstdint>
#include <deque>
#include <memory>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "tests/long/Choices.h"
#include "tests/long/Random.h"
#include "tests/long/Trouble.h"
#include "tests/support/WholeProgram.h"

namespace long_tests {

// Operates the whole program with random gestures: clicks, types, picks, chooses, closes, answers,
// lets time pass, sets the clock, lets the machine sleep, fills the disk, and kills the program.
// Checks the invariants after each gesture.
class Monkey : public testing_support::WholeProgram {
  protected:
    void SetUp() override;

    void Begin(std::uint32_t seed);
    // Makes one gesture, and checks the invariants.
    void Act();
    // Lets the machine sleep until about seven in the morning of the next day.
    void Sleep();
    std::int64_t Gestures() const { return gestures; }
    std::int64_t Kills() const { return kills; }
    std::int64_t Starts() const { return starts; }
    std::size_t MostForms() const { return mostForms; }
    std::size_t MostNotes() const { return mostNotes; }
    // The last gestures, oldest first.
    std::string Story() const;

  private:
    using Window = std::weak_ptr<forms::Form>;
    struct OpenText {
        Window window;
        std::string title;
        std::string file;  // the text is saved to this file
        bool wasSaved;
        std::string text;
    };

    int Below(int limit) { return random.Below(limit); }
    bool OneIn(int number) { return random.OneIn(number); }
    std::string Characters(int count);
    std::string NoteText();
    std::string Title();
    base::DateTime NearDate();
    base::DateTime NearTime();

    void Listen();
    void Improvise();
    forms::BoxResult AnswerBox(const forms::BoxRequest& box);
    void WorkModal(forms::Form& form);
    forms::Menu* ChooseFrom(forms::Menu& menu);
    // Lets time pass or uses the tray icon while something is open.
    void Meanwhile();

    std::vector<forms::Form*> UsableForms();
    void AddControl(forms::Control& control, Choices& choices);
    void AddForm(forms::Form& form, Choices& choices);
    void AddMenus(const std::vector<forms::Menu*>& menus, const forms::Menu* top,
                  std::vector<forms::Menu*>& found);
    void AddWorld(Choices& choices);
    void Do(const Choices& choices);
    void Log(const std::string& what);

    void Type(forms::TextBox& textBox);
    void StartProgram();
    void EndTrouble();
    void Kill();
    void ThinOut();
    // Makes as many notes as are allowed, or nearly as many.
    void FillUp();
    void Suspend(std::int64_t seconds);

    // The invariants; see docs/architecture.md.
    void Check();
    void CheckWindows();
    void CheckNotes();
    void CheckSounds();
    void CheckFiles();
    void CheckVanished();
    // The texts that the open editors show, in the order in which they were opened.
    std::vector<OpenText> OpenTexts() const;
    // Whether the file of the note holds this text, or was put aside with it because another note
    // replaced it.
    bool IsInFile(const OpenText& note) const;
    static bool IsInEditor(const OpenText& note);

    Random random;
    Trouble trouble{random, files, printer, shell};
    std::deque<std::string> story;
    std::int64_t gestures = 0;
    std::int64_t kills = 0;
    std::int64_t starts = 0;
    std::size_t mostForms = 0;
    std::size_t mostNotes = 0;
    int depth = 0;
    bool userDropped = false;      // the user has chosen in this gesture to erase or not to save
    std::int64_t calmSince = 0;    // monotonic time of the last failure or typing
    std::vector<OpenText> before;  // OpenTexts before the gesture
    std::set<Window, std::owner_less<Window>> erased;  // editors whose Erase button was pressed
};

}  // namespace long_tests
