#include "tests/windows/CuckooCall.h"

#include <cmath>
#include <numbers>
#include <utility>

#include "tests/windows/Files.h"

namespace driver {

namespace {

std::string LittleEndian(std::uint32_t value, int bytes) {
    std::string text;
    for (int i = 0; i < bytes; ++i) {
        text += static_cast<char>(value >> (8 * i) & 0xFF);
    }
    return text;
}

// The sound device may lose some milliseconds of each call. If the sounds were shorter, the losses
// of twelve calls could add up to one call.
std::string Call(std::uint32_t tenthsOfSilence) {
    constexpr std::uint32_t rate = 8000;
    constexpr std::uint32_t sounding = rate * 4 / 10;
    const std::uint32_t samples = sounding + rate * tenthsOfSilence / 10;
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

CuckooCall::CuckooCall(std::string soundPath, std::uint32_t tenthsOfSilence)
    : path(std::move(soundPath)), shipped(WholeFile(path).value()) {
    WriteWholeFile(path, Call(tenthsOfSilence));
}

CuckooCall::~CuckooCall() { WriteWholeFile(path, shipped); }

int CuckooCalls(const SoundRecorder& recorder, const std::string& path, std::uint64_t since) {
    const double once = SoundRecorder::SoundingSecondsOf(WholeFile(path).value());
    return static_cast<int>(std::lround(recorder.SoundingSeconds(since) / once));
}

}  // namespace driver
