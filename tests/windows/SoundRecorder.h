#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace driver {

// Listens to what the sound device is given.
class SoundRecorder {
  public:
    SoundRecorder();

    // A moment, as the number of samples recorded so far.
    std::uint64_t Now() const;
    // Waits until something has sounded since then, and tells which of the program's sounds it is,
    // by its file's name. Failure when all stays silent.
    std::string WaitForSound(std::uint64_t since) const;
    // Waits until nothing has sounded for three seconds that began after this call.
    void WaitForSilence() const;
    // For how many seconds something has sounded since then, without the pauses. A busy machine
    // makes pauses longer and puts pauses into sounds, but plays no more and no less.
    double SoundingSeconds(std::uint64_t since) const;
    // The same of a sound file (16 bits, one channel), played once.
    static double SoundingSecondsOf(const std::string& wave);
    // Whether something has sounded since then.
    bool HasSounded(std::uint64_t since) const;

  private:
    std::vector<double> Samples(std::uint64_t since) const;

    std::string path;
};

}  // namespace driver
