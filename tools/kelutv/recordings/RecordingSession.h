#pragma once

#include "tools/kelutv/output/Output.h"
#include "tools/kelutv/recordings/Recorder.h"
#include "tools/process/Deadline.h"

#include <chrono>
#include <cstdint>
#include <optional>
#include <set>
#include <string>

namespace kelutv::tool {

struct RecordOptions {
    std::string file = "recording.jsonl";
    bool events = false;
    /** How long is recorded; nothing for no limit. */
    std::optional<std::chrono::duration<double>> time;
    /** In bytes; 0 for no limit. */
    std::uint64_t most = 0;
};

/** What comes out of a pipe, on its way into a file. To be made when the signals that are waited for are blocked. */
class RecordingSession {
public:
    /** @param begin what `beginSection` gave */
    RecordingSession(TracePipe& pipe, RecordingFile& file, std::chrono::nanoseconds begin,
                     const RecordOptions& options);

    /**
     * Waits until something is there to take, the descriptor can be read, or the time is over, and takes what is there.
     *
     * @param other another descriptor that is waited for; -1 for none
     * @param most no longer than this; negative for as long as it takes
     */
    void wait(int other, std::chrono::milliseconds most);

    /** Takes what is there still; that and the end are written. Does not wait, and needs the pipe no more. */
    void finish(const std::string& reason);

    /** Waits until all is written, which takes as long as the disk does; behind `finish`. */
    void join() { mRecorder.join(); }

    /** The processes that have sent something or have begun, for the caller to take away. */
    std::set<pid_t>& processes() { return mProcesses; }

    /** Says what has become of it, behind `join`. */
    void report(const RecordOptions& options, const Output& output) const;

private:
    void take();
    int millisecondsLeft(std::chrono::milliseconds most) const;

    TracePipe& mPipe;
    Recorder mRecorder;
    process::Deadline mDeadline;
    std::set<pid_t> mProcesses;
    bool mIsFinished = false;
};

/** What is to be sent by the programs that are recorded. */
TraceWishes wishesOf(const RecordOptions& options);

} // namespace kelutv::tool
