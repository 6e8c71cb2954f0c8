#include "Failure.h"

#include <unistd.h>

#include <cerrno>
#include <csignal>
#include <cstdio>
#include <cstring>

namespace kelutv::bench {

void giveUp(const char* what) {
    std::fprintf(stderr, "kelutv-bench: %s\n", what);
    // The measurement is a process group.
    ::kill(0, SIGKILL);
    ::_exit(1);
}

void fail(const char* what) {
    std::fprintf(stderr, "kelutv-bench: %s: %s\n", what, std::strerror(errno));
    giveUp("the measurement is given up");
}

} // namespace kelutv::bench
