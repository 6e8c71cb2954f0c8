// Preloaded: lets the program have so many threads besides its first at a time.

#include <dlfcn.h>
#include <pthread.h>

#include <atomic>
#include <cerrno>
#include <cstdlib>
#include <memory>

namespace {

using Create = int (*)(pthread_t*, const pthread_attr_t*, void* (*)(void*), void*);

std::atomic<int> running{0};

struct Body {
    void* (*run)(void*);
    void* argument;
};

void* runCounted(void* pointer) {
    const std::unique_ptr<Body> body(static_cast<Body*>(pointer));
    void* const result = body->run(body->argument);
    --running;
    return result;
}

int most() {
    const char* const text = std::getenv("KELUTV_TEST_MOST_THREADS");
    return text != nullptr ? std::atoi(text) : 0;
}

} // namespace

extern "C" [[gnu::visibility("default")]] int pthread_create(pthread_t* thread, const pthread_attr_t* attributes,
                                                             void* (*run)(void*), void* argument) {
    static const auto next = reinterpret_cast<Create>(::dlsym(RTLD_NEXT, "pthread_create"));
    if (++running > most()) {
        --running;
        return EAGAIN;
    }
    auto body = std::make_unique<Body>(Body{run, argument});
    const int error = next(thread, attributes, runCounted, body.get());
    if (error == 0) {
        body.release(); // NOLINT(bugprone-unused-return-value): the thread has it
    } else {
        --running;
    }
    return error;
}
