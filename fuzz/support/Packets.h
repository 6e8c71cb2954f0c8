#pragma once

#include "fuzz/support/Input.h"

#include "socket/UniqueFd.h"

namespace kelutv::fuzz {

/** Two connected sockets of the kind that the runtime uses: the product has one of them, the input says what comes of
 * the other. */
struct SocketPair {
    SocketPair();

    kq::UniqueFd own;
    kq::UniqueFd peer;
};

/** Sends one packet; what does not fit into the socket any more is left out. */
void sendPacket(const kq::UniqueFd& socket, const Bytes& packet);

/** Nothing more comes from this end. */
void endSending(const kq::UniqueFd& socket);

/** Takes all packets that have come. @return their bytes, one after the other */
Bytes takePackets(const kq::UniqueFd& socket);

} // namespace kelutv::fuzz
