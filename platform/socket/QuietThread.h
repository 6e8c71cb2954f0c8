#pragma once

#include <pthread.h>
#include <signal.h>

#include <thread>
#include <utility>

namespace kq {

/** Starts a thread on which no signal handler of the program runs. Throws std::system_error. */
template <typename Function> std::thread startQuietThread(const char* name, Function&& function) {
    class AllSignalsBlocked {
    public:
        AllSignalsBlocked() {
            sigset_t all;
            sigfillset(&all);
            pthread_sigmask(SIG_SETMASK, &all, &mBefore);
        }
        ~AllSignalsBlocked() { pthread_sigmask(SIG_SETMASK, &mBefore, nullptr); }

    private:
        sigset_t mBefore{};
    };

    const AllSignalsBlocked blocked;
    std::thread thread(std::forward<Function>(function));
    pthread_setname_np(thread.native_handle(), name);
    return thread;
}

} // namespace kq
