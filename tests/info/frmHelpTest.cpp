#include <gtest/gtest.h>

#include "info/frmHelp.h"
#include "tests/support/TestProgram.h"

namespace {

class frmHelpTest : public testing_support::TestProgram {};

TEST_F(frmHelpTest, ShowsItsPage) {
    Start([] { forms::Default<frmHelp>().Show(); });
    auto& window = forms::Default<frmHelp>();
    EXPECT_EQ(window.caption(), "Jotwright Help");
    EXPECT_EQ(window.icon().path, "C:\\Jotwright\\logo.ico");
    EXPECT_EQ(window.cmdClose.caption(), "&Close");
    EXPECT_EQ(window.lblHelp.caption(),
              "Jotwright Help\r\n1) After Jotwright is started, create a new note. As soon as the "
              "new note is created, Jotwright is hidden in the system tray and your new note is "
              "shown on your desktop. Go ahead and write your note. Then to access the note menu, "
              "Double Click with the left mouse button.\r\n\r\nFrom the menu you can 1)Hide the "
              "note 2)View the note or 3)Destroy the note.\r\n\r\nFor every note you have written, "
              "an icon is shown in the system tray.Place the cursor over an icon and a ToolTip "
              "will display with the name of  the note the icon represents. Click on the icon to "
              "view the note. To create another note, simply click the Jotwright program icon (the "
              "blue N).");
}

TEST_F(frmHelpTest, CloseUnloadsIt) {
    Start([] { forms::Default<frmHelp>().Show(); });
    user->Click(forms::Default<frmHelp>().cmdClose);
    EXPECT_EQ(forms::LoadedDefault<frmHelp>(), nullptr);
}

}  // namespace
