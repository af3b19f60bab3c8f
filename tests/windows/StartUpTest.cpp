#include <algorithm>
#include <functional>

#include "tests/windows/DriverTest.h"
#include "tests/windows/Hands.h"

namespace driver {

class StartUpTest : public DriverTest {};

TEST_F(StartUpTest, TheFirstStartMakesTheFolderAndShowsSplashMainWindowAndTips) {
    EraseSettings();
    const auto mainIsShown = [&] { return FindMain() && FindMain().IsVisible(); };
    ULONGLONG startTime = 0;
    Window splash;
    WaitUntil("the splash is shown before the main window", [&] {
        // The splash is short. If this test was stopped and missed it, start the program again.
        if (!program.Runs() || mainIsShown()) {
            startTime = ::GetTickCount64();
            program.Start(executable);
        }
        splash = FindSplash();
        return splash && !mainIsShown() && splash.IsVisible();
    });
    EXPECT_TRUE(FolderExists(folder + "\\Notes"));
    EXPECT_FALSE(FolderExists(folder + "\\SpecialAlarms"));

    const Window main = MainWindow();
    // The splash stays open for two ticks of half a second.
    EXPECT_GT(::GetTickCount64() - startTime, 900U);
    EXPECT_TRUE(main.HasTitleBar());

    const Window tips = program.WaitFor("Jotwright - Tips and Tricks");
    WaitUntil("the splash has gone", [&] { return !splash.Exists(); });
    EXPECT_FALSE(main.IsEnabled()) << "the tips are modal";
    EXPECT_TRUE(tips.FindChild("Static", "Create up to 100 personalized notes."));
    tips.Button("&Next Tip").Click();
    WaitUntil("the second tip is shown", [&] {
        return static_cast<bool>(tips.FindChild(
            "Static",
            "To view the main menu - Right click the Jotwright Icon in the system tray or Right "
            "click any part of the main Jotwright window."));
    });
    tips.Button("&Don't Show Tips at Startup").Click();
    tips.Button("OK").Click();
    program.WaitUntilGone("Jotwright - Tips and Tricks");
    WaitUntil("the main window can be used", [&] { return main.IsEnabled(); });
    EXPECT_EQ(Setting("Startup", "View Tips"), "1");
    hands::TypeKeys("dentist");
    WaitUntil("the keys reach the title box",
              [&] { return main.Only("Edit").Text() == "dentist"; });
    ExitProgram();
}

TEST_F(StartUpTest, SuppressedTipsAreNotShown) {
    const Window main = StartProgram();
    EXPECT_TRUE(program.Visible("Jotwright - Tips and Tricks").empty());
    EXPECT_TRUE(main.IsEnabled());
    ExitProgram();
}

TEST_F(StartUpTest, ASecondCopyShowsAMessageAndChangesNothing) {
    const std::string bytes =
        "\"Dentist\",\"Call\",#2031-06-05#,#09:30:00#,5,12,\"1\",1,\"yes\"\r\n";
    WriteNote("Dentist", bytes);
    const Window main = StartProgram();
    const Window editor = program.WaitFor("Dentist");
    // Leave out tool tips: one may open if the pointer happens to rest on a control.
    const auto visibleWindows = [](const Program& copy) {
        const auto windows = copy.Windows();
        return std::count_if(windows.begin(), windows.end(), [](const Window& window) {
            return window.IsVisible() && window.ClassName() != "tooltips_class32";
        });
    };
    const auto windows = visibleWindows(program);

    Program second;
    second.Start(executable);
    const Window box = second.WaitFor("  Jotwright Is Running");
    EXPECT_TRUE(box.FindChild("Static",
                              "     Jotwright is already running.\r\n"
                              "Click the Blue 'N' in the system tray."));
    EXPECT_EQ(visibleWindows(second), 1);
    box.Button("OK").Click();
    EXPECT_EQ(second.WaitForEnd(), 0U);

    EXPECT_TRUE(program.Runs());
    EXPECT_EQ(visibleWindows(program), windows) << program.Description();
    EXPECT_TRUE(main.IsVisible());
    EXPECT_TRUE(editor.IsMinimized());
    ExpectNote("Dentist", bytes);
    EXPECT_EQ(Setting("Startup", "View Tips"), "1");
    ExitProgram();
}

TEST_F(StartUpTest, EveryExitEndsTheProgramAndRemovesItsIcon) {
    const auto exitBy = [this](const std::function<void(const Window&)>& leave) {
        const Window main = StartProgram();
        EXPECT_TRUE(tray::HasIcon(main));
        leave(main);
        EXPECT_EQ(program.WaitForEnd(), 0U);
        EXPECT_FALSE(tray::HasIcon(main));
    };
    exitBy([](const Window& main) { main.Button("E&xit").Click(); });
    exitBy([this](const Window& main) { ChooseFromMenuBar(program, main, barFileExit); });
    exitBy([](const Window& main) { main.CloseBox(); });
}

}  // namespace driver
