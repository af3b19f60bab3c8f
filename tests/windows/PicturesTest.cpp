#include "tests/windows/DriverTest.h"

namespace driver {

// Opens every window and keeps a picture of each, for those who want to see what the program looks
// like; what the windows do is tested elsewhere.
class Pictures : public DriverTest {
  protected:
    // Waits until the window has been drawn, keeps its picture and closes it.
    void TakeAndClose(const std::string& caption, const std::string& name) const;
};

void Pictures::TakeAndClose(const std::string& caption, const std::string& name) const {
    const Window window = program.WaitFor(caption);
    window.Send(WM_NULL);
    TakePicture(name);
    window.Close();
    program.WaitUntilGone(caption);
}

TEST_F(Pictures, OfTheStart) {
    EraseSettings();
    program.Start(executable);
    WaitUntil("the splash is shown", [&] { return static_cast<bool>(FindSplash()); });
    FindSplash().Send(WM_NULL);
    TakePicture("splash");
    TakeAndClose("Jotwright - Tips and Tricks", "tips");
    ExitProgram();
}

TEST_F(Pictures, OfTheMainWindowAndItsTools) {
    const Window main = StartProgram();
    TakePicture("main");
    RightClick(main);
    WaitUntil("a menu opens", [&] { return static_cast<bool>(program.OpenMenu()); });
    TakePicture("main-menu");
    CloseMenu(program, main);

    main.Only("Edit").Type("2004");
    main.Button("Make &Note").Click();
    TakeAndClose(" Note Title Error", "rejection");

    main.Button("S&pecial Alarms").Click();
    TakeAndClose("Special Alarms", "special-alarms");
    main.Button("&Timer").Click();
    TakeAndClose("Novelty Timer", "timer");
    main.Button("&Stop Watch").Click();
    TakeAndClose("Novelty Stop Watch", "stop-watch");
    ChooseFromMenuBar(program, main, barChooseAlarmSound);
    TakeAndClose("Choose An Alarm", "alarm-sounds");
    ChooseFromMenuBar(program, main, barNoteOptions);
    TakeAndClose("Note Options", "options");
    ChooseFromMenuBar(program, main, barAbout);
    TakeAndClose("About Jotwright", "about");
    ExitProgram();
}

TEST_F(Pictures, OfNotes) {
    WriteNote("Groceries",
              "\"Groceries\",\"Bread\r\nTea\",#2031-06-02#,#09:01:00#,5,14,\"1\",0,\"yes\"\r\n");
    const Window main = StartProgram();
    const Window restored = program.WaitFor("Groceries");
    restored.Close();
    WaitUntil("the editor has gone", [&] { return !restored.Exists(); });

    const Window editor = MakeNote(main, "Dentist");
    ChooseFromPopup(program, editor.Only("Edit"), popupBlue);
    editor.Only("Edit").Type("Call to move the appointment.\r\nAsk for a Friday.");
    editor.Send(WM_NULL);
    TakePicture("editor");
    editor.Button(audioBoxCaption).Click();
    editor.Button(editorSet).Click();
    WaitUntil("the alarm is set",
              [&] { return static_cast<bool>(editor.FindChild("Button", editorTurnOff)); });
    TakePicture("editor-alarm-set");
    HideNote(editor);

    Clock::Set("2031-06-02 09:00:58");
    program.WaitFor("Groceries").Send(WM_NULL);
    TakePicture("alarm-display");
    tray::LeftClick(main);
    WaitUntil("the main window is back", [&] { return main.IsVisible(); });
    main.Button("Notes &Control Panel").Click();
    TakeAndClose("Notes Control Panel", "control-panel");
}

}  // namespace driver
