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
    // Waits until nothing has sounded for a second that began after this call.
    void WaitForSilence() const;
    // From the first to the last that has sounded since then, in seconds.
    double SoundingTime(std::uint64_t since) const;
    // How many sounds have begun since then, with a pause of a twentieth of a second or more
    // between one and the next.
    int CountSounds(std::uint64_t since) const;
    // Whether something has sounded since then.
    bool HasSounded(std::uint64_t since) const;

  private:
    std::vector<double> Samples(std::uint64_t since) const;

    std::string path;
};

}  // namespace driver
