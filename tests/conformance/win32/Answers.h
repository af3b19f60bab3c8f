#pragma once

#include <windows.h>

#include <deque>
#include <functional>
#include <optional>
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
    // How long each stays open before it is answered, in milliseconds; read when it opens.
    explicit Answers(const int& stayOpenFor);
    ~Answers();
    Answers(const Answers&) = delete;
    Answers& operator=(const Answers&) = delete;

    void Expect(Expected next) { expected.push_back(std::move(next)); }
    // Everything that was expected has come.
    void Verify();
    // Runs the script once, in whatever loop waits then.
    void Later(int milliseconds, Script script);
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

    const int& stayOpen;
    HWND window = nullptr;
    std::deque<Expected> expected;
    std::vector<HWND> knownBoxes;  // that a script deals with
    std::vector<const forms::Form*> knownModals;
    std::optional<ULONGLONG> unexpectedSince;
    std::optional<ULONGLONG> openSince;
    Script later;
};

}  // namespace conformance
