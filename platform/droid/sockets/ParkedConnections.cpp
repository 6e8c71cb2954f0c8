#include "ParkedConnections.h"

#include <utility>

namespace android {

ServerConnection* ParkedConnections::park(std::unique_ptr<ServerConnection> connection) {
    ServerConnection* const parked = connection.release();
    const std::lock_guard<std::mutex> lock(mMutex);
    parked->nextParked = mFirst;
    if (mFirst != nullptr) {
        mFirst->previousParked = parked;
    }
    mFirst = parked;
    return parked;
}

std::unique_ptr<ServerConnection> ParkedConnections::take(ServerConnection* parked) {
    const std::lock_guard<std::mutex> lock(mMutex);
    ServerConnection* const next = std::exchange(parked->nextParked, nullptr);
    ServerConnection* const previous = std::exchange(parked->previousParked, nullptr);
    (previous == nullptr ? mFirst : previous->nextParked) = next;
    if (next != nullptr) {
        next->previousParked = previous;
    }
    return std::unique_ptr<ServerConnection>(parked);
}

} // namespace android
