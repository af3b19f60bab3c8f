#include <windows.h>
#include <commctrl.h>

#include <map>
#include <memory>
#include <string>
#include <vector>

#include "forms/win32/FormWindow.h"
#include "forms/win32/Utf.h"
#include "forms/win32/UtilityWindow.h"
#include "tests/conformance/Stand.h"

// Counts the requests to the window system that showing, filling, hiding and changing a form cause.
// Each request is a message to a window of this thread. Unlike times, the counts do not depend on
// the machine. If a change makes an action send more messages, a test fails here.

namespace forms::win32 {

namespace {

// Counts the messages that are sent to the windows of this thread while the object exists.
class SentMessages {
  public:
    SentMessages() {
        Counts().clear();
        Created().clear();
        hook = ::SetWindowsHookExW(WH_CALLWNDPROC, &Count, nullptr, ::GetCurrentThreadId());
    }
    ~SentMessages() { ::UnhookWindowsHookEx(hook); }
    SentMessages(const SentMessages&) = delete;
    SentMessages& operator=(const SentMessages&) = delete;

    int Of(UINT message) const { return Counts()[message]; }
    // The classes of the windows that were made, in this order.
    const std::vector<std::string>& ClassesOfMade() const { return Created(); }

  private:
    static std::map<UINT, int>& Counts() {
        static std::map<UINT, int> counts;
        return counts;
    }
    static std::vector<std::string>& Created() {
        static std::vector<std::string> classes;
        return classes;
    }
    static LRESULT CALLBACK Count(int code, WPARAM wParam, LPARAM lParam) {
        const auto& sent = *reinterpret_cast<const CWPSTRUCT*>(lParam);
        wchar_t name[32]{};
        ::GetClassNameW(sent.hwnd, name, 32);
        // The system makes windows of its own, such as one for typing.
        const bool isOurs = std::wstring(name) == L"FormWindow" ||
                            (::GetWindowLongPtrW(sent.hwnd, GWL_STYLE) & WS_CHILD) != 0;
        Counts()[sent.message] += isOurs ? 1 : 0;
        if (sent.message == WM_CREATE && isOurs) {
            Created().push_back(Narrow(name));
        }
        return ::CallNextHookEx(nullptr, code, wParam, lParam);
    }

    HHOOK hook = nullptr;
};

// Counts the messages with this number that this thread takes from its queue while the object
// exists.
class TakenMessages {
  public:
    explicit TakenMessages(UINT message) {
        Counted() = message;
        Count() = 0;
        hook = ::SetWindowsHookExW(WH_GETMESSAGE, &Take, nullptr, ::GetCurrentThreadId());
    }
    ~TakenMessages() { ::UnhookWindowsHookEx(hook); }
    TakenMessages(const TakenMessages&) = delete;
    TakenMessages& operator=(const TakenMessages&) = delete;

    static int& Count() {
        static int count = 0;
        return count;
    }

  private:
    static UINT& Counted() {
        static UINT message = 0;
        return message;
    }
    static LRESULT CALLBACK Take(int code, WPARAM wParam, LPARAM lParam) {
        const auto& taken = *reinterpret_cast<const MSG*>(lParam);
        Count() += wParam == PM_REMOVE && taken.message == Counted() ? 1 : 0;
        return ::CallNextHookEx(nullptr, code, wParam, lParam);
    }

    HHOOK hook = nullptr;
};

constexpr int buttons = 3;
using Classes = std::vector<std::string>;

class frmButtons : public Form {
  public:
    frmButtons() : Form("frmButtons") {}
    CommandButton cmdFirst{this, "cmdFirst"};
    CommandButton cmdSecond{this, "cmdSecond"};
    CommandButton cmdThird{this, "cmdThird"};

    void Design() override {
        int place = 180;
        for (CommandButton* button : {&cmdFirst, &cmdSecond, &cmdThird}) {
            button->caption = "Press";
            button->Place(180, place, 1500, 390);
            place += 450;
        }
    }
};

class frmHiddenControls : public frmButtons {
  public:
    Label lblHidden{this, "lblHidden"};
    void Design() override {
        frmButtons::Design();
        cmdSecond.visible = false;
        lblHidden.visible = false;
        lblHidden.Place(1800, 180, 1000, 300);
    }
};

class frmRows : public Form {
  public:
    frmRows() : Form("frmRows") {}
    ListView lvwRows{this, "lvwRows"};
    Toolbar tlbRows{this, "tlbRows"};
    ImageList ilsRows{this, "ilsRows"};

    void Design() override {
        ilsRows.images = {{"set", "alarmset"}, {"not set", "alarmnotset"}};
        tlbRows.imageList = &ilsRows;
        tlbRows.buttons = {{"Set", "", "set"}, {"Clear", "", "not set"}};
        tlbRows.Place(180, 2300, 3000, 480);
        lvwRows.imageList = &ilsRows;
        lvwRows.columns = {{"Title", 2000, "title"}};
        lvwRows.Place(180, 180, 3000, 2000);
    }
};

// The number of tool-tip windows of this form.
int TipWindowsOf(HWND form) {
    int count = 0;
    for (HWND tips = nullptr;
         (tips = ::FindWindowExW(nullptr, tips, TOOLTIPS_CLASSW, nullptr)) != nullptr;) {
        count += ::GetWindow(tips, GW_OWNER) == form ? 1 : 0;
    }
    return count;
}

HWND HandleOf(Control& control) {
    return FormWindow::Existing(control.form)->controls.Find(control)->handle;
}

// The image list that the native control answers this message with.
LRESULT IconsOf(Control& control, UINT message, WPARAM wParam) {
    return ::SendMessageW(HandleOf(control), message, wParam, 0);
}

}  // namespace

class RequestsTest : public conformance::StandTest {};

TEST_F(RequestsTest, AFormIsMadeInItsPlaceWithItsText) {
    const SentMessages sent;
    Start([] { Default<frmButtons>().Show(); });
    EXPECT_EQ(sent.ClassesOfMade(), (Classes{"FormWindow", "Button", "Button", "Button"}));
    EXPECT_EQ(sent.Of(WM_SETFONT), buttons);
    EXPECT_EQ(sent.Of(WM_SETTEXT), 0);
    EXPECT_EQ(sent.Of(WM_SETICON), 2);
    EXPECT_EQ(sent.Of(WM_STYLECHANGING), 0);
    EXPECT_EQ(sent.Of(WM_WINDOWPOSCHANGING), 1);  // when the form is shown
}

// SetWindowSubclass keeps its data in a property of the window, and asks the window system for this
// property at each message.
TEST_F(RequestsTest, AMessageToAControlNeedsNoPropertyOfIt) {
    Start([] { Default<frmButtons>().Show(); });
    HWND form = FormWindow::Existing(Default<frmButtons>())->handle;
    int controls = 0;
    for (HWND child = ::GetWindow(form, GW_CHILD); child != nullptr;
         child = ::GetWindow(child, GW_HWNDNEXT)) {
        EXPECT_EQ(::GetPropW(child, L"CC32SubclassInfo"), nullptr);
        ++controls;
    }
    EXPECT_EQ(controls, buttons);
}

TEST_F(RequestsTest, AMinimizedFormIsABareWindowUntilItIsRestored) {
    Start([] { Default<frmButtons>().Load(); });
    {
        const SentMessages sent;
        Start([] {
            Default<frmButtons>().windowState = WindowState::Minimized;
            Default<frmButtons>().Show();
        });
        EXPECT_EQ(sent.ClassesOfMade(), Classes{"FormWindow"});
        EXPECT_EQ(sent.Of(WM_SETFONT), 0);
        EXPECT_EQ(sent.Of(WM_SETICON), 2);
        EXPECT_LE(sent.Of(WM_WINDOWPOSCHANGING), 1);
    }
    const SentMessages sent;
    stand->Restore(Default<frmButtons>());
    EXPECT_EQ(sent.ClassesOfMade(), (Classes{"Button", "Button", "Button"}));
    EXPECT_EQ(sent.Of(WM_SETFONT), buttons);
    EXPECT_EQ(sent.Of(WM_SETTEXT), 0);
    EXPECT_EQ(sent.Of(WM_SETICON), 0);
}

TEST_F(RequestsTest, AHiddenControlIsMadeWhenItIsShown) {
    frmHiddenControls& form = Default<frmHiddenControls>();
    {
        const SentMessages sent;
        Start([&] { form.Show(); });
        EXPECT_EQ(sent.ClassesOfMade(), (Classes{"FormWindow", "Button", "Button"}));
    }
    const SentMessages sent;
    Start([&] {
        form.cmdSecond.caption = "Second";
        form.cmdSecond.Place(180, 630, 1200, 300);
        form.cmdSecond.enabled = false;
        form.cmdSecond.visible = true;
    });
    EXPECT_EQ(sent.ClassesOfMade(), Classes{"Button"});
    HWND second = HandleOf(form.cmdSecond);
    EXPECT_EQ(::GetWindow(HandleOf(form.cmdFirst), GW_HWNDNEXT), second);
    EXPECT_EQ(::GetWindow(second, GW_HWNDNEXT), HandleOf(form.cmdThird));
    EXPECT_EQ(stand->ShownCaption(form.cmdSecond), "Second");
    EXPECT_TRUE(::IsWindowVisible(second));
    EXPECT_FALSE(::IsWindowEnabled(second));
    RECT place{};
    ::GetClientRect(second, &place);
    EXPECT_EQ(place.right, 80);
    Start([&] {
        form.cmdSecond.visible = false;
        form.cmdSecond.visible = true;
    });
    EXPECT_EQ(HandleOf(form.cmdSecond), second);
    EXPECT_EQ(HandleOf(form.lblHidden), nullptr);
}

// If the window were shown before its controls exist, each control would be painted while it is
// made.
TEST_F(RequestsTest, AWindowThatIsRestoredIsPaintedOnce) {
    Start([] { Default<frmRows>().Load(); });
    Start([] {
        Default<frmRows>().windowState = WindowState::Minimized;
        Default<frmRows>().Show();
    });
    const SentMessages sent;
    ::SendMessageW(FormWindow::Existing(Default<frmRows>())->handle, WM_SYSCOMMAND, SC_RESTORE, 0);
    EXPECT_TRUE(::IsWindowVisible(HandleOf(Default<frmRows>().lvwRows)));
    EXPECT_EQ(sent.Of(WM_SETREDRAW), 2);
    EXPECT_EQ(sent.Of(WM_PAINT), 0);
    stand->Pump(50);
    EXPECT_EQ(::GetUpdateRect(HandleOf(Default<frmRows>().lvwRows), nullptr, FALSE), 0);
}

TEST_F(RequestsTest, ABoxTouchesNoMinimizedWindow) {
    constexpr int notes = 5;
    auto minimized = std::make_shared<std::vector<std::shared_ptr<frmButtons>>>();
    Start([minimized] {
        for (int number = 0; number < notes; ++number) {
            minimized->push_back(New<frmButtons>());
            minimized->back()->windowState = WindowState::Minimized;
            minimized->back()->Show();
        }
        Default<frmRows>().Show();
    });
    stand->Pump(50);
    const SentMessages sent;
    ExpectMessage("Look", "Message", [&] {
        EXPECT_LE(sent.Of(WM_ENABLE), 1);  // only the owner of the box
        // An alarm brings up its note, which must not react before the box is answered.
        Start([&] { minimized->front()->windowState = WindowState::Normal; });
        EXPECT_FALSE(stand->CanBeUsed(*minimized->front()));
    });
    Start([] { MsgBox("Look", {}, "Message"); });
    EXPECT_LE(sent.Of(WM_ENABLE), 4);
    for (const auto& form : *minimized) {
        EXPECT_TRUE(stand->CanBeUsed(*form));
    }
}

TEST_F(RequestsTest, HidingAFormTouchesNoControl) {
    Start([] { Default<frmButtons>().Show(); });
    stand->Pump(50);
    const SentMessages sent;
    Start([] { Default<frmButtons>().Hide(); });
    EXPECT_EQ(sent.Of(WM_WINDOWPOSCHANGING), 1);
    EXPECT_EQ(sent.Of(WM_SETTEXT), 0);
    EXPECT_EQ(sent.Of(WM_DESTROY), 0);
}

// The button's own handler unloads the form, so that its procedures are on the stack meanwhile.
TEST_F(RequestsTest, OneMessageDestroysAnUnloadedForm) {
    Start([] {
        Default<frmButtons>().cmdFirst.Click = [] { Default<frmButtons>().Unload(); };
        Default<frmButtons>().Show();
    });
    HWND form = FormWindow::Existing(Default<frmButtons>())->handle;
    stand->Pump(50);
    const TakenMessages taken(UtilityWindow::destroyMessage);
    stand->Click(Default<frmButtons>().cmdFirst);
    stand->Pump(50);
    EXPECT_FALSE(::IsWindow(form));
    EXPECT_EQ(TakenMessages::Count(), 1);
}

// The pointer cannot have moved yet, because no loop has run.
TEST_F(RequestsTest, TipsHaveNoWindowBeforeThePointerMoves) {
    Start([] {
        Default<frmButtons>().cmdFirst.toolTip = "Presses";
        Default<frmButtons>().Show();
    });
    HWND form = FormWindow::Existing(Default<frmButtons>())->handle;
    EXPECT_EQ(TipWindowsOf(form), 0);
    for (int move = 0; move < 2; ++move) {
        ::SendMessageW(form, WM_MOUSEMOVE, 0, MAKELPARAM(5, 5));
        EXPECT_EQ(TipWindowsOf(form), 1);
    }
    EXPECT_EQ(::GetPropW(::GetWindow(form, GW_CHILD), L"CC32SubclassInfo"), nullptr);
}

// The system sends a move to a window that appears below the pointer.
TEST_F(RequestsTest, AWindowBelowARestingPointerHasNoTips) {
    auto other = std::make_shared<std::shared_ptr<frmButtons>>();
    Start([other] {
        Default<frmButtons>().cmdFirst.toolTip = "Presses";
        Default<frmButtons>().Show();
        *other = New<frmButtons>();
        (*other)->cmdFirst.toolTip = "Presses";
        (*other)->Show();
    });
    HWND first = FormWindow::Existing(Default<frmButtons>())->handle;
    HWND second = FormWindow::Existing(**other)->handle;
    const POINT rest{300, 300};
    const auto move = [](HWND form, POINT place) {
        ::ScreenToClient(form, &place);
        ::SendMessageW(form, WM_MOUSEMOVE, 0, MAKELPARAM(place.x, place.y));
    };
    move(first, rest);
    move(second, rest);
    EXPECT_EQ(TipWindowsOf(first), 1);
    EXPECT_EQ(TipWindowsOf(second), 0);
    move(second, {rest.x + 1, rest.y});
    EXPECT_EQ(TipWindowsOf(second), 1);
}

// Under Wine, a toolbar makes its tool-tip window when a program asks for that window.
TEST_F(RequestsTest, AToolbarHasNoTipsBeforeThePointerMoves) {
    Start([] { Default<frmRows>().Show(); });
    EXPECT_EQ(TipWindowsOf(FormWindow::Existing(Default<frmRows>())->handle), 0);
}

// Each icon of a new list is about thirty requests.
TEST_F(RequestsTest, WindowsWithTheSameIconsShareThem) {
    auto other = std::make_shared<std::shared_ptr<frmRows>>();
    Start([other] {
        Default<frmRows>().Show();
        *other = New<frmRows>();
        (*other)->Show();
    });
    stand->Pump(50);
    frmRows& first = Default<frmRows>();
    frmRows& second = **other;
    ASSERT_NE(IconsOf(first.tlbRows, TB_GETIMAGELIST, 0), 0);
    EXPECT_EQ(IconsOf(first.tlbRows, TB_GETIMAGELIST, 0),
              IconsOf(second.tlbRows, TB_GETIMAGELIST, 0));
    ASSERT_NE(IconsOf(first.lvwRows, LVM_GETIMAGELIST, LVSIL_SMALL), 0);
    EXPECT_EQ(IconsOf(first.lvwRows, LVM_GETIMAGELIST, LVSIL_SMALL),
              IconsOf(second.lvwRows, LVM_GETIMAGELIST, LVSIL_SMALL));
    Start([other] { (*other)->Unload(); });
    stand->Pump(50);
    int width = 0;
    int height = 0;
    EXPECT_TRUE(::ImageList_GetIconSize(
        reinterpret_cast<HIMAGELIST>(IconsOf(first.lvwRows, LVM_GETIMAGELIST, LVSIL_SMALL)), &width,
        &height));
}

TEST_F(RequestsTest, AListIsToldOnceOfAllItsRows) {
    Start([] { Default<frmRows>().Show(); });
    stand->Pump(50);
    const SentMessages sent;
    Start([] {
        ListView& list = Default<frmRows>().lvwRows;
        list.BeginUpdate();
        for (int row = 0; row < 100; ++row) {
            list.AddRow({std::to_string(row), -1, {"Dentist"}});
        }
        list.EndUpdate();
    });
    EXPECT_EQ(sent.Of(LVM_SETITEMCOUNT), 1);
    EXPECT_EQ(sent.Of(LVM_INSERTITEMW), 0);
}

}  // namespace forms::win32
