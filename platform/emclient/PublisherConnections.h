#pragma once

#include <sys/types.h>

#include <cstddef>
#include <cstdint>
#include <list>
#include <vector>

#include "DeferredLog.h"
#include "Poller.h"
#include "PublisherConnection.h"

namespace keluem {

/** The publishers that are connected to this process. Has no lock. */
class PublisherConnections {
public:
    /** Most connections, in all and of one process; those that the process has closed count in all only. */
    static constexpr std::size_t kMost = 64;
    static constexpr std::size_t kMostOfOne = 4;

    /** Each connection is added to `poller`, which gives it as its owner. */
    explicit PublisherConnections(Poller& poller) : mPoller(poller) {}

    /**
     * Accepts the connections that wait, and closes those beyond the limits. Throws std::bad_alloc.
     * @return false when it is better to pause: nothing can be accepted, or it comes without end
     */
    bool accept(int listener, DeferredLog& log);

    /** As PublisherConnection::tell, of all. Returns 0 or the first error, a negative errno value. */
    int tell(const std::vector<std::uint32_t>& list);

    /** As PublisherConnection::startModule, of all. Throws std::bad_alloc. */
    void startModule(std::uint32_t module);

    /** As PublisherConnection::receive; closes a connection that has ended or carries something else than events. */
    PublisherConnection::Received receive(PublisherConnection& connection, EventPacket* packet, DeferredLog& log);

    /** To be called when a connection is said to have space: it is not said again. */
    void noteSpace(PublisherConnection& connection);

    /** Tells the list to those who send everything and have space. Of one that has none it is said when it has. */
    void tellVague(const std::vector<std::uint32_t>& list);

private:
    bool keep(kq::UniqueFd socket, pid_t publisher, DeferredLog& log);
    bool anyHungUp() const;
    bool mayConnect(pid_t publisher) const;
    bool add(kq::UniqueFd socket, pid_t publisher);
    void close(const PublisherConnection& connection);

    Poller& mPoller;
    std::list<PublisherConnection> mConnections;
    OncePerSecond mForeign;
    OncePerSecond mCrowd;
    OncePerSecond mNoEvent;
};

} // namespace keluem
