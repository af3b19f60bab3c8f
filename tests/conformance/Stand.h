#pragma once

#include <gtest/gtest.h>

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "forms/Controls.h"
#include "forms/Form.h"
#include "forms/Menu.h"
#include "forms/MsgBox.h"
#include "forms/Runtime.h"
#include "tests/forms/FormsUnderTest.h"

// The conformance suite is written once and runs on each stage. It checks that the rules on which
// the tests rely are also true on a real screen. A Stand is a stage and a scripted user.
namespace conformance {

using Script = std::function<void()>;

class Stand {
  public:
    virtual ~Stand() = default;

    virtual forms::Stage& Stage() = 0;
    // Lets this much virtual or real time pass, and handles the events that come.
    virtual void Pump(int milliseconds) = 0;
    virtual std::int64_t Milliseconds() = 0;
    // Makes the calling handler take this much time.
    virtual void BeBusy(int milliseconds) = 0;

    // Gestures. Each function returns when everything that the gesture caused has ended.
    virtual void Click(forms::Control& control) = 0;
    virtual void Type(forms::TextBox& textBox, const std::string& content) = 0;
    virtual void Select(forms::ComboBox& comboBox, int index) = 0;
    virtual void Choose(forms::Menu& entry) = 0;  // from the menu bar
    virtual void CloseBox(forms::Form& form) = 0;
    virtual void Minimize(forms::Form& form) = 0;
    virtual void Restore(forms::Form& form) = 0;
    // Keys. They go to the active form.
    virtual void PressTab() = 0;
    virtual void PressEnter() = 0;
    virtual void PressEscape() = 0;
    virtual void PressMenuKey() = 0;
    virtual void PressAccessKey(forms::Form& form, char letter) = 0;
    // Runs the script while the user holds the title bar.
    virtual void Drag(forms::Form& form, const Script& during) = 0;

    // The stand answers boxes, forms and menus in the order in which they are expected. If
    // stayOpenUntil is set, each of them stays open until stayOpenUntil returns true. Until then,
    // only the loop of the box, form or menu runs. Then the script runs and the answer is given.
    std::function<bool()> stayOpenUntil;
    // The number of times that a condition is tested, at least ten milliseconds apart, before the
    // wait fails. Tests are counted instead of time, because a busy machine also delays the tests.
    static constexpr int mostLooks = 12'000;
    virtual void ExpectBox(const std::string& text, const std::string& caption,
                           forms::BoxButtons buttons, forms::BoxResult answer,
                           Script during = nullptr) = 0;
    virtual void ExpectModal(std::function<bool(const forms::Form&)> matches,
                             std::function<void(forms::Form&)> script) = 0;
    template <class T>
    void ExpectModal(std::function<void(T&)> script) {
        ExpectModal([](const forms::Form& form) { return dynamic_cast<const T*>(&form); },
                    [run = std::move(script)](forms::Form& form) { run(dynamic_cast<T&>(form)); });
    }
    // entry is an entry of this menu, or null if the user chooses none.
    virtual void ExpectPopup(forms::Menu& menu, forms::Menu* entry, Script during = nullptr) = 0;
    // Fails if an expected box, form or menu has not opened.
    virtual void Verify() = 0;

    // The screen as the user sees it.
    virtual bool IsShown(forms::Form& form) = 0;
    virtual bool CanBeUsed(forms::Form& form) = 0;
    virtual bool CanBeUsed(forms::Control& control) = 0;
    virtual std::string ShownCaption(forms::CommandButton& button) = 0;
    virtual std::string ShownText(forms::TextBox& textBox) = 0;
    virtual bool IsShownChecked(forms::Control& checkBoxOrOption) = 0;
};

// Each stage defines this function.
std::unique_ptr<Stand> MakeStand();

class StandTest : public ::testing::Test {
  protected:
    void SetUp() override {
        forms_under_test::Log().clear();
        stand = MakeStand();
        runtime = std::make_unique<forms::Runtime>(stand->Stage(), "Program");
    }
    void TearDown() override {
        stand->Verify();
        runtime.reset();
        stand.reset();
    }

    void Start(const Script& handler) { runtime->Dispatch(nullptr, handler); }
    // Expects that a message box with an OK button opens next.
    void ExpectMessage(const std::string& text, const std::string& caption,
                       Script during = nullptr) {
        stand->ExpectBox(text, caption, forms::BoxButtons::Ok, forms::BoxResult::Ok,
                         std::move(during));
    }
    // Like ExpectMessage, for a box with the buttons Yes and No.
    void ExpectQuestion(const std::string& text, const std::string& caption,
                        forms::BoxResult answer, Script during = nullptr) {
        stand->ExpectBox(text, caption, forms::BoxButtons::YesNo, answer, std::move(during));
    }
    // Pumps until the condition is true. Fails after mostLooks tests of the condition.
    void PumpUntil(const std::function<bool()>& condition) {
        for (int tries = 0; !condition(); ++tries) {
            ASSERT_LT(tries, conformance::Stand::mostLooks) << "what was waited for never happened";
            stand->Pump(10);
        }
    }

    std::unique_ptr<Stand> stand;
    std::unique_ptr<forms::Runtime> runtime;
};

using Lines = std::vector<std::string>;

}  // namespace conformance
