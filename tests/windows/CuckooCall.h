#pragma once

#include <cstdint>
#include <string>

#include "tests/windows/SoundRecorder.h"

namespace driver {

// Replaces the shipped sound of the cuckoo while the object exists. With the shipped sound, twelve
// calls would take twenty seconds.
class CuckooCall {
  public:
    // path is the path of the sound file. A call is 0.4 seconds of sound, then silence.
    CuckooCall(std::string soundPath, std::uint32_t tenthsOfSilence);
    ~CuckooCall();
    CuckooCall(const CuckooCall&) = delete;
    CuckooCall& operator=(const CuckooCall&) = delete;

  private:
    std::string path;
    std::string shipped;
};

// The number of calls since this time, computed from the seconds of sound. path is the path of the
// sound file. There must have been no other sound.
int CuckooCalls(const SoundRecorder& recorder, const std::string& path, std::uint64_t since);

}  // namespace driver
