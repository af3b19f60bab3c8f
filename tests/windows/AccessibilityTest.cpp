#include <windows.h>
#include <commctrl.h>
#include <oleacc.h>

#include <algorithm>

#include "forms/win32/Utf.h"
#include "tests/windows/Accessible.h"
#include "tests/windows/DriverTest.h"
#include "tests/windows/RemoteMemory.h"

namespace driver {

// The names for screen readers. Wine does not report names that the program gives to the system's
// accessibility service. Tests of the models check those names.
class AccessibilityTest : public DriverTest {
  protected:
    static void ExpectSpoken(const Window& window);
};

namespace {

std::string WithoutAccessKey(std::string caption) {
    std::erase(caption, '&');
    return caption;
}

// Whether the control's own text is its value rather than its name.
bool IsField(const std::string& className) {
    return className == "Edit" || className == "ComboBox" || className == DATETIMEPICK_CLASSA;
}

bool Has(const Accessible& object, LONG state) { return (object.state & state) != 0; }

}  // namespace

void AccessibilityTest::ExpectSpoken(const Window& window) {
    // The focus may move to a control after the window opens. Wait for that, so that it does not
    // move while a control is examined.
    ComesTrue([&] {
        const auto controls = window.Children();
        return std::any_of(controls.begin(), controls.end(),
                           [](const Window& control) { return control.HasFocus(); });
    });
    const Accessible whole = AccessibleOf(window);
    EXPECT_EQ(whole.name, window.Text());
    Window before;
    for (const Window& control : window.Children()) {
        if (!control.IsVisible()) {
            continue;
        }
        const std::string where = control.Description() + " in " + window.Description();
        const std::string kind = control.ClassName();
        // The clock of an editor changes each second, so read its text and name within one second.
        std::string text = control.Text();
        Accessible object = AccessibleOf(control);
        for (std::string now = control.Text(); now != text; now = control.Text()) {
            text = now;
            object = AccessibleOf(control);
        }
        EXPECT_NE(object.role, 0) << where;
        EXPECT_EQ(Has(object, STATE_SYSTEM_UNAVAILABLE), !control.IsEnabled()) << where;
        EXPECT_EQ(Has(object, STATE_SYSTEM_FOCUSED), control.HasFocus()) << where;
        if (!IsField(kind)) {
            EXPECT_NE(object.name, "") << where;
            EXPECT_EQ(object.name, kind == "Button" ? WithoutAccessKey(text) : text) << where;
        } else if (kind == "Edit" && before && before.ClassName() == "Static") {
            EXPECT_EQ(object.name, before.Text()) << where;
        }
        before = control;
    }
}

TEST_F(AccessibilityTest, EveryWindowHasNamesForAScreenReader) {
    WriteNote("Dentist", "\"Dentist\",\"Call\",#2031-06-05#,#09:30:00#,1,12,\"1\",1,\"yes\"\r\n");
    const Window main = StartProgram();
    WaitUntil("the title box has the focus", [&] { return main.Only("Edit").HasFocus(); });
    ExpectSpoken(main);
    EXPECT_EQ(AccessibleOf(main.Only("Edit")).name, "Enter A Name For Your New Note.");
    EXPECT_EQ(AccessibleOf(main.Child("Static", "Jotwright logo")).name, "Jotwright logo");

    const std::pair<const char*, const char*> tools[] = {
        {"S&pecial Alarms", "Special Alarms"},
        {"&Timer", "Novelty Timer"},
        {"&Stop Watch", "Novelty Stop Watch"},
    };
    for (const auto& [button, caption] : tools) {
        main.Button(button).Click();
        const Window tool = program.WaitFor(caption);
        WaitUntilFilled(tool, "Button");
        ExpectSpoken(tool);
        CloseAndWait(tool);
    }
    ForEachMenuBarWindow(main, ExpectSpoken);
    const Window panel = OpenPanel(main);
    ExpectSpoken(panel);
    EXPECT_EQ(AccessibleOf(panel.Only(listClass)).name, "Notes");
    CloseAndWait(panel);

    // An alarm and its sound also have names.
    const Window editor = OpenRestored("Dentist");
    ExpectSpoken(editor);
    for (const char* spoken : {" Alarm Set ", "Alarm Set", "Audio Alarm Set", "5, 2031"}) {
        EXPECT_TRUE(editor.FindChild("", spoken)) << spoken;
    }
}

TEST_F(AccessibilityTest, WindowsThatOpenByThemselvesHaveNames) {
    WriteNote("Dentist", "\"Dentist\",\"Call\",#2031-06-02#,#09:30:00#,1,12,\"1\",0,\"yes\"\r\n");
    const Window main = StartProgram();
    main.Button("Make &Note").Click();
    const Window rejection = program.WaitFor("  Note Title Error");
    WaitUntilFilled(rejection, "Button");
    ExpectSpoken(rejection);
    CloseAndWait(rejection);

    CloseAndWait(program.WaitFor("Dentist"));
    LetAlarmCome("2031-06-02 09:29:58", "Dentist");
    const Window display = program.WaitFor("Dentist");
    WaitUntilFilled(display, "Edit");
    WaitUntil("the text has the focus", [&] { return display.Only("Edit").HasFocus(); });
    ExpectSpoken(display);
    display.CloseBox();
    const Box question(program, displayQuestion);
    EXPECT_EQ(AccessibleOf(question.window).name, displayQuestion);
    question.Click("No");
}

TEST_F(AccessibilityTest, TheButtonsOfTheToolbarHaveNames) {
    const Window editor = MakeNote(StartProgram(), "Dentist");
    const Window toolbar = editor.Only(toolbarClass);
    EXPECT_EQ(AccessibleOf(toolbar).name, "Note");
    const char* const names[] = {"Save", "Erase", "Print", "Hide", "Help", "About"};
    constexpr int firstButton = 2000;
    constexpr std::size_t room = 64;
    for (int i = 0; i < 6; ++i) {
        const RemoteMemory text(toolbar, room * sizeof(wchar_t));
        toolbar.Send(TB_GETBUTTONTEXTW, static_cast<WPARAM>(firstButton + i), text.Parameter());
        wchar_t name[room]{};
        text.Read(name, sizeof name);
        name[room - 1] = L'\0';
        EXPECT_EQ(forms::win32::Narrow(name), names[i]);
    }
}

}  // namespace driver
