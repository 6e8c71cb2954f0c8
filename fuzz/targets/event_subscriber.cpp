#include "fuzz/support/Input.h"
#include "fuzz/support/Packets.h"
#include "fuzz/support/Target.h"

#include "emclient/ModuleList.h"
#include "emclient/PublisherConnection.h"

#include <memory>

/** A process that listens, and a publisher that sends anything. */
namespace kelutv::fuzz {
namespace {

using keluem::EventPacket;
using keluem::PublisherConnection;
using Received = PublisherConnection::Received;

void receiveAll(PublisherConnection& connection) {
    // Its memory is told apart from what is around it.
    const auto packet = std::make_unique<EventPacket>();
    for (;;) {
        switch (connection.receive(packet.get())) {
        case Received::Event:
        case Received::OldEvent:
            require(packet->length() <= keluem::kMaxPayload, "an event is no longer than one may be");
            touch(packet->payload(), packet->length());
            static_cast<void>(packet->id());
            break;
        case Received::NoEvent:
            break;
        case Received::Nothing:
        case Received::End:
            return;
        }
    }
}

void step(Input& input, PublisherConnection& connection, const kq::UniqueFd& publisher) {
    const std::vector<std::uint32_t> list{keluem::ModuleList::kVersion, 1, 0x60000};
    switch (input.below(8)) {
    case 0:
        connection.startModule(input.number<std::uint32_t>() & 0xFFFF0000);
        break;
    case 1:
        connection.tell(list);
        break;
    case 2:
        connection.tellExactly(list);
        break;
    case 3:
        receiveAll(connection);
        break;
    case 4:
        // Longer than any event may be, without an input that is as long.
        sendPacket(publisher, Bytes(keluem::kMaxPayload + input.number<std::uint8_t>()));
        break;
    case 5:
        connection.hungUp();
        break;
    default:
        sendPacket(publisher, input.block());
    }
}

} // namespace
} // namespace kelutv::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace kelutv::fuzz;
    Input input(data, size);
    SocketPair sockets;
    PublisherConnection connection(std::move(sockets.own), 1);
    while (!input.isEmpty()) {
        step(input, connection, sockets.peer);
    }
    endSending(sockets.peer);
    receiveAll(connection);
    return 0;
}
