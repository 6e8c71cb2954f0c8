#include "tools/kelutv/trace/TracedRun.h"

#include "tools/kelutv/trace/TracedProgram.h"
#include "tools/process/SignalWatch.h"

#include <poll.h>

namespace kelutv::tool {

namespace {

using Clock = std::chrono::steady_clock;
using std::chrono::milliseconds;

TraceWishes wishes(bool events, milliseconds patience) {
    using trace::RecordKind;
    return {events ? std::vector<RecordKind>{RecordKind::Transaction, RecordKind::Event}
                   : std::vector<RecordKind>{RecordKind::Transaction},
            patience};
}

void takeAll(TracePipe& pipe, const TraceListener& listener) {
    for (const TracedTransaction& transaction : pipe.take()) {
        listener.take(transaction);
    }
    if (const std::uint32_t count = pipe.takeLeftOut(); count > 0) {
        listener.takeLeftOut(count);
    }
}

/** Tells the listener of the time that passes. */
class Ticker {
public:
    explicit Ticker(const TraceListener& listener) : mListener(listener), mNext(Clock::now() + listener.interval) {}

    /** In milliseconds, as poll(2) takes it. */
    int left() const {
        if (!mListener.tick) {
            return -1;
        }
        const auto left = std::chrono::ceil<milliseconds>(mNext - Clock::now()).count();
        return left > 0 ? static_cast<int>(left) : 0;
    }

    void tickIfDue() {
        if (mListener.tick && Clock::now() >= mNext) {
            mListener.tick();
            mNext = Clock::now() + mListener.interval;
        }
    }

private:
    const TraceListener& mListener;
    Clock::time_point mNext;
};

int waitForEnd(TracedProgram& program, process::SignalWatch& signals, TracePipe& pipe, const TraceListener& listener) {
    pollfd watched[] = {{pipe.fd(), POLLIN, 0}, {signals.fd(), POLLIN, 0}};
    Ticker ticker(listener);
    std::optional<int> exit;
    while (!(exit = program.exitCode())) {
        ::poll(watched, 2, ticker.left());
        signals.handOn([&program](int signal) { program.kill(signal); });
        takeAll(pipe, listener);
        ticker.tickIfDue();
    }
    takeAll(pipe, listener);
    return *exit;
}

} // namespace

int runTraced(const std::vector<std::string>& words, const std::vector<std::pair<int, int>>& descriptors, bool events,
              const TraceListener& listener) {
    TracePipe pipe(wishes(events, listener.patience));
    process::SignalWatch signals{SIGCHLD, SIGINT, SIGTERM, SIGHUP, SIGQUIT};
    std::signal(SIGCHLD, SIG_DFL); // Else the program's end may not be reported.
    TracedProgram program(words, trace::kTraceVariable + ('=' + pipe.path()), descriptors, signals.maskBefore());
    return waitForEnd(program, signals, pipe, listener);
}

} // namespace kelutv::tool
