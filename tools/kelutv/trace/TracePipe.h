#pragma once

#include "tools/kelutv/text/Hex.h"
#include "tools/trace/Frame.h"

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <map>
#include <string>
#include <utility>
#include <vector>

namespace kelutv::tool {

/** One transaction of a traced program, or what it was told. */
struct TracedTransaction {
    trace::RecordKind kind;
    std::int32_t process;
    std::int32_t thread;
    std::chrono::nanoseconds start;
    /** The start by the clock that nobody sets. */
    std::chrono::nanoseconds begin;
    std::chrono::nanoseconds duration;
    /** The transport's status, or the identifier of an event. */
    std::int32_t status;
    /** Or the payload of an event. */
    Bytes request;
    Bytes reply;
};

/** What a tool wants of the programs. */
struct TraceWishes {
    std::vector<trace::RecordKind> kinds;
    /** How long a program waits for room in the pipe. */
    std::chrono::milliseconds patience;
};

/** The named pipe through which programs send what was seen, in a private folder. */
class TracePipe {
public:
    /** In a folder of its own, which is gone with it. */
    explicit TracePipe(const TraceWishes& wishes);
    /** In this folder, which this user alone may use; what was left there is replaced, the folder is gone with it. */
    TracePipe(std::string folder, const TraceWishes& wishes);
    ~TracePipe();
    TracePipe(const TracePipe&) = delete;
    TracePipe& operator=(const TracePipe&) = delete;

    const std::string& path() const { return mPath; }
    int fd() const { return mFd; }

    /** Everything that is there now, in the order of the transactions' ends; does not wait. */
    std::vector<TracedTransaction> take();

    /** Lets programs send nothing more. */
    void close();

    /** How many records programs have left out since the last call, after all that could be taken before it. */
    std::uint32_t takeLeftOut();

private:
    /** @name False when it cannot be made, with the reason in `errno`. @{ */
    bool makePipe();
    bool makeNotes(const TraceWishes& wishes);
    /** @} */
    void remove();
    void takeFrames(std::vector<TracedTransaction>& transactions);
    void append(const trace::FrameHeader& frame, const std::uint8_t* piece,
                std::vector<TracedTransaction>& transactions);

    std::string mDirectory;
    std::string mPath;
    int mFd = -1;
    trace::Notes* mNotes = nullptr;
    Bytes mUnread;
    /** What has come of the record of each thread. */
    std::map<std::pair<std::int32_t, std::int32_t>, Bytes> mRecords;
};

} // namespace kelutv::tool
