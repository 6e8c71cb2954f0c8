// Stands before pthread_create of the C library: a process that may have no more than so many further threads.

#include <dlfcn.h>
#include <pthread.h>

#include <atomic>
#include <cerrno>
#include <cstdlib>

namespace {

using Create = int (*)(pthread_t*, const pthread_attr_t*, void* (*)(void*), void*);

/** The threads that may still be started; none left is what KELUTV_TEST_THREADS in the environment says. */
std::atomic<int>& threadsLeft() {
    static std::atomic<int> left = [] {
        const char* const limit = std::getenv("KELUTV_TEST_THREADS");
        return limit == nullptr ? 1'000'000 : std::atoi(limit);
    }();
    return left;
}

} // namespace

extern "C" [[gnu::visibility("default")]] int pthread_create(pthread_t* thread, const pthread_attr_t* attributes,
                                                             void* (*start)(void*), void* argument) noexcept {
    static const auto create = reinterpret_cast<Create>(::dlsym(RTLD_NEXT, "pthread_create"));
    if (threadsLeft().fetch_sub(1) <= 0) {
        ++threadsLeft();
        return EAGAIN;
    }
    return create(thread, attributes, start, argument);
}
