#include "PublisherConnection.h"

#include <linux/sockios.h>
#include <poll.h>
#include <sys/ioctl.h>
#include <sys/socket.h>

#include <cerrno>
#include <cstring>
#include <iterator>

#include "ModuleList.h"

namespace keluem {

namespace {

/** Beyond this many bytes of unread lists, with what the system adds to each, a publisher counts as standing still. */
constexpr int kMaxUnread = 32 * 1024;

int bytesThat(unsigned long question, int socket) {
    int bytes = 0;
    return ::ioctl(socket, question, &bytes) == 0 ? bytes : 0;
}

} // namespace

std::uint32_t EventPacket::id() const {
    std::uint32_t id = 0;
    std::memcpy(&id, bytes + kPayloadAt - kEventIdSize, kEventIdSize);
    return id;
}

bool PublisherConnection::hungUp() const {
    pollfd state{mSocket.get(), 0, 0};
    return ::poll(&state, 1, 0) == 1;
}

bool PublisherConnection::hasSpace() const {
    pollfd state{mSocket.get(), POLLOUT, 0};
    return ::poll(&state, 1, 0) == 1 && (state.revents & POLLOUT) != 0;
}

void PublisherConnection::startModule(std::uint32_t module) {
    mModuleStart[module] = mReceived + static_cast<std::uint64_t>(bytesThat(SIOCINQ, mSocket.get()));
}

PublisherConnection::Received PublisherConnection::receive(EventPacket* packet) {
    constexpr std::size_t kMaxSize = kEventIdSize + kMaxPayload;
    ssize_t size = 0;
    do {
        size = ::recv(mSocket.get(), packet->start(), kMaxSize, MSG_DONTWAIT | MSG_TRUNC);
        // A publisher that left without reading its lists is told of once by ECONNRESET; what it has sent follows.
    } while (size < 0 && (errno == ECONNRESET || errno == EINTR));
    if (size <= 0) {
        return size < 0 && errno == EAGAIN ? Received::Nothing : Received::End;
    }
    packet->size = static_cast<std::size_t>(size);
    if (packet->size < kEventIdSize || packet->size > kMaxSize) {
        return Received::NoEvent;
    }
    const bool old = isOld(moduleOf(packet->id()));
    mReceived += packet->size;
    return old ? Received::OldEvent : Received::Event;
}

bool PublisherConnection::isOld(std::uint32_t module) const {
    const auto start = mModuleStart.find(module);
    return start != mModuleStart.end() && mReceived < start->second;
}

int PublisherConnection::tell(const std::vector<std::uint32_t>& list) {
    if (mVague) {
        return 0;
    }
    if (bytesThat(SIOCOUTQ, mSocket.get()) <= kMaxUnread) {
        return tellExactly(list);
    }
    const int error = send(ModuleList::kEverythingPacket, std::size(ModuleList::kEverythingPacket));
    mVague = error == 0;
    return error;
}

int PublisherConnection::tellExactly(const std::vector<std::uint32_t>& list) {
    const int error = send(list.data(), list.size());
    mVague = mVague && error != 0;
    return error;
}

int PublisherConnection::send(const std::uint32_t* words, std::size_t count) {
    if (::send(mSocket.get(), words, count * sizeof(*words), MSG_DONTWAIT | MSG_NOSIGNAL) >= 0) {
        return 0;
    }
    const bool gone = errno == EPIPE || errno == ECONNRESET || errno == ENOTCONN;
    return gone ? 0 : -errno;
}

} // namespace keluem
