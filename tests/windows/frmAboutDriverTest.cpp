#include "tests/windows/DriverTest.h"

namespace driver {

using frmAboutDriverTest = DriverTest;

TEST_F(frmAboutDriverTest, ShowsTheVersionAndTheNotice) {
    const Window main = StartProgram();
    const Window about = OpenFromMenuBar(main, barAbout, "About Jotwright", "Edit");
    EXPECT_FALSE(main.IsEnabled());
    EXPECT_TRUE(about.FindChild("Static", "Version " JOTWRIGHT_PROJECT_VERSION));
    const std::string text = about.Only("Edit").Text();
    EXPECT_NE(text.find("\r\n                             All Rights Reserved\r\n"),
              std::string::npos)
        << text;
    about.Button("&Close").Click();
    program.WaitUntilGone("About Jotwright");
    WaitUntil("the main window can be used", [&] { return main.IsEnabled(); });
}

}  // namespace driver
