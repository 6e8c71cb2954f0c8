#pragma once

#include <keluem/publisher.h>
#include <sys/types.h>

#include <cstddef>
#include <cstdint>
#include <map>
#include <utility>
#include <vector>

#include "Event.h"
#include "socket/UniqueFd.h"

namespace keluem {

/** A received event, placed so that the payload is aligned for any type. */
struct EventPacket {
    static constexpr std::size_t kPayloadAt = alignof(std::max_align_t);

    /** A gap, the identifier, the payload. */
    alignas(std::max_align_t) unsigned char bytes[kPayloadAt + kMaxPayload];
    /** Of identifier and payload. */
    std::size_t size;

    unsigned char* start() { return bytes + kPayloadAt - kEventIdSize; }
    unsigned char* payload() { return bytes + kPayloadAt; }
    std::uint32_t id() const;
    std::size_t length() const { return size - kEventIdSize; }
};

/** A publisher's connection to this process. Never waits. */
class PublisherConnection {
public:
    enum class Received {
        Event,    /**< one, for this process to deliver if it has a listener */
        OldEvent, /**< one from before its module had a listener */
        Nothing,
        NoEvent, /**< a packet that cannot be one */
        End,
    };

    PublisherConnection(kq::UniqueFd socket, pid_t publisher) : mSocket(std::move(socket)), mPublisher(publisher) {}

    int fd() const { return mSocket.get(); }
    pid_t publisher() const { return mPublisher; }

    /** True when the publisher has closed the connection; what it has sent can still be received. */
    bool hungUp() const;

    /** From now on events of the module are new; those that wait to be received are old. Throws std::bad_alloc. */
    void startModule(std::uint32_t module);

    Received receive(EventPacket* packet);

    /**
     * Sees to it that the publisher sends all that this process wants by the packet of a list. One that sends
     * everything is told nothing. One that has much unread is told to: a publisher that stands still must not let lists
     * pile up until none can be sent.
     * @return 0, also when the publisher is gone, or a negative errno value
     */
    int tell(const std::vector<std::uint32_t>& list);

    /** Tells it the list whatever is unread. For a publisher that sends everything, once it has read. */
    int tellExactly(const std::vector<std::uint32_t>& list);

    /** True when the publisher has read so much that the system takes a list at any rate, which EPOLLOUT says as well.
     */
    bool hasSpace() const;

    /** True when the publisher sends everything, as it does until it is told a list. */
    bool vague() const { return mVague; }

private:
    bool isOld(std::uint32_t module) const;
    int send(const std::uint32_t* words, std::size_t count);

    kq::UniqueFd mSocket;
    pid_t mPublisher;
    std::uint64_t mReceived = 0;                         // bytes
    std::map<std::uint32_t, std::uint64_t> mModuleStart; // by module, in bytes received
    bool mVague = true;
};

} // namespace keluem
