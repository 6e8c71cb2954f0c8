#include "DriverEcho.h"
#include "Peer.h"
#include "RawEcho.h"

#include "bench/support/Service.h"
#include "bench/support/WireSizes.h"

namespace kelutv::bench {

namespace {

class SocketExchange : public Peer {
public:
    SocketExchange(size_t requestBytes, size_t replyBytes)
        : mEcho(1, kMessageHead + requestBytes, kMessageHead + replyBytes) {}

    void call() override { mEcho.roundTrip(0); }
    const char* name() const override { return "bare"; }
    pid_t process() const override { return mEcho.process(); }

private:
    RawEcho mEcho;
};

class DriverExchange : public Peer {
public:
    DriverExchange(size_t requestBytes, size_t replyBytes) : mRequest(requestBytes), mReplyBytes(replyBytes) {}

    void call() override { mEcho->roundTrip(mRequest, mReplyBytes); }
    const char* name() const override { return "bare"; }
    pid_t process() const override { return mEcho->process(); }

private:
    const std::shared_ptr<DriverEcho> mEcho = DriverEcho::shared();
    const std::vector<uint8_t> mRequest;
    const size_t mReplyBytes;
};

} // namespace

std::unique_ptr<Peer> makeBareExchange(size_t requestBytes, size_t replyBytes) {
    if (throughKernel()) {
        return std::make_unique<DriverExchange>(requestBytes, replyBytes);
    }
    return std::make_unique<SocketExchange>(requestBytes, replyBytes);
}

std::vector<std::unique_ptr<Peer>> makePeers() {
    std::vector<std::unique_ptr<Peer>> peers;
#ifdef KELUTV_BENCH_SD_BUS
    peers.push_back(makeSdBusPeer());
#endif
#ifdef KELUTV_BENCH_GRPC
    peers.push_back(makeGrpcPeer());
#endif
    return peers;
}

} // namespace kelutv::bench
