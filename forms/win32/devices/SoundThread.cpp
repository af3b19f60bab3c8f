#include "forms/win32/devices/SoundThread.h"

#include <mmsystem.h>

#include <deque>
#include <optional>
#include <utility>

#include "forms/win32/LateLibrary.h"
#include "forms/win32/QuietWait.h"
#include "forms/win32/devices/Handle.h"

namespace forms::win32 {

struct SoundThread::Sound {
    std::optional<std::wstring> path;  // empty: stops the sound that is playing
    DWORD flags = 0;
    std::shared_ptr<Handle> ended;  // signalled after the call, if set
};

struct SoundThread::Queue {
    SRWLOCK lock = SRWLOCK_INIT;
    std::deque<Sound> sounds;
    bool isClosed = false;
    const Handle changed{::CreateEventW(nullptr, FALSE, FALSE, nullptr)};

    // Waits for the next sound. Empty if the queue is closed and no sound is left.
    std::optional<Sound> Take() {
        for (;;) {
            ::AcquireSRWLockExclusive(&lock);
            std::optional<Sound> next;
            if (!sounds.empty()) {
                next = std::move(sounds.front());
                sounds.pop_front();
            }
            const bool ends = isClosed;
            ::ReleaseSRWLockExclusive(&lock);
            if (next || ends) {
                return next;
            }
            ::WaitForSingleObject(changed.get(), INFINITE);
        }
    }
};

SoundThread::~SoundThread() {
    if (queue) {
        ::AcquireSRWLockExclusive(&queue->lock);
        queue->isClosed = true;
        ::ReleaseSRWLockExclusive(&queue->lock);
        ::SetEvent(queue->changed.get());
    }
}

DWORD WINAPI SoundThread::Run(void* argument) {
    const std::unique_ptr<std::shared_ptr<Queue>> owned(
        static_cast<std::shared_ptr<Queue>*>(argument));
    const auto play = FromLibrary<decltype(&::PlaySoundW)>(L"winmm.dll", "PlaySoundW");
    while (const std::optional<Sound> sound = (*owned)->Take()) {
        if (play != nullptr) {
            play(sound->path ? sound->path->c_str() : nullptr, nullptr, sound->flags);
        }
        if (sound->ended) {
            ::SetEvent(sound->ended->get());
        }
    }
    return 0;
}

void SoundThread::Add(Sound sound) {
    if (!queue) {
        queue = std::make_shared<Queue>();
        auto shared = std::make_unique<std::shared_ptr<Queue>>(queue);
        const Handle thread(::CreateThread(nullptr, 0, Run, shared.get(), 0, nullptr));
        if (!thread) {
            queue.reset();
            return;
        }
        static_cast<void>(shared.release());  // the thread owns it now
    }
    ::AcquireSRWLockExclusive(&queue->lock);
    queue->sounds.push_back(std::move(sound));
    ::ReleaseSRWLockExclusive(&queue->lock);
    ::SetEvent(queue->changed.get());
}

void SoundThread::Play(const std::wstring& path, DWORD flags) { Add({path, flags, nullptr}); }

void SoundThread::PlayToEnd(const std::wstring& path) {
    const auto ended = std::make_shared<Handle>(::CreateEventW(nullptr, TRUE, FALSE, nullptr));
    Add({path, SND_FILENAME | SND_SYNC, ended});
    if (queue) {
        WaitQuietly(ended->get());
    }
}

void SoundThread::Stop() {
    if (queue) {
        Add({std::nullopt, 0, nullptr});
    }
}

}  // namespace forms::win32
