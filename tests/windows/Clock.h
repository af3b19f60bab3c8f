#pragma once

#include <windows.h>

#include <string>

namespace driver {

// The clock of the program and of this driver. Tests can set it. It then runs on in real time.
// Timers and tick counts are not affected.
class Clock {
  public:
    // text is a time, for example "2031-06-02 09:30:57". The fraction of the second does not
    // change. If the clock shows the time twice on its day, because daylight saving time ends, the
    // clock is set to the time that is on the same side of the change as the present time.
    static void Set(const std::string& text);
    static std::string Now();
    // Waits until the clock shows this time or a later one.
    static void WaitFor(const std::string& text);
};

}  // namespace driver
