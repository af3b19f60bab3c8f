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

// The conformance suite is written once and run on each stage: what it says holds on the screen of
// a person and on the one of a test. A Stand is a stage with a user before it.
namespace conformance {

using Script = std::function<void()>;

class Stand {
  public:
    virtual ~Stand() = default;

    virtual forms::Stage& Stage() = 0;
    // Lets this much time pass, with all that happens meanwhile: virtual or real.
    virtual void Pump(int milliseconds) = 0;
    virtual std::int64_t Milliseconds() = 0;
    // The handler that calls it is busy for so long.
    virtual void BeBusy(int milliseconds) = 0;

    // Gestures. Each returns when what it set off is over.
    virtual void Click(forms::Control& control) = 0;
    virtual void Type(forms::TextBox& textBox, const std::string& content) = 0;
    virtual void Select(forms::ComboBox& comboBox, int index) = 0;
    virtual void Choose(forms::Menu& entry) = 0;  // from the menu bar
    virtual void CloseBox(forms::Form& form) = 0;
    virtual void Minimize(forms::Form& form) = 0;
    virtual void Restore(forms::Form& form) = 0;
    // Keys for the active form.
    virtual void PressTab() = 0;
    virtual void PressEnter() = 0;
    virtual void PressEscape() = 0;
    virtual void PressMenuKey() = 0;
    virtual void PressAccessKey(forms::Form& form, char letter) = 0;
    // The script runs while the user holds the title bar.
    virtual void Drag(forms::Form& form, const Script& during) = 0;

    // What the user answers, in the order in which things open. If this is set, each stays open, or
    // is held, until it is true: only then its script runs and it is answered. Meanwhile nothing
    // but its own loop runs.
    std::function<bool()> stayOpenUntil;
    // How often what is waited for is looked at, ten milliseconds apart or more, before that is
    // taken to be in vain. Looks are counted and not the time: on a busy machine they come later.
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
    // entry: one of the menu's own entries, or null for none.
    virtual void ExpectPopup(forms::Menu& menu, forms::Menu* entry, Script during = nullptr) = 0;
    // Fails for whatever was expected and never came.
    virtual void Verify() = 0;

    // What the user sees.
    virtual bool IsShown(forms::Form& form) = 0;
    virtual bool CanBeUsed(forms::Form& form) = 0;
    virtual bool CanBeUsed(forms::Control& control) = 0;
    virtual std::string ShownCaption(forms::CommandButton& button) = 0;
    virtual std::string ShownText(forms::TextBox& textBox) = 0;
    virtual bool IsShownChecked(forms::Control& checkBoxOrOption) = 0;
};

// Made by the glue of each stage.
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
    // Lets time pass until the condition holds.
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
