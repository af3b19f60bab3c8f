#pragma once

#include <windows.h>

#include <string>

namespace driver {

// The clock of the program and of this driver, which can be moved; time runs on from there. Timers
// and tick counts do not notice.
class Clock {
  public:
    // text: "2031-06-02 09:30:57". The fraction of the second is left as it is.
    static void Set(const std::string& text);
    static std::string Now();
    // Waits until the clock shows this time of today or a later one.
    static void WaitFor(const std::string& text);
};

}  // namespace driver
