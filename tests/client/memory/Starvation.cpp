#include "client/memory/Starvation.h"

#include <cstddef>
#include <cstdlib>
#include <new>

namespace {

constexpr int kNever = 0;

thread_local int tNumber = kNever;
thread_local bool tAllBehind = false;
thread_local int tCount = 0;

bool fails() {
    if (tNumber == kNever) {
        return false;
    }
    ++tCount;
    return tCount == tNumber || (tAllBehind && tCount > tNumber);
}

void* allocate(std::size_t size) { return fails() ? nullptr : std::malloc(size); }

void* allocateOrThrow(std::size_t size) {
    void* const block = allocate(size);
    if (block == nullptr) {
        throw std::bad_alloc();
    }
    return block;
}

} // namespace

// In place of those of the C++ library, for the program and all libraries that it loads.
void* operator new(std::size_t size) { return allocateOrThrow(size); }
void* operator new[](std::size_t size) { return allocateOrThrow(size); }
void* operator new(std::size_t size, const std::nothrow_t&) noexcept { return allocate(size); }
void* operator new[](std::size_t size, const std::nothrow_t&) noexcept { return allocate(size); }
void operator delete(void* block) noexcept { std::free(block); }
void operator delete[](void* block) noexcept { std::free(block); }
void operator delete(void* block, std::size_t) noexcept { std::free(block); }
void operator delete[](void* block, std::size_t) noexcept { std::free(block); }
void operator delete(void* block, const std::nothrow_t&) noexcept { std::free(block); }
void operator delete[](void* block, const std::nothrow_t&) noexcept { std::free(block); }

namespace kelutv::test {

Starvation::Starvation(int number, Failing failing) {
    tCount = 0;
    tAllBehind = failing == Failing::FromThenOn;
    tNumber = number;
}

Starvation::~Starvation() { tNumber = kNever; }

bool Starvation::felt() const { return tCount >= tNumber; }

} // namespace kelutv::test
