#pragma once

#include <windows.h>

namespace forms::win32 {

// Waits for an object in the middle of a handler. Meanwhile messages that other threads and
// programs send are answered and windows are painted, so that the program does not count as hung.
// What the user does stays in the queue. Only the end of the session is handled at once. Returns
// false if the program has ended.
bool WaitQuietly(HANDLE object);

// Whether such a wait is running. A window must then put off a message that would run a handler.
bool IsWaitingQuietly();

}  // namespace forms::win32
