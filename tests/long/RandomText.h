#pragma once

#include <string>

#include "tests/long/Random.h"

namespace long_tests {

// Texts that users of many languages could type.
class RandomText {
  public:
    explicit RandomText(Random& numbers) : random(numbers) {}

    std::string Characters(int count);
    std::string OfNote();
    std::string Title();

  private:
    Random& random;
};

}  // namespace long_tests
