#pragma once

#include <string>

// The test kit runs the tests on Windows without the helpers that scripts/run-windows-tests has
// under Wine. A test that needs one of these helpers is then skipped and reports what it needs. At
// its end, a test program prints the number of tests, the failed tests and the needs. If
// JOTWRIGHT_SUMMARY is set, it also appends them to the file of that name.
namespace driver {

// Whether the environment has this helper: a variable of scripts/run-windows-tests.
bool Has(const std::string& variable);
// Whether the test is part of the test kit.
bool IsInTestKit();
// Does nothing if isMet is true. Otherwise, in the test kit, skips the running test with "needs"
// and this text. Elsewhere, raises Failure, because scripts/run-windows-tests meets all needs.
void Need(bool isMet, const std::string& text);
// Need() for a helper that the environment does not have.
[[noreturn]] void MissingHelper(const std::string& variable);
// In the test kit: needs a task bar. Without one, Wine shows each window in a window of the host's
// display, where the host decides the focus and the contents of covered windows are lost.
void NeedDesktop();
// In the test kit: needs dates and times in the form of the United States.
void NeedFormatsOfUnitedStates();

}  // namespace driver
