#include "PublisherConnections.h"

#include <android/log.h>

#include <algorithm>
#include <cerrno>
#include <utility>

#include "socket/SeqPacket.h"

namespace keluem {

bool PublisherConnections::accept(int listener, const std::vector<std::uint32_t>& list, DeferredLog& log) {
    for (std::size_t accepted = 0; accepted < kMost; ++accepted) {
        kq::Peer peer{};
        kq::UniqueFd socket = kq::acceptFrom(listener, &peer, kq::Waiting::Never);
        if (!socket && errno == EAGAIN) {
            return true;
        }
        if (!socket && errno != EACCES && errno != ECONNABORTED && errno != EINTR) {
            return false;
        }
        if (!socket && errno == EACCES && mComplaint.due()) {
            log.add(ANDROID_LOG_ERROR, "publisher of uid %u refused", static_cast<unsigned int>(peer.uid));
        }
        if (socket && !mayConnect(peer.pid)) {
            if (mComplaint.due()) {
                log.add(ANDROID_LOG_ERROR, "publisher of pid %d has too many connections: closed", peer.pid);
            }
            return false;
        }
        if (socket && !add(std::move(socket), peer.pid, list)) {
            return false;
        }
    }
    return false;
}

bool PublisherConnections::mayConnect(pid_t publisher) const {
    const auto ofOne = std::count_if(mConnections.begin(), mConnections.end(),
                                     [=](const PublisherConnection& each) { return each.publisher() == publisher; });
    return mConnections.size() < kMost && static_cast<std::size_t>(ofOne) < kMostOfOne;
}

bool PublisherConnections::add(kq::UniqueFd socket, pid_t publisher, const std::vector<std::uint32_t>& list) {
    PublisherConnection& added = mConnections.emplace_back(std::move(socket), publisher);
    if (!mPoller.add(added.fd(), EPOLLIN, &added)) {
        mConnections.pop_back();
        return false;
    }
    if (added.tell(list) != 0) {
        close(added);
        return false;
    }
    return true;
}

void PublisherConnections::close(const PublisherConnection& connection) {
    mPoller.remove(connection.fd());
    mConnections.remove_if([&](const PublisherConnection& each) { return &each == &connection; });
}

int PublisherConnections::tell(const std::vector<std::uint32_t>& list) {
    int first = 0;
    for (PublisherConnection& connection : mConnections) {
        const int error = connection.tell(list);
        first = first == 0 ? error : first;
        if (connection.vague()) {
            mPoller.change(connection.fd(), EPOLLIN | EPOLLOUT, &connection);
        }
    }
    return first;
}

void PublisherConnections::startModule(std::uint32_t module) {
    for (PublisherConnection& connection : mConnections) {
        connection.startModule(module);
    }
}

PublisherConnection::Received PublisherConnections::receive(PublisherConnection& connection, EventPacket* packet,
                                                            DeferredLog& log) {
    using Received = PublisherConnection::Received;
    const Received received = connection.receive(packet);
    if (received == Received::NoEvent && mComplaint.due()) {
        log.add(ANDROID_LOG_ERROR, "publisher of pid %d sent %zu bytes, which is no event: closed",
                connection.publisher(), packet->size);
    }
    if (received == Received::NoEvent || received == Received::End) {
        close(connection);
    }
    return received;
}

void PublisherConnections::catchUp(PublisherConnection& connection, const std::vector<std::uint32_t>& list) {
    mPoller.change(connection.fd(), EPOLLIN, &connection);
    if (connection.vague()) {
        static_cast<void>(connection.tellExactly(list));
    }
}

} // namespace keluem
