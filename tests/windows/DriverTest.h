#pragma once

#include <gtest/gtest.h>

#include <cstddef>
#include <functional>
#include <string>

#include "tests/windows/Clock.h"
#include "tests/windows/Files.h"
#include "tests/windows/Gestures.h"
#include "tests/windows/NoteFiles.h"
#include "tests/windows/Program.h"
#include "tests/windows/SoundRecorder.h"
#include "tests/windows/Wait.h"

namespace driver {

// Each test starts with an application folder that holds only the shipped files. The only setting
// is that no tips are shown. The clock starts at Monday, 2 June 2031, 9:00:00.
class DriverTest : public testing::Test, protected NoteFiles {
  protected:
    static constexpr const char* mainCaption = "Jotwright";
    static constexpr const char* editorSet = "&Set Alarm";
    static constexpr const char* editorTurnOff = "&Turn Off Alarm";
    static constexpr const char* audioBoxCaption = "Turn On Audio Alarm";
    static constexpr const char* alarmBox = "Jotwright Audio Alarm";
    static constexpr const char* displayQuestion = " Erase Note?";
    static constexpr const char* saveQuestion = "Save Changes?";
    static constexpr const char* panelCaption = "Notes Control Panel";
    static constexpr const char* listClass = "SysListView32";
    static constexpr const char* toolbarClass = "ToolbarWindow32";

    // Positions of buttons in the editor's toolbar.
    static constexpr int toolbarSave = 0;
    static constexpr int toolbarErase = 1;
    static constexpr int toolbarHide = 3;
    // Menu entries of the editor and of the main window.
    inline static const MenuPath popupYellow{0, 4};
    inline static const MenuPath popupBlue{0, 3};
    inline static const MenuPath popup14Points{1, 2};
    inline static const MenuPath popupHideMe{3};
    inline static const MenuPath barEraseNote{0, 1};
    inline static const MenuPath barFileExit{0, 0};
    inline static const MenuPath barChooseAlarmSound{1, 4, 0};
    inline static const MenuPath barAbout{2, 0};
    inline static const MenuPath barVisitWebSite{2, 2};
    inline static const MenuPath barShowTips{2, 3};
    inline static const MenuPath barNoteOptions{1, 4, 1};
    // Entries of the menu of the notification area.
    static constexpr int trayHide = 4;
    static constexpr int trayShow = 5;
    static constexpr int trayExit = 11;

    void SetUp() override;
    void TearDown() override;

    // Starts the program, and waits until the main window is visible and the splash has gone.
    Window StartProgram();
    void ExitProgram();
    // Sends all windows the messages that Windows sends when the user's session ends.
    void EndSession() const;
    // The main window, visible or not. A null window if there is none.
    Window FindMain() const;
    Window FindSplash() const;
    // Waits until the main window is visible.
    Window MainWindow() const;

    // Sets the clock to this time, some seconds before an alarm or another event, and waits until
    // hasCome is true. If the program or this test does not run during the second of the event, the
    // program skips the event, as after a sleep. In that case, the clock is set again.
    void LetTimeCome(const std::string& time, const std::string& what,
                     const std::function<bool()>& hasCome) const;
    // Like LetTimeCome, with a function that sets the clock. If the event was skipped, the clock is
    // set again after the given number of seconds. Returns how often the clock was set again.
    int LetTimeCome(const std::function<void()>& setClock, unsigned seconds,
                    const std::string& what, const std::function<bool()>& hasCome) const;
    // Like LetTimeCome, for a window with this caption.
    void LetAlarmCome(const std::string& time, const std::string& caption) const;

    // Restores the minimized editor of a note and waits until its controls exist.
    Window OpenRestored(const std::string& title) const;
    static void Restore(const Window& window);
    // Waits until the window is not minimized and has all its controls. className is the class of
    // one of the controls.
    static void WaitUntilFilled(const Window& window, const std::string& className);
    // Types a title, clicks Make Note, and waits for the editor.
    Window MakeNote(const Window& main, const std::string& title);
    // Clicks Hide in the toolbar and waits until the window has closed.
    void HideNote(const Window& editor);
    // Brings a window to the foreground and waits until it is in the foreground.
    static void BringUp(const Window& window);
    // Waits until the window receives keys.
    static void WaitForKeyboard(const Window& window);
    // Closes a window that asks no question, and waits until it has closed.
    static void CloseAndWait(const Window& window);
    // Opens the window that this entry of the main window's menu bar opens. Waits until it has all
    // its controls. className is the class of one of the controls.
    Window OpenFromMenuBar(const Window& main, const MenuPath& path, const std::string& caption,
                           const std::string& className = "Button") const;
    // Opens the windows for the alarm sound, the options, About and the tips from the menu bar of
    // the main window. Calls show for each when its controls exist, and closes it.
    void ForEachMenuBarWindow(const Window& main,
                              const std::function<void(const Window&)>& show) const;
    // Clicks the button of the main window and waits for the list.
    Window OpenPanel(const Window& main) const;
    static Window DatePicker(const Window& editor);
    static Window TimePicker(const Window& editor);
    static void ExpectDate(const Window& picker, int year, int month, int day);
    static void ExpectTime(const Window& picker, int hour, int minute);

    Program program;
    SoundRecorder recorder;
};

}  // namespace driver
