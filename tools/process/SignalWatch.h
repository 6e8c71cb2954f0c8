#pragma once

#include <sys/signalfd.h>

#include <csignal>
#include <functional>
#include <initializer_list>
#include <optional>

namespace kelutv::process {

/**
 * While this lives, the signals do nothing by themselves but are read from here. Threads started meanwhile have them
 * blocked, too; programs started through `maskBefore()` do not.
 */
class SignalWatch {
public:
    SignalWatch(std::initializer_list<int> signals);
    ~SignalWatch();
    SignalWatch(const SignalWatch&) = delete;
    SignalWatch& operator=(const SignalWatch&) = delete;

    /** Readable when a signal has come. */
    int fd() const { return mFd; }

    /** The next signal that has come; does not wait. */
    std::optional<signalfd_siginfo> take();

    /**
     * Hands on the signals that were sent to this process alone, but for SIGCHLD; a terminal sends its own to all that
     * run at it. Does not wait.
     */
    void handOn(const std::function<void(int)>& kill);

    const sigset_t& maskBefore() const { return mBefore; }

private:
    sigset_t mBefore{};
    int mFd;
};

} // namespace kelutv::process
