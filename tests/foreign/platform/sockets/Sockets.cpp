#include "foreign/platform/sockets/Sockets.h"

#include <poll.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>
#include <utility>

namespace foreign {

namespace {

constexpr int kBacklog = 64;

/** The call that gives a socket its address. */
using Place = int (*)(int, const sockaddr*, socklen_t);

Descriptor socketAt(const std::string& folder, const std::string& name, Place place) {
    const std::string path = folder + '/' + name;
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    if (path.size() >= sizeof(address.sun_path)) {
        errno = ENAMETOOLONG;
        return Descriptor();
    }
    std::memcpy(address.sun_path, path.c_str(), path.size());
    Descriptor socket(::socket(AF_UNIX, SOCK_SEQPACKET | SOCK_CLOEXEC, 0));
    if (!socket.isOpen() || place(socket.number(), reinterpret_cast<const sockaddr*>(&address), sizeof(address)) != 0) {
        return Descriptor();
    }
    return socket;
}

bool hangsUp(const Descriptor& socket, int patience) {
    pollfd wanted{socket.number(), POLLIN, 0};
    return ::poll(&wanted, 1, patience) > 0;
}

} // namespace

Descriptor::Descriptor(Descriptor&& other) noexcept : mNumber(std::exchange(other.mNumber, -1)) {}

Descriptor& Descriptor::operator=(Descriptor&& other) noexcept {
    std::swap(mNumber, other.mNumber);
    return *this;
}

Descriptor::~Descriptor() {
    if (mNumber >= 0) {
        const int error = errno;
        ::close(mNumber);
        errno = error;
    }
}

Descriptor connectTo(const std::string& folder, const std::string& name) { return socketAt(folder, name, ::connect); }

Descriptor listenAt(const std::string& folder, const std::string& name) {
    ::unlink((folder + '/' + name).c_str()); // Of a service that has ended.
    Descriptor socket = socketAt(folder, name, ::bind);
    if (socket.isOpen() && ::listen(socket.number(), kBacklog) != 0) {
        return Descriptor();
    }
    return socket;
}

bool send(const Descriptor& socket, const Packet& packet) {
    Bytes whole(sizeof(packet.word) + packet.bytes.size());
    std::memcpy(whole.data(), &packet.word, sizeof(packet.word));
    if (!packet.bytes.empty()) {
        std::memcpy(whole.data() + sizeof(packet.word), packet.bytes.data(), packet.bytes.size());
    }
    return ::send(socket.number(), whole.data(), whole.size(), MSG_NOSIGNAL) == static_cast<ssize_t>(whole.size());
}

std::optional<Packet> receive(const Descriptor& socket) {
    const ssize_t size = ::recv(socket.number(), nullptr, 0, MSG_PEEK | MSG_TRUNC);
    Packet packet{};
    if (size < static_cast<ssize_t>(sizeof(packet.word))) {
        return std::nullopt;
    }
    Bytes whole(static_cast<std::size_t>(size));
    if (::recv(socket.number(), whole.data(), whole.size(), 0) != size) {
        return std::nullopt;
    }
    std::memcpy(&packet.word, whole.data(), sizeof(packet.word));
    packet.bytes.assign(whole.begin() + sizeof(packet.word), whole.end());
    return packet;
}

void awaitHangUp(const Descriptor& socket) {
    while (!hangsUp(socket, -1)) {
    }
}

bool isHungUp(const Descriptor& socket) { return hangsUp(socket, 0); }

} // namespace foreign
