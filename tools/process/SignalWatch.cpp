#include "tools/process/SignalWatch.h"

#include <pthread.h>
#include <unistd.h>

#include <cerrno>
#include <system_error>

namespace kelutv::process {

SignalWatch::SignalWatch(std::initializer_list<int> signals) {
    sigset_t watched;
    ::sigemptyset(&watched);
    for (const int signal : signals) {
        ::sigaddset(&watched, signal);
    }
    mFd = ::signalfd(-1, &watched, SFD_CLOEXEC | SFD_NONBLOCK);
    if (mFd < 0) {
        throw std::system_error(errno, std::generic_category(), "cannot watch for signals");
    }
    ::pthread_sigmask(SIG_BLOCK, &watched, &mBefore);
}

SignalWatch::~SignalWatch() {
    while (take()) {
    }
    ::close(mFd);
    ::pthread_sigmask(SIG_SETMASK, &mBefore, nullptr);
}

std::optional<signalfd_siginfo> SignalWatch::take() {
    signalfd_siginfo info{};
    return ::read(mFd, &info, sizeof(info)) == sizeof(info) ? std::optional(info) : std::nullopt;
}

void SignalWatch::handOn(const std::function<void(int)>& kill) {
    while (const auto signal = take()) {
        if (signal->ssi_signo != SIGCHLD && signal->ssi_code <= 0) {
            kill(static_cast<int>(signal->ssi_signo));
        }
    }
}

} // namespace kelutv::process
