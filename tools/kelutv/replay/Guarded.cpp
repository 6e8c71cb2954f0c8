#include "tools/kelutv/replay/Guarded.h"

#include "tools/process/Deadline.h"
#include "tools/process/SignalWatch.h"
#include "tools/process/Worker.h"

#include <sys/wait.h>

#include <csignal>

namespace kelutv::tool {

namespace {

int follow(process::Worker& worker, process::SignalWatch& signals) {
    int broken = 0;
    while (!process::waitToRead({worker.fd()}, process::deadlineIn(process::Seconds::zero()))) {
        process::waitToRead({worker.fd(), signals.fd()}, std::nullopt);
        while (const auto signal = signals.take()) {
            broken = static_cast<int>(signal->ssi_signo);
            worker.kill(SIGKILL);
        }
    }
    return broken;
}

} // namespace

GuardedEnd doGuarded(const std::function<Exit()>& something, const std::function<void(const GuardedEnd&)>& tidyUp) {
    process::SignalWatch signals{SIGINT, SIGTERM, SIGHUP, SIGQUIT};
    process::Worker worker = process::Worker::start([&] {
        ::pthread_sigmask(SIG_SETMASK, &signals.maskBefore(), nullptr);
        return static_cast<int>(something());
    });
    const int broken = follow(worker, signals);
    const int status = worker.wait();
    const GuardedEnd end{WIFEXITED(status) ? static_cast<Exit>(WEXITSTATUS(status)) : Exit::Failure,
                         broken != 0 || !WIFSIGNALED(status) ? broken : WTERMSIG(status)};
    tidyUp(end);
    return end;
}

} // namespace kelutv::tool
