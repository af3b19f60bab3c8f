#include "tests/windows/SoundRecorder.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <filesystem>
#include <fstream>
#include <numbers>

#include "forms/win32/Utf.h"
#include "tests/windows/Files.h"
#include "tests/windows/Wait.h"

namespace driver {

namespace {

constexpr std::uint64_t headerSize = 44;
constexpr std::uint64_t rate = 8000;
constexpr std::size_t block = 800;  // a tenth of a second
constexpr double loud = 300;        // of 32768
// Three seconds: on a busy machine, a sound may pause for a while.
constexpr std::uint64_t restful = rate * 3;
// A sound of this length is enough to identify it: it includes the cuckoo's second call and the
// pips of the clock.
constexpr std::uint64_t longEnough = rate * 7 / 10;

struct Band {
    double from;  // Hz
    double to;
    const char* sound;
};

// Each band contains the strongest component of exactly one sound.
constexpr std::array bands{
    Band{150, 300, "Alarm buzzer.wav"},  Band{500, 850, "Cuckoo clock.wav"},
    Band{1000, 1700, "Alert chime.wav"}, Band{1900, 2200, "Alarm clock.wav"},
    Band{2600, 3300, "Bell alarm.wav"},
};

bool IsLoud(double sample) { return std::abs(sample) > loud; }

// The power of one frequency in a block. A window function suppresses neighbouring frequencies.
double Power(const double* samples, double frequency) {
    const double step = 2 * std::numbers::pi * frequency / static_cast<double>(rate);
    double real = 0;
    double imaginary = 0;
    for (std::size_t i = 0; i < block; ++i) {
        const double place = static_cast<double>(i);
        const double window = 1 - std::cos(2 * std::numbers::pi * place / block);
        real += window * samples[i] * std::cos(step * place);
        imaginary += window * samples[i] * std::sin(step * place);
    }
    return real * real + imaginary * imaginary;
}

double StrongestFrequency(const std::vector<double>& samples) {
    double strongest = 0;
    double power = -1;
    for (double frequency = 100; frequency < 3900; frequency += 10) {
        double sum = 0;
        for (std::size_t start = 0; start + block <= samples.size(); start += block) {
            sum += Power(&samples[start], frequency);
        }
        if (sum > power) {
            power = sum;
            strongest = frequency;
        }
    }
    return strongest;
}

std::string SoundAt(double frequency) {
    for (const Band& band : bands) {
        if (frequency >= band.from && frequency <= band.to) {
            return band.sound;
        }
    }
    return "a sound of " + std::to_string(frequency) + " Hz";
}

}  // namespace

std::string SoundRecorder::Path() { return UnixPath(Variable("JOTWRIGHT_SINK_WAV")); }

std::uint64_t SoundRecorder::Now() const {
    std::error_code error;
    const auto size = std::filesystem::file_size(forms::win32::Wide(Path()), error);
    return error || size < headerSize ? 0 : (size - headerSize) / 2;
}

std::vector<double> SoundRecorder::Samples(std::uint64_t since) {
    std::ifstream file(std::filesystem::path(forms::win32::Wide(Path())), std::ios::binary);
    file.seekg(static_cast<std::streamoff>(headerSize + since * 2));
    std::vector<double> samples;
    std::array<char, 2> bytes{};
    while (file.read(bytes.data(), 2)) {
        const auto low = static_cast<unsigned char>(bytes[0]);
        const auto high = static_cast<unsigned char>(bytes[1]);
        samples.push_back(static_cast<std::int16_t>(low | (high << 8)));
    }
    return samples;
}

bool SoundRecorder::HasSounded(std::uint64_t since) const {
    const auto samples = Samples(since);
    return std::any_of(samples.begin(), samples.end(), &IsLoud);
}

double SoundRecorder::SoundingSeconds(std::uint64_t since) const {
    const auto samples = Samples(since);
    return static_cast<double>(std::count_if(samples.begin(), samples.end(), &IsLoud)) /
           static_cast<double>(rate);
}

double SoundRecorder::SoundingSecondsOf(const std::string& wave) {
    const auto byte = [&](std::size_t place) -> unsigned {
        return static_cast<unsigned char>(wave.at(place));
    };
    constexpr std::size_t rateAt = 24;
    const unsigned ownRate = byte(rateAt) | byte(rateAt + 1) << 8U | byte(rateAt + 2) << 16U;
    int loudOnes = 0;
    for (std::size_t place = headerSize; place + 1 < wave.size(); place += 2) {
        const auto sample = static_cast<std::int16_t>(byte(place) | byte(place + 1) << 8U);
        loudOnes += IsLoud(sample) ? 1 : 0;
    }
    return static_cast<double>(loudOnes) / ownRate;
}

std::string SoundRecorder::WaitForSound(std::uint64_t since) const {
    std::vector<double> samples;
    WaitUntil("something sounds", [&] {
        samples = Samples(since);
        samples.erase(samples.begin(), std::find_if(samples.begin(), samples.end(), &IsLoud));
        return samples.size() >= longEnough;
    });
    return SoundAt(StrongestFrequency(samples));
}

void SoundRecorder::WaitForSilence() const {
    const std::uint64_t start = Now();
    WaitUntil("it is silent", [&] {
        const std::uint64_t now = Now();
        return now >= start + restful && !HasSounded(now - restful);
    });
}

}  // namespace driver
