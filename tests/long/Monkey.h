#pragma once

#include <cstdint>
#include <deque>
#include <string>
#include <vector>

#include "tests/long/Choices.h"
#include "tests/long/MonkeyChecks.h"
#include "tests/long/RandomText.h"

namespace long_tests {

// Operates the whole program with random gestures: clicks, types, picks, chooses, closes, answers,
// lets time pass, sets the clock, lets the machine sleep, fills the disk, and kills the program.
// Checks the invariants after each gesture.
class Monkey : public MonkeyChecks {
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
    // The last gestures, oldest first.
    std::string Story() const;

  private:
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

    RandomText words{random};
    std::deque<std::string> story;
    std::int64_t gestures = 0;
    std::int64_t kills = 0;
    std::int64_t starts = 0;
    int depth = 0;
};

}  // namespace long_tests
