#include "EventQueue.h"

#include <keluem/publisher.h>

namespace keluem {

std::size_t EventQueue::push(const Event& event) {
    const auto* bytes = static_cast<const unsigned char*>(event.payload);
    mEntries.push_back({event.id, std::vector<unsigned char>(bytes, bytes + event.length)});
    mPayloadBytes += event.length;
    std::size_t dropped = 0;
    while (mEntries.size() > kMaxQueuedEvents || mPayloadBytes > kMaxQueuedPayload) {
        pop();
        ++dropped;
    }
    return dropped;
}

Event EventQueue::front() const {
    const Entry& oldest = mEntries.front();
    return {oldest.id, oldest.payload.data(), oldest.payload.size()};
}

void EventQueue::pop() {
    mPayloadBytes -= mEntries.front().payload.size();
    mEntries.pop_front();
}

} // namespace keluem
