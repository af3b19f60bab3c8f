#include <windows.h>

#include <string>

#include "forms/win32/FormWindow.h"
#include "tests/conformance/Stand.h"

namespace forms::win32 {

namespace {

class frmText : public Form {
  public:
    frmText() : Form("frmText") {}
    TextBox txtNote{this, "txtNote"};
    int closings = 0;

    void Design() override {
        innerWidth = 4500;
        innerHeight = 3000;
        txtNote.multiLine = true;
        txtNote.Place(300, 300, 3900, 2400);
    }
    void Form_QueryUnload(bool& cancel, UnloadMode /*mode*/) override {
        ++closings;
        cancel = closings == 1;
    }
};

std::string Lines(int count) {
    std::string text;
    for (int i = 1; i < count; ++i) {
        text += "line\r\n";
    }
    return text;
}

class TextBoxTest : public conformance::StandTest {
  protected:
    static frmText& Window() { return Default<frmText>(); }
    static HWND Handle() {
        return FormWindow::Existing(Window())->controls.Find(Window().txtNote)->handle;
    }
    static bool HasScrollBar() {
        return (::GetWindowLongPtrW(Handle(), GWL_STYLE) & WS_VSCROLL) != 0;
    }
    static SCROLLINFO ScrollRange() {
        SCROLLINFO info{};
        info.cbSize = sizeof info;
        info.fMask = SIF_ALL;
        EXPECT_TRUE(::GetScrollInfo(Handle(), SB_VERT, &info));
        return info;
    }
    void Show() {
        Start([] { Window().Show(); });
        stand->Pump(50);
    }
};

}  // namespace

TEST_F(TextBoxTest, TheScrollBarOfALongTextHasItsRange) {
    Start([] { Window().txtNote.text = Lines(100); });
    Show();
    ASSERT_TRUE(HasScrollBar());
    EXPECT_EQ(ScrollRange().nMax, 99);
    EXPECT_EQ(ScrollRange().nPos, 0);
    ::SendMessageW(Handle(), EM_LINESCROLL, 0, 20);
    EXPECT_EQ(ScrollRange().nPos, 20);
}

TEST_F(TextBoxTest, TheScrollBarFollowsTyping) {
    Show();
    EXPECT_FALSE(HasScrollBar());
    for (int i = 1; i < 100; ++i) {
        ::SendMessageW(Handle(), EM_REPLACESEL, FALSE, reinterpret_cast<LPARAM>(L"line\r\n"));
    }
    ASSERT_TRUE(HasScrollBar());
    EXPECT_EQ(ScrollRange().nMax, 99);
    EXPECT_GT(ScrollRange().nPos, 50);
    Start([] { Window().txtNote.text = ""; });
    EXPECT_FALSE(HasScrollBar());
}

// A multi-line control that has been asked as a control of a dialog closes its parent on Escape.
TEST_F(TextBoxTest, EscapeThatReachesTheControlItselfDoesNotCloseTheWindow) {
    Show();
    MSG key{Handle(), WM_KEYDOWN, VK_ESCAPE, 1, 0, {}};
    ::SendMessageW(Handle(), WM_GETDLGCODE, VK_ESCAPE, reinterpret_cast<LPARAM>(&key));
    ::SendMessageW(Handle(), WM_KEYDOWN, VK_ESCAPE, 1);
    stand->Pump(50);
    EXPECT_EQ(Window().closings, 0);
    Window().closings = 1;
}

}  // namespace forms::win32
