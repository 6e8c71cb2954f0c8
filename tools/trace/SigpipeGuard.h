#pragma once

#include <csignal>

namespace kelutv::trace {

/** While this lives, a broken pipe gives this thread no SIGPIPE; one that was pending before stays. */
class SigpipeGuard {
public:
    SigpipeGuard();
    ~SigpipeGuard();
    SigpipeGuard(const SigpipeGuard&) = delete;
    SigpipeGuard& operator=(const SigpipeGuard&) = delete;

private:
    sigset_t mPipe{};
    sigset_t mBefore{};
    bool mWasPending = false;
};

} // namespace kelutv::trace
