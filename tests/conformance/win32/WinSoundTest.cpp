#include <windows.h>
#include <gtest/gtest.h>

#include <cmath>
#include <numbers>
#include <string>

#include "forms/win32/devices/WinFiles.h"
#include "forms/win32/devices/WinSound.h"
#include "tests/conformance/win32/TempFolder.h"
#include "tests/windows/SoundRecorder.h"
#include "tests/windows/Wait.h"

namespace forms::win32 {

namespace {

using namespace std::string_literals;

std::string LittleEndian(unsigned value, int bytes) {
    std::string text;
    for (int i = 0; i < bytes; ++i) {
        text += static_cast<char>(value >> (8 * i) & 0xffU);
    }
    return text;
}

// One second of a tone.
std::string Wave() {
    constexpr int rate = 8000;
    constexpr double frequency = 437;
    constexpr double loudness = 10000;  // of 32768
    std::string samples;
    for (int i = 0; i < rate; ++i) {
        const double value = loudness * std::sin(2 * std::numbers::pi * frequency * i / rate);
        samples += LittleEndian(static_cast<unsigned>(static_cast<int>(std::lround(value))), 2);
    }
    const auto size = static_cast<unsigned>(samples.size());
    return "RIFF" + LittleEndian(36 + size, 4) + "WAVEfmt " + LittleEndian(16, 4) +
           LittleEndian(1, 2) + LittleEndian(1, 2) + LittleEndian(rate, 4) +
           LittleEndian(2 * rate, 4) + LittleEndian(2, 2) + LittleEndian(16, 2) + "data" +
           LittleEndian(size, 4) + samples;
}

}  // namespace

// scripts/run-windows-tests records the output to the sound device.
class WinSoundTest : public testing::Test {
  protected:
    WinSoundTest() { files.Write(wave, Wave()); }
    // The first sound of a process may be lost, partly or completely, while the device wakes up.
    void SetUp() override {
        const std::uint64_t start = recorder.Now();
        driver::WaitUntil("the device is awake", [&] {
            sound.PlayToEnd(wave);
            return recorder.HasSounded(start);
        });
        recorder.WaitForSilence();
    }
    ~WinSoundTest() override { sound.Stop(); }

    // Waits for silence, and expects that the wave was played exactly once since the given time.
    void ExpectOnce(std::uint64_t since) const {
        driver::WaitUntil("the wave sounds", [&] { return recorder.HasSounded(since); });
        recorder.WaitForSilence();
        EXPECT_NEAR(recorder.SoundingSeconds(since),
                    driver::SoundRecorder::SoundingSecondsOf(Wave()), 0.1);
    }

    const TempFolder folder;
    const std::string wave = folder / "tone.wav";
    const driver::SoundRecorder recorder{};
    WinFiles files;
    WinSound sound;
};

TEST_F(WinSoundTest, AWaveSoundsOnce) {
    const std::uint64_t start = recorder.Now();
    sound.Play(wave, Sound::Mode::Once);
    ExpectOnce(start);
    const std::uint64_t again = recorder.Now();
    const ULONGLONG before = ::GetTickCount64();
    sound.PlayToEnd(wave);
    EXPECT_GE(::GetTickCount64() - before, 900U);
    ExpectOnce(again);
}

TEST_F(WinSoundTest, ALoopGoesOnUntilItIsStoppedOrAnotherSoundBegins) {
    for (const bool isStopped : {true, false}) {
        const std::uint64_t start = recorder.Now();
        sound.Play(wave, Sound::Mode::Loop);
        EXPECT_TRUE(driver::ComesTrue([&] { return recorder.SoundingSeconds(start) > 2.5; }));
        if (isStopped) {
            sound.Stop();
            sound.Stop();
        } else {
            sound.PlayToEnd(wave);
        }
        recorder.WaitForSilence();
    }
}

TEST_F(WinSoundTest, FilesThatAreNoWavesAreSilentlyIgnored) {
    const auto write = [this](const std::string& name, const std::string& bytes) {
        files.Write(folder / name, bytes);
        return folder / name;
    };
    const std::uint64_t start = recorder.Now();
    for (const std::string& path :
         {std::string(), folder / "missing.wav", folder.Path(), write("empty.wav", ""),
          write("text.wav", "This is no wave."), write("cut.wav", "RIFF\xff\xff\xff\x7fWAVEfmt "),
          write("odd.wav",
                "RIFF\x24\0\0\0WAVEfmt \x10\0\0\0\1\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0"
                "data\xff\xff\xff\xff"s),
          std::string("\\\\localhost\\missing\\a.wav"), std::string("nonsense"),
          "C:\\" + std::string(65536, 'x') + ".wav"}) {
        SCOPED_TRACE(path.substr(0, 80));
        sound.Play(path, Sound::Mode::Once);
        sound.Play(path, Sound::Mode::Loop);
        sound.Stop();
        sound.PlayToEnd(path);
    }
    // Any other sound would add to the wave, which plays as before.
    sound.PlayToEnd(wave);
    ExpectOnce(start);
}

}  // namespace forms::win32
