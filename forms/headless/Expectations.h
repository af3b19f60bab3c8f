#pragma once

#include <deque>
#include <functional>
#include <optional>
#include <string>
#include <typeinfo>
#include <utility>
#include <variant>

#include "forms/Form.h"
#include "forms/headless/Expectation.h"

namespace forms::headless {

// The script of a test: the boxes, modal forms, pop-up menus and dialogs that the program will
// open, in this order, and the user's answers.
class Expectations {
  public:
    // Called with each failure of the test. Without it a failure prints its text and aborts.
    std::function<void(const std::string&)> onFailure;
    void Fail(const std::string& message) const;

    // The next thing that opens is a message box with exactly these properties. The script runs
    // while it is open: time may pass and the tray icon be used, windows are out of reach.
    void ExpectBox(const std::string& text, const std::string& caption, BoxIcon icon,
                   BoxButtons buttons, BoxResult answer,
                   std::optional<BoxResult> defaultButton = std::nullopt, Script during = nullptr);
    void ExpectBox(const std::string& text, const std::string& caption, BoxIcon icon,
                   BoxButtons buttons, BoxResult answer, Script during);
    // A form of class T is shown modally. The script must get it hidden or unloaded, or the
    // program ended.
    template <class T>
    void ExpectModal(std::function<void(T&)> script) {
        Expect(ExpectedModal{
            typeid(T).name(), [](const Form& form) { return dynamic_cast<const T*>(&form); },
            [run = std::move(script)](Form& form) { run(dynamic_cast<T&>(form)); }});
    }
    // A pop-up menu with this name opens; the user chooses the entry (by name, else by caption).
    void ExpectPopup(const std::string& menuName, const std::string& entry);
    // The script returns the entry that the user chooses, or null to close the menu.
    void ExpectPopup(const std::string& menuName, std::function<Menu*(Menu&)> script);
    void ExpectPopupDismissed(const std::string& menuName) { ExpectPopup(menuName, ""); }
    // The dialog for opening a file; without a result the user cancels.
    void ExpectOpenDialog(std::optional<std::string> result, Script during = nullptr);
    // Runtime::Run has done its start-up routine and waits; the script is the user's whole session
    // and must end the program or unload every form.
    void ExpectMainLoop(Script script);

    // Fails for each expectation that is left, and forgets it.
    void Verify();
    bool HasExpectations() const { return !expected.empty(); }

  protected:
    Expectations() = default;
    ~Expectations() = default;
    Expectations(const Expectations&) = delete;
    Expectations& operator=(const Expectations&) = delete;

    // The next expectation if it is of this kind; null otherwise.
    template <class Expected>
    const Expected* Next() const {
        return expected.empty() ? nullptr : std::get_if<Expected>(&expected.front());
    }
    // Takes the next expectation out of the script if it is of this kind.
    template <class Expected>
    std::optional<Expected> TakeNext() {
        if (Next<Expected>() == nullptr) {
            return std::nullopt;
        }
        Expected next = std::get<Expected>(std::move(expected.front()));
        expected.pop_front();
        return next;
    }
    void FailUnexpected(const std::string& opened) const;

  private:
    void Expect(Expectation expectation) { expected.push_back(std::move(expectation)); }

    std::deque<Expectation> expected;
};

}  // namespace forms::headless
