#include <windows.h>

#include <atomic>
#include <functional>
#include <string>
#include <thread>

#include "forms/win32/QuietWait.h"
#include "forms/win32/devices/Handle.h"
#include "forms/win32/devices/WinFiles.h"
#include "forms/win32/devices/WinSound.h"
#include "tests/conformance/win32/TempFolder.h"
#include "tests/conformance/win32/WindowTest.h"

namespace forms::win32 {

namespace {

class frmWaiting : public Form {
  public:
    frmWaiting() : Form("frmWaiting") {}
    CommandButton cmdGo{this, "cmdGo"};
    int clicks = 0;
    int closings = 0;
    std::function<void()> onUnload;

    void Design() override {
        cmdGo.caption = "Go";
        cmdGo.Place(300, 300, 1260, 375);
        cmdGo.Click = [this] { ++clicks; };
    }
    void Form_QueryUnload(bool& cancel, UnloadMode mode) override {
        ++closings;
        cancel = mode != UnloadMode::SessionEnd;
    }
    void Form_Unload(bool& /*cancel*/) override {
        if (onUnload) {
            onUnload();
        }
    }
};

std::string LittleEndian(unsigned value, int bytes) {
    std::string text;
    for (int i = 0; i < bytes; ++i) {
        text += static_cast<char>(value >> (8 * i) & 0xffU);
    }
    return text;
}

// A wave file with this many seconds of silence.
std::string SilentWave(unsigned seconds) {
    constexpr unsigned rate = 8000;
    const std::string samples(std::size_t{2} * rate * seconds, '\0');
    const auto size = static_cast<unsigned>(samples.size());
    return "RIFF" + LittleEndian(36 + size, 4) + "WAVEfmt " + LittleEndian(16, 4) +
           LittleEndian(1, 2) + LittleEndian(1, 2) + LittleEndian(rate, 4) +
           LittleEndian(2 * rate, 4) + LittleEndian(2, 2) + LittleEndian(16, 2) + "data" +
           LittleEndian(size, 4) + samples;
}

class QuietWaitTest : public WindowTest<frmWaiting> {
  protected:
    void SetUp() override {
        WindowTest::SetUp();
        Show();
    }
    static HWND ButtonHandle() { return HandleOf(Window().cmdGo); }
};

}  // namespace

TEST_F(QuietWaitTest, MessagesAreAnsweredAndWindowsPaintedButNoHandlerRuns) {
    const Handle event(::CreateEventW(nullptr, TRUE, FALSE, nullptr));
    HWND window = FormHandle();
    HWND button = ButtonHandle();
    std::atomic<bool> isAnswered = false;
    std::atomic<bool> isPainted = false;
    // Acts as the user and as other programs.
    std::thread others([&] {
        ::SendMessageW(window, WM_NULL, 0, 0);
        isAnswered = true;
        ::InvalidateRect(window, nullptr, FALSE);
        while (::GetUpdateRect(window, nullptr, FALSE) != 0) {
            ::Sleep(1);
        }
        isPainted = true;
        ::PostMessageW(button, BM_CLICK, 0, 0);
        ::SendMessageW(button, BM_CLICK, 0, 0);
        ::SendMessageW(window, WM_CLOSE, 0, 0);
        ::SendMessageW(window, WM_ACTIVATE, WA_CLICKACTIVE, 0);
        ::SetEvent(event.get());
    });
    Start([&] {
        EXPECT_TRUE(WaitQuietly(event.get()));
        EXPECT_TRUE(isAnswered);
        EXPECT_TRUE(isPainted);
        EXPECT_EQ(Window().clicks, 0);
        EXPECT_EQ(Window().closings, 0);
    });
    others.join();
    PumpUntil([] { return Window().clicks == 2 && Window().closings == 1; });
    EXPECT_FALSE(IsWaitingQuietly());
}

TEST_F(QuietWaitTest, TheEndOfTheSessionEndsASound) {
    const TempFolder folder;
    const std::string path = folder / "silence.wav";
    WinFiles().Write(path, SilentWave(20));
    WinSound sound;
    bool isUnloaded = false;
    Window().onUnload = [&isUnloaded] { isUnloaded = true; };
    HWND utility = ::FindWindowW(L"FormsUtility", nullptr);
    std::thread system([utility] {
        ::SendMessageW(utility, WM_QUERYENDSESSION, 0, 0);
        ::SendMessageW(utility, WM_ENDSESSION, TRUE, 0);
    });
    Start([&] {
        sound.PlayToEnd(path);
        EXPECT_TRUE(runtime->HasEnded());
        EXPECT_TRUE(isUnloaded);
        sound.PlayToEnd(path);  // returns at once
    });
    system.join();
}

}  // namespace forms::win32
