#include <windows.h>
#include <commctrl.h>

#include <algorithm>
#include <string>

#include "tests/windows/DriverTest.h"
#include "tests/windows/Hands.h"
#include "tests/windows/RemoteMemory.h"

namespace driver {

// Tips that open when the pointer rests on a control.
class ToolTipsTest : public DriverTest {
  protected:
    // The open tip. A null window if there is none.
    Window Shown() const;
    // Moves the pointer to this place and waits for the tip.
    void ExpectTipAt(POINT place, const std::string& text);
    void ExpectTip(const Window& control, const std::string& text);
};

Window ToolTipsTest::Shown() const {
    const auto windows = program.Windows();
    const auto found = std::find_if(windows.begin(), windows.end(), [](const Window& window) {
        return window.IsVisible() && window.ClassName() == TOOLTIPS_CLASSA;
    });
    return found == windows.end() ? Window() : *found;
}

void ToolTipsTest::ExpectTipAt(POINT place, const std::string& text) {
    std::string shown;
    // A tip closes by itself, so a test that was stopped for a while may miss it.
    WaitUntil("a tip is shown that says: " + text, [&] {
        hands::MoveTo(1, 1);
        WaitUntil("no tip is left", [this] { return !Shown(); });
        hands::MoveTo(place.x, place.y);
        hands::MoveBy(2, 1);
        return ComesTrueSoon([&] {
            const Window tip = Shown();
            shown = tip ? tip.Text() : "";
            return tip && tip.IsVisible();
        });
    });
    EXPECT_EQ(shown, text);
}

void ToolTipsTest::ExpectTip(const Window& control, const std::string& text) {
    const RECT place = control.Place();
    ExpectTipAt({(place.left + place.right) / 2, (place.top + place.bottom) / 2}, text);
}

TEST_F(ToolTipsTest, AreShownForButtonsLabelsAndPictures) {
    const Window main = StartProgram();
    ExpectTip(main.Button("Make &Note"), "Make a new note");
    ExpectTip(main.Button("Start CooKoo &Clock"), "Start the cookoo clock");
    main.Button("Start CooKoo &Clock").Click();
    ExpectTip(main.Button("Stop CooKoo &Clock"), "Stop the Cookoo Clock");
    ExpectTip(main.Child("Static", "Enter A Name For Your New Note."),
              "Right click to view the menu.");
    ExpectTip(main.Child("Static", "Jotwright logo"),
              "Click the logo  to visit the Jotwright website.");
    ExitProgram();
}

TEST_F(ToolTipsTest, AreShownForTheNoteAndEveryButtonOfItsToolbar) {
    const Window editor = MakeNote(StartProgram(), "Dentist");
    ExpectTip(editor.Only("Edit"), "  Double Click To View The  Menu.");
    const Window toolbar = editor.Only(toolbarClass);
    const char* const tips[] = {"Click To Save This Note",  "Click To Erase This Note",
                                "Click To Print This Note", "Click To Hide This Note",
                                "Jotwright Help Files",     "About Jotwright"};
    const RECT place = toolbar.Place();
    for (int i = 0; i < 6; ++i) {
        const Remote<RECT> button(toolbar);
        toolbar.Send(TB_GETITEMRECT, static_cast<WPARAM>(i), button.Parameter());
        const RECT area = button.Value();
        ExpectTipAt(
            {place.left + (area.left + area.right) / 2, place.top + (area.top + area.bottom) / 2},
            tips[i]);
    }
    CloseAndWait(editor);
    ExitProgram();
}

TEST_F(ToolTipsTest, AreShownWhereAnAlarmIsSetAndWhereItRings) {
    WriteNote("Dentist", "\"Dentist\",\"Call\",#2031-06-02#,#09:30:00#,1,12,\"1\",1,\"yes\"\r\n");
    const Window main = StartProgram();
    const Window editor = OpenRestored("Dentist");
    ExpectTip(editor.Child("", "Audio Alarm Set"), "Audio Alarm Set");
    CloseAndWait(editor);
    LetAlarmCome("2031-06-02 09:29:58", "Dentist");
    const Window display = program.WaitFor("Dentist");
    ExpectTip(display.Child("Static", "Jotwright Note"), "Left Click To View PopUp Menu");
    ExpectTip(display.Only("Edit"), "Right Click Above Lines To Access Menu");
    display.CloseBox();
    Box(program, displayQuestion).Click("No");
    main.CloseBox();
    EXPECT_EQ(program.WaitForEnd(), 0U);
}

// A text that fits in one line at one scale must fit at another.
TEST_F(ToolTipsTest, WidenWithTheScale) {
    const Window main = StartProgram();
    ExpectTip(main.Button("Make &Note"), "Make a new note");
    const Window tips = Shown();
    ASSERT_TRUE(tips);
    const LRESULT before = tips.Send(TTM_GETMAXTIPWIDTH);
    const RECT place = main.Place();
    const Remote<RECT> suggested(main, place);
    main.Send(0x02E0, MAKEWPARAM(192, 192), suggested.Parameter());  // WM_DPICHANGED
    EXPECT_EQ(tips.Send(TTM_GETMAXTIPWIDTH), 2 * before);
    ExitProgram();
}

}  // namespace driver
