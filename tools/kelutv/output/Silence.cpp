#include "tools/kelutv/output/Silence.h"

#include <fcntl.h>
#include <unistd.h>

#include <cstdio>
#include <cstdlib>

namespace kelutv::tool {

Silence::Silence() {
    if (std::getenv("KQLOG_LEVEL") != nullptr) {
        return;
    }
    std::fflush(stderr);
    const int nowhere = ::open("/dev/null", O_WRONLY | O_CLOEXEC);
    mError = ::fcntl(STDERR_FILENO, F_DUPFD_CLOEXEC, STDERR_FILENO + 1);
    if (nowhere >= 0 && mError >= 0) {
        ::dup2(nowhere, STDERR_FILENO);
    }
    ::close(nowhere);
}

Silence::~Silence() {
    if (mError >= 0) {
        ::dup2(mError, STDERR_FILENO);
        ::close(mError);
    }
}

} // namespace kelutv::tool
