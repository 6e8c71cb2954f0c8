#pragma once

#include "bench/support/Child.h"

#include <sys/types.h>

#include <cstddef>
#include <optional>
#include <vector>

namespace kelutv::bench {

/** The floor over sockets: another process that answers one message by one message over a SEQPACKET socket pair, and
 * does nothing else. A large message travels in several packets. */
class RawEcho {
public:
    /** `pairs` independent connections, each answered by a thread of its own; bytes with the heads of messages. */
    RawEcho(size_t pairs, size_t requestBytes, size_t replyBytes);
    ~RawEcho();
    RawEcho(const RawEcho&) = delete;
    RawEcho& operator=(const RawEcho&) = delete;

    /** One message out, one message back. */
    void roundTrip(size_t pair);
    pid_t process() const { return mAnswerer->process(); }

private:
    void answer(const std::vector<int>& sockets) const;

    struct Pair {
        int socket;
        std::vector<char> reply;
    };

    const size_t mReplyBytes;
    const std::vector<char> mRequest;
    std::vector<Pair> mPairs;
    std::optional<Child> mAnswerer;
};

} // namespace kelutv::bench
