#include "EventQueue.h"

namespace keluem {

void EventQueue::push(const Event& event) {
    const auto* bytes = static_cast<const unsigned char*>(event.payload);
    mEntries.push_back({event.id, std::vector<unsigned char>(bytes, bytes + event.length)});
    mPayloadBytes += event.length;
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
