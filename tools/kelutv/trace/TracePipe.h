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

/** One transaction of a traced program. */
struct TracedTransaction {
    std::int32_t process;
    std::int32_t thread;
    std::chrono::nanoseconds start;
    std::chrono::nanoseconds duration;
    /** The transport's status. */
    std::int32_t status;
    Bytes request;
    Bytes reply;
};

/** The named pipe through which traced programs send their transactions, in a private directory of its own. */
class TracePipe {
public:
    TracePipe();
    ~TracePipe();
    TracePipe(const TracePipe&) = delete;
    TracePipe& operator=(const TracePipe&) = delete;

    const std::string& path() const { return mPath; }
    int fd() const { return mFd; }

    /** Everything that is there now, in the order of the transactions' ends; does not wait. */
    std::vector<TracedTransaction> take();

    /** How many transactions programs have left out since the last call, after all that could be taken before it. */
    std::uint32_t takeLeftOut();

private:
    /** @name False when it cannot be made, with the reason in `errno`. @{ */
    bool makePipe();
    bool makeCounter();
    /** @} */
    void remove();
    void takeFrames(std::vector<TracedTransaction>& transactions);
    void append(const trace::FrameHeader& frame, const std::uint8_t* piece,
                std::vector<TracedTransaction>& transactions);

    std::string mDirectory;
    std::string mPath;
    int mFd = -1;
    trace::LeftOut* mLeftOut = nullptr;
    Bytes mUnread;
    /** What has come of the record of each thread. */
    std::map<std::pair<std::int32_t, std::int32_t>, Bytes> mRecords;
};

} // namespace kelutv::tool
