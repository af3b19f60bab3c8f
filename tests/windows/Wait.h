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

inline constexpr int patience = 20;  // seconds

// Whether the condition comes true within this time; looks every few milliseconds.
bool ComesTrue(const std::function<bool()>& condition, int seconds = patience);

// Waits until the condition is true. Failure with this text when it takes too long.
void WaitUntil(const std::string& what, const std::function<bool()>& condition,
               int seconds = patience);

}  // namespace driver
