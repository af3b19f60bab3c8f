#include "forms/headless/Expectations.h"

#include <cstdio>
#include <cstdlib>

namespace forms::headless {

void Expectations::Fail(const std::string& message) const {
    if (onFailure) {
        onFailure(message);
        return;
    }
    std::fprintf(stderr, "Headless stage: %s\n", message.c_str());
    std::abort();
}

void Expectations::FailUnexpected(const std::string& opened) const {
    Fail("Unexpected " + opened +
         (expected.empty() ? "; nothing was expected."
                           : "; expected next: " + Describe(expected.front()) + "."));
}

void Expectations::ExpectBox(const std::string& text, const std::string& caption, BoxIcon icon,
                             BoxButtons buttons, BoxResult answer,
                             std::optional<BoxResult> defaultButton, Script during) {
    ExpectedBox box;
    box.request = {text, caption, {buttons, icon, defaultButton == BoxResult::No}};
    box.checkDefault = defaultButton.has_value();
    box.answer = answer;
    box.during = std::move(during);
    Expect(std::move(box));
}

void Expectations::ExpectBox(const std::string& text, const std::string& caption, BoxIcon icon,
                             BoxButtons buttons, BoxResult answer, Script during) {
    ExpectBox(text, caption, icon, buttons, answer, std::nullopt, std::move(during));
}

void Expectations::ExpectPopup(const std::string& menuName, const std::string& entry) {
    Expect(ExpectedPopup{menuName, entry, nullptr});
}

void Expectations::ExpectPopup(const std::string& menuName, std::function<Menu*(Menu&)> script) {
    Expect(ExpectedPopup{menuName, "", std::move(script)});
}

void Expectations::ExpectOpenDialog(std::optional<std::string> result, Script during) {
    Expect(ExpectedDialog{std::move(result), std::move(during)});
}

void Expectations::ExpectMainLoop(Script script) { Expect(ExpectedMainLoop{std::move(script)}); }

void Expectations::Verify() {
    std::deque<Expectation> left;
    left.swap(expected);
    for (const Expectation& expectation : left) {
        Fail("Never came: " + Describe(expectation));
    }
}

}  // namespace forms::headless
