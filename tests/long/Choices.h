#pragma once

#include <functional>
#include <string>
#include <vector>

namespace long_tests {

// Something that may happen next in a test. Its probability is its share of all weights.
struct Choice {
    int weight;
    std::string what;
    std::function<void()> act;
};

using Choices = std::vector<Choice>;

}  // namespace long_tests
