#include "SeqPacket.h"

#include "Descriptors.h"

#include <fcntl.h>
#include <sys/socket.h>
#include <sys/time.h>
#include <sys/un.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>

namespace kq {

namespace {

bool addressOf(const std::string& path, sockaddr_un* address) {
    if (path.size() >= sizeof(address->sun_path)) {
        errno = ENAMETOOLONG;
        return false;
    }
    *address = {};
    address->sun_family = AF_UNIX;
    std::memcpy(address->sun_path, path.c_str(), path.size() + 1);
    return true;
}

UniqueFd newSocket(int flags) {
    return openDescriptor([flags] { return ::socket(AF_UNIX, SOCK_SEQPACKET | SOCK_CLOEXEC | flags, 0); });
}

const sockaddr* generic(const sockaddr_un* address) { return reinterpret_cast<const sockaddr*>(address); }

int connectRetrying(int socket, const sockaddr_un& address) {
    int result = 0;
    do {
        result = ::connect(socket, generic(&address), sizeof(address));
    } while (result != 0 && errno == EINTR);
    return result;
}

bool makeBlocking(int socket) {
    const int flags = ::fcntl(socket, F_GETFL);
    return flags >= 0 && ::fcntl(socket, F_SETFL, flags & ~O_NONBLOCK) == 0;
}

UniqueFd failed(int error) {
    errno = error;
    return UniqueFd();
}

} // namespace

UniqueFd listenAt(const std::string& path) {
    sockaddr_un address{};
    if (!addressOf(path, &address)) {
        return UniqueFd();
    }
    UniqueFd listener = newSocket(SOCK_NONBLOCK);
    if (!listener || ::bind(listener.get(), generic(&address), sizeof(address)) != 0 ||
        ::listen(listener.get(), SOMAXCONN) != 0) {
        return failed(errno);
    }
    return listener;
}

UniqueFd connectTo(const std::string& path, Waiting waiting) {
    sockaddr_un address{};
    if (!addressOf(path, &address)) {
        return UniqueFd();
    }
    // Where the listener's queue is full, a socket that may wait would do so for as long as the process is stopped.
    UniqueFd socket = newSocket(SOCK_NONBLOCK);
    if (!socket || connectRetrying(socket.get(), address) != 0) {
        return failed(errno);
    }
    if (peerOf(socket.get()).uid != ::geteuid()) {
        return failed(EACCES);
    }
    if (waiting == Waiting::Allowed && !makeBlocking(socket.get())) {
        return failed(errno);
    }
    return socket;
}

UniqueFd acceptFrom(int listener, Peer* peer, Waiting waiting) {
    const int flags = SOCK_CLOEXEC | (waiting == Waiting::Allowed ? 0 : SOCK_NONBLOCK);
    UniqueFd socket = openDescriptor([=] { return ::accept4(listener, nullptr, nullptr, flags); });
    if (!socket) {
        return socket;
    }
    *peer = peerOf(socket.get());
    if (peer->uid != ::geteuid()) {
        return failed(EACCES);
    }
    return socket;
}

bool isStale(const std::string& path) { return !connectTo(path) && errno == ECONNREFUSED; }

Peer peerOf(int socket) {
    ucred credentials{};
    socklen_t size = sizeof(credentials);
    if (::getsockopt(socket, SOL_SOCKET, SO_PEERCRED, &credentials, &size) != 0) {
        return {0, static_cast<uid_t>(-1)};
    }
    return {credentials.pid, credentials.uid};
}

bool limitReceiving(int socket, std::chrono::microseconds time) {
    constexpr auto kMicroseconds = std::chrono::microseconds::period::den;
    const timeval limit{static_cast<time_t>(time.count() / kMicroseconds),
                        static_cast<suseconds_t>(time.count() % kMicroseconds)};
    return ::setsockopt(socket, SOL_SOCKET, SO_RCVTIMEO, &limit, sizeof(limit)) == 0;
}

[[gnu::cold]] bool sendPacketAgain(int socket, const void* bytes, size_t length, int flags) {
    ssize_t sent = -1;
    while (sent < 0 && errno == EINTR) {
        sent = ::send(socket, bytes, length, MSG_NOSIGNAL | flags);
    }
    return sent >= 0;
}

[[gnu::cold]] ssize_t receivePacketAgain(int socket, void* buffer, size_t capacity, int flags) {
    // A peer that closed with something unread is told first, and once, as a reset.
    bool reset = false;
    ssize_t received = -1;
    while (received < 0 && (errno == EINTR || (errno == ECONNRESET && !reset))) {
        reset = reset || errno == ECONNRESET;
        received = ::recv(socket, buffer, capacity, MSG_TRUNC | flags);
    }
    return received;
}

bool sendPacket(int socket, const iovec* pieces, size_t count, int flags) {
    msghdr message{};
    message.msg_iov = const_cast<iovec*>(pieces);
    message.msg_iovlen = count;
    ssize_t sent = 0;
    do {
        sent = ::sendmsg(socket, &message, MSG_NOSIGNAL | flags);
    } while (sent < 0 && errno == EINTR);
    return sent >= 0;
}

size_t receivePacket(int socket, void* buffer, size_t capacity) {
    const ssize_t received = receivePacket(socket, buffer, capacity, 0);
    return received < 0 ? 0 : static_cast<size_t>(received);
}

} // namespace kq
