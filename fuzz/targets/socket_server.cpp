#include "fuzz/support/Input.h"
#include "fuzz/support/Packets.h"
#include "fuzz/support/Target.h"

#include "droid/sockets/CallAnswer.h"

#include <binder/Binder.h>
#include <binder/Parcel.h>

#include <atomic>
#include <cstring>

/** A server's connection to a client that sends anything. */
namespace kelutv::fuzz {
namespace {

using android::Parcel;
using android::Received;

/** Answers by what was sent, so that replies are short, long and none. */
class Echo : public android::BBinder {
protected:
    android::status_t onTransact(std::uint32_t code, const Parcel& data, Parcel* reply, std::uint32_t flags) override {
        touch(data.data(), data.dataSize());
        if (code > LAST_CALL_TRANSACTION) {
            return BBinder::onTransact(code, data, reply, flags);
        }
        for (std::uint32_t copies = code % 4; reply != nullptr && copies > 0; --copies) {
            reply->appendFrom(&data, 0, data.dataSize());
        }
        return code % 8 == 7 ? android::BAD_VALUE : android::NO_ERROR;
    }
};

Bytes readPacket(Input& input) {
    const std::size_t kind = input.below(4);
    const Bytes body = input.block();
    if (kind == 0) {
        return body;
    }
    android::MessageHead head{};
    head.size = kind == 1 ? input.number<std::uint32_t>() : static_cast<std::uint32_t>(body.size());
    head.code = input.below(8) == 0 ? input.number<std::uint32_t>() : input.number<std::uint8_t>();
    head.flags = input.below(4) == 0 ? input.number<std::uint32_t>() : 0;
    head.number = input.number<std::uint8_t>();
    const auto* const bytes = reinterpret_cast<const std::uint8_t*>(&head);
    Bytes packet(bytes, bytes + sizeof head);
    packet.insert(packet.end(), body.begin(), body.end());
    return packet;
}

/** What was sent back begins with a head. */
void checkAnswers(const Bytes& answers) {
    require(answers.empty() || answers.size() >= sizeof(android::MessageHead), "an answer has a head");
}

void serve(const kq::UniqueFd& socket, bool refuses) {
    const auto buffer = android::MessageBuffer::make();
    require(buffer != nullptr, "there is a buffer");
    android::MessageStream stream(socket.get(), *buffer);
    const android::sp<android::BBinder> object = new Echo;
    std::atomic<std::size_t> calls{0};
    std::atomic<std::size_t> ofPeer{refuses ? std::size_t{1} << 20 : 0};
    for (bool usable = true; usable;) {
        android::MessageHead request{};
        const Received received = stream.receiveStart(&request, 0);
        const android::CallSlot slot(calls, ofPeer);
        usable = android::answerCall(stream, received, request, slot, object);
    }
    android::refuseCall(stream);
}

} // namespace
} // namespace kelutv::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace kelutv::fuzz;
    Input input(data, size);
    SocketPair sockets;
    const bool refuses = input.below(8) == 0;
    while (!input.isEmpty()) {
        sendPacket(sockets.peer, readPacket(input));
    }
    endSending(sockets.peer);
    serve(sockets.own, refuses);
    sockets.own = kq::UniqueFd();
    checkAnswers(takePackets(sockets.peer));
    return 0;
}
