#include <gtest/gtest.h>

#include "forms/CommonDialog.h"
#include "forms/Form.h"
#include "tests/support/TestProgram.h"

namespace {

class frmDialogs : public forms::Form {
  public:
    frmDialogs() : Form("frmDialogs") {}
    forms::CommonDialog cdlMain{this, "cdlMain"};
};

class CommonDialogTest : public testing_support::TestProgram {
  protected:
    frmDialogs& Window() { return forms::Default<frmDialogs>(); }
};

TEST_F(CommonDialogTest, KeepsTheLastChosenFile) {
    Start([this] {
        Window().Show();
        Window().cdlMain.initialFolder = "c:\\";
        Window().cdlMain.filter = "All Files (*.*)|*.*";
    });
    bool chosen = false;
    stage->ExpectOpenDialog("C:\\a.wav");
    Start([&] { chosen = Window().cdlMain.ShowOpen(); });
    EXPECT_TRUE(chosen);
    EXPECT_EQ(stage->OpenDialogs()[0].initialFolder, "c:\\");
    EXPECT_EQ(stage->OpenDialogs()[0].filter, "All Files (*.*)|*.*");
    stage->ExpectOpenDialog(std::nullopt);
    Start([&] { chosen = Window().cdlMain.ShowOpen(); });
    EXPECT_FALSE(chosen);
    EXPECT_EQ(Window().cdlMain.fileName, "C:\\a.wav");
}

TEST_F(CommonDialogTest, ShowsHelp) {
    Start([this] {
        Window().cdlMain.helpFile = "C:\\a.hlp";
        Window().cdlMain.ShowHelp();
        Window().cdlMain.helpCommand = forms::HelpCommand::ForceFile;
        Window().cdlMain.ShowHelp();
    });
    ASSERT_EQ(shell.helpShown.size(), 2U);
    EXPECT_EQ(shell.helpShown[0].file, "C:\\a.hlp");
    EXPECT_EQ(shell.helpShown[0].command, 3);
    EXPECT_EQ(shell.helpShown[1].command, 9);
}

}  // namespace
