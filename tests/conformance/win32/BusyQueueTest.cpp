#include <windows.h>

#include "tests/conformance/Stand.h"

// The system delivers timer messages only if the queue has no others. Here the queue is never
// empty.

namespace forms::win32 {

namespace {

using namespace forms_under_test;

// Posts a new message to itself for each message that it receives. Stops after a number of messages
// that would take more than an hour.
class Flood {
  public:
    Flood() {
        window = ::CreateWindowExW(0, L"STATIC", L"", WS_POPUP, 0, 0, 0, 0, nullptr, nullptr,
                                   nullptr, nullptr);
        ::SetWindowLongPtrW(window, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
        ::SetWindowLongPtrW(window, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(&Flood::Procedure));
    }
    ~Flood() { ::DestroyWindow(window); }
    Flood(const Flood&) = delete;
    Flood& operator=(const Flood&) = delete;

    void Start() {
        runs = true;
        ::PostMessageW(window, WM_APP, 0, 0);
    }
    void Stop() { runs = false; }
    // The number of messages so far.
    int Count() const { return count; }
    bool Runs() const { return runs; }

  private:
    static constexpr int most = 3'000'000;

    static LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
        auto* flood = reinterpret_cast<Flood*>(::GetWindowLongPtrW(window, GWLP_USERDATA));
        if (message != WM_APP) {
            return ::DefWindowProcW(window, message, wParam, lParam);
        }
        if (++flood->count > most) {
            flood->runs = false;
        }
        if (flood->runs) {
            ::PostMessageW(window, WM_APP, 0, 0);
        }
        return 0;
    }

    HWND window = nullptr;
    bool runs = false;
    int count = 0;
};

class BusyQueueTest : public conformance::StandTest {
  protected:
    static frmFirst& Form() { return Default<frmFirst>(); }

    // Counts the ticks during the flood, and stops it at the third.
    void StartCounting() {
        Start([this] {
            Form().Show();
            Form().tmrOne.Tick = [this] {
                if (flood.Runs() && ++ticks == 3) {
                    flood.Stop();
                }
            };
            Form().tmrOne.interval = 20;
            Form().tmrOne.enabled = true;
        });
    }

    Flood flood;
    int ticks = 0;
};

TEST_F(BusyQueueTest, TimersTickInTheProgramsOwnLoop) {
    StartCounting();
    flood.Start();
    PumpUntil([this] { return !flood.Runs(); });
    EXPECT_EQ(ticks, 3);
    EXPECT_GT(flood.Count(), 3);
}

TEST_F(BusyQueueTest, TimersTickWhileABoxIsOpen) {
    StartCounting();
    ExpectMessage("text", "caption", [this] {
        flood.Start();
        // For the program, this loop is the box's own loop.
        MSG message{};
        while (flood.Runs() && ::GetMessageW(&message, nullptr, 0, 0) > 0) {
            ::TranslateMessage(&message);
            ::DispatchMessageW(&message);
        }
    });
    Start([] { MsgBox("text", {}, "caption"); });
    EXPECT_EQ(ticks, 3);
}

TEST_F(BusyQueueTest, AnIdleProgramGetsNoMessagesForItsTimers) {
    Start([] { Form().Show(); });
    stand->Pump(300);
    // No timer is running, so the queue stays empty.
    MSG message{};
    EXPECT_EQ(::PeekMessageW(&message, nullptr, WM_APP, WM_APP + 10, PM_NOREMOVE), 0);
}

}  // namespace

}  // namespace forms::win32
