#include "Child.h"

#include "Failure.h"

#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <utility>

namespace kelutv::bench {

Child::Child(const std::function<void()>& run) : mProcess(::fork()) {
    require(mProcess >= 0, "fork");
    if (mProcess == 0) {
        ::prctl(PR_SET_PDEATHSIG, SIGKILL);
        run();
        ::_exit(0);
    }
}

Child::Child(Child&& other) noexcept : mProcess(std::exchange(other.mProcess, -1)) {}

Child::~Child() {
    if (mProcess > 0) {
        ::kill(mProcess, SIGKILL);
        wait();
    }
}

int Child::wait() {
    int status = 0;
    ::waitpid(std::exchange(mProcess, -1), &status, 0);
    return status;
}

void runApart(const std::function<void()>& run) {
    if (Child(run).wait() != 0) {
        giveUp("a part of the measurement has failed");
    }
}

} // namespace kelutv::bench
