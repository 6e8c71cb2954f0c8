#include "support/AllocationGuard.h"

#include <execinfo.h>
#include <unistd.h>

#include <cstddef>

namespace {

thread_local bool tForbidden = false;
thread_local int tAllocations = 0;

void note() {
    if (!tForbidden) {
        return;
    }
    tForbidden = false;
    ++tAllocations;
    void* frames[32];
    backtrace_symbols_fd(frames, backtrace(frames, 32), STDERR_FILENO);
    tForbidden = true;
}

} // namespace

// The C library's allocator under its inner names, so that every way to it can be watched.
extern "C" {
void* __libc_malloc(std::size_t size);
void* __libc_calloc(std::size_t count, std::size_t size);
void* __libc_realloc(void* block, std::size_t size);

__attribute__((visibility("default"))) void* malloc(std::size_t size) {
    note();
    return __libc_malloc(size);
}

__attribute__((visibility("default"))) void* calloc(std::size_t count, std::size_t size) {
    note();
    return __libc_calloc(count, size);
}

__attribute__((visibility("default"))) void* realloc(void* block, std::size_t size) {
    note();
    return __libc_realloc(block, size);
}
}

namespace kelutv::test {

AllocationGuard::AllocationGuard() {
    // The first look at a stack allocates by itself.
    void* frame[1];
    backtrace(frame, 1);
    tAllocations = 0;
    tForbidden = true;
}

AllocationGuard::~AllocationGuard() { tForbidden = false; }

int AllocationGuard::allocations() const { return tAllocations; }

} // namespace kelutv::test
