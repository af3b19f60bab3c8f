#pragma once

#include <functional>
#include <stdexcept>
#include <string>

namespace driver {

// Thrown to end the test because the program did not do what the test expected.
class Failure : public std::runtime_error {
  public:
    using std::runtime_error::runtime_error;
};

// Decides when to give up waiting. On a busy machine, or while processes are stopped, the program
// may be slow, so elapsed time proves nothing. The patience ends when the machine has been idle for
// a minute in total: in that time the program could have done its work. It also ends after an hour.
// JOTWRIGHT_PATIENCE sets another number of idle seconds.
class Patience {
  public:
    Patience();
    // Call it at each test of the condition, some milliseconds after the last call.
    bool HasEnded();

  private:
    unsigned long long start;     // milliseconds
    unsigned long long asked;     // when the idle time was last read, in milliseconds
    unsigned long long lastIdle;  // idle time of the processors, on average, in milliseconds
    unsigned long long idle = 0;
};

// Waits until the condition is true. Returns false if its Patience ends first.
bool ComesTrue(const std::function<bool()>& condition);

// Like ComesTrue, but raises Failure with this text if its Patience ends first.
void WaitUntil(const std::string& what, const std::function<bool()>& condition);

// Waits for a second or two, or until the condition is true. For gestures that are repeated until
// they have an effect.
bool ComesTrueSoon(const std::function<bool()>& condition);

}  // namespace driver
