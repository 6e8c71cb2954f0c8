#pragma once

#include <atomic>
#include <chrono>
#include <cstdint>
#include <map>
#include <string>

#include "DeferredLog.h"
#include "Event.h"
#include "EventQueue.h"
#include "ModuleList.h"
#include "Poller.h"
#include "socket/UniqueFd.h"

namespace keluem {

/**
 * A publisher's link to one subscriber: the connection, what the subscriber wants, and the events that it has not taken
 * yet. Until the subscriber has told what it wants it is sent everything, and chooses itself. Never waits.
 */
class SubscriberLink {
public:
    using Clock = std::chrono::steady_clock;

    /** What the links of one publisher share. */
    struct Surroundings {
        Poller& poller;
        std::atomic<std::uint64_t>& dropped;
        OncePerSecond complaint{};
        /** Set when a link has planned something. */
        bool planned = false;
    };

    SubscriberLink(std::string path, Surroundings& surroundings) : mPath(std::move(path)), mAround(surroundings) {}
    ~SubscriberLink() { disconnect(); }
    SubscriberLink(const SubscriberLink&) = delete;
    SubscriberLink& operator=(const SubscriberLink&) = delete;

    /**
     * @name Each gives false when the link is of no more use: its subscriber is dead or another user's.
     * @{
     */

    /** Connects, or plans the next attempt when the subscriber lives and cannot be reached now. */
    bool connect(DeferredLog& log);

    /** Does what the connection is ready for; `events` are those of epoll. */
    bool serve(std::uint32_t events, DeferredLog& log);

    /** Does what is planned, if it is due. */
    bool catchUp(DeferredLog& log);
    /** @} */

    bool wants(std::uint32_t module) const { return mModules.wants(module); }

    /** Sends the event, or queues it behind those that wait. */
    void send(const Event& event, DeferredLog& log);

    /** True when something is to be done at a time of which no descriptor tells. */
    bool planned() const { return !mSocket || mShortage; }
    Clock::time_point due() const { return mDue; }

    const std::string& path() const { return mPath; }

private:
    enum class Outcome { Taken, Full, Shortage, Gone };

    bool refused(int error, DeferredLog& log);
    void plan(std::chrono::milliseconds pause);
    bool reconnect(DeferredLog& log);
    void disconnect();
    bool readLists(DeferredLog& log);
    bool readList(const void* packet, std::size_t size, DeferredLog& log);
    bool flush(DeferredLog& log);
    void watch();
    Outcome transmit(const Event& event, DeferredLog& log);
    void noteShortage();
    void enqueue(const Event& event, DeferredLog& log);
    void drop(const Event& event, DeferredLog& log);
    void countDropped(std::uint64_t events, DeferredLog& log);
    void countWanted(DeferredLog& log);

    std::string mPath;
    Surroundings& mAround;
    kq::UniqueFd mSocket;
    ModuleList mModules;
    bool mTold = false;                                    // what it wants
    std::map<std::uint32_t, std::uint64_t> mDroppedUntold; // events by their module, until it is known what it wants
    EventQueue mQueue;
    Clock::time_point mConnected{};
    Clock::time_point mDue{};
    std::chrono::milliseconds mPause{0};
    bool mShortage = false;
    bool mWatchedForSpace = false;
    bool mOverflowing = false;
};

} // namespace keluem
