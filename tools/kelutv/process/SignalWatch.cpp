#include "tools/kelutv/process/SignalWatch.h"

#include "tools/kelutv/output/Errors.h"

#include <pthread.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>

namespace kelutv::tool {

SignalWatch::SignalWatch(std::initializer_list<int> signals) {
    sigset_t watched;
    ::sigemptyset(&watched);
    for (const int signal : signals) {
        ::sigaddset(&watched, signal);
    }
    mFd = ::signalfd(-1, &watched, SFD_CLOEXEC | SFD_NONBLOCK);
    if (mFd < 0) {
        throw ToolError(Exit::Failure, std::string("cannot watch for signals: ") + std::strerror(errno));
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

} // namespace kelutv::tool
