// The C library's allocator, which operator new uses as well, with failures.

#include "torture/starvation/Refusal.h"

#include <cerrno>
#include <cstddef>

using kelutv::starvation::kAllocation;
using kelutv::starvation::refused;

#define KELUTV_REPLACES __attribute__((visibility("default")))

extern "C" {
void* __libc_malloc(std::size_t size);
void* __libc_calloc(std::size_t count, std::size_t size);
void* __libc_realloc(void* block, std::size_t size);
void* __libc_memalign(std::size_t alignment, std::size_t size);

KELUTV_REPLACES void* malloc(std::size_t size) {
    if (refused(kAllocation)) {
        errno = ENOMEM;
        return nullptr;
    }
    return __libc_malloc(size);
}

KELUTV_REPLACES void* calloc(std::size_t count, std::size_t size) {
    if (refused(kAllocation)) {
        errno = ENOMEM;
        return nullptr;
    }
    return __libc_calloc(count, size);
}

KELUTV_REPLACES void* realloc(void* block, std::size_t size) {
    if (refused(kAllocation)) {
        errno = ENOMEM;
        return nullptr;
    }
    return __libc_realloc(block, size);
}

KELUTV_REPLACES void* aligned_alloc(std::size_t alignment, std::size_t size) {
    if (refused(kAllocation)) {
        errno = ENOMEM;
        return nullptr;
    }
    return __libc_memalign(alignment, size);
}

KELUTV_REPLACES int posix_memalign(void** block, std::size_t alignment, std::size_t size) {
    if (refused(kAllocation)) {
        return ENOMEM;
    }
    void* const found = __libc_memalign(alignment, size);
    if (found == nullptr) {
        return ENOMEM;
    }
    *block = found;
    return 0;
}
}
