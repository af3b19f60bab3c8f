#pragma once

#include <windows.h>

#include <memory>
#include <string>

namespace forms::win32 {

// Plays sounds on a thread of its own, in the order of the calls. A call of the system's function
// can take seconds, for example while a wireless device wakes up, and the program's windows must
// not hang meanwhile. The first sound starts the thread.
class SoundThread {
  public:
    SoundThread() = default;
    // Does not wait for the thread, which ends when it has finished the calls so far.
    ~SoundThread();
    SoundThread(const SoundThread&) = delete;
    SoundThread& operator=(const SoundThread&) = delete;

    // Starts the sound and returns at once. flags are those of PlaySound.
    void Play(const std::wstring& path, DWORD flags);
    // Waits quietly (see QuietWait.h) until the sound has ended.
    void PlayToEnd(const std::wstring& path);
    // Queues a call that stops the sound then playing. Returns at once.
    void Stop();

  private:
    struct Sound;
    struct Queue;
    static DWORD WINAPI Run(void* argument);
    void Add(Sound sound);

    std::shared_ptr<Queue> queue;  // shared with the thread, which may live longer
};

}  // namespace forms::win32
