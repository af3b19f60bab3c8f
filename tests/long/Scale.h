#pragma once

#include <cstdint>

// How much a long test does. Its short form is a part of every test run; the full one has a command
// of its own (scripts/long-run), which sets JOTWRIGHT_LONG.
namespace long_tests {

bool IsFull();
// The first number in the short form, the second in the full one.
std::int64_t Scaled(std::int64_t shortForm, std::int64_t fullForm);
// Where all chance comes from: JOTWRIGHT_SEED, else a number that differs from run to run in the
// full form and is always the same in the short one. Printed when it is first asked for.
std::uint32_t Seed();

}  // namespace long_tests
