#pragma once

// Replaces operator new in the programs of this folder, so that tests can let memory run out.
namespace long_tests::allocations {

// Makes the allocation with this number throw std::bad_alloc. Counts from 1, from this call on.
// Later allocations succeed. 0 makes no allocation fail.
void FailAt(int number);
// The number of allocations since the last FailAt.
int Count();

}  // namespace long_tests::allocations
