#pragma once

#include <cstddef>
#include <cstdint>
#include <iterator>
#include <random>

namespace long_tests {

class Random {
  public:
    void Seed(std::uint32_t seed) { engine.seed(seed); }
    // A number from 0 to limit - 1.
    int Below(int limit) { return std::uniform_int_distribution<int>(0, limit - 1)(engine); }
    bool OneIn(int number) { return Below(number) == 0; }
    template <class List>
    auto& OneOf(List& choices) {
        return choices[static_cast<std::size_t>(Below(static_cast<int>(std::size(choices))))];
    }

  private:
    std::mt19937 engine;
};

}  // namespace long_tests
