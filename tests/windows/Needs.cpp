#include "tests/windows/Needs.h"

#include <windows.h>
#include <gtest/gtest.h>

#include "forms/win32/Utf.h"
#include "tests/windows/Wait.h"

namespace driver {

namespace {

std::string NeedOf(const std::string& variable) {
    const std::pair<const char*, const char*> needs[] = {
        {"JOTWRIGHT_ASK_HOST", "a helper that moves the mouse and takes pictures"},
        {"JOTWRIGHT_BROWSER_LOG", "a browser that records addresses"},
        {"JOTWRIGHT_CLOCK_FILE", "a clock that tests move"},
        {"JOTWRIGHT_PRINT_FILE", "a printer that prints to a file"},
        {"JOTWRIGHT_SINK_WAV", "a sound device that is recorded"},
    };
    for (const auto& [name, need] : needs) {
        if (variable == name) {
            return need;
        }
    }
    return variable;
}

}  // namespace

bool Has(const std::string& variable) {
    return ::GetEnvironmentVariableW(forms::win32::Wide(variable).c_str(), nullptr, 0) != 0;
}

void MissingHelper(const std::string& variable) {
    if (!Has("JOTWRIGHT_TEST_KIT")) {
        throw Failure(variable +
                      " is not set: start the driver with scripts/run-windows-tests --app");
    }
    const std::string reason = "skipped: needs " + NeedOf(variable);
    [&reason] { GTEST_SKIP() << reason; }();
    // GoogleTest leaves the test without a further report.
    throw testing::AssertionException(testing::TestPartResult(testing::TestPartResult::kSkip,
                                                              __FILE__, __LINE__, reason.c_str()));
}

}  // namespace driver
