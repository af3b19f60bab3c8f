#include <gtest/gtest.h>

#include <cstdlib>
#include <fstream>
#include <regex>
#include <sstream>
#include <string>

#include "alarms/frmAlarms.h"
#include "alarms/frmKillAlarm.h"
#include "alarms/frmSpecialAlarms.h"
#include "app/frmOptions.h"
#include "info/dlgInput.h"
#include "info/frmAbout.h"
#include "info/frmHelp.h"
#include "info/frmSplash.h"
#include "info/frmTip.h"
#include "notes/frmDisplayNote.h"
#include "notes/frmViewNotes.h"
#include "tests/support/WholeProgram.h"
#include "tests/support/WindowText.h"
#include "tools/frmStopWatch.h"
#include "tools/frmTimer.h"

namespace {

// Compares every window as it opens with the golden text. If a change was intended, run the test
// with JOTWRIGHT_WRITE_GOLDEN=1: it writes the file, and "git diff" shows the change.
constexpr const char* goldenFile = "tests/golden/windows.txt";

class AllWindowsTest : public testing_support::WholeProgram {
  protected:
    template <class T>
    std::string Text() {
        return testing_support::WindowText(Shown<T>());
    }

    std::string Everything() {
        StartQuietly();
        std::string all = testing_support::WindowText(Main());
        all += '\n' + testing_support::WindowText(MakeNote("Dentist"));
        for (const std::string& window :
             {Text<frmDisplayNote>(), Text<frmViewNotes>(), Text<frmSpecialAlarms>(),
              Text<frmAlarms>(), Text<frmKillAlarm>(), Text<frmOptions>(), Text<frmTimer>(),
              Text<frmStopWatch>(), Text<frmSplash>(), Text<frmTip>(), Text<frmAbout>(),
              Text<frmHelp>(), Text<dlgInput>()}) {
            all += '\n' + window;
        }
        return WithoutVersion(all);
    }

  private:
    // The version changes with each release, but the golden text should not.
    static std::string WithoutVersion(const std::string& text) {
        return std::regex_replace(text, std::regex("Version [0-9.]+"), "Version ...");
    }
};

TEST_F(AllWindowsTest, AllWindowsMatchTheGoldenText) {
    const std::string all = Everything();
    if (std::getenv("JOTWRIGHT_WRITE_GOLDEN") != nullptr) {
        std::ofstream(goldenFile, std::ios::binary) << all;
    }
    std::ifstream file(goldenFile, std::ios::binary);
    ASSERT_TRUE(file) << goldenFile << " is missing: run from the root of the repository";
    std::stringstream golden;
    golden << file.rdbuf();
    EXPECT_EQ(all, golden.str());
}

}  // namespace
