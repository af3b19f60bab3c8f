#pragma once

#include <functional>
#include <stdexcept>
#include <string>

namespace driver {

// What a test expected of the program did not come about; ends the test.
class Failure : public std::runtime_error {
  public:
    using std::runtime_error::runtime_error;
};

// Decides when waiting is in vain. On a busy machine, or while processes are stopped, the program
// may take any time, so seconds alone prove nothing. Patience ends when the machine has had nothing
// else to do for a minute: in that time the program could have done what it was waited for. An hour
// ends it in any case. JOTWRIGHT_PATIENCE replaces the minute (in seconds).
class Patience {
  public:
    Patience();
    // To be called at each look at what is waited for, some milliseconds after the last one.
    bool HasEnded();

  private:
    unsigned long long start;     // milliseconds
    unsigned long long lastIdle;  // milliseconds that a processor had nothing to do, on average
    unsigned long long idle = 0;
};

// Waits until the condition is true; false when patience has ended.
bool ComesTrue(const std::function<bool()>& condition);

// As above. Failure with this text when patience has ended.
void WaitUntil(const std::string& what, const std::function<bool()>& condition);

// Waits for a moment, a second or two, or until the condition is true. For what is tried
// again until it has an effect.
bool ComesTrueSoon(const std::function<bool()>& condition);

}  // namespace driver
