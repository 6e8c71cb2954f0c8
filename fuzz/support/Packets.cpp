#include "fuzz/support/Packets.h"

#include "fuzz/support/Target.h"

#include <sys/socket.h>

#include <array>

namespace kelutv::fuzz {

SocketPair::SocketPair() {
    int ends[2] = {-1, -1};
    require(::socketpair(AF_UNIX, SOCK_SEQPACKET | SOCK_CLOEXEC, 0, ends) == 0, "there are two sockets");
    own = kq::UniqueFd(ends[0]);
    peer = kq::UniqueFd(ends[1]);
}

void sendPacket(const kq::UniqueFd& socket, const Bytes& packet) {
    static_cast<void>(::send(socket.get(), packet.data(), packet.size(), MSG_DONTWAIT | MSG_NOSIGNAL));
}

void endSending(const kq::UniqueFd& socket) { ::shutdown(socket.get(), SHUT_WR); }

Bytes takePackets(const kq::UniqueFd& socket) {
    std::array<std::uint8_t, 128 * 1024> packet;
    Bytes all;
    for (;;) {
        const ssize_t length = ::recv(socket.get(), packet.data(), packet.size(), MSG_DONTWAIT);
        if (length <= 0) {
            return all;
        }
        all.insert(all.end(), packet.begin(), packet.begin() + length);
    }
}

} // namespace kelutv::fuzz
