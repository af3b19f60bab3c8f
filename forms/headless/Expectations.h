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
    // Called with each failure of the test. If it is not set, a failure prints its text and aborts
    // the program.
    std::function<void(const std::string&)> onFailure;
    void Fail(const std::string& message) const;

    // Expects a message box with exactly these properties. If defaultButton is empty, any default
    // button will do. The script during runs while the box is open. It can let time pass and use
    // the tray icon, but not the windows.
    void ExpectBox(const std::string& text, const std::string& caption, BoxIcon icon,
                   BoxButtons buttons, BoxResult answer,
                   std::optional<BoxResult> defaultButton = std::nullopt, Script during = nullptr);
    void ExpectBox(const std::string& text, const std::string& caption, BoxIcon icon,
                   BoxButtons buttons, BoxResult answer, Script during);
    // Expects a modal form of class T. The script must hide or unload the form, or end the program.
    template <class T>
    void ExpectModal(std::function<void(T&)> script) {
        Expect(ExpectedModal{
            typeid(T).name(), [](const Form& form) { return dynamic_cast<const T*>(&form); },
            [run = std::move(script)](Form& form) { run(dynamic_cast<T&>(form)); }});
    }
    // Expects a pop-up menu with this name. The user chooses the entry with this name, or else with
    // this caption.
    void ExpectPopup(const std::string& menuName, const std::string& entry);
    // The script returns the entry that the user chooses, or null to close the menu.
    void ExpectPopup(const std::string& menuName, std::function<Menu*(Menu&)> script);
    void ExpectPopupDismissed(const std::string& menuName) { ExpectPopup(menuName, ""); }
    // Expects the dialog for opening a file. Without a result, the user cancels.
    void ExpectOpenDialog(std::optional<std::string> result, Script during = nullptr);
    // Expects that Runtime::Run has finished its start-up routine and handles events. The script is
    // the user's whole session. It must end the program or unload every form.
    void ExpectMainLoop(Script script);

    // Calls Fail for each expectation that was not met, and removes it.
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
    // Removes and returns the next expectation if it is of this kind.
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
