#pragma once

#include <sys/types.h>

#include <memory>
#include <vector>

namespace kelutv::bench {

/** Another way to have another process answer a call. Its process is made first, before this one has threads. */
class Peer {
public:
    virtual ~Peer() = default;

    /** One call of two numbers, answered by one. */
    virtual void call() = 0;
    virtual const char* name() const = 0;
    virtual pid_t process() const = 0;
};

/**
 * The floor: a request and a reply of these bytes, exchanged by the transport's own means, and nothing else. Bytes are
 * those of the parcels.
 */
std::unique_ptr<Peer> makeBareExchange(size_t requestBytes, size_t replyBytes);

/** Those that this program is built with. */
std::vector<std::unique_ptr<Peer>> makePeers();

#ifdef KELUTV_BENCH_SD_BUS
/** sd-bus, from one process to the other without a daemon. */
std::unique_ptr<Peer> makeSdBusPeer();
#endif
#ifdef KELUTV_BENCH_GRPC
/** gRPC over a Unix socket in the runtime directory. */
std::unique_ptr<Peer> makeGrpcPeer();
#endif

} // namespace kelutv::bench
