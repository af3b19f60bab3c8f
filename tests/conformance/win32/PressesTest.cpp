#include <windows.h>

#include <string>
#include <vector>

#include "tests/conformance/win32/WindowTest.h"

namespace forms::win32 {

namespace {

class frmPressed : public Form {
  public:
    frmPressed() : Form("frmPressed") {}
    CheckBox chkOn{this, "chkOn"};
    Label lblText{this, "lblText"};
    Image imgLogo{this, "imgLogo"};
    std::vector<std::string> events;

    void Design() override {
        innerWidth = 6000;
        innerHeight = 4500;
        chkOn.Place(300, 300, 1500, 375);
        lblText.Place(300, 1200, 1500, 375);
        imgLogo.Place(300, 2100, 1500, 1500);
        const auto note = [this](const char* control) {
            return [this, control](int button, int /*x*/, int /*y*/) {
                events.push_back(control + std::to_string(button));
            };
        };
        chkOn.MouseUp = note("check box ");
        lblText.MouseUp = note("label ");
        imgLogo.MouseUp = note("image ");
    }
    void Form_MouseUp(int button, int /*x*/, int /*y*/) override {
        events.push_back("form " + std::to_string(button));
    }
};

using Events = std::vector<std::string>;

class PressesTest : public WindowTest<frmPressed> {
  protected:
    void SetUp() override {
        WindowTest::SetUp();
        Show();
    }
    static Events Taken() {
        Events taken;
        taken.swap(Window().events);
        return taken;
    }
    // The middle of the control, for messages to the form.
    static LPARAM On(const Control& control) {
        const Rect place = control.PlaceOnForm();
        return MAKELPARAM((place.left + place.width / 2) / 15, (place.top + place.height / 2) / 15);
    }
    static void Send(HWND window, UINT message, LPARAM place) {
        ::SendMessageW(window, message, 0, place);
    }

    const LPARAM inside = MAKELPARAM(5, 5);
    const LPARAM bare = MAKELPARAM(300, 200);
};

}  // namespace

TEST_F(PressesTest, AReleaseWithoutItsPressCountsForNothing) {
    for (const UINT message : {WM_LBUTTONUP, WM_RBUTTONUP, WM_MBUTTONUP}) {
        Send(FormHandle(), message, bare);
        Send(FormHandle(), message, On(Window().lblText));
        Send(FormHandle(), message, On(Window().imgLogo));
        Send(HandleOf(Window().chkOn), message, inside);
        Send(HandleOf(Window().lblText), message, inside);
    }
    EXPECT_EQ(Taken(), Events{});
    EXPECT_EQ(Window().chkOn.value(), 0);
}

TEST_F(PressesTest, APressAndItsReleaseCountOnce) {
    Send(FormHandle(), WM_LBUTTONDOWN, On(Window().imgLogo));
    Send(FormHandle(), WM_LBUTTONUP, On(Window().imgLogo));
    EXPECT_EQ(Taken(), Events{"image 1"});
    Send(FormHandle(), WM_LBUTTONUP, On(Window().imgLogo));
    EXPECT_EQ(Taken(), Events{});
    Send(FormHandle(), WM_RBUTTONDOWN, bare);
    Send(FormHandle(), WM_RBUTTONUP, bare);
    EXPECT_EQ(Taken(), Events{"form 2"});
    HWND box = HandleOf(Window().chkOn);
    Send(box, WM_RBUTTONDOWN, inside);
    Send(box, WM_RBUTTONUP, inside);
    EXPECT_EQ(Taken(), Events{"check box 2"});
    Send(box, WM_LBUTTONDOWN, inside);
    Send(box, WM_LBUTTONUP, inside);
    EXPECT_EQ(Taken(), Events{"check box 1"});
    EXPECT_EQ(Window().chkOn.value(), 1);
    // The second press of a double click.
    Send(box, WM_LBUTTONDBLCLK, inside);
    Send(box, WM_LBUTTONUP, inside);
    EXPECT_EQ(Taken(), Events{"check box 1"});
}

TEST_F(PressesTest, AReleaseElsewhereCountsForNothing) {
    Send(FormHandle(), WM_LBUTTONDOWN, On(Window().lblText));
    Send(FormHandle(), WM_LBUTTONUP, On(Window().imgLogo));
    Send(FormHandle(), WM_LBUTTONDOWN, bare);
    Send(FormHandle(), WM_LBUTTONUP, On(Window().imgLogo));
    Send(FormHandle(), WM_LBUTTONDOWN, bare);
    Send(FormHandle(), WM_LBUTTONUP, MAKELPARAM(-10, -10));
    Send(FormHandle(), WM_LBUTTONDOWN, On(Window().imgLogo));
    Send(FormHandle(), WM_RBUTTONUP, On(Window().imgLogo));
    HWND box = HandleOf(Window().chkOn);
    Send(box, WM_LBUTTONDOWN, inside);
    Send(box, WM_LBUTTONUP, MAKELPARAM(500, 500));
    EXPECT_EQ(Taken(), Events{});
    EXPECT_EQ(Window().chkOn.value(), 0);
}

}  // namespace forms::win32
