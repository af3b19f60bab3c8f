#include "tests/windows/DriverTest.h"
#include "tests/windows/Hands.h"
#include "tests/windows/Needs.h"

namespace driver {

namespace {

// Under Wine, the icons are at the right end of the task bar.
constexpr int lastIcon = 10;
constexpr int iconDistance = 20;
constexpr int mostIcons = 8;

}  // namespace

class TrayTest : public DriverTest {
  protected:
    Window StartHidden();
};

Window TrayTest::StartHidden() {
    const Window main = StartProgram();
    main.Button("&Hide Me").Click();
    WaitUntil("the main window hides", [&] { return !main.IsVisible(); });
    return main;
}

TEST_F(TrayTest, ALeftClickShowsTheHiddenWindow) {
    const Window main = StartHidden();
    tray::Click(main);
    WaitUntil("the main window is shown", [&] { return main.IsVisible(); });
    EXPECT_TRUE(main.IsEnabled());
}

TEST_F(TrayTest, ALeftClickRestoresTheMinimizedWindow) {
    const Window main = StartProgram();
    main.Minimize();
    WaitUntil("the main window is minimized", [&] { return main.IsMinimized(); });
    tray::Click(main);
    WaitUntil("the main window is restored",
              [&] { return !main.IsMinimized() && main.IsVisible(); });
}

TEST_F(TrayTest, ADoubleClickGoesToTheTitleBox) {
    const Window main = StartProgram();
    main.Button("&Timer").Click();
    program.WaitFor("Novelty Timer").CloseBox();
    program.WaitUntilGone("Novelty Timer");
    main.Button("&Hide Me").Click();
    WaitUntil("the main window hides", [&] { return !main.IsVisible(); });
    tray::DoubleClick(main);
    WaitUntil("the title box has the focus",
              [&] { return main.IsVisible() && main.Only("Edit").HasFocus(); });
}

TEST_F(TrayTest, ARightClickOpensTheMenuEvenWhileTheWindowIsHidden) {
    const Window main = StartHidden();
    tray::RightClick(main);
    ChooseFromOpenMenu(program, main, {trayShow});
    WaitUntil("the main window is shown", [&] { return main.IsVisible(); });
    EXPECT_TRUE(ComesTrue([&] { return main.Only("Edit").HasFocus(); }));

    tray::RightClick(main);
    ChooseFromOpenMenu(program, main, {trayHide});
    WaitUntil("the main window hides", [&] { return !main.IsVisible(); });
}

TEST_F(TrayTest, ShowRestoresAWindowThatWasMinimizedBeforeItWasHidden) {
    const Window main = StartProgram();
    main.Minimize();
    WaitUntil("the main window is minimized", [&] { return main.IsMinimized(); });
    tray::RightClick(main);
    ChooseFromOpenMenu(program, main, {trayHide});
    WaitUntil("the main window hides", [&] { return !main.IsVisible(); });
    tray::RightClick(main);
    ChooseFromOpenMenu(program, main, {trayShow});
    WaitUntil("the title box has the focus", [&] {
        return main.IsVisible() && !main.IsMinimized() && main.Only("Edit").HasFocus();
    });
    ExitProgram();
}

TEST_F(TrayTest, ExitEndsTheProgramAndSavesItsNotes) {
    const Window main = StartProgram();
    MakeNote(main, "Shopping").Only("Edit").Type("milk");
    WaitUntil("the main window hides itself", [&] { return !main.IsVisible(); });
    tray::RightClick(main);
    ChooseFromOpenMenu(program, main, {trayExit});
    EXPECT_EQ(program.WaitForEnd(), 0U);
    ExpectNote("Shopping",
               "\"Shopping\",\"milk\",#2031-06-02#,#12:00:00#,1,12,\"0\",0,\"yes\"\r\n");
}

TEST_F(TrayTest, TheIconIsThereWhileTheProgramRuns) {
    Need(Has("JOTWRIGHT_ASK_HOST"), "a task bar that shows every icon at its end");
    const Window main = StartHidden();
    const Window taskBar(::FindWindowW(L"Shell_TrayWnd", nullptr));
    ASSERT_TRUE(taskBar);
    const RECT area = taskBar.Place();
    // For a while, icons of killed programs may be shown before this one.
    int icon = 0;
    const bool shown = ComesTrue([&] {
        const int x = area.right - lastIcon - iconDistance * (icon++ % mostIcons);
        // The pointer must enter the icon from outside.
        hands::MoveTo(600, 500);
        hands::MoveTo(x, (area.top + area.bottom) / 2);
        hands::Press();
        hands::Release();
        return ComesTrueSoon([&] { return main.IsVisible(); });
    });
    EXPECT_TRUE(shown);
    ExitProgram();
}

}  // namespace driver
