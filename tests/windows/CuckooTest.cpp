#include <cmath>
#include <numbers>
#include <optional>

#include "tests/windows/DriverTest.h"

namespace driver {

namespace {

constexpr const char* startCaption = "Start CooKoo &Clock";
constexpr const char* stopCaption = "Stop CooKoo &Clock";

std::string LittleEndian(std::uint32_t value, int bytes) {
    std::string text;
    for (int i = 0; i < bytes; ++i) {
        text += static_cast<char>(value >> (8 * i) & 0xFF);
    }
    return text;
}

// A call of the cuckoo: 0.4 seconds of sound, then ten seconds of silence.
std::string LongCall() {
    constexpr std::uint32_t rate = 8000;
    constexpr std::uint32_t sounding = rate * 4 / 10;
    constexpr std::uint32_t samples = sounding + rate * 10;
    constexpr double height = 700;  // Hz; the recorder recognises this frequency as the cuckoo
    std::string data;
    for (std::uint32_t i = 0; i < samples; ++i) {
        const double wave = std::sin(2 * std::numbers::pi * height * i / rate);
        const auto sample = static_cast<std::int16_t>(i < sounding ? 12000 * wave : 0);
        data += LittleEndian(static_cast<std::uint16_t>(sample), 2);
    }
    const auto size = static_cast<std::uint32_t>(data.size());
    return "RIFF" + LittleEndian(36 + size, 4) + "WAVEfmt " + LittleEndian(16, 4) +
           LittleEndian(1, 2) + LittleEndian(1, 2) + LittleEndian(rate, 4) +
           LittleEndian(rate * 2, 4) + LittleEndian(2, 2) + LittleEndian(16, 2) + "data" +
           LittleEndian(size, 4) + data;
}

}  // namespace

class CuckooTest : public DriverTest {
  protected:
    void TearDown() override;

    // Twelve of these calls would take two minutes.
    void UseLongCall();
    std::string SoundPath() const { return folder + "\\Cuckoo clock.wav"; }
    static bool Runs(const Window& main);
    // Counts the calls by the seconds of sound.
    int Calls(std::uint64_t since) const;

    std::optional<std::string> shipped;  // the shipped sound, while another one replaces it
};

void CuckooTest::UseLongCall() {
    shipped = WholeFile(SoundPath()).value();
    WriteWholeFile(SoundPath(), LongCall());
}

void CuckooTest::TearDown() {
    DriverTest::TearDown();
    if (shipped) {
        WriteWholeFile(SoundPath(), *shipped);
    }
}

bool CuckooTest::Runs(const Window& main) {
    return main.FindChild("Button", stopCaption) &&
           main.FindChild("Static", "CooKoo Clock Is Activated");
}

int CuckooTest::Calls(std::uint64_t since) const {
    const double once = SoundRecorder::SoundingSecondsOf(WholeFile(SoundPath()).value());
    return static_cast<int>(std::lround(recorder.SoundingSeconds(since) / once));
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
    UseLongCall();
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
