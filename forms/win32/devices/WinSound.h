#pragma once

#include "forms/Devices.h"

namespace forms::win32 {

// Where the file is missing or no wave, the system's own default sound is heard: an alarm that
// lost its file is still an alarm.
class WinSound : public Sound {
  public:
    void Play(const std::string& wavePath, Mode mode) override;
    void PlayToEnd(const std::string& wavePath) override;
    void Stop() override;
};

}  // namespace forms::win32
