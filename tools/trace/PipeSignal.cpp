#include "tools/trace/PipeSignal.h"

#include <pthread.h>

namespace kelutv::trace {

namespace {

bool isPipeSignalPending() {
    sigset_t pending;
    ::sigpending(&pending);
    return ::sigismember(&pending, SIGPIPE) == 1;
}

} // namespace

NoPipeSignal::NoPipeSignal() {
    ::sigemptyset(&mPipe);
    ::sigaddset(&mPipe, SIGPIPE);
    ::pthread_sigmask(SIG_BLOCK, &mPipe, &mBefore);
    mWasPending = isPipeSignalPending();
}

NoPipeSignal::~NoPipeSignal() {
    if (!mWasPending && isPipeSignalPending()) {
        const timespec now{};
        ::sigtimedwait(&mPipe, nullptr, &now);
    }
    ::pthread_sigmask(SIG_SETMASK, &mBefore, nullptr);
}

} // namespace kelutv::trace
