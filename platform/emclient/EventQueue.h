#pragma once

#include <keluem/publisher.h>

#include <cstddef>
#include <cstdint>
#include <deque>
#include <vector>

#include "Event.h"

namespace keluem {

/** Events that wait for one subscriber, within the bounds that publisher.h states. */
class EventQueue {
public:
    bool empty() const { return mEntries.empty(); }

    /** Adds a copy of an event. Throws std::bad_alloc. */
    void push(const Event& event);

    /** True when the oldest event has to go. */
    bool overfull() const { return mEntries.size() > kMaxQueuedEvents || mPayloadBytes > kMaxQueuedPayload; }

    /** The oldest event; points into the queue. */
    Event front() const;
    void pop();

private:
    struct Entry {
        std::uint32_t id;
        std::vector<unsigned char> payload;
    };

    std::deque<Entry> mEntries;
    std::size_t mPayloadBytes = 0;
};

} // namespace keluem
