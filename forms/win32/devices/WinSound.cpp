#include "forms/win32/devices/WinSound.h"

#include <windows.h>
#include <mmsystem.h>

#include "forms/win32/Utf.h"

namespace forms::win32 {

void WinSound::Play(const std::string& wavePath, Mode mode) {
    const DWORD flags = SND_FILENAME | SND_ASYNC | (mode == Mode::Loop ? SND_LOOP : 0);
    ::PlaySoundW(Wide(wavePath).c_str(), nullptr, flags);
}

void WinSound::PlayToEnd(const std::string& wavePath) {
    ::PlaySoundW(Wide(wavePath).c_str(), nullptr, SND_FILENAME | SND_SYNC);
}

void WinSound::Stop() { ::PlaySoundW(nullptr, nullptr, 0); }

}  // namespace forms::win32
