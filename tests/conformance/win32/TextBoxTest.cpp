#include <windows.h>

#include <string>

#include "tests/conformance/win32/WindowTest.h"

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

class TextBoxTest : public WindowTest<frmText> {
  protected:
    static HWND TextHandle() { return HandleOf(Window().txtNote); }
    static bool HasScrollBar() {
        return (::GetWindowLongPtrW(TextHandle(), GWL_STYLE) & WS_VSCROLL) != 0;
    }
    static SCROLLINFO ScrollRange() {
        SCROLLINFO info{};
        info.cbSize = sizeof info;
        info.fMask = SIF_ALL;
        EXPECT_TRUE(::GetScrollInfo(TextHandle(), SB_VERT, &info));
        return info;
    }
};

}  // namespace

TEST_F(TextBoxTest, TheScrollBarOfALongTextHasItsRange) {
    Start([] { Window().txtNote.text = Lines(100); });
    Show();
    ASSERT_TRUE(HasScrollBar());
    EXPECT_EQ(ScrollRange().nMax, 99);
    EXPECT_EQ(ScrollRange().nPos, 0);
    ::SendMessageW(TextHandle(), EM_LINESCROLL, 0, 20);
    EXPECT_EQ(ScrollRange().nPos, 20);
}

TEST_F(TextBoxTest, TheScrollBarFollowsTyping) {
    Show();
    EXPECT_FALSE(HasScrollBar());
    for (int i = 1; i < 100; ++i) {
        ::SendMessageW(TextHandle(), EM_REPLACESEL, FALSE, reinterpret_cast<LPARAM>(L"line\r\n"));
    }
    ASSERT_TRUE(HasScrollBar());
    EXPECT_EQ(ScrollRange().nMax, 99);
    EXPECT_GT(ScrollRange().nPos, 50);
    Start([] { Window().txtNote.text = ""; });
    EXPECT_FALSE(HasScrollBar());
}

// A multi-line edit control that has received WM_GETDLGCODE with a message closes its parent on
// Escape, as in a dialog.
TEST_F(TextBoxTest, EscapeThatReachesTheControlItselfDoesNotCloseTheWindow) {
    Show();
    MSG key{TextHandle(), WM_KEYDOWN, VK_ESCAPE, 1, 0, {}};
    ::SendMessageW(TextHandle(), WM_GETDLGCODE, VK_ESCAPE, reinterpret_cast<LPARAM>(&key));
    ::SendMessageW(TextHandle(), WM_KEYDOWN, VK_ESCAPE, 1);
    stand->Pump(50);
    EXPECT_EQ(Window().closings, 0);
    Window().closings = 1;
}

}  // namespace forms::win32
