#pragma once

#include <atomic>
#include <cstdint>
#include <string>
#include <vector>

#include "Event.h"
#include "EventQueue.h"
#include "socket/UniqueFd.h"

namespace keluem {

/** A publisher's connection to one subscriber, and the events that the subscriber has not taken yet. Never waits. */
class SubscriberLink {
public:
    enum class Attempt {
        Connected,
        Later,   /**< alive but not to be reached now; events are queued meanwhile */
        Dead,    /**< nobody listens at the entry */
        Foreign, /**< the entry is another user's */
    };

    SubscriberLink(std::string path, std::atomic<std::uint64_t>& dropped) : mPath(std::move(path)), mDropped(dropped) {}

    Attempt connect();

    /** Learns which modules the subscriber wants. */
    void readModules();

    bool wants(std::uint32_t module) const;

    /** Sends the event, or queues it behind those that wait. False when the subscriber is gone. */
    bool send(const Event& event);

    /** Sends as many of the waiting events as the subscriber takes. False when it is gone. */
    bool flush();

    bool waiting() const { return !mQueue.empty(); }

    /** The connection, or -1 when it does not stand yet. */
    int fd() const { return mSocket.get(); }

private:
    enum class Outcome { Taken, Full, Gone };

    bool connected();
    Outcome transmit(const Event& event);
    void enqueue(const Event& event);
    void countDropped(std::size_t events);

    std::string mPath;
    std::atomic<std::uint64_t>& mDropped;
    std::vector<std::uint32_t> mModules;
    kq::UniqueFd mSocket;
    EventQueue mQueue;
    bool mOverflowing = false;
};

} // namespace keluem
