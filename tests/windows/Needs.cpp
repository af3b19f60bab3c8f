#include "tests/windows/Needs.h"

#include <windows.h>
#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <map>
#include <sstream>

#include "forms/win32/Utf.h"
#include "tests/windows/Wait.h"

namespace driver {

namespace {

// Counts the tests, and collects why some were skipped.
class TestsOfRun : public testing::EmptyTestEventListener {
  public:
    // If the user's own Jotwright is running, the tests would operate it. Both use the same
    // options.
    void OnTestProgramStart(const testing::UnitTest& /*tests*/) override {
        if (IsInTestKit() &&
            ::OpenMutexW(SYNCHRONIZE, FALSE, L"Local\\Jotwright.Instance") != nullptr) {
            std::cerr << "Exit Jotwright, and start run-tests.cmd again.\n";
            std::exit(3);
        }
    }
    void OnTestPartResult(const testing::TestPartResult& part) override {
        if (part.skipped()) {
            ++counts[part.message()];
        }
    }
    void OnTestProgramEnd(const testing::UnitTest& tests) override {
        std::ostringstream summary;
        summary << tests.successful_test_count() << " passed, " << tests.failed_test_count()
                << " failed, " << tests.skipped_test_count() << " skipped\n";
        ListFailed(tests, summary);
        for (const auto& [reason, count] : counts) {
            summary << "  " << count << " x " << reason << '\n';
        }
        std::cout << summary.str();
        if (Has("JOTWRIGHT_SUMMARY")) {
            std::ofstream(std::filesystem::path(::_wgetenv(L"JOTWRIGHT_SUMMARY")), std::ios::app)
                << summary.str();
        }
    }

  private:
    static void ListFailed(const testing::UnitTest& tests, std::ostream& summary) {
        for (int i = 0; i < tests.total_test_suite_count(); ++i) {
            const testing::TestSuite& suite = *tests.GetTestSuite(i);
            for (int j = 0; j < suite.total_test_count(); ++j) {
                if (const auto& test = *suite.GetTestInfo(j); test.result()->Failed()) {
                    summary << "  failed: " << suite.name() << '.' << test.name() << '\n';
                }
            }
        }
    }

    std::map<std::string, int> counts;
};

// GoogleTest owns its listeners.
[[maybe_unused]] const bool isListening = [] {
    testing::UnitTest::GetInstance()->listeners().Append(new TestsOfRun);
    return true;
}();

std::string NeedOf(const std::string& variable) {
    const std::pair<const char*, const char*> needs[] = {
        {"JOTWRIGHT_ASK_HOST", "a helper that takes pictures"},
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

[[noreturn]] void Miss(const std::string& text) {
    if (!IsInTestKit()) {
        throw Failure("needs " + text + ": start the driver with scripts/run-windows-tests --app");
    }
    const std::string reason = "skipped: needs " + text;
    [&reason] { GTEST_SKIP() << reason; }();
    // GoogleTest ends the test at this exception and reports nothing more.
    throw testing::AssertionException(testing::TestPartResult(testing::TestPartResult::kSkip,
                                                              __FILE__, __LINE__, reason.c_str()));
}

std::wstring FormatOfUser(LCTYPE type) {
    wchar_t format[80]{};
    ::GetLocaleInfoW(LOCALE_USER_DEFAULT, type, format, 80);
    return format;
}

}  // namespace

bool Has(const std::string& variable) {
    return ::GetEnvironmentVariableW(forms::win32::Wide(variable).c_str(), nullptr, 0) != 0;
}

bool IsInTestKit() { return Has("JOTWRIGHT_TEST_KIT"); }

void Need(bool isMet, const std::string& text) {
    if (!isMet) {
        Miss(text);
    }
}

void MissingHelper(const std::string& variable) { Miss(NeedOf(variable)); }

void NeedDesktop() {
    if (IsInTestKit()) {
        Need(::IsWindowVisible(::FindWindowW(L"Shell_TrayWnd", nullptr)) != 0,
             "a desktop with a task bar");
    }
}

void NeedFormatsOfUnitedStates() {
    if (IsInTestKit()) {
        Need(FormatOfUser(LOCALE_SSHORTDATE) == L"M/d/yyyy" &&
                 FormatOfUser(LOCALE_STIMEFORMAT) == L"h:mm:ss tt",
             "the formats of English (United States)");
    }
}

}  // namespace driver
