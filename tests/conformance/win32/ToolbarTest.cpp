#include <windows.h>
#include <commctrl.h>

#include <string>
#include <vector>

#include "forms/win32/Dpi.h"
#include "forms/win32/Messages.h"
#include "tests/conformance/win32/WindowTest.h"

namespace forms::win32 {

namespace {

class frmTools : public Form {
  public:
    frmTools() : Form("frmTools") {}
    Toolbar tlbTools{this, "tlbTools"};
    DateTimePicker dtDate{this, "dtDate"};

    void Design() override {
        innerWidth = 6000;
        innerHeight = 3000;
        tlbTools.Place(180, 120, 5640, 480);
        std::vector<Toolbar::Button> buttons(3);
        buttons[0].key = "Save";
        buttons[1].key = "Erase";
        buttons[2].key = "Print";
        tlbTools.buttons = buttons;
        dtDate.toolTip = "Choose a date";
        dtDate.Place(180, 900, 2000, 345);
    }
};

LONG FontHeightOf(HWND window) {
    LOGFONTW font{};
    const auto handle = ::SendMessageW(window, WM_GETFONT, 0, 0);
    ::GetObjectW(reinterpret_cast<HFONT>(handle), sizeof font, &font);
    return font.lfHeight;
}

// data points to the handle of a window. Replaces it with the handle of the tool-tip window that
// this window owns.
BOOL CALLBACK FindTips(HWND window, LPARAM data) {
    auto& sought = *reinterpret_cast<HWND*>(data);
    wchar_t name[32] = L"";
    ::GetClassNameW(window, name, 32);
    if (std::wstring(name) == TOOLTIPS_CLASSW && ::GetWindow(window, GW_OWNER) == sought) {
        sought = window;
        return FALSE;
    }
    return TRUE;
}

class ToolbarTest : public WindowTest<frmTools> {
  protected:
    void SetUp() override {
        WindowTest::SetUp();
        Show();
    }
    static HWND TipsOfForm() {
        HWND found = FormHandle();
        ::EnumThreadWindows(::GetCurrentThreadId(), &FindTips, reinterpret_cast<LPARAM>(&found));
        return found;
    }
};

}  // namespace

TEST_F(ToolbarTest, ButtonsShowNoTextAndHaveTheirSize) {
    HWND toolbar = HandleOf(Window().tlbTools);
    EXPECT_EQ(::SendMessageW(toolbar, TB_GETTEXTROWS, 0, 0), 0);
    for (WPARAM button = 0; button < 3; ++button) {
        RECT place{};
        ASSERT_TRUE(
            ::SendMessageW(toolbar, TB_GETITEMRECT, button, reinterpret_cast<LPARAM>(&place)));
        EXPECT_EQ(place.right - place.left, 32);
        EXPECT_EQ(place.bottom - place.top, 32);
    }
}

TEST_F(ToolbarTest, TipsAndCalendarsFollowTheScale) {
    auto* tips =
        reinterpret_cast<HWND>(::SendMessageW(HandleOf(Window().tlbTools), TB_GETTOOLTIPS, 0, 0));
    ASSERT_NE(tips, nullptr);
    ::SendMessageW(FormHandle(), WM_MOUSEMOVE, 0, MAKELPARAM(5, 5));
    ASSERT_NE(TipsOfForm(), FormHandle());
    RECT place{};
    ::GetWindowRect(FormHandle(), &place);
    for (const int dpi : {192, 96}) {
        ::SendMessageW(FormHandle(), scaleChangedMessage, MAKEWPARAM(dpi, dpi),
                       reinterpret_cast<LPARAM>(&place));
        EXPECT_EQ(FontHeightOf(tips), TipFont(dpi).lfHeight);
        EXPECT_EQ(FontHeightOf(TipsOfForm()), TipFont(dpi).lfHeight);
        LOGFONTW calendar{};
        const auto font = ::SendMessageW(HandleOf(Window().dtDate), DTM_GETMCFONT, 0, 0);
        ::GetObjectW(reinterpret_cast<HFONT>(font), sizeof calendar, &calendar);
        EXPECT_EQ(calendar.lfHeight, MessageFont(dpi).lfHeight);
    }
    EXPECT_NE(TipFont(96).lfHeight, TipFont(192).lfHeight);
}

}  // namespace forms::win32
