#pragma once

#include <functional>
#include <string>
#include <vector>

namespace long_tests {

// A possible next step of a test. Its probability is its weight divided by the sum of all weights.
struct Choice {
    int weight;
    std::string what;
    std::function<void()> act;
};

using Choices = std::vector<Choice>;

}  // namespace long_tests
