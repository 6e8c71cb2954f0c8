#include "torture/processes/ForkedProcess.h"

#include "support/ChildProcess.h"

#include <sys/prctl.h>
#include <sys/resource.h>
#include <unistd.h>

#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <system_error>

namespace kelutv::test {

namespace {

/** What is thrown ends the process, as it would in a program of its own. */
[[noreturn]] void live(const std::function<void()>& body) noexcept {
    ::prctl(PR_SET_PDEATHSIG, SIGKILL);
    constexpr rlimit kNoCore{0, 0};
    ::setrlimit(RLIMIT_CORE, &kNoCore);
    body();
    std::exit(0);
}

} // namespace

ForkedProcess::ForkedProcess(const std::function<void()>& body) {
    std::fflush(nullptr);
    mPid = ::fork();
    if (mPid < 0) {
        throw std::system_error(errno, std::generic_category(), "fork");
    }
    if (mPid == 0) {
        ::dup2(mText.fd(), STDOUT_FILENO);
        ::dup2(mText.fd(), STDERR_FILENO);
        live(body);
    }
}

ForkedProcess::~ForkedProcess() { kill(); }

std::optional<int> ForkedProcess::wait(std::chrono::milliseconds patience) {
    eventually([this] { return reapIfEnded(mPid, mStatus); }, patience);
    return mStatus;
}

void ForkedProcess::signal(int number) {
    if (!mStatus) {
        ::kill(mPid, number);
    }
}

void ForkedProcess::kill() {
    signal(SIGKILL);
    wait();
}

} // namespace kelutv::test
