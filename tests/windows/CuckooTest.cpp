#include <optional>

#include "tests/windows/CuckooCall.h"
#include "tests/windows/DriverTest.h"

namespace driver {

namespace {

constexpr const char* startCaption = "Start CooKoo &Clock";
constexpr const char* stopCaption = "Stop CooKoo &Clock";

}  // namespace

class CuckooTest : public DriverTest {
  protected:
    std::string SoundPath() const { return folder + "\\Cuckoo clock.wav"; }
    static bool Runs(const Window& main);
    // The number of cuckoo calls since this time, computed from how long sound was heard.
    int Calls(std::uint64_t since) const;

    std::optional<CuckooCall> call;
};

bool CuckooTest::Runs(const Window& main) {
    return main.FindChild("Button", stopCaption) &&
           main.FindChild("Static", "CooKoo Clock Is Activated");
}

int CuckooTest::Calls(std::uint64_t since) const {
    return CuckooCalls(recorder, SoundPath(), since);
}

TEST_F(CuckooTest, StrikesTheHour) {
    Clock::Set("2031-06-02 14:50:00");
    const Window main = StartProgram();
    EXPECT_FALSE(Runs(main));
    main.Button(startCaption).Click();
    WaitUntil("the clock runs", [&] { return Runs(main); });
    const std::uint64_t before = recorder.Now();
    LetTimeCome("2031-06-02 15:00:13", "something sounds",
                [&] { return recorder.HasSounded(before); });
    WaitUntil("the calls have sounded", [&] { return Calls(before) >= 3; });
    recorder.WaitForSilence();
    EXPECT_EQ(Calls(before), 3);
    EXPECT_EQ(recorder.WaitForSound(before), "Cuckoo clock.wav");
}

TEST_F(CuckooTest, AnswersAndPaintsWhileItStrikesAndEndsWithTheSession) {
    constexpr std::uint32_t tenthsOfSilence = 100;  // twelve calls would take two minutes
    call.emplace(SoundPath(), tenthsOfSilence);
    WriteSetting("Options", "StartCookoo", "1");
    Clock::Set("2031-06-02 22:59:50");
    const Window main = StartProgram();
    const std::uint64_t before = recorder.Now();
    LetTimeCome("2031-06-02 23:00:13", "something sounds",
                [&] { return recorder.HasSounded(before); });
    main.Button("&Timer").Click();
    main.Send(WM_NULL);
    ::RedrawWindow(main.handle, nullptr, nullptr, RDW_INVALIDATE | RDW_ALLCHILDREN);
    WaitUntil("the window is painted",
              [&] { return ::GetUpdateRect(main.handle, nullptr, FALSE) == 0; });
    EXPECT_TRUE(program.Visible("Novelty Timer").empty());
    EXPECT_LT(Calls(before), 12);
    for (const Window& window : program.Windows()) {
        ::SendNotifyMessageW(window.handle, WM_ENDSESSION, TRUE, 0);
    }
    program.WaitForEnd();
    EXPECT_LT(Calls(before), 12);
}

}  // namespace driver
