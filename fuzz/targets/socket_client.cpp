#include "fuzz/support/Input.h"
#include "fuzz/support/Packets.h"
#include "fuzz/support/Target.h"

#include "droid/sockets/ClientConnection.h"
#include "droid/sockets/Greeting.h"

#include <binder/Parcel.h>

#include <sys/socket.h>

#include <memory>

/** A client's connection to a service that sends anything: its greeting, its answers, and what nobody asked for. */
namespace kelutv::fuzz {
namespace {

using android::Parcel;

constexpr std::chrono::seconds kPatience{20};

/** As a service sends it, or somehow else. */
Bytes readGreeting(Input& input) {
    android::Greeting greeting = android::greetingOfProcess(android::NO_ERROR);
    if (input.below(8) == 0) {
        greeting.status = input.small();
    }
    if (input.below(8) == 0) {
        greeting.instance = input.number<std::uint8_t>();
    }
    const auto* const bytes = reinterpret_cast<const std::uint8_t*>(&greeting);
    Bytes packet(bytes, bytes + sizeof greeting);
    if (input.below(8) == 0) {
        packet = input.block();
    }
    return packet;
}

/** One packet: an answer, the rest of one, or anything. */
Bytes readPacket(Input& input) {
    const std::size_t kind = input.below(4);
    const Bytes body = input.block();
    if (kind == 0) {
        return body;
    }
    android::MessageHead head{};
    head.size = kind == 1 ? input.number<std::uint32_t>() : static_cast<std::uint32_t>(body.size());
    head.flags = input.below(8) == 0 ? input.number<std::uint32_t>() : 0;
    head.status = input.small();
    head.number = input.number<std::uint8_t>();
    const auto* const bytes = reinterpret_cast<const std::uint8_t*>(&head);
    Bytes packet(bytes, bytes + sizeof head);
    packet.insert(packet.end(), body.begin(), body.end());
    return packet;
}

void run(Input& input) {
    SocketPair watch;
    SocketPair calls;
    sendPacket(watch.peer, readGreeting(input));
    sendPacket(calls.peer, readGreeting(input));
    const std::size_t asked = 1 + input.below(4);
    while (!input.isEmpty()) {
        sendPacket(calls.peer, readPacket(input));
    }
    endSending(calls.peer);
    const auto line = std::make_shared<android::LifeLine>("nowhere", std::move(watch.own));
    line->look();
    const auto connection = android::ClientConnection::make(std::move(calls.own), line);
    require(connection != nullptr && connection->setPatience(kPatience), "there is a connection");
    for (std::size_t i = 0; i < asked && connection->usable(); ++i) {
        Parcel request;
        request.writeInt32(static_cast<std::int32_t>(i));
        Parcel reply;
        const android::status_t status = connection->call(1, 0, request, &reply);
        require(status == android::NO_ERROR || reply.dataSize() == 0, "there is no reply to a call that failed");
        touch(reply.data(), reply.dataSize());
    }
}

} // namespace
} // namespace kelutv::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    kelutv::fuzz::Input input(data, size);
    kelutv::fuzz::run(input);
    return 0;
}
