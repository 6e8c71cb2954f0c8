#pragma once

#include "tools/kelutv/text/Hex.h"

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <deque>
#include <mutex>
#include <vector>

namespace kelutv::tool {

struct ReceivedEvent {
    std::chrono::system_clock::time_point time;
    std::uint32_t id;
    Bytes payload;
};

/** Takes events over from the threads that deliver them. */
class EventQueue {
public:
    /** The one of the process; lives to its end, since events may come to the last. */
    static EventQueue& instance();

    /** Readable when there is something to take. */
    int fd() const { return mFd; }

    void put(std::uint32_t id, const void* payload, std::size_t length);

    /** No event will come any more. */
    void putLoss();

    std::deque<ReceivedEvent> take();
    bool isLost();

private:
    EventQueue();
    void wake() const;

    int mFd;
    std::mutex mMutex;
    std::deque<ReceivedEvent> mEvents;
    bool mLost = false;
};

} // namespace kelutv::tool
