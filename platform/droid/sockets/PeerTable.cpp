#include "PeerTable.h"

#include "Limits.h"

#include <sys/resource.h>

#include <algorithm>
#include <new>

namespace android {

namespace {

/** The most connections that this process may have as a server, as its descriptor limit is now. */
size_t mostConnections() {
    rlimit limit{};
    if (::getrlimit(RLIMIT_NOFILE, &limit) != 0) {
        return 0;
    }
    const rlim_t reserved = std::min<rlim_t>(kReservedDescriptors, limit.rlim_cur / 2);
    return static_cast<size_t>(limit.rlim_cur - reserved);
}

} // namespace

std::unique_ptr<PeerTable::Place> PeerTable::enter(pid_t process) {
    const size_t most = mostConnections();
    const std::lock_guard<std::mutex> lock(mMutex);
    try {
        Peer& peer = mPeers[process];
        if (mConnections < most && peer.connections < std::max<size_t>(most / 2, 1)) {
            auto place = std::make_unique<Place>(*this, process, peer);
            ++mConnections;
            ++peer.connections;
            return place;
        }
    } catch (const std::bad_alloc&) {
        // No memory is one more reason for having no place.
    }
    if (const auto peer = mPeers.find(process); peer != mPeers.end() && peer->second.connections == 0) {
        mPeers.erase(peer);
    }
    return nullptr;
}

void PeerTable::leave(pid_t process) {
    const std::lock_guard<std::mutex> lock(mMutex);
    const auto peer = mPeers.find(process);
    --mConnections;
    if (--peer->second.connections == 0) {
        mPeers.erase(peer);
    }
}

} // namespace android
