#include <windows.h>

#include <string>

#include "forms/win32/Foreground.h"
#include "forms/win32/FormWindow.h"
#include "tests/conformance/Stand.h"

using namespace forms_under_test;

namespace forms::win32 {

namespace {

class frmDialog : public LoggingForm {
  public:
    frmDialog() : LoggingForm("frmDialog") {}
    void Design() override { showInTaskbar = false; }
};

// Boxes and modal windows that wait for an answer, and the windows that they disable.
class AnsweringTest : public conformance::StandTest {
  protected:
    static HWND HandleOf(Form& form) { return FormWindow::Existing(form)->handle; }
    static bool IsTopMost(HWND window) {
        return (::GetWindowLongPtrW(window, GWL_EXSTYLE) & WS_EX_TOPMOST) != 0;
    }
    static bool IsAbove(HWND upper, HWND lower) {
        for (HWND window = lower; window != nullptr; window = ::GetWindow(window, GW_HWNDPREV)) {
            if (window == upper) {
                return true;
            }
        }
        return false;
    }
    // Does what the system does if the user clicks the button of the window in the task bar.
    static void ChooseInTaskBar(HWND window) {
        ::SetForegroundWindow(window);
        ::PostMessageW(window, WM_SYSCOMMAND, SC_RESTORE, 0);
    }
    void ShowTwo() {
        Start([] {
            Default<frmSecond>().Show();
            Default<frmFirst>().Show();
        });
        stand->Pump(50);
    }
    void ExpectActive(HWND window) {
        stand->Pump(50);
        EXPECT_EQ(::GetActiveWindow(), window);
        EXPECT_EQ(::GetForegroundWindow(), window);
    }
};

}  // namespace

TEST_F(AnsweringTest, DisabledWindowsLeadToTheBox) {
    ShowTwo();
    stand->Minimize(Default<frmSecond>());
    ExpectMessage("Look", "Message", [this] {
        HWND box = OpenBox();
        ASSERT_NE(box, nullptr);
        for (Form* form : {static_cast<Form*>(&Default<frmFirst>()),
                           static_cast<Form*>(&Default<frmSecond>())}) {
            ChooseInTaskBar(HandleOf(*form));
            ExpectActive(box);
        }
        EXPECT_TRUE(::IsIconic(HandleOf(Default<frmSecond>())));
        ::SendMessageW(HandleOf(Default<frmFirst>()), WM_ACTIVATE, WA_CLICKACTIVE, 0);
        ExpectActive(box);
    });
    Start([] { MsgBox("Look", {}, "Message"); });
}

TEST_F(AnsweringTest, DisabledWindowsLeadToTheModalWindow) {
    ShowTwo();
    stand->ExpectModal<frmThird>([this](frmThird& form) {
        HWND modal = HandleOf(form);
        ChooseInTaskBar(HandleOf(Default<frmSecond>()));
        ExpectActive(modal);
        stand->Minimize(form);
        ChooseInTaskBar(HandleOf(Default<frmSecond>()));
        ExpectActive(modal);
        EXPECT_FALSE(::IsIconic(modal));
        // A click on a disabled window.
        ::SetActiveWindow(nullptr);
        ::SendMessageW(HandleOf(Default<frmFirst>()), WM_SETCURSOR,
                       reinterpret_cast<WPARAM>(HandleOf(Default<frmFirst>())),
                       MAKELPARAM(HTERROR, WM_LBUTTONDOWN));
        ExpectActive(modal);
        stand->CloseBox(form);
    });
    Start([] { Default<frmThird>().ShowModal(); });
}

TEST_F(AnsweringTest, ABoxIsAboveWindowsThatAreAlwaysOnTop) {
    ShowTwo();
    Start([] { Default<frmSecond>().MakeTopMost(); });
    ExpectMessage("Look", "Message", [this] {
        HWND box = OpenBox();
        EXPECT_TRUE(IsTopMost(box));
        EXPECT_TRUE(IsAbove(box, HandleOf(Default<frmSecond>())));
        Start([] {
            Default<frmThird>().Show();
            Default<frmThird>().MakeTopMost();
        });
        EXPECT_TRUE(IsTopMost(HandleOf(Default<frmThird>())));
        EXPECT_TRUE(IsAbove(box, HandleOf(Default<frmThird>())));
    });
    Start([] { MsgBox("Look", {}, "Message"); });
}

TEST_F(AnsweringTest, AModalWindowIsAboveWindowsThatAreAlwaysOnTop) {
    ShowTwo();
    Start([] { Default<frmSecond>().MakeTopMost(); });
    stand->ExpectModal<frmThird>([this](frmThird& form) {
        EXPECT_TRUE(IsAbove(HandleOf(form), HandleOf(Default<frmSecond>())));
        stand->CloseBox(form);
    });
    Start([] { Default<frmThird>().ShowModal(); });
}

TEST_F(AnsweringTest, AWindowThatIsAlwaysOnTopOpensBelowABoxThatWaits) {
    Start([] { Default<frmFirst>().Show(); });
    ExpectMessage("Look", "Message", [this] {
        HWND box = OpenBox();
        EXPECT_FALSE(IsTopMost(box));
        Start([] {
            Default<frmSecond>().Show();
            Default<frmSecond>().MakeTopMost();
        });
        EXPECT_TRUE(IsAbove(box, HandleOf(Default<frmSecond>())));
    });
    Start([] { MsgBox("Look", {}, "Message"); });
}

// The pop-up is like the calendar of a date picker, which is destroyed when it loses the focus.
TEST_F(AnsweringTest, ABoxOutlivesAPopUpOfAControl) {
    Start([] { Default<frmFirst>().Show(); });
    HWND form = HandleOf(Default<frmFirst>());
    HWND popUp = ::CreateWindowExW(0, L"STATIC", L"", WS_POPUP | WS_VISIBLE, 10, 10, 50, 50, form,
                                   nullptr, nullptr, nullptr);
    ::SetActiveWindow(popUp);
    ASSERT_EQ(::GetActiveWindow(), popUp);
    ExpectMessage("Look", "Message", [form, popUp] {
        HWND box = OpenBox();
        EXPECT_EQ(::GetWindow(box, GW_OWNER), form);
        ::DestroyWindow(popUp);
        EXPECT_EQ(OpenBox(), box);
    });
    Start([] { MsgBox("Look", {}, "Message"); });
}

TEST_F(AnsweringTest, InTheBackgroundABoxHasAButtonInTheTaskBar) {
    Start([] { Default<frmDialog>().Show(); });
    stand->Pump(50);
    HWND dialog = HandleOf(Default<frmDialog>());
    EXPECT_FALSE(HasTaskbarButton(dialog));
    ExpectMessage("Look", "Message",
                  [dialog] { EXPECT_EQ(::GetWindow(OpenBox(), GW_OWNER), dialog); });
    Start([] { MsgBox("Look", {}, "Message"); });
    ::SetForegroundWindow(::GetDesktopWindow());
    ASSERT_FALSE(HasForeground());
    ExpectMessage("Listen", "Message", [] { EXPECT_TRUE(HasTaskbarButton(OpenBox())); });
    Start([] { MsgBox("Listen", {}, "Message"); });
}

}  // namespace forms::win32
