#pragma once

#include <windows.h>

#include <deque>
#include <functional>
#include <string>
#include <vector>

#include "tests/conformance/Stand.h"

namespace conformance {

// Something that will open, and what the user does then.
struct Expected {
    enum class Kind { Box, Modal, Popup };
    Kind kind = Kind::Box;
    std::string text;
    std::string caption;
    forms::BoxButtons buttons = forms::BoxButtons::Ok;
    forms::BoxResult answer = forms::BoxResult::Ok;
    std::function<bool(const forms::Form&)> matches;
    std::function<void(forms::Form&)> script;
    forms::Menu* menu = nullptr;
    forms::Menu* entry = nullptr;
    Script during;
};

// The form's window is on the screen.
bool IsOnScreen(const forms::Form& form);

// Answers what opens, in the order in which it is expected, from a timer, which ticks in every loop
// that waits. What nobody expected is a failure, and is closed so that the test does not hang.
class Answers {
  public:
    // Each stays open until this is true before it is answered; see Stand.
    explicit Answers(const std::function<bool()>& stayOpenUntil);
    ~Answers();
    Answers(const Answers&) = delete;
    Answers& operator=(const Answers&) = delete;

    void Expect(Expected next) { expected.push_back(std::move(next)); }
    // Everything that was expected has come.
    void Verify();
    // Runs the script once, a little later, in whatever loop waits then.
    void Later(Script script);
    // In the loop that waits now, whoever's it is.
    void PressKey(WPARAM key) const;

  private:
    static Answers& Of(HWND timerWindow);
    void OnTick();
    bool AnswerBox();
    bool AnswerModal();
    bool AnswerPopup();
    static void PressButton(HWND box, forms::BoxResult answer);
    void ChooseByKeys(const Expected& popup) const;
    void ComplainAboutTheUnexpected();
    // Asked while what is expected next is open.
    bool HasStayedOpen();
    bool NextIs(Expected::Kind kind) const;
    Expected TakeNext();

    const std::function<bool()>& stayUntil;
    HWND window = nullptr;
    std::deque<Expected> expected;
    std::vector<HWND> knownBoxes;  // that a script deals with
    std::vector<const forms::Form*> knownModals;
    int unexpectedFor = 0;  // ticks
    int looks = 0;
    Script later;
};

}  // namespace conformance
