#pragma once

#include <sys/types.h>

#include <cstddef>
#include <vector>

namespace kelutv::bench {

/** The floor: another process that answers one packet by one packet over a SEQPACKET socket pair, and does nothing
 * else. */
class RawEcho {
public:
    /** `pairs` independent connections, each answered by a thread of its own. */
    RawEcho(int pairs, size_t requestSize, size_t replySize);
    ~RawEcho();
    RawEcho(const RawEcho&) = delete;
    RawEcho& operator=(const RawEcho&) = delete;

    /** One packet out, one packet back. */
    void roundTrip(int pair);
    pid_t process() const { return mProcess; }

private:
    [[noreturn]] void answer(const std::vector<int>& sockets) const;

    const size_t mRequestSize;
    const size_t mReplySize;
    std::vector<int> mSockets;
    pid_t mProcess = -1;
};

} // namespace kelutv::bench
