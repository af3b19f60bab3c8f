#pragma once

#include <cstdint>

// The size of a long test. Every test run includes its short form. scripts/long-run runs the full
// form, with JOTWRIGHT_LONG set.
namespace long_tests {

bool IsFull();
// The first number in the short form, the second in the full form.
std::int64_t Scaled(std::int64_t shortForm, std::int64_t fullForm);
// The seed of all random numbers: JOTWRIGHT_SEED if it is set. If not, it is always the same in the
// short form, and differs from run to run in the full form. The first call prints it.
std::uint32_t Seed();

}  // namespace long_tests
