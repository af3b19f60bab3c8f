#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace driver {

// Analyses the output to the sound device.
class SoundRecorder {
  public:
    // The current time, as the number of samples recorded so far.
    std::uint64_t Now() const;
    // Waits for a sound after this time. Returns the name of the program's sound file that was
    // played. Raises Failure if there is only silence.
    std::string WaitForSound(std::uint64_t since) const;
    // Waits for three seconds of silence that begin after this call.
    void WaitForSilence() const;
    // The seconds of sound since this time, without pauses. On a busy machine, pauses become longer
    // and sounds are interrupted, but the amount of sound stays the same.
    double SoundingSeconds(std::uint64_t since) const;
    // The seconds of sound in a sound file (16 bits, one channel), played once.
    static double SoundingSecondsOf(const std::string& wave);
    // Whether a sound was recorded after this time.
    bool HasSounded(std::uint64_t since) const;

  private:
    static std::string Path();
    static std::vector<double> Samples(std::uint64_t since);
};

}  // namespace driver
