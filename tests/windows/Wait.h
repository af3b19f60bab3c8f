#pragma once

#include <functional>
#include <stdexcept>
#include <string>

namespace driver {

// Ends the test: the program did not do what the test expected.
class Failure : public std::runtime_error {
  public:
    using std::runtime_error::runtime_error;
};

// Decides when to give up waiting. On a busy machine, or while processes are stopped, the program
// may take any time, so elapsed seconds prove nothing. Patience ends when the machine has been idle
// for a minute in all: in that time the program could have done its work. It also ends after an
// hour. JOTWRIGHT_PATIENCE replaces the minute (in seconds).
class Patience {
  public:
    Patience();
    // Call this at each look at the condition, some milliseconds after the last one.
    bool HasEnded();

  private:
    unsigned long long start;     // milliseconds
    unsigned long long lastIdle;  // idle time of the processors, on average, in milliseconds
    unsigned long long idle = 0;
};

// Waits until the condition is true. Returns false if patience has ended first.
bool ComesTrue(const std::function<bool()>& condition);

// The same, but raises Failure with this text if patience has ended.
void WaitUntil(const std::string& what, const std::function<bool()>& condition);

// Waits for a second or two, or until the condition is true. For gestures that are repeated until
// they have an effect.
bool ComesTrueSoon(const std::function<bool()>& condition);

}  // namespace driver
