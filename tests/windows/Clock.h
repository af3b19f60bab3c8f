#pragma once

#include <windows.h>

#include <string>

namespace driver {

// The clock of the program and of this driver, which tests can set. Real time runs on from there.
// Timers and tick counts are not affected.
class Clock {
  public:
    // text: for example "2031-06-02 09:30:57". The fraction of the second does not change.
    static void Set(const std::string& text);
    static std::string Now();
    // Waits until the clock shows this time, or a later one of the same day.
    static void WaitFor(const std::string& text);
};

}  // namespace driver
