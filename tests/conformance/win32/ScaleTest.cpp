#include <windows.h>

#include <functional>
#include <string>

#include "forms/win32/FormWindow.h"
#include "forms/win32/Messages.h"
#include "tests/conformance/Stand.h"

namespace forms::win32 {

namespace {

class frmScaled : public Form {
  public:
    explicit frmScaled(const char* formName) : Form(formName) {}
    TextBox txtText{this, "txtText"};
    int timesResized = 0;

    void Design() override {
        innerWidth = 4500;
        innerHeight = 3000;
        txtText.Place(300, 600, 3000, 345);
    }
    void Form_Resize() override { ++timesResized; }
};

class frmFixed : public frmScaled {
  public:
    frmFixed() : frmScaled("frmFixed") {}
};

class frmSizable : public frmScaled {
  public:
    frmSizable() : frmScaled("frmSizable") {}
    void Design() override {
        frmScaled::Design();
        borderStyle = BorderStyle::Sizable;
    }
};

std::string Text(const RECT& rect) {
    return std::to_string(rect.left) + ' ' + std::to_string(rect.top) + ' ' +
           std::to_string(rect.right) + ' ' + std::to_string(rect.bottom);
}

// The system of the tests has 96 dpi.
class ScaleTest : public conformance::StandTest {
  protected:
    static HWND HandleOf(Form& form) { return FormWindow::Existing(form)->handle; }

    // The places of the window, its inside and its text box, measured from the origin.
    static std::string Places(frmScaled& form, POINT origin = {}) {
        RECT outer{};
        RECT inside{};
        RECT child{};
        ::GetWindowRect(HandleOf(form), &outer);
        ::GetClientRect(HandleOf(form), &inside);
        const Peer* peer = FormWindow::Existing(form)->controls.Find(form.txtText);
        ::GetWindowRect(peer->handle, &child);
        ::OffsetRect(&outer, -origin.x, -origin.y);
        ::OffsetRect(&child, -origin.x, -origin.y);
        return Text(outer) + ", " + Text(inside) + ", " + Text(child);
    }
    // The sizes of the window and its inside, and the place of the text box in the window. A window
    // manager may choose the place of a window that opens for the first time.
    static std::string Sizes(frmScaled& form) {
        RECT outer{};
        ::GetWindowRect(HandleOf(form), &outer);
        return Places(form, {outer.left, outer.top});
    }
    static std::string PlaceInModel(const Form& form) {
        return std::to_string(form.left()) + ' ' + std::to_string(form.top()) + ' ' +
               std::to_string(form.width()) + ' ' + std::to_string(form.height());
    }
    static void ReportScale(Form& form, int dpi, const RECT& place) {
        ::SendMessageW(HandleOf(form), scaleChangedMessage, MAKEWPARAM(dpi, dpi),
                       reinterpret_cast<LPARAM>(&place));
    }
    // Reports a new scale to a minimized window, as the system does.
    static void ReportScaleWhileMinimized(Form& form, int dpi) {
        ReportScale(form, dpi, {-32000, -32000, -31840, -31972});
    }

    // The default instance. If it was unloaded, makes a new one.
    static frmScaled& OfKind(bool isSizable) {
        return isSizable ? static_cast<frmScaled&>(Default<frmSizable>())
                         : static_cast<frmScaled&>(Default<frmFixed>());
    }
    void ForEachKind(const std::function<void(frmScaled&)>& test) {
        for (const bool isSizable : {false, true}) {
            SCOPED_TRACE(isSizable ? "sizable" : "fixed");
            test(OfKind(isSizable));
            Start([isSizable] { OfKind(isSizable).Unload(); });
        }
    }
    void Show(frmScaled& form) {
        Start([&form] { form.Show(); });
        stand->Pump(50);
    }
    void Hide(frmScaled& form) {
        Start([&form] { form.Hide(); });
        stand->Pump(50);
    }
};

TEST_F(ScaleTest, OfAMinimizedWindowIsReadWhenItIsRestored) {
    ForEachKind([this](frmScaled& form) {
        Show(form);
        const std::string places = Places(form);
        const std::string model = PlaceInModel(form);
        for (const bool isTakenBack : {false, true}) {
            stand->Minimize(form);
            ReportScaleWhileMinimized(form, 192);
            if (isTakenBack) {
                ReportScaleWhileMinimized(form, 96);
            }
            stand->Restore(form);
            EXPECT_EQ(Places(form), places);
            EXPECT_EQ(PlaceInModel(form), model);
        }
    });
}

TEST_F(ScaleTest, OfAWindowThatWasNeverOpenedIsReadWhenItIsRestored) {
    for (const bool isSizable : {false, true}) {
        SCOPED_TRACE(isSizable ? "sizable" : "fixed");
        Show(OfKind(isSizable));
        const std::string sizes = Sizes(OfKind(isSizable));
        const int left = OfKind(isSizable).left;
        const int top = OfKind(isSizable).top;
        Start([isSizable] { OfKind(isSizable).Unload(); });
        Start([=] {
            frmScaled& form = OfKind(isSizable);
            form.left = left;
            form.top = top;
            form.windowState = WindowState::Minimized;
            form.Show();
        });
        ReportScaleWhileMinimized(OfKind(isSizable), 192);
        stand->Restore(OfKind(isSizable));
        EXPECT_EQ(Sizes(OfKind(isSizable)), sizes);
        Start([isSizable] { OfKind(isSizable).Unload(); });
    }
}

TEST_F(ScaleTest, OfAHiddenWindowIsReadWhenItIsShown) {
    ForEachKind([this](frmScaled& form) {
        Show(form);
        const std::string places = Places(form);
        Hide(form);
        ReportScale(form, 192, {10, 10, 800, 700});
        Show(form);
        EXPECT_EQ(Places(form), places);
    });
}

// The system does not report to every window that its monitor has another scale.
TEST_F(ScaleTest, ThatChangedUnnoticedIsFollowedWhenTheWindowIsBack) {
    ForEachKind([this](frmScaled& form) {
        Show(form);
        const std::string places = Places(form);
        RECT place{};
        ::GetWindowRect(HandleOf(form), &place);
        const RECT twice{place.left, place.top, 2 * place.right - place.left,
                         2 * place.bottom - place.top};
        for (const bool isHidden : {false, true}) {
            ReportScale(form, 192, twice);
            EXPECT_NE(Places(form), places);
            if (isHidden) {
                Hide(form);
            } else {
                stand->Minimize(form);
            }
            const int before = form.timesResized;
            if (isHidden) {
                Show(form);
            } else {
                stand->Restore(form);
            }
            EXPECT_EQ(Places(form), places);
            EXPECT_GT(form.timesResized, before);
        }
    });
}

}  // namespace

}  // namespace forms::win32
