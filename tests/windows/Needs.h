#pragma once

#include <string>

// The test kit runs the tests on Windows without the helpers that scripts/run-windows-tests has
// under Wine. Tests that need such a helper are then skipped, and say what they need. At its end, a
// test program counts its tests and lists the failed ones and the needs, also in the file
// JOTWRIGHT_SUMMARY if that is set.
namespace driver {

// Whether the environment has this helper: a variable of scripts/run-windows-tests.
bool Has(const std::string& variable);
// Whether the test is part of the test kit.
bool IsInTestKit();
// If isMet is false, skips the running test, with "needs" and this text, if it is part of the test
// kit. Otherwise raises Failure, because scripts/run-windows-tests meets all needs.
void Need(bool isMet, const std::string& text);
// Need() for a helper that the environment does not have.
[[noreturn]] void MissingHelper(const std::string& variable);
// In the test kit: needs a task bar. Without one, Wine shows each window in a window of the host's
// display, where the host decides the focus and the contents of covered windows are lost.
void NeedDesktop();
// In the test kit: needs dates and times in the form of the United States.
void NeedFormatsOfUnitedStates();

}  // namespace driver
