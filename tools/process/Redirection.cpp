#include "tools/process/Redirection.h"

#include <fcntl.h>
#include <unistd.h>

#include <cstdio>

namespace kelutv::process {

namespace {

/** A copy of a descriptor, above the standard ones; -1 when there is none left. */
int copyOf(int fd) { return ::fcntl(fd, F_DUPFD_CLOEXEC, STDERR_FILENO + 1); }

} // namespace

Redirection::Redirection(int fd, int to) : mFd(fd), mOriginal(to < 0 ? -1 : copyOf(fd)) {
    std::fflush(nullptr);
    if (mOriginal >= 0) {
        ::dup2(to, fd);
    }
}

Redirection::~Redirection() {
    std::fflush(nullptr);
    if (mOriginal >= 0) {
        ::dup2(mOriginal, mFd);
        ::close(mOriginal);
    }
}

} // namespace kelutv::process
