#pragma once

#include "forms/Devices.h"
#include "forms/win32/devices/SoundThread.h"

namespace forms::win32 {

// If the file is missing or is not a wave file, the system's default sound is played. An alarm
// without its file must still be heard.
class WinSound : public Sound {
  public:
    void Play(const std::string& wavePath, Mode mode) override;
    void PlayToEnd(const std::string& wavePath) override;
    void Stop() override;

  private:
    SoundThread thread;
};

}  // namespace forms::win32
