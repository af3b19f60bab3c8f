#include "forms/win32/QuietWait.h"

#include "forms/Application.h"

namespace forms::win32 {

namespace {

int waits = 0;

class Waiting {
  public:
    Waiting() { ++waits; }
    ~Waiting() { --waits; }
    Waiting(const Waiting&) = delete;
    Waiting& operator=(const Waiting&) = delete;
};

// Answers the messages that have been sent, and paints. The system repeats WM_PAINT for a window
// that has not painted, so there is a limit.
void AnswerAndPaint() {
    constexpr int most = 1000;
    MSG message{};
    for (int i = 0; i < most && ::PeekMessageW(&message, nullptr, 0, 0,
                                               PM_REMOVE | PM_QS_PAINT | PM_QS_SENDMESSAGE) != 0;
         ++i) {
        ::DispatchMessageW(&message);
    }
}

bool ProgramHasEnded() { return Application::Exists() && Application::Current().HasEnded(); }

}  // namespace

bool WaitQuietly(HANDLE object) {
    // The system considers a program hung if the program has not checked its messages for five
    // seconds.
    constexpr DWORD longestWithoutLook = 1000;  // milliseconds
    const Waiting waiting;
    while (!ProgramHasEnded()) {
        const DWORD result = ::MsgWaitForMultipleObjects(1, &object, FALSE, longestWithoutLook,
                                                         QS_SENDMESSAGE | QS_PAINT);
        if (result != WAIT_OBJECT_0 + 1 && result != WAIT_TIMEOUT) {
            return true;
        }
        AnswerAndPaint();
    }
    return false;
}

bool IsWaitingQuietly() { return waits > 0; }

}  // namespace forms::win32
