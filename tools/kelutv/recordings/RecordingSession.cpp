#include "tools/kelutv/recordings/RecordingSession.h"

#include "tools/kelutv/text/Lists.h"
#include "wire/text/Shown.h"

#include <poll.h>

#include <algorithm>
#include <limits>

namespace kelutv::tool {

namespace {

using std::chrono::milliseconds;

/** How long programs may fill the pipe while the disk is behind. */
constexpr milliseconds kRest{20};
/** How long they may, so that not each of their calls wakes this process: the pipe has room for a thousand megabytes a
 * second then. */
constexpr milliseconds kPause{1};

/** Why it was over before the program; empty when it was not. */
std::string limitText(const std::string& reason) {
    if (reason == "size") {
        return "the recording has ended before the program: --max-size is reached";
    }
    if (reason == "time") {
        return "the recording has ended before the program: --for is over";
    }
    return reason == "disk" ? "the recording has ended before the program: the file cannot be written" : "";
}

} // namespace

TraceWishes wishesOf(const RecordOptions& options) {
    using trace::RecordKind;
    return {{RecordKind::Transaction, RecordKind::Loss, RecordKind::Process,
             options.events ? RecordKind::Event : RecordKind::Transaction},
            milliseconds::zero()};
}

RecordingSession::RecordingSession(TracePipe& pipe, RecordingFile& file, std::chrono::nanoseconds begin,
                                   const RecordOptions& options)
    : mPipe(pipe), mRecorder(file, begin), mDeadline(process::deadlineIn(options.time)) {}

void RecordingSession::wait(int other, milliseconds most) {
    const bool isBehind = !mIsFinished && mRecorder.isBehind();
    pollfd watched[] = {{isBehind ? -1 : mPipe.fd(), POLLIN, 0}, {other, POLLIN, 0}};
    ::poll(watched, 2, millisecondsLeft(isBehind ? kRest : most));
    if (!isBehind) {
        ::poll(&watched[1], 1, static_cast<int>(kPause.count()));
        take();
    }
    if (!mIsFinished && mDeadline && std::chrono::steady_clock::now() >= *mDeadline) {
        finish("time");
    }
}

void RecordingSession::finish(const std::string& reason) {
    mPipe.close();
    take();
    if (!mIsFinished) {
        mRecorder.finish(reason);
        mIsFinished = true;
    }
}

void RecordingSession::take() {
    if (mRecorder.isOver()) {
        mPipe.close();
    }
    for (TracedTransaction& traced : mPipe.take()) {
        mProcesses.insert(traced.process);
        if (!mIsFinished && traced.kind != trace::RecordKind::Process) {
            mRecorder.add(std::move(traced));
        }
    }
    if (const std::uint32_t count = mPipe.takeLeftOut(); count > 0 && !mIsFinished) {
        mRecorder.addGap(count);
    }
}

int RecordingSession::millisecondsLeft(milliseconds most) const {
    if (mIsFinished || !mDeadline) {
        return static_cast<int>(most.count());
    }
    const auto left = std::chrono::ceil<milliseconds>(*mDeadline - std::chrono::steady_clock::now());
    const auto bounded = std::clamp(left, milliseconds::zero(), milliseconds(std::numeric_limits<int>::max()));
    return static_cast<int>(most.count() < 0 ? bounded.count() : std::min(bounded, most).count());
}

void RecordingSession::report(const RecordOptions& options, const Output& output) const {
    if (const std::string limit = limitText(mRecorder.reason()); !limit.empty()) {
        output.message("kelutv: " + limit);
    }
    output.message("kelutv: " + counted(mRecorder.transactions(), "call") + " and " +
                   counted(mRecorder.events(), "event") + " recorded in " +
                   wire::shown(options.file, wire::kMostOfPath) +
                   (mRecorder.leftOut() == 0 ? "" : ", " + std::to_string(mRecorder.leftOut()) + " left out"));
}

} // namespace kelutv::tool
