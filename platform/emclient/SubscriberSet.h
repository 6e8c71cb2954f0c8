#pragma once

#include <atomic>
#include <chrono>
#include <cstdint>
#include <map>
#include <optional>
#include <string>

#include "DeferredLog.h"
#include "Event.h"
#include "Poller.h"
#include "SubscriberLink.h"
#include "SubscriberRoom.h"

namespace keluem {

/** The subscribers of one publisher: finds them in the room, links to them and serves the links. Has no lock. */
class SubscriberSet {
public:
    using Clock = SubscriberLink::Clock;

    explicit SubscriberSet(std::atomic<std::uint64_t>& dropped) : mAround{mPoller, dropped}, mDropped(dropped) {}

    /** Returns 0 or a negative errno value. */
    int open() { return mPoller.open(); }

    /** What tells of work for `serve`; other descriptors that are added have null for an owner. */
    Poller& poller() { return mPoller; }

    /** True when there is no room to look into, or one without a watch that may be had by now. */
    bool needsRoom() const;
    void follow(SubscriberRoom room);

    /**
     * Does everything that can be done now: links to new subscribers, reads what the linked ones want, sends what waits
     * for them, forgets the dead.
     * @return 0 or a negative errno value, when there may be new subscribers that could not be found
     */
    int serve(DeferredLog& log);

    /** Does what was planned for now or earlier. */
    void catchUp(DeferredLog& log);

    /** Sends an event to every subscriber that wants it. */
    void send(const Event& event, DeferredLog& log);

    /** True, once, when something was planned since the last time. */
    bool planned();

    /** The time until something is to be done of which no descriptor tells, in milliseconds; -1 when nothing is. */
    int timeToPlan() const;

private:
    int findSubscribers(DeferredLog& log);
    void addSubscriber(const std::string& path, DeferredLog& log);
    void forget(const SubscriberLink& link);
    void leaveRoom();

    Poller mPoller;
    SubscriberLink::Surroundings mAround;
    std::atomic<std::uint64_t>& mDropped;
    std::optional<SubscriberRoom> mRoom;
    Clock::time_point mRoomOpened{};
    Clock::time_point mNextLook{};
    std::map<std::string, SubscriberLink> mLinks; // by the paths of their entries
    std::size_t mBeyondLimit = 0;
};

} // namespace keluem
