#include "PublisherConnections.h"

#include <android/log.h>

#include <algorithm>
#include <cerrno>
#include <functional>
#include <utility>

#include "socket/SeqPacket.h"

namespace keluem {

namespace {

constexpr std::uint32_t kWithSpace = EPOLLIN | EPOLLOUT;

} // namespace

bool PublisherConnections::accept(int listener, DeferredLog& log) {
    bool allKept = true;
    for (std::size_t accepted = 0; accepted < kMost; ++accepted) {
        if (mConnections.size() == kMost && anyHungUp()) {
            return false; // there will be space when what those have sent is received
        }
        kq::Peer peer{};
        kq::UniqueFd socket = kq::acceptFrom(listener, &peer, kq::Waiting::Never);
        const int error = socket ? 0 : errno;
        if (error == EAGAIN) {
            return allKept;
        }
        if (error == EACCES && mForeign.due()) {
            log.add(ANDROID_LOG_ERROR, "publisher of uid %u refused", static_cast<unsigned int>(peer.uid));
        } else if (error != 0 && error != EACCES && error != ECONNABORTED && error != EINTR) {
            return false;
        }
        allKept = (socket && keep(std::move(socket), peer.pid, log)) && allKept;
    }
    return false;
}

/** False when the connection was closed at once. */
bool PublisherConnections::keep(kq::UniqueFd socket, pid_t publisher, DeferredLog& log) {
    if (mayConnect(publisher)) {
        return add(std::move(socket), publisher);
    }
    if (mCrowd.due()) {
        log.add(ANDROID_LOG_ERROR, "publisher of pid %d has too many connections: closed", publisher);
    }
    return false;
}

bool PublisherConnections::anyHungUp() const {
    return std::any_of(mConnections.begin(), mConnections.end(), std::mem_fn(&PublisherConnection::hungUp));
}

bool PublisherConnections::mayConnect(pid_t publisher) const {
    const auto living = std::count_if(mConnections.begin(), mConnections.end(), [=](const PublisherConnection& each) {
        return each.publisher() == publisher && !each.hungUp();
    });
    return mConnections.size() < kMost && static_cast<std::size_t>(living) < kMostOfOne;
}

bool PublisherConnections::add(kq::UniqueFd socket, pid_t publisher) {
    PublisherConnection& added = mConnections.emplace_back(std::move(socket), publisher);
    if (!mPoller.add(added.fd(), kWithSpace, &added)) {
        mConnections.pop_back();
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
        const bool wasVague = connection.vague();
        const int error = connection.tell(list);
        first = first == 0 ? error : first;
        if (connection.vague() && !wasVague) {
            mPoller.change(connection.fd(), kWithSpace, &connection);
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
    if (received == Received::NoEvent && mNoEvent.due()) {
        log.add(ANDROID_LOG_ERROR, "publisher of pid %d sent %zu bytes, which is no event: closed",
                connection.publisher(), packet->size);
    }
    if (received == Received::NoEvent || received == Received::End) {
        close(connection);
    }
    return received;
}

void PublisherConnections::noteSpace(PublisherConnection& connection) {
    mPoller.change(connection.fd(), EPOLLIN, &connection);
}

void PublisherConnections::tellVague(const std::vector<std::uint32_t>& list) {
    for (PublisherConnection& connection : mConnections) {
        if (connection.vague() && (!connection.hasSpace() || connection.tellExactly(list) != 0)) {
            mPoller.change(connection.fd(), kWithSpace, &connection);
        }
    }
}

} // namespace keluem
