#include "forms/win32/devices/WinSound.h"

#include <windows.h>
#include <mmsystem.h>

#include "forms/win32/LateLibrary.h"
#include "forms/win32/Utf.h"

namespace forms::win32 {

namespace {

using PlayFunction = decltype(&::PlaySoundW);

// Null until the first sound is played.
PlayFunction& LoadedPlay() {
    static PlayFunction function = nullptr;
    return function;
}

void PlaySoundFile(const std::string& wavePath, DWORD flags) {
    if (LoadedPlay() == nullptr) {
        LoadedPlay() = FromLibrary<PlayFunction>(L"winmm.dll", "PlaySoundW");
    }
    if (LoadedPlay() != nullptr) {
        LoadedPlay()(Wide(wavePath).c_str(), nullptr, SND_FILENAME | flags);
    }
}

}  // namespace

void WinSound::Play(const std::string& wavePath, Mode mode) {
    PlaySoundFile(wavePath, SND_ASYNC | (mode == Mode::Loop ? SND_LOOP : 0));
}

void WinSound::PlayToEnd(const std::string& wavePath) { PlaySoundFile(wavePath, SND_SYNC); }

void WinSound::Stop() {
    if (LoadedPlay() != nullptr) {
        LoadedPlay()(nullptr, nullptr, 0);
    }
}

}  // namespace forms::win32
