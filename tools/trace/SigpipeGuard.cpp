#include "tools/trace/SigpipeGuard.h"

#include <pthread.h>

namespace kelutv::trace {

namespace {

bool isPipeSignalPending() {
    sigset_t pending;
    ::sigpending(&pending);
    return ::sigismember(&pending, SIGPIPE) == 1;
}

} // namespace

SigpipeGuard::SigpipeGuard() {
    ::sigemptyset(&mPipe);
    ::sigaddset(&mPipe, SIGPIPE);
    ::pthread_sigmask(SIG_BLOCK, &mPipe, &mBefore);
    mWasPending = isPipeSignalPending();
}

SigpipeGuard::~SigpipeGuard() {
    if (!mWasPending && isPipeSignalPending()) {
        const timespec now{};
        ::sigtimedwait(&mPipe, nullptr, &now);
    }
    ::pthread_sigmask(SIG_SETMASK, &mBefore, nullptr);
}

} // namespace kelutv::trace
