#include "tools/kelutv/events/EventQueue.h"

#include <sys/eventfd.h>
#include <unistd.h>

#include <utility>

namespace kelutv::tool {

EventQueue& EventQueue::instance() {
    static auto* const queue = new EventQueue;
    return *queue;
}

EventQueue::EventQueue() : mFd(::eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK)) {}

void EventQueue::put(std::uint32_t id, const void* payload, std::size_t length) {
    const auto* const bytes = static_cast<const std::uint8_t*>(payload);
    const std::lock_guard<std::mutex> lock(mMutex);
    mEvents.push_back({std::chrono::system_clock::now(), id, {bytes, bytes + length}});
    wake();
}

void EventQueue::putLoss() {
    const std::lock_guard<std::mutex> lock(mMutex);
    mLost = true;
    wake();
}

std::deque<ReceivedEvent> EventQueue::take() {
    const std::lock_guard<std::mutex> lock(mMutex);
    eventfd_t count = 0;
    ::eventfd_read(mFd, &count);
    return std::exchange(mEvents, {});
}

bool EventQueue::isLost() {
    const std::lock_guard<std::mutex> lock(mMutex);
    return mLost;
}

void EventQueue::wake() const { ::eventfd_write(mFd, 1); }

} // namespace kelutv::tool
