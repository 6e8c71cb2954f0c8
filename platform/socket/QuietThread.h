#pragma once

#include <pthread.h>
#include <signal.h>

#include <cstddef>
#include <functional>
#include <thread>
#include <utility>

namespace kq {

/** While one is there, the threads that this thread starts are such on which no signal handler of the program runs. */
class AllSignalsBlocked {
public:
    AllSignalsBlocked() {
        sigset_t all;
        sigfillset(&all);
        pthread_sigmask(SIG_SETMASK, &all, &mBefore);
    }
    ~AllSignalsBlocked() { pthread_sigmask(SIG_SETMASK, &mBefore, nullptr); }
    AllSignalsBlocked(const AllSignalsBlocked&) = delete;
    AllSignalsBlocked& operator=(const AllSignalsBlocked&) = delete;

private:
    sigset_t mBefore{};
};

/** Starts a thread on which no signal handler of the program runs. Throws std::system_error. */
template <typename Function> std::thread startQuietThread(const char* name, Function&& function) {
    const AllSignalsBlocked blocked;
    std::thread thread(std::forward<Function>(function));
    pthread_setname_np(thread.native_handle(), name);
    return thread;
}

/** The size of a stack that the system gives a thread by default. */
constexpr std::size_t kDefaultStack = 0;

/**
 * As startQuietThread, for a thread that nobody joins and that has a stack of `stackSize` bytes.
 *
 * @return 0 or an errno value
 */
int startDetachedThread(const char* name, std::size_t stackSize, std::function<void()> body) noexcept;

} // namespace kq
