#include "tools/process/Worker.h"

#include "tools/process/Deadline.h"

#include <fcntl.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <system_error>
#include <utility>

namespace kelutv::process {

namespace {

constexpr pid_t kNone = -1;

void endWith(pid_t parent) {
    ::prctl(PR_SET_PDEATHSIG, SIGKILL);
    if (::getppid() != parent) {
        std::_Exit(EXIT_FAILURE); // It has ended before this was asked for.
    }
}

} // namespace

std::optional<Worker> Worker::fork() {
    int life[2]; // Its end in the copy is closed when that ends.
    if (::pipe2(life, O_CLOEXEC) != 0) {
        throw std::system_error(errno, std::generic_category(), "cannot start a process");
    }
    std::fflush(nullptr);
    std::signal(SIGCHLD, SIG_DFL); // Else its end may not be reported.
    const pid_t parent = ::getpid();
    const pid_t pid = ::fork();
    const int error = errno;
    ::close(life[pid == 0 ? 0 : 1]);
    if (pid == 0) {
        endWith(parent);
        return std::nullopt;
    }
    if (pid < 0) {
        ::close(life[0]);
        throw std::system_error(error, std::generic_category(), "cannot start a process");
    }
    return Worker(pid, life[0]);
}

Worker Worker::start(const std::function<int()>& work) {
    std::optional<Worker> worker = fork();
    if (!worker) {
        std::exit(work());
    }
    return std::move(*worker);
}

Worker::Worker(Worker&& other) noexcept : mPid(std::exchange(other.mPid, kNone)), mFd(std::exchange(other.mFd, -1)) {}

Worker& Worker::operator=(Worker&& other) noexcept {
    std::swap(mPid, other.mPid);
    std::swap(mFd, other.mFd);
    return *this;
}

Worker::~Worker() {
    if (mPid != kNone) {
        kill(SIGKILL);
        wait();
    }
    if (mFd >= 0) {
        ::close(mFd);
    }
}

void Worker::kill(int signal) const { ::kill(mPid, signal); }

int Worker::wait() {
    int status = 0;
    while (::waitpid(mPid, &status, 0) < 0 && errno == EINTR) {
    }
    mPid = kNone;
    return status;
}

int Worker::end(std::chrono::milliseconds grace) {
    kill(SIGTERM);
    if (!waitToRead({mFd}, deadlineIn(grace))) {
        kill(SIGKILL);
    }
    return wait();
}

} // namespace kelutv::process
