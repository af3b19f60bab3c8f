#include <windows.h>
#include <commctrl.h>

#include <string>
#include <vector>

#include "tests/windows/DriverTest.h"

namespace driver {

// Any program of the same user can send any message to the windows of this program.
class ForgedMessagesTest : public DriverTest {
  protected:
    static constexpr UINT scaleChanged = 0x02E0;  // WM_DPICHANGED
    static constexpr UINT scaledSize = 0x02E4;    // WM_GETDPISCALEDSIZE
    // Addresses at which the program has no memory.
    static constexpr LPARAM nowhere[] = {0, 1, 0x7FFF0000};

    // Opens an editor and types a text that is in no file.
    Window OpenEditor() {
        const Window main = StartProgram();
        const Window editor = MakeNote(main, "Dentist");
        editor.Only("Edit").Type(text);
        return editor;
    }

    // The editor, all its controls, and the other windows of the program.
    std::vector<Window> Targets(const Window& editor) const {
        std::vector<Window> targets = editor.Children();
        targets.push_back(editor);
        for (const Window& window : program.Windows()) {
            const std::string name = window.ClassName();
            if (window != editor && (name == formClass || name == "FormsUtility")) {
                targets.push_back(window);
            }
        }
        return targets;
    }

    void ExpectAlive(const Window& editor, const std::string& after) {
        ASSERT_TRUE(ComesTrue([&] { return !program.Runs() || Answers(editor); })) << after;
        ASSERT_TRUE(program.Runs()) << after;
        ASSERT_TRUE(editor.Exists()) << after;
        EXPECT_EQ(editor.Only("Edit").Text(), text) << after;
    }

    void ExpectSavedAtTheEnd(const Window& editor) {
        HideNote(editor);
        ExpectNote("Dentist",
                   "\"Dentist\",\"" + text + "\",#2031-06-02#,#12:00:00#,1,12,\"0\",0,\"yes\"\r\n");
        ExitProgram();
    }

    static bool Answers(const Window& window) {
        try {
            window.Send(WM_NULL);
            return true;
        } catch (const Failure&) {
            return false;
        }
    }

    const std::string text = "Ask about the tooth.";
};

TEST_F(ForgedMessagesTest, AScaleChangeWithABadPlace) {
    const Window editor = OpenEditor();
    for (const LPARAM address : nowhere) {
        for (const int dpi : {0, 1, 96, 144, 65535}) {
            editor.Post(scaleChanged, MAKEWPARAM(dpi, dpi), address);
            ::SendNotifyMessageW(editor.handle, scaleChanged, MAKEWPARAM(dpi, dpi), address);
            ExpectAlive(editor, "scale " + std::to_string(dpi));
        }
    }
    const RECT place = editor.Place();
    EXPECT_GT(place.right - place.left, 200);
    EXPECT_LT(place.right - place.left, 2000);
    ExpectSavedAtTheEnd(editor);
}

TEST_F(ForgedMessagesTest, TheEndOfAWindow) {
    const Window editor = OpenEditor();
    for (const Window& target : Targets(editor)) {
        for (const UINT message : {WM_DESTROY, WM_NCDESTROY}) {
            ::PostMessageW(target.handle, message, 0, 0);
            ::SendNotifyMessageW(target.handle, message, 0, 0);
            ExpectAlive(editor, target.Description() + " message " + std::to_string(message));
        }
    }
    ExpectSavedAtTheEnd(editor);
}

TEST_F(ForgedMessagesTest, TheEndOfTheProgram) {
    const Window editor = OpenEditor();
    const DWORD thread = ::GetWindowThreadProcessId(editor.handle, nullptr);
    ::PostThreadMessageW(thread, WM_QUIT, 0, 0);
    ExpectAlive(editor, "WM_QUIT to the thread");
    editor.Post(WM_QUIT);
    ExpectAlive(editor, "WM_QUIT to the editor");
    for (const Window& target : Targets(editor)) {
        target.Post(WM_QUERYENDSESSION);
        target.Post(WM_ENDSESSION, FALSE);
    }
    ExpectAlive(editor, "the end of the session that did not come");
    ExpectSavedAtTheEnd(editor);
}

TEST_F(ForgedMessagesTest, TimersWithACallback) {
    const Window editor = OpenEditor();
    for (const Window& target : Targets(editor)) {
        if (target == editor || target.ClassName() != "Edit") {
            for (const WPARAM id : {0, 1, 2}) {
                target.Post(WM_TIMER, id, id == 0 ? 0 : 0x1234);
            }
        }
    }
    ExpectAlive(editor, "timers");
    ExpectSavedAtTheEnd(editor);
}

TEST_F(ForgedMessagesTest, MessagesWithBadPointers) {
    const Window editor = OpenEditor();
    const UINT messages[] = {
        WM_NCCREATE,     WM_CREATE,         WM_NCCALCSIZE,       WM_GETMINMAXINFO,
        WM_STYLECHANGED, WM_STYLECHANGING,  WM_WINDOWPOSCHANGED, WM_WINDOWPOSCHANGING,
        WM_DRAWITEM,     WM_MEASUREITEM,    WM_DELETEITEM,       WM_COMPAREITEM,
        WM_NOTIFY,       WM_GETDLGCODE,     WM_SETTEXT,          WM_GETTEXT,
        WM_COPYDATA,     WM_INITMENUPOPUP,  WM_CTLCOLOREDIT,     WM_CTLCOLORSTATIC,
        WM_ERASEBKGND,   WM_PRINTCLIENT,    WM_NEXTDLGCTL,       WM_SETTINGCHANGE,
        WM_SETCURSOR,    WM_DISPLAYCHANGE,  WM_TIMECHANGE,       WM_POWERBROADCAST,
        scaledSize,      EM_SETHANDLE,      EM_SETWORDBREAKPROC, WM_APP + 1,
        WM_APP + 2,      LVM_GETITEMW,      LVM_SETITEMTEXTW,    LVM_INSERTCOLUMNW,
        HDM_GETITEMW,    DTM_SETSYSTEMTIME, DTM_GETSYSTEMTIME,   DTM_SETFORMATW,
    };
    for (const Window& target : Targets(editor)) {
        for (const UINT message : messages) {
            for (const LPARAM address : nowhere) {
                // The system itself refuses some of these messages.
                ::PostMessageW(target.handle, message, static_cast<WPARAM>(address), address);
            }
        }
        ExpectAlive(editor, target.Description());
    }
    editor.Post(WM_COMMAND, 0, 0x7FFF0000);
    editor.Post(WM_COMMAND, 0xFFFF, 0);
    ExpectAlive(editor, "commands");
    ExpectSavedAtTheEnd(editor);
}

TEST_F(ForgedMessagesTest, SentToTheText) {
    const Window editor = OpenEditor();
    const Window box = editor.Only("Edit");
    for (const UINT message : {UINT{EM_SETHANDLE}, UINT{EM_SETWORDBREAKPROC}, UINT{WM_NCCREATE}}) {
        ::SendNotifyMessageW(box.handle, message, 0x1234, 0x1234);
    }
    ExpectAlive(editor, "a foreign memory");
    DoubleClick(box);  // calls the word-break procedure, then opens the menu
    CloseMenu(program, box);
    ExpectAlive(editor, "a double click");
    ExpectSavedAtTheEnd(editor);
}

TEST_F(ForgedMessagesTest, TrayMessagesWithBadNumbers) {
    const Window editor = OpenEditor();
    for (LPARAM message = 0; message < 0x400; ++message) {
        if (message < WM_MOUSEFIRST || message > WM_MOUSELAST) {
            editor.Post(WM_MOUSEMOVE, 1, message);
            FindMain().Post(WM_MOUSEMOVE, 1, message);
        }
    }
    ExpectAlive(editor, "tray messages");
    ExpectSavedAtTheEnd(editor);
}

}  // namespace driver
