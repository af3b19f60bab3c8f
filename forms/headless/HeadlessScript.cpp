// The part of the headless stage that keeps what a test expects.
#include <algorithm>

#include "forms/Gestures.h"
#include "forms/Runtime.h"
#include "forms/headless/HeadlessStage.h"

namespace forms::headless {

namespace {

constexpr int mostWaitsInOneMoment = 10'000;

}  // namespace

void HeadlessStage::ExpectBox(const std::string& text, const std::string& caption, BoxIcon icon,
                              BoxButtons buttons, BoxResult answer,
                              std::optional<BoxResult> defaultButton, Script during) {
    ExpectedBox box;
    box.request = {text, caption, {buttons, icon, defaultButton == BoxResult::No}};
    box.checkDefault = defaultButton.has_value();
    box.answer = answer;
    box.during = std::move(during);
    Expect(std::move(box));
}

void HeadlessStage::ExpectBox(const std::string& text, const std::string& caption, BoxIcon icon,
                              BoxButtons buttons, BoxResult answer, Script during) {
    ExpectBox(text, caption, icon, buttons, answer, std::nullopt, std::move(during));
}

void HeadlessStage::ExpectPopup(const std::string& menuName, const std::string& entry) {
    Expect(ExpectedPopup{menuName, entry, nullptr});
}

void HeadlessStage::ExpectPopup(const std::string& menuName, std::function<Menu*(Menu&)> script) {
    Expect(ExpectedPopup{menuName, "", std::move(script)});
}

void HeadlessStage::ExpectOpenDialog(std::optional<std::string> result, Script during) {
    Expect(ExpectedDialog{std::move(result), std::move(during)});
}

void HeadlessStage::ExpectMainLoop(Script script) { Expect(ExpectedMainLoop{std::move(script)}); }

void HeadlessStage::Verify() {
    std::deque<Expectation> left;
    left.swap(expected);
    for (const Expectation& expectation : left) {
        Fail("Never came: " + Describe(expectation));
    }
}

template <class Expected>
std::optional<Expected> HeadlessStage::TakeNext() {
    if (expected.empty() || !std::holds_alternative<Expected>(expected.front())) {
        return std::nullopt;
    }
    Expected next = std::get<Expected>(std::move(expected.front()));
    expected.pop_front();
    return next;
}
template std::optional<ExpectedBox> HeadlessStage::TakeNext();
template std::optional<ExpectedModal> HeadlessStage::TakeNext();
template std::optional<ExpectedPopup> HeadlessStage::TakeNext();
template std::optional<ExpectedDialog> HeadlessStage::TakeNext();
template std::optional<ExpectedMainLoop> HeadlessStage::TakeNext();

std::string HeadlessStage::InsteadOf() const {
    return expected.empty() ? "; nothing was expected."
                            : "; expected next: " + Describe(expected.front()) + ".";
}

void HeadlessStage::CompareBox(const ExpectedBox& wanted, const BoxRequest& request) {
    const bool sameDefault = !wanted.checkDefault || wanted.request.options.secondIsDefault ==
                                                         request.options.secondIsDefault;
    if (wanted.request.text != request.text || wanted.request.caption != request.caption ||
        wanted.request.options.icon != request.options.icon ||
        wanted.request.options.buttons != request.options.buttons || !sameDefault) {
        Fail("Expected " + Describe(wanted.request) + "\n but got " + Describe(request));
    } else if (!IsAnswerOf(request, wanted.answer)) {
        Fail("There is no such button to answer " + Describe(request));
    }
}

void HeadlessStage::CountWait() {
    if (clock.MonotonicMilliseconds() != momentOfLastWait) {
        momentOfLastWait = clock.MonotonicMilliseconds();
        waitsInMoment = 0;
    }
    if (++waitsInMoment > mostWaitsInOneMoment) {
        Fail("More than 10,000 boxes and the like without time passing: the program is ended.");
        Runtime::Current().End();
    }
}

void HeadlessStage::ForceClosed(Form& form) {
    if (form.IsVisible() && !Runtime::Current().HasEnded()) {
        gestures::Close(form);
    }
    if (form.IsVisible() && !Runtime::Current().HasEnded()) {
        Runtime::Current().Dispatch(&form, [&form] { form.Hide(); });
    }
}

Menu* HeadlessStage::ChosenEntry(const ExpectedPopup& wanted, Menu& menu) {
    if (wanted.menuName != menu.name) {
        Fail("Expected pop-up menu " + wanted.menuName + ", got " + menu.name);
        return nullptr;
    }
    Menu* chosen = nullptr;
    if (wanted.script) {
        chosen = wanted.script(menu);
        if (chosen == nullptr) {
            return nullptr;
        }
    } else if (wanted.entry.empty()) {
        return nullptr;
    } else {
        chosen = FindEntry(menu, wanted.entry);
        if (chosen == nullptr) {
            Fail("Pop-up menu " + wanted.menuName + " has no entry " + wanted.entry);
            return nullptr;
        }
    }
    const std::string why = WhyNotChoosable(*chosen, &menu);
    if (!why.empty()) {
        Fail("Entry " + std::string(chosen->name) + " of pop-up menu " + wanted.menuName + " " +
             why);
        return nullptr;
    }
    return chosen;
}

}  // namespace forms::headless
