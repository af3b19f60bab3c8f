#include <windows.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "forms/win32/Utf.h"
#include "forms/win32/devices/WinFiles.h"
#include "forms/win32/devices/WinShell.h"
#include "tests/conformance/win32/TempFolder.h"
#include "tests/support/ErrorOf.h"

namespace forms::win32 {

using testing_support::ErrorOf;

TEST(WinShellTest, AMissingDocumentGivesAResultCode) {
    const TempFolder folder;
    WinShell shell;
    EXPECT_LE(shell.Open(folder / "missing.txt", folder.Path()), 32);
}

class WinShellHelpTest : public testing::Test {
  protected:
    class RecordingShell : public WinShell {
      public:
        using WinShell::WinShell;
        int Open(const std::string& document, const std::string& workingFolder) override {
            opened.push_back(document);
            folders.push_back(workingFolder);
            return 33;
        }
        std::vector<std::string> opened;
        std::vector<std::string> folders;
    };

    std::string Make(const std::string& name, std::size_t size) {
        files.Write(folder / name, std::string(size, 'x'));
        return folder / name;
    }

    const TempFolder folder;
    WinFiles files;
};

TEST_F(WinShellHelpTest, WithoutAViewerThePageBesideTheHelpFileIsOpened) {
    const std::string helpFile = Make("some.help.hlp", 1);
    const std::string page = Make("some.help.html", 1);
    RecordingShell shell(false);
    shell.ShowHelp(helpFile, HELP_CONTENTS);
    shell.ShowHelp(helpFile, HELP_FORCEFILE);
    EXPECT_EQ(shell.opened, (std::vector<std::string>{page, page}));
    EXPECT_EQ(shell.folders, (std::vector<std::string>{folder.Path(), folder.Path()}));
}

TEST_F(WinShellHelpTest, ThePageReplacesAMissingHelpFile) {
    const std::string page = Make("a.html", 1);
    RecordingShell shell(true);
    shell.ShowHelp(folder / "a.hlp", HELP_FORCEFILE);
    EXPECT_EQ(shell.opened, std::vector<std::string>{page});
}

TEST_F(WinShellHelpTest, IfBothAreMissingNothingIsOpened) {
    for (const bool hasViewer : {false, true}) {
        RecordingShell shell(hasViewer);
        EXPECT_EQ(ErrorOf([&] { shell.ShowHelp(folder / "missing.hlp", HELP_FORCEFILE); }), 0);
        EXPECT_TRUE(shell.opened.empty());
    }
}

TEST_F(WinShellHelpTest, AStandInDoesNotCountAsAViewer) {
    EXPECT_FALSE(WinShell::IsHelpViewer(Wide(folder / "missing.exe")));
    EXPECT_FALSE(WinShell::IsHelpViewer(Wide(folder.Path())));
    EXPECT_FALSE(WinShell::IsHelpViewer(Wide(Make("stand-in.exe", 12000))));
    EXPECT_TRUE(WinShell::IsHelpViewer(Wide(Make("viewer.exe", 280000))));
}

}  // namespace forms::win32
