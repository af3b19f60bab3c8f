#include "tests/long/Scale.h"

#include <cstdio>
#include <cstdlib>
#include <random>

namespace long_tests {

namespace {

std::uint32_t ChosenSeed() {
    const char* given = std::getenv("JOTWRIGHT_SEED");
    std::uint32_t seed = 20'310'602;
    if (given != nullptr) {
        seed = static_cast<std::uint32_t>(std::strtoul(given, nullptr, 10));
    } else if (IsFull()) {
        seed = std::random_device{}();
    }
    std::printf("JOTWRIGHT_SEED=%u\n", seed);
    std::fflush(stdout);
    return seed;
}

}  // namespace

bool IsFull() { return std::getenv("JOTWRIGHT_LONG") != nullptr; }

std::int64_t Scaled(std::int64_t shortForm, std::int64_t fullForm) {
    return IsFull() ? fullForm : shortForm;
}

std::uint32_t Seed() {
    static const std::uint32_t seed = ChosenSeed();
    return seed;
}

}  // namespace long_tests
