#pragma once

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

    /** Adds a copy of an event; returns how many of the oldest had to go for it. Throws std::bad_alloc. */
    std::size_t push(const Event& event);

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
