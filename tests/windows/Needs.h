#pragma once

#include <string>

// The test kit runs the tests on Windows without the helpers that scripts/run-windows-tests has
// under Wine. Tests that need such a helper are then skipped, and say what they need.
namespace driver {

// Whether the environment has this helper: a variable of scripts/run-windows-tests.
bool Has(const std::string& variable);
// Skips the running test if it is part of the test kit. Otherwise raises Failure, because
// scripts/run-windows-tests sets all variables.
[[noreturn]] void MissingHelper(const std::string& variable);

}  // namespace driver
