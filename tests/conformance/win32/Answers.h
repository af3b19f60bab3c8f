#pragma once

#include <windows.h>

#include <deque>
#include <functional>
#include <string>
#include <vector>

#include "tests/conformance/Stand.h"

namespace conformance {

// A box, form or menu that will open, and the user's response.
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

// Whether the form's window is on the screen.
bool IsOnScreen(const forms::Form& form);

// Answers boxes, forms and menus in the order in which they are expected. Uses a timer, which ticks
// in every loop that waits. An unexpected window fails the test and is closed, so that the test
// does not hang.
class Answers {
  public:
    // Gives no answer before stayOpenUntil returns true; see Stand.
    explicit Answers(const std::function<bool()>& stayOpenUntil);
    ~Answers();
    Answers(const Answers&) = delete;
    Answers& operator=(const Answers&) = delete;

    void Expect(Expected next) { expected.push_back(std::move(next)); }
    // Fails if an expected box, form or menu has not opened.
    void Verify();
    // Runs the script once, a little later, in the loop that is then waiting.
    void Later(Script script);
    // Sends a key to the loop that is waiting now. It need not be the program's own loop.
    void PressKey(WPARAM key) const;

  private:
    static Answers& Of(HWND timerWindow);
    void OnTick();
    bool AnswerBox();
    bool AnswerModal();
    bool AnswerPopup();
    static void PressButton(HWND box, forms::BoxResult answer);
    void ChooseByKeys(const Expected& popup) const;
    void ReportUnexpected();
    // Whether stayOpenUntil is null or returns true. After mostLooks calls in a row, fails the test
    // and returns true.
    bool HasStayedOpen();
    bool NextIs(Expected::Kind kind) const;
    Expected TakeNext();

    const std::function<bool()>& stayUntil;
    HWND window = nullptr;
    std::deque<Expected> expected;
    std::vector<HWND> knownBoxes;  // boxes that a script handles
    std::vector<const forms::Form*> knownModals;
    int unexpectedFor = 0;  // ticks
    int looks = 0;
    Script later;
};

}  // namespace conformance
