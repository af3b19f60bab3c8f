#include <iostream>

#include "tests/windows/DriverTest.h"

namespace driver {

class WindowObjectsTest : public DriverTest {
  protected:
    // Waits until the window and its controls exist, and closes the window.
    void Close(const std::string& caption) const;
    void OpenAndCloseTools(const Window& main) const;
    void OpenAndCloseBoxes(const Window& main) const;
    // Makes a note, sets its alarm to this minute (two digits) past nine, lets it ring, and erases
    // the note.
    void MakeRingAndErase(const Window& main, int minute);
    void Round(const Window& main, int minute);
    void Report(const std::string& when, const Objects& objects) const;
};

void WindowObjectsTest::Close(const std::string& caption) const {
    const Window window = program.WaitFor(caption);
    window.Send(WM_NULL);
    window.CloseBox();
    program.WaitUntilGone(caption);
}

void WindowObjectsTest::OpenAndCloseTools(const Window& main) const {
    const std::pair<const char*, const char*> tools[] = {
        {"S&pecial Alarms", "Special Alarms"},
        {"Notes &Control Panel", "Notes Control Panel"},
        {"&Timer", "Novelty Timer"},
        {"&Stop Watch", "Novelty Stop Watch"},
    };
    for (const auto& [button, caption] : tools) {
        main.Button(button).Click();
        Close(caption);
    }
    ForEachMenuBarWindow(main, [](const Window&) {});
}

void WindowObjectsTest::OpenAndCloseBoxes(const Window& main) const {
    RightClick(main);
    WaitUntil("a menu opens", [&] { return static_cast<bool>(program.OpenMenu()); });
    CloseMenu(program, main);

    main.Only("Edit").Type("2004");
    main.Button("Make &Note").Click();
    Close(" Note Title Error");

    main.Button("&Timer").Click();
    const Window timer = program.WaitFor("Novelty Timer");
    WaitUntilFilled(timer, "Edit");
    timer.Button("&Start Timer").Click();
    Box(program, "No Minutes Entered").Click("OK");
    timer.CloseBox();
    program.WaitUntilGone("Novelty Timer");
}

void WindowObjectsTest::MakeRingAndErase(const Window& main, int minute) {
    const std::string title = "Dentist";
    const Window editor = MakeNote(main, title);
    ChooseFromPopup(program, editor.Only("Edit"), popupBlue);
    ChooseFromPopup(program, editor.Only("Edit"), popup14Points);
    editor.Only("Edit").Type("Call");
    PickTime(TimePicker(editor), 9, minute);
    editor.Button(editorSet).Click();
    WaitUntil("the alarm is set",
              [&] { return static_cast<bool>(editor.FindChild("Button", editorTurnOff)); });
    HideNote(editor);

    LetAlarmCome("2031-06-02 09:" + std::to_string(minute - 1) + ":58", title);
    const Window display = program.WaitFor(title);
    display.Send(WM_NULL);
    display.CloseBox();
    Box(program, " Erase Note?").Click("Yes");
    WaitUntil("the display has gone", [&] { return !display.Exists(); });
    tray::Click(main);
    WaitUntil("the main window is shown", [&] { return main.IsVisible(); });
}

void WindowObjectsTest::Round(const Window& main, int minute) {
    OpenAndCloseTools(main);
    OpenAndCloseBoxes(main);
    MakeRingAndErase(main, minute);
    main.Send(WM_NULL);
}

void WindowObjectsTest::Report(const std::string& when, const Objects& objects) const {
    RecordProperty(when, objects.Text());
    std::cout << when << ": " << objects.Text() << std::endl;
}

TEST_F(WindowObjectsTest, ClosedWindowsLeaveNothingBehind) {
    const Window main = StartProgram();
    Report("start", program.CountObjects());
    // The first round creates objects that are kept until the program ends.
    Round(main, 21);
    const Objects before = program.CountObjects();
    Report("first_round", before);
    EXPECT_GT(before.children, 10U);
    Round(main, 31);
    // Threads that the system started for the program end a little later.
    ComesTrue([&] { return program.CountObjects().AreNoMoreThan(before); });
    const Objects after = program.CountObjects();
    Report("second_round", after);
    EXPECT_EQ(after.windows, before.windows) << program.Description();
    EXPECT_EQ(after.children, before.children);
    EXPECT_LE(after.handles, before.handles);
    EXPECT_LE(after.gdi, before.gdi);
    EXPECT_LE(after.user, before.user);
}

}  // namespace driver
