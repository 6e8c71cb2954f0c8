#pragma once

#include "bench/support/Child.h"

#include <cstddef>
#include <vector>

namespace kelutv::bench {

/** Processes that listen to events, and as the floor to packets of the same bytes on sockets of their own. */
class EventListeners {
public:
    static constexpr unsigned int kEvent = 0x7F0001;
    /** The events, or packets, of one burst: fewer than wait for a listener at the most. */
    static constexpr int kBurst = 256;

    /** Returns when all of them listen. A slow one takes a millisecond for each event, and nobody waits for it. */
    EventListeners(size_t count, bool oneIsSlow, size_t packetBytes);
    ~EventListeners();
    EventListeners(const EventListeners&) = delete;
    EventListeners& operator=(const EventListeners&) = delete;

    void pin() const;
    /** Sends one packet to each; the slow one goes without when it has too many. */
    void sendBare() const;
    /** Waits until all that are not slow have had a burst. */
    void awaitBurst() const;

private:
    struct Shared;

    bool isSlow(size_t listener) const { return mOneIsSlow && listener == 0; }
    void waitForAll(size_t count) const;

    const bool mOneIsSlow;
    const std::vector<char> mPacket;
    Shared* mShared;
    std::vector<int> mSockets;
    std::vector<Child> mProcesses;
};

} // namespace kelutv::bench
