#include <windows.h>

#include <string>

#include "forms/win32/Dpi.h"
#include "forms/win32/Fonts.h"
#include "forms/win32/FormWindow.h"
#include "forms/win32/Utf.h"
#include "tests/conformance/Stand.h"
#include "tests/conformance/win32/NativeWindows.h"

namespace forms::win32 {

namespace {

class frmSettings : public Form {
  public:
    explicit frmSettings(const char* formName = "frmSettings") : Form(formName) {}
    CommandButton cmdGo{this, "cmdGo"};
    Label lblText{this, "lblText"};
    TextBox txtText{this, "txtText"};
    Menu mnuFile{this, "mnuFile", "&File"};
    Menu mnuExit{this, mnuFile, "mnuExit", "E&xit"};
    int timesResized = 0;

    void Design() override {
        innerWidth = 4500;
        innerHeight = 3000;
        cmdGo.caption = "Enter A Name For Your New Note.";
        cmdGo.Place(300, 300, 3600, 375);
        lblText.caption = "Dentist";
        lblText.fontSize = 12;
        lblText.Place(300, 900, 1500, 375);
        txtText.Place(300, 1800, 3900, 345);
    }
    void Form_Resize() override { ++timesResized; }
};

class frmSizable : public frmSettings {
  public:
    frmSizable() : frmSettings("frmSizable") {}
    void Design() override {
        frmSettings::Design();
        borderStyle = BorderStyle::Sizable;
    }
};

// At twice its size, the window does not fit the screen of the tests.
class frmLarge : public frmSettings {
  public:
    frmLarge() : frmSettings("frmLarge") {}
    void Design() override {
        frmSettings::Design();
        innerWidth = 600 * 15;
        innerHeight = 600 * 15;
    }
};

// The user's fonts and title bars. The destructor restores them.
class UsersMetrics {
  public:
    UsersMetrics() {
        before.cbSize = sizeof before;
        ::SystemParametersInfoW(SPI_GETNONCLIENTMETRICS, sizeof before, &before, 0);
    }
    ~UsersMetrics() { Set(before); }
    UsersMetrics(const UsersMetrics&) = delete;
    UsersMetrics& operator=(const UsersMetrics&) = delete;

    void SetMessageFont(LONG height) const {
        NONCLIENTMETRICSW metrics = before;
        metrics.lfMessageFont.lfHeight = height;
        Set(metrics);
    }
    void SetTitleHeight(int more) const {
        NONCLIENTMETRICSW metrics = before;
        metrics.iCaptionHeight += more;
        Set(metrics);
    }

  private:
    static void Set(NONCLIENTMETRICSW& metrics) {
        ::SystemParametersInfoW(SPI_SETNONCLIENTMETRICS, sizeof metrics, &metrics, 0);
        // Windows gives all windows their new frames, then reports the change.
        for (HWND window : conformance::VisibleWindowsOfClass(L"FormWindow")) {
            ::SetWindowPos(
                window, nullptr, 0, 0, 0, 0,
                SWP_FRAMECHANGED | SWP_NOMOVE | SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
        }
        ::SendMessageW(::FindWindowW(L"FormsUtility", nullptr), WM_SETTINGCHANGE,
                       SPI_SETNONCLIENTMETRICS, 0);
    }

    NONCLIENTMETRICSW before{};
};

class UserSettingsTest : public conformance::StandTest {
  protected:
    void Show(Form& form) {
        Start([&form] { form.Show(); });
        stand->Pump(50);
    }
    static HWND HandleOf(Form& form) { return FormWindow::Existing(form)->handle; }
    static HWND HandleOf(Control& control) {
        return FormWindow::Existing(control.form)->controls.Find(control)->handle;
    }
    static SIZE InsideOf(HWND window) {
        RECT inside{};
        ::GetClientRect(window, &inside);
        return {inside.right, inside.bottom};
    }
    static RECT PlaceOf(HWND window) {
        RECT place{};
        ::GetWindowRect(window, &place);
        return place;
    }
    static void ExpectScaled(const SIZE& size, const SIZE& normal, int percent) {
        EXPECT_EQ(size.cx, ::MulDiv(normal.cx, percent, 100));
        EXPECT_EQ(size.cy, ::MulDiv(normal.cy, percent, 100));
    }
    // Expects that a control has room for its text in its own font.
    static void ExpectRoom(HWND control, const std::string& text) {
        auto* font = reinterpret_cast<HFONT>(::SendMessageW(control, WM_GETFONT, 0, 0));
        const SIZE needed = fonts::Measure(Wide(text), font);
        EXPECT_LE(needed.cx, InsideOf(control).cx) << text;
        EXPECT_LE(needed.cy, InsideOf(control).cy) << text;
    }

    const UsersMetrics metrics;
};

TEST_F(UserSettingsTest, TheSizeOfTextIsComparedWithNinePoints) {
    EXPECT_EQ(TextPercent(-12, 96), 100);
    EXPECT_EQ(TextPercent(-15, 120), 100);
    EXPECT_EQ(TextPercent(-240, 1920), 100);
    EXPECT_EQ(TextPercent(-11, 96), 100);  // smaller fonts have room
    EXPECT_EQ(TextPercent(15, 96), 100);
    EXPECT_EQ(TextPercent(-18, 96), 150);
    EXPECT_EQ(TextPercent(-27, 96), 225);
    EXPECT_EQ(TextPercent(-54, 192), 225);
    EXPECT_EQ(TextPercent(-30000, 96), 500);
    EXPECT_EQ(TextPercent(0, 96), 100);
}

TEST_F(UserSettingsTest, WindowsGrowWithTheMessageFont) {
    metrics.SetMessageFont(-12);
    auto& form = Default<frmSettings>();
    Show(form);
    const SIZE inside = InsideOf(HandleOf(form));
    const RECT place = PlaceOf(HandleOf(form));
    const SIZE button = InsideOf(HandleOf(form.cmdGo));
    for (const int percent : {150, 225, 100}) {
        SCOPED_TRACE(percent);
        metrics.SetMessageFont(-12 * percent / 100);
        ExpectScaled(InsideOf(HandleOf(form)), inside, percent);
        ExpectScaled(InsideOf(HandleOf(form.cmdGo)), button, percent);
        EXPECT_EQ(PlaceOf(HandleOf(form)).left, place.left);
        EXPECT_EQ(PlaceOf(HandleOf(form)).top, place.top);
        ExpectRoom(HandleOf(form.cmdGo), form.cmdGo.caption);
        ExpectRoom(HandleOf(form.lblText), form.lblText.caption);
    }
}

TEST_F(UserSettingsTest, AWindowDoesNotGrowBeyondItsMonitor) {
    metrics.SetMessageFont(-12);
    auto& form = Default<frmLarge>();
    Show(form);
    const SIZE inside = InsideOf(HandleOf(form));
    RECT work{};
    ::SystemParametersInfoW(SPI_GETWORKAREA, 0, &work, 0);
    metrics.SetMessageFont(-27);
    const RECT place = PlaceOf(HandleOf(form));
    EXPECT_GE(place.left, work.left);
    EXPECT_GE(place.top, work.top);
    EXPECT_LE(place.right, work.right);
    EXPECT_LE(place.bottom, work.bottom);
    EXPECT_GT(InsideOf(HandleOf(form)).cy, inside.cy);
    ExpectRoom(HandleOf(form.cmdGo), form.cmdGo.caption);
    ExpectRoom(HandleOf(form.lblText), form.lblText.caption);
}

TEST_F(UserSettingsTest, OldFontsAreDeleted) {
    auto& form = Default<frmSettings>();
    Show(form);
    const auto fontOf = [](HWND control) {
        return reinterpret_cast<HFONT>(::SendMessageW(control, WM_GETFONT, 0, 0));
    };
    const HFONT before = fontOf(HandleOf(form.txtText));
    EXPECT_EQ(::GetObjectType(before), DWORD{OBJ_FONT});
    // The new fonts are made before the old ones are deleted, so their handles differ.
    metrics.SetMessageFont(-18);
    EXPECT_NE(fontOf(HandleOf(form.txtText)), before);
    EXPECT_EQ(::GetObjectType(before), 0U);
    EXPECT_EQ(::GetObjectType(fontOf(HandleOf(form.txtText))), DWORD{OBJ_FONT});
}

TEST_F(UserSettingsTest, WindowsThatAreAwayGrowWhenTheyAreBack) {
    metrics.SetMessageFont(-12);
    auto& form = Default<frmSettings>();
    Show(form);
    const SIZE inside = InsideOf(HandleOf(form));
    stand->Minimize(form);
    metrics.SetMessageFont(-18);
    stand->Restore(form);
    ExpectScaled(InsideOf(HandleOf(form)), inside, 150);
    Start([&form] { form.Hide(); });
    metrics.SetMessageFont(-12);
    Show(form);
    ExpectScaled(InsideOf(HandleOf(form)), inside, 100);
    metrics.SetMessageFont(-27);
    Start([&form] { form.Unload(); });
    Show(Default<frmSettings>());
    ExpectScaled(InsideOf(HandleOf(Default<frmSettings>())), inside, 225);
}

TEST_F(UserSettingsTest, AHigherTitleBarLeavesTheInsideAsItWas) {
    auto& form = Default<frmSettings>();
    Show(form);
    const SIZE inside = InsideOf(HandleOf(form));
    const RECT place = PlaceOf(HandleOf(form));
    metrics.SetTitleHeight(12);
    ExpectScaled(InsideOf(HandleOf(form)), inside, 100);
    EXPECT_EQ(PlaceOf(HandleOf(form)).top, place.top);
    SCOPED_TRACE("hidden and shown again");
    Start([&form] { form.Hide(); });
    metrics.SetTitleHeight(0);
    Show(form);
    ExpectScaled(InsideOf(HandleOf(form)), inside, 100);
}

TEST_F(UserSettingsTest, AHigherTitleBarLaysOutASizableWindow) {
    auto& form = Default<frmSizable>();
    Show(form);
    const SIZE inside = InsideOf(HandleOf(form));
    const int before = form.timesResized;
    metrics.SetTitleHeight(12);
    EXPECT_LT(InsideOf(HandleOf(form)).cy, inside.cy);
    EXPECT_GT(form.timesResized, before);
}

}  // namespace

}  // namespace forms::win32
