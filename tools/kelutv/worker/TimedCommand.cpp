#include "tools/kelutv/worker/TimedCommand.h"

#include "tools/kelutv/output/Errors.h"
#include "tools/kelutv/worker/TerminalState.h"
#include "tools/process/Deadline.h"
#include "tools/process/SignalWatch.h"
#include "tools/process/Worker.h"

#include <sys/wait.h>

#include <csignal>
#include <optional>

namespace kelutv::tool {

namespace {

/** What a command that ends by itself has for that, once it is told to. */
constexpr std::chrono::milliseconds kGrace{500};
constexpr int kSignalled = 128;

/** @return false when the time is over */
bool waitForEnd(const process::Worker& worker, process::SignalWatch& signals, process::Deadline deadline) {
    while (process::waitToRead({worker.fd(), signals.fd()}, deadline)) {
        signals.handOn([&worker](int signal) { worker.kill(signal); });
        if (process::waitToRead({worker.fd()}, process::deadlineIn(Seconds::zero()))) {
            return true;
        }
    }
    return false;
}

Exit endLike(int status) {
    if (WIFEXITED(status)) {
        return static_cast<Exit>(WEXITSTATUS(status));
    }
    std::signal(WTERMSIG(status), SIG_DFL);
    std::raise(WTERMSIG(status));
    return static_cast<Exit>(kSignalled + WTERMSIG(status));
}

} // namespace

void continueInWorkerFor(Seconds time) {
    const process::Deadline deadline = process::deadlineIn(time);
    const TerminalState terminal;
    std::optional<process::Worker> worker = process::Worker::fork();
    if (!worker) {
        return;
    }
    int status = 0;
    {
        process::SignalWatch signals{SIGINT, SIGTERM, SIGHUP, SIGQUIT};
        if (!waitForEnd(*worker, signals, deadline)) {
            worker->end(kGrace);
            terminal.restore();
            throw ToolError(Exit::TimeOver, timeOverText(time));
        }
        status = worker->wait();
    }
    throw ToolError(endLike(status), "");
}

std::string timeOverText(Seconds time) { return "the time was over after " + secondsText(time) + " s"; }

} // namespace kelutv::tool
