#pragma once

#include <windows.h>

namespace forms::win32 {

// Waits in the middle of a handler until the object is signalled. Meanwhile it answers messages
// that other threads and programs send, and paints windows, so that the system does not consider
// the program hung. The user's input stays in the queue. Only the end of the session is handled at
// once. Returns false if the program has ended.
bool WaitQuietly(HANDLE object);

// Whether such a wait is running. A window must then postpone any message that would run a handler.
bool IsWaitingQuietly();

}  // namespace forms::win32
