#pragma once

#include "ServerConnection.h"

#include <memory>
#include <mutex>

namespace android {

/** Owns the connections on which nothing is under way; takes no memory. */
class ParkedConnections {
public:
    /** Takes a connection, which is then known by the pointer. */
    ServerConnection* park(std::unique_ptr<ServerConnection> connection);
    /** Hands out one that was parked. */
    std::unique_ptr<ServerConnection> take(ServerConnection* parked);

private:
    std::mutex mMutex;
    ServerConnection* mFirst = nullptr;
};

} // namespace android
