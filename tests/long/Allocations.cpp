#include "tests/long/Allocations.h"

#include <cstdlib>
#include <new>

namespace {

// Tests run in one thread.
int count = 0;
int failing = 0;

void* AllocateOrNull(std::size_t size) {
    return ++count == failing ? nullptr : std::malloc(size > 0 ? size : 1);
}

void* Allocate(std::size_t size) {
    void* memory = AllocateOrNull(size);
    if (memory == nullptr) {
        throw std::bad_alloc();
    }
    return memory;
}

}  // namespace

namespace long_tests::allocations {

void FailAt(int number) {
    count = 0;
    failing = number;
}

int Count() { return count; }

}  // namespace long_tests::allocations

void* operator new(std::size_t size) { return Allocate(size); }
void* operator new[](std::size_t size) { return Allocate(size); }
void* operator new(std::size_t size, const std::nothrow_t& /*tag*/) noexcept {
    return AllocateOrNull(size);
}
void* operator new[](std::size_t size, const std::nothrow_t& /*tag*/) noexcept {
    return AllocateOrNull(size);
}
void operator delete(void* memory) noexcept { std::free(memory); }
void operator delete[](void* memory) noexcept { std::free(memory); }
void operator delete(void* memory, std::size_t) noexcept { std::free(memory); }
void operator delete[](void* memory, std::size_t) noexcept { std::free(memory); }
