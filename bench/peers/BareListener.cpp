#include "BareListener.h"

#include "bench/support/Failure.h"

#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

#include <array>
#include <cstring>

namespace kelutv::bench {

namespace {

using Packet = std::array<char, 256>;

int listenAt(const std::string& path) {
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    if (path.size() >= sizeof(address.sun_path)) {
        giveUp("the path of the temporary folder is too long for a socket");
    }
    std::memcpy(address.sun_path, path.c_str(), path.size());
    const int listener = ::socket(AF_UNIX, SOCK_SEQPACKET | SOCK_CLOEXEC, 0);
    require(::bind(listener, reinterpret_cast<const sockaddr*>(&address), sizeof(address)) == 0, path.c_str());
    require(::listen(listener, SOMAXCONN) == 0, path.c_str());
    return listener;
}

void answer(int listener, size_t replyBytes) {
    for (;;) {
        const int socket = ::accept4(listener, nullptr, nullptr, SOCK_CLOEXEC);
        Packet packet{};
        if (::recv(socket, packet.data(), packet.size(), 0) > 0) {
            ::send(socket, packet.data(), replyBytes, MSG_NOSIGNAL);
        }
        ::close(socket);
    }
}

} // namespace

BareListener::BareListener(const std::string& path, size_t replyBytes) {
    const int listener = listenAt(path);
    mAnswerer.emplace([listener, replyBytes] { answer(listener, replyBytes); });
    ::close(listener);
}

} // namespace kelutv::bench
