#pragma once

// Lets memory run out in the programs of this folder: their operator new is replaced.
namespace long_tests::allocations {

// The allocation with this number, counted from 1 from now on, throws std::bad_alloc; 0 for none.
// Those after it succeed.
void FailAt(int number);
// The number of allocations since the last FailAt.
int Count();

}  // namespace long_tests::allocations
