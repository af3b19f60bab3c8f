#include <windows.h>
#include <shellapi.h>

#include <string>
#include <vector>

#include "forms/Services.h"
#include "forms/win32/FormWindow.h"
#include "forms/win32/Internal.h"
#include "forms/win32/Messages.h"
#include "forms/win32/devices/WinTray.h"
#include "tests/conformance/Stand.h"

namespace forms::win32 {

namespace {

class frmTray : public Form {
  public:
    frmTray() : Form("frmTray") {}
    std::vector<int> fromTray;
    std::vector<int> fromPointer;
    void Design() override {
        width = 12000;
        height = 6000;
    }
    void Form_MouseMove(int /*button*/, int x, int /*y*/) override {
        (IsTrayCallback() ? fromTray : fromPointer).push_back(x / TwipsPerPixelX());
    }
};

class TrayTest : public conformance::StandTest {
  protected:
    void SetUp() override {
        StandTest::SetUp();
        Start([] { Default<frmTray>().Show(); });
        stand->Pump(50);
        record.owner = &Window();
        record.iconId = 1;
        record.flags = NIF_MESSAGE | NIF_TIP;
        record.callbackMessage = WM_MOUSEMOVE;
        record.tip = std::string("Jotwright") + '\0' + std::string(54, ' ');
    }
    static frmTray& Window() { return Default<frmTray>(); }
    static HWND Handle() { return FormWindow::Existing(Window())->handle; }

    TrayRecord record;
};

TEST_F(TrayTest, TheTipFillsItsFieldWithBlanks) {
    const NOTIFYICONDATAA data = WinTray::NativeRecord(record, Handle(), nullptr);
    EXPECT_EQ(std::string(data.szTip, 64), std::string("Jotwright") + '\0' + std::string(54, ' '));
    record.tip = std::string(63, 'x') + '\0';
    EXPECT_EQ(std::string(WinTray::NativeRecord(record, Handle(), nullptr).szTip, 64), record.tip);
}

TEST_F(TrayTest, AnIconAddedThroughAnotherDeviceIsRemovedToo) {
    WinTray other;
    other.Add(record);
    WinTray tray;
    const bool removed = tray.Delete(record);
    NOTIFYICONDATAA data = WinTray::NativeRecord(record, Handle(), nullptr);
    EXPECT_TRUE(removed);
    EXPECT_EQ(::Shell_NotifyIconA(NIM_DELETE, &data), FALSE);
    EXPECT_FALSE(tray.Delete(record));
}

TEST_F(TrayTest, OnlyMessagesWithTheIconsNumberAreFromTheTray) {
    WinTray tray;
    tray.Add(record);
    ::SetCursorPos(0, 0);
    const auto move = [](WPARAM wParam, int x, int y) {
        ::SendMessageW(Handle(), WM_MOUSEMOVE, wParam, MAKELPARAM(x, y));
    };
    move(1, 0x205, 0);
    EXPECT_EQ(Window().fromTray, std::vector<int>{0x205});
    EXPECT_TRUE(Window().fromPointer.empty());
    Window().fromTray.clear();
    move(0, 0x204, 0);
    move(MK_RBUTTON, 0x202, 0);
    move(MK_SHIFT, 0x203, 0);
    move(1, 0x205, 1);
    move(1, 0x207, 0x7f);
    EXPECT_TRUE(Window().fromTray.empty());
    EXPECT_EQ(Window().fromPointer.size(), 5U);
}

// Monitors can have different scales.
TEST_F(TrayTest, AWindowOfAnotherScaleCountsTheSameColumns) {
    RECT place{};
    ::GetWindowRect(Handle(), &place);
    for (const int dpi : {96, 120, 144, 168, 192, 96}) {
        ::SendMessageW(Handle(), scaleChangedMessage, MAKEWPARAM(dpi, dpi),
                       reinterpret_cast<LPARAM>(&place));
        for (const int column : {480, 514, 515, 517}) {
            ::SendMessageW(Handle(), WM_MOUSEMOVE, 0, MAKELPARAM((column * dpi + 95) / 96, 5));
        }
        EXPECT_EQ(Window().fromPointer, (std::vector<int>{480, 514, 515, 517})) << dpi;
        Window().fromPointer.clear();
    }
}

TEST_F(TrayTest, AScaleChangeWithABadPlaceKeepsTheWindowInPlace) {
    // Small enough to fit the screen at twice the scale.
    ::SetWindowPos(Handle(), nullptr, 100, 100, 400, 300, SWP_NOZORDER);
    RECT place{};
    ::GetWindowRect(Handle(), &place);
    const RECT farAway{30000, 30000, 30400, 30300};
    const RECT turned{300, 300, 100, 100};
    for (const LPARAM address : {LPARAM{0}, LPARAM{1}, reinterpret_cast<LPARAM>(&farAway),
                                 reinterpret_cast<LPARAM>(&turned)}) {
        for (const int dpi : {192, 96}) {
            ::SendMessageW(Handle(), scaleChangedMessage, MAKEWPARAM(dpi, dpi), address);
            RECT now{};
            ::GetWindowRect(Handle(), &now);
            EXPECT_EQ(now.left, place.left);
            EXPECT_EQ(now.top, place.top);
            EXPECT_EQ(now.right - now.left, (place.right - place.left) * dpi / 96);
            EXPECT_EQ(FormWindow::Existing(Window())->scale.dpi, dpi);
        }
    }
    for (const int dpi : {0, 1, 0xFFFF}) {
        ::SendMessageW(Handle(), scaleChangedMessage, MAKEWPARAM(dpi, dpi),
                       reinterpret_cast<LPARAM>(&place));
        EXPECT_EQ(FormWindow::Existing(Window())->scale.dpi, 96);
    }
}

}  // namespace

}  // namespace forms::win32
