#include "forms/win32/devices/WinSound.h"

#include <mmsystem.h>

#include "forms/win32/Utf.h"

namespace forms::win32 {

void WinSound::Play(const std::string& wavePath, Mode mode) {
    thread.Play(Wide(wavePath), SND_FILENAME | SND_ASYNC | (mode == Mode::Loop ? SND_LOOP : 0));
}

void WinSound::PlayToEnd(const std::string& wavePath) { thread.PlayToEnd(Wide(wavePath)); }

void WinSound::Stop() { thread.Stop(); }

}  // namespace forms::win32
