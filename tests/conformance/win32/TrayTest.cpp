#include <windows.h>
#include <shellapi.h>

#include <string>
#include <utility>
#include <vector>

#include "forms/Services.h"
#include "forms/win32/FormWindow.h"
#include "forms/win32/Internal.h"
#include "forms/win32/Messages.h"
#include "forms/win32/Pumps.h"
#include "forms/win32/devices/WinFiles.h"
#include "forms/win32/devices/WinTray.h"
#include "tests/conformance/win32/TempFolder.h"
#include "tests/conformance/win32/WindowTest.h"

namespace forms::win32 {

namespace {

class frmTray : public Form {
  public:
    frmTray() : Form("frmTray") {}
    std::vector<int> fromTray;
    std::vector<int> fromPointer;
    Timer tmrTick{this, "tmrTick"};
    void Design() override {
        tmrTick.interval = 100;
        tmrTick.Tick = [] {};
        width = 12000;
        height = 6000;
    }
    void Form_MouseMove(int /*button*/, int x, int /*y*/) override {
        (IsTrayCallback() ? fromTray : fromPointer).push_back(x / TwipsPerPixelX());
    }
};

// A shell that records its calls. Like the system, it refuses to add an icon twice and to change or
// delete an icon that it does not have.
class RecordedArea : public NotificationArea {
  public:
    bool Notify(DWORD message, NOTIFYICONDATAA& data) override {
        calls.push_back(message);
        if (isBusy || (message == NIM_ADD) == hasIcon) {
            hasIcon = hasIcon || (isBusy && addsAlthoughBusy && message == NIM_ADD);
            return false;
        }
        hasIcon = message != NIM_DELETE;
        shownPixels = WidthOf(data.hIcon);
        return true;
    }
    int IconPixels() override { return pixels; }
    std::uint64_t Milliseconds() override { return now; }

    bool hasIcon = false;
    bool isBusy = false;            // refuses every call
    bool addsAlthoughBusy = false;  // adds an icon, but reports a failure
    int pixels = 16;
    int shownPixels = 0;
    std::uint64_t now = 1000;
    std::vector<DWORD> calls;

  private:
    static int WidthOf(HICON icon) {
        ICONINFO parts{};
        BITMAP mask{};
        if (icon == nullptr || ::GetIconInfo(icon, &parts) == 0) {
            return 0;
        }
        ::GetObjectW(parts.hbmMask, sizeof mask, &mask);
        ::DeleteObject(parts.hbmMask);
        ::DeleteObject(parts.hbmColor);
        return mask.bmWidth;
    }
};

class TrayTest : public WindowTest<frmTray> {
  protected:
    void SetUp() override {
        WindowTest::SetUp();
        Show();
        record.owner = &Window();
        record.iconId = 1;
        record.flags = NIF_MESSAGE | NIF_TIP;
        record.callbackMessage = WM_MOUSEMOVE;
        record.tip = std::string("Jotwright") + '\0' + std::string(54, ' ');
        record.iconPath = WriteIcon();
    }
    // An icon file with one picture of 32 pixels.
    std::string WriteIcon() {
        constexpr int side = 32;
        constexpr std::uint32_t pictureBytes = 40 + side * side * 4 + side * 4;
        std::string bytes("\0\0\1\0\1\0\x20\x20\0\0\1\0\x20\0", 14);
        const auto append = [&bytes](std::uint32_t number) {
            bytes.append(reinterpret_cast<const char*>(&number), sizeof number);
        };
        for (const std::uint32_t number : {pictureBytes, 22U, 40U, 32U, 64U, 0x200001U}) {
            append(number);
        }
        bytes.append(24, '\0');
        bytes.append(side * side * 4, '\xff');
        bytes.append(side * 4, '\0');
        const std::string path = folder / "icon.ico";
        WinFiles().Write(path, bytes);
        return path;
    }

    const TempFolder folder;
    TrayRecord record;
};

TEST_F(TrayTest, TheTipFillsItsFieldWithBlanks) {
    const NOTIFYICONDATAA data = WinTray::NativeRecord(record, FormHandle(), nullptr);
    EXPECT_EQ(std::string(data.szTip, 64), std::string("Jotwright") + '\0' + std::string(54, ' '));
    record.tip = std::string(63, 'x') + '\0';
    EXPECT_EQ(std::string(WinTray::NativeRecord(record, FormHandle(), nullptr).szTip, 64),
              record.tip);
}

TEST_F(TrayTest, AnIconAddedThroughAnotherDeviceIsRemovedToo) {
    NotificationArea area;
    WinTray other(area);
    other.Add(record);
    WinTray tray(area);
    const bool removed = tray.Delete(record);
    NOTIFYICONDATAA data = WinTray::NativeRecord(record, FormHandle(), nullptr);
    EXPECT_TRUE(removed);
    EXPECT_EQ(::Shell_NotifyIconA(NIM_DELETE, &data), FALSE);
    EXPECT_FALSE(tray.Delete(record));
}

TEST_F(TrayTest, AnIconThatWasNotAddedIsTriedAgainUntilItIsThere) {
    RecordedArea area;
    area.isBusy = true;
    WinTray tray(area);
    EXPECT_FALSE(tray.Add(record));
    std::vector<std::uint64_t> tries;
    for (; area.now < 300'000; area.now += 1000) {
        area.calls.clear();
        tray.KeepShown();
        if (!area.calls.empty()) {
            tries.push_back(area.now / 1000);
        }
    }
    // Seconds: the pauses double up to a minute.
    EXPECT_EQ(tries, (std::vector<std::uint64_t>{3, 7, 15, 31, 63, 123, 183, 243}));
    area.isBusy = false;
    area.now += 60'000;
    tray.KeepShown();
    EXPECT_TRUE(area.hasIcon);
    EXPECT_EQ(area.shownPixels, 16);
    area.calls.clear();
    area.now += 600'000;
    tray.KeepShown();
    EXPECT_TRUE(area.calls.empty());
}

TEST_F(TrayTest, AnIconThatTheShellAddedWithoutSayingSoIsThere) {
    RecordedArea area;
    area.isBusy = true;
    area.addsAlthoughBusy = true;
    WinTray tray(area);
    EXPECT_FALSE(tray.Add(record));
    area.isBusy = false;
    area.now += 2000;
    tray.KeepShown();
    EXPECT_EQ(area.calls.back(), DWORD{NIM_MODIFY});
    area.calls.clear();
    area.now += 600'000;
    tray.KeepShown();
    EXPECT_TRUE(area.calls.empty());
}

TEST_F(TrayTest, TheTicksOfTheProgramAreTheTimesToTryAgain) {
    int times = 0;
    const auto before = std::exchange(onTimer, [&times] { ++times; });
    stand->Pump(300);
    EXPECT_EQ(times, 0) << "no timer is on";
    Window().tmrTick.enabled = true;
    PumpUntil([&times] { return times >= 3; });
    Window().tmrTick.enabled = false;
    onTimer = before;
    EXPECT_GE(times, 3);
}

// Messages that arrive all the time keep the native timer from firing.
TEST_F(TrayTest, OverdueTicksAreTimesToTryAgainToo) {
    int times = 0;
    const auto before = std::exchange(onTimer, [&times] { ++times; });
    int ticks = 0;
    Window().tmrTick.Tick = [&ticks] { ++ticks; };
    Window().tmrTick.enabled = true;
    stand->BeBusy(2 * Window().tmrTick.interval());
    ::PostMessageW(FormHandle(), WM_NULL, 0, 0);
    bool isFirst = true;
    pumps::Run([&isFirst] { return std::exchange(isFirst, false); });
    Window().tmrTick.enabled = false;
    onTimer = before;
    EXPECT_EQ(ticks, 1);
    EXPECT_EQ(times, 1);
}

TEST_F(TrayTest, ADeletedIconIsNotTriedAgain) {
    RecordedArea area;
    area.isBusy = true;
    WinTray tray(area);
    tray.Add(record);
    tray.Delete(record);
    area.isBusy = false;
    area.now += 600'000;
    tray.KeepShown();
    EXPECT_FALSE(area.hasIcon);
}

TEST_F(TrayTest, AShellThatRestartedGetsTheIconAgain) {
    RecordedArea area;
    WinTray tray(area);
    EXPECT_TRUE(tray.Add(record));
    area.hasIcon = false;
    area.pixels = 28;
    tray.AddAgain();
    EXPECT_TRUE(area.hasIcon);
    EXPECT_EQ(area.shownPixels, 28);
}

// Current systems also say that the shell has restarted if only its scale has changed.
TEST_F(TrayTest, AShellOfAnotherScaleThatKeptTheIconGetsItInItsNewSize) {
    RecordedArea area;
    WinTray tray(area);
    EXPECT_TRUE(tray.Add(record));
    area.pixels = 24;
    tray.AddAgain();
    EXPECT_EQ(area.shownPixels, 24);
}

TEST_F(TrayTest, TheIconFollowsATaskBarThatChangesLaterThanTheMonitors) {
    RecordedArea area;
    WinTray tray(area);
    EXPECT_TRUE(tray.Add(record));
    tray.FollowScale();
    EXPECT_EQ(area.shownPixels, 16);
    area.pixels = 24;
    area.now += 3000;
    tray.KeepShown();
    EXPECT_EQ(area.shownPixels, 24);
}

TEST_F(TrayTest, OnlyMessagesWithTheIconsNumberAreFromTheTray) {
    NotificationArea area;
    WinTray tray(area);
    tray.Add(record);
    ::SetCursorPos(0, 0);
    const auto move = [](WPARAM wParam, int x, int y) {
        ::SendMessageW(FormHandle(), WM_MOUSEMOVE, wParam, MAKELPARAM(x, y));
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
    ::GetWindowRect(FormHandle(), &place);
    for (const int dpi : {96, 120, 144, 168, 192, 96}) {
        ::SendMessageW(FormHandle(), scaleChangedMessage, MAKEWPARAM(dpi, dpi),
                       reinterpret_cast<LPARAM>(&place));
        const std::vector<int> columns{480, WM_LBUTTONUP, WM_LBUTTONDBLCLK, WM_RBUTTONUP};
        for (const int column : columns) {
            ::SendMessageW(FormHandle(), WM_MOUSEMOVE, 0, MAKELPARAM((column * dpi + 95) / 96, 5));
        }
        EXPECT_EQ(Window().fromPointer, columns) << dpi;
        Window().fromPointer.clear();
    }
}

TEST_F(TrayTest, AScaleChangeWithABadPlaceKeepsTheWindowInPlace) {
    // Small enough to fit the screen at twice the scale.
    ::SetWindowPos(FormHandle(), nullptr, 100, 100, 400, 300, SWP_NOZORDER);
    RECT place{};
    ::GetWindowRect(FormHandle(), &place);
    const RECT farAway{30000, 30000, 30400, 30300};
    const RECT turned{300, 300, 100, 100};
    for (const LPARAM address : {LPARAM{0}, LPARAM{1}, reinterpret_cast<LPARAM>(&farAway),
                                 reinterpret_cast<LPARAM>(&turned)}) {
        for (const int dpi : {192, 96}) {
            ::SendMessageW(FormHandle(), scaleChangedMessage, MAKEWPARAM(dpi, dpi), address);
            RECT now{};
            ::GetWindowRect(FormHandle(), &now);
            EXPECT_EQ(now.left, place.left);
            EXPECT_EQ(now.top, place.top);
            EXPECT_EQ(now.right - now.left, (place.right - place.left) * dpi / 96);
            EXPECT_EQ(FormWindow::Existing(Window())->scale.dpi, dpi);
        }
    }
    for (const int dpi : {0, 1, 0xFFFF}) {
        ::SendMessageW(FormHandle(), scaleChangedMessage, MAKEWPARAM(dpi, dpi),
                       reinterpret_cast<LPARAM>(&place));
        EXPECT_EQ(FormWindow::Existing(Window())->scale.dpi, 96);
    }
}

}  // namespace

}  // namespace forms::win32
